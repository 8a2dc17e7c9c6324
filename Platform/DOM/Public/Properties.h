#pragma once

/// @file
/// What every set of optional properties can do, once a class lists its fields:
///
///     class ParaProps
///     {
///     public:
///         static constexpr auto getFields() { return std::make_tuple(&ParaProps::_leftIndent, ...); }
///     };
///
/// A field is a boost::optional or a pointer to something that compares by == and hashes by hash_value: it is
/// set when it converts to true. Fields compare and hash by the values that they hold or lead to.

#include <cstddef>
#include <tuple>
#include <type_traits>

#include <boost/functional/hash.hpp>

#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

template <typename Props, typename = void>
struct HasFields : std::false_type
{
};

template <typename Props>
struct HasFields<Props, decltype(static_cast<void>(Props::getFields()))> : std::true_type
{
};

template <typename Props, typename Result = void>
using EnableIfProps = std::enable_if_t<HasFields<Props>::value, Result>;

/// Calls @p visit with a pointer to each field, in the order in which the class lists them.
template <typename Props, typename Visit, typename = EnableIfProps<Props>>
void forEachField(Visit&& visit)
{
    std::apply([&visit](auto... field) { (visit(field), ...); }, Props::getFields());
}

/// True when no field is set.
template <typename Props, typename = EnableIfProps<Props>>
bool isEmpty(const Props& props)
{
    bool empty = true;
    forEachField<Props>([&](auto field) { empty = empty && !(props.*field); });
    return empty;
}

/// Whether two fields hold, or lead to, equal values; or both nothing.
template <typename Field>
bool areFieldsEqual(const Field& a, const Field& b)
{
    if constexpr (IsPointer<Field>::value)
        return pointeesEqual(a, b);
    else
        return a == b;
}

/// True when the same fields are set, to equal values.
template <typename Props, typename = EnableIfProps<Props>>
bool areEqual(const Props& a, const Props& b)
{
    bool equal = true;
    forEachField<Props>([&](auto field) { equal = equal && areFieldsEqual(a.*field, b.*field); });
    return equal;
}

template <typename Props, typename = EnableIfProps<Props>>
std::size_t hashProps(const Props& props)
{
    std::size_t seed = 0;
    forEachField<Props>([&](auto field) {
        const auto& value = props.*field;
        boost::hash_combine(seed, static_cast<bool>(value));
        if (value)
            boost::hash_combine(seed, *value);
    });
    return seed;
}

/// Lays @p source over @p target: the fields that it sets replace those of the target.
template <typename Props, typename = EnableIfProps<Props>>
void override(Props& target, const Props& source)
{
    forEachField<Props>([&](auto field) {
        if (source.*field)
            target.*field = source.*field;
    });
}

/// Takes away from @p target what @p source gives as well: the fields that both set to equal values. All
/// others stay.
template <typename Props, typename = EnableIfProps<Props>>
void exclude(Props& target, const Props& source)
{
    forEachField<Props>([&](auto field) {
        if (areFieldsEqual(target.*field, source.*field))
            (target.*field).reset();
    });
}

} // namespace QV::DOM
