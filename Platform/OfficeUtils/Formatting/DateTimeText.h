#pragma once

/// @file
/// Dates and times laid out over the tokens of a section.

#include <memory>
#include <string>

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
};

/// The names in the language of a section. English where the section names none, or one that is not known.
std::shared_ptr<const DateNames> findDateNames(const DOM::CellFormatModel::Rule& rule);

/// Whether the date system has the day of a serial number.
bool isDateTime(double serial, DOM::DateSystem system);

/// @param serial which isDateTime() accepts; its sign is shown
std::string formatDateTime(
    double serial, const DOM::CellFormatModel::Rule& rule, DOM::DateSystem system, const DateNames& names);

} // namespace QV::OfficeUtils
