#pragma once

/// @file
/// Years that are counted from the beginning of an era.

#include <cstdint>
#include <string>

#include <boost/optional.hpp>

namespace QV::OfficeUtils {

/// The era of a day, and the year in it.
struct EraYear
{
    int year;
    std::string initial; ///< "R"
    std::string name;    ///< "令和"
};

/// The era of a day in the calendar of a language; nothing where that is the Gregorian one.
///
/// @param days after 1970-01-01
/// @param language a locale identifier (LCID): Japanese has its emperors' eras, Chinese of Taiwan the
/// Republic's
boost::optional<EraYear> findEraYear(std::int64_t days, unsigned long language);

} // namespace QV::OfficeUtils
