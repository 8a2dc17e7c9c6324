#pragma once

/// @file
/// Dates and times laid out over the tokens of a section.

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/CellFormatModel.h>
#include <DOM/Public/DateSystem.h>

namespace QV::OfficeUtils {

/// The names of months, January first, and of weekdays, Sunday first.
struct DateNames
{
    std::string months[12];
    std::string shortMonths[12];
    std::string weekdays[7];
    std::string shortWeekdays[7];
    std::string dayParts[2]; // morning and afternoon, where they are not in Latin script; else empty
};

/// The names in the language of a section. English where the section names none, or one that is not known.
std::shared_ptr<const DateNames> findDateNames(const DOM::CellFormatModel::Rule& rule);

/// Days before the first of the date system are counted back, in the Gregorian calendar. A section with
/// elapsed time shows its sign, and the minutes and seconds that go with it; other times are those of their
/// day: six hours before a day begins it is 18:00 of the one before.
///
/// @return nothing for a day before the year 1 or after 9999 where the section shows days, and for 1e14 days
///     and more
boost::optional<std::string> formatDateTime(
    double serial, const DOM::CellFormatModel::Rule& rule, DOM::DateSystem system, const DateNames& names);

} // namespace QV::OfficeUtils
