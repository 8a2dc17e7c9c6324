#pragma once

#include <boost/utility/string_ref.hpp>

#include <Utils/Public/Export.h>

namespace QV {

/// Orders text by its bytes, with "A" to "Z" taken as "a" to "z"; other letters keep their case. Independent
/// of every locale.
///
///     std::map<std::string, int, CaseInsensitiveLess> names; // finds "Title" under "TITLE"
///
/// Transparent: ordered containers of std::string are searched by a view without a copy.
struct UTILS_API CaseInsensitiveLess
{
    using is_transparent = void;

    bool operator()(boost::string_ref a, boost::string_ref b) const;
};

} // namespace QV
