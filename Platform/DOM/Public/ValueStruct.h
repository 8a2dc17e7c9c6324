#pragma once

#include <cstddef>

#include <boost/functional/hash.hpp>

namespace QV::DOM {

/// What a plain struct needs to be compared and hashed by its members, once it ties them:
///
///     struct Site : ValueStruct<Site>
///     {
///         std::string x;
///         std::string y;
///         auto tie() const { return std::tie(x, y); }
///     };
template <typename Derived>
struct ValueStruct
{
    friend bool operator==(const Derived& a, const Derived& b) { return a.tie() == b.tie(); }
    friend bool operator!=(const Derived& a, const Derived& b) { return !(a == b); }
    friend std::size_t hash_value(const Derived& value)
    {
        const auto members = value.tie();
        return boost::hash<decltype(value.tie())>()(members);
    }
};

} // namespace QV::DOM
