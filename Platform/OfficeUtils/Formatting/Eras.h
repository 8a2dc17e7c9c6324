#pragma once

/// @file
/// Years that are counted from the beginning of an era.

#include <cstdint>
#include <string>

#include <boost/optional.hpp>

namespace QV::OfficeUtils {

/// The era of a day, and the year in it. The names are "R", "令" and "令和"; Chinese has two of them.
struct EraYear
{
    int year;
    std::string initial;   ///< "g" of a format code
    std::string shortName; ///< "gg"
    std::string name;      ///< "ggg"
};

/// The era of a day: in Japanese an emperor's, from 1868 on; in Chinese of Taiwan the Republic's, or the time
/// before it. Nothing for other languages and days, and where ICU has no calendar to offer.
///
/// @param days after 1970-01-01
/// @param language a locale identifier (LCID)
boost::optional<EraYear> findEraYear(std::int64_t days, unsigned long language);

} // namespace QV::OfficeUtils
