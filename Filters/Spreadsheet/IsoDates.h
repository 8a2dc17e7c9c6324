#pragma once

#include <string>

#include <boost/optional.hpp>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The day number 0 of a workbook's dates.
enum class DateSystem
{
    From1900, // day 1 is 1900-01-01, and 1900 counts as a leap year; 1899-12-30 and -31 are both day 0
    From1904, // day 0 is 1904-01-01
};

/// Reads a date of ISO 8601 as the number that a workbook's cells keep: days, and the time as a part of the
/// day.
///
///     DATETIME ::= DATE | DATE "T" TIME | TIME
///     DATE     ::= YYYY "-" MM "-" DD
///     TIME     ::= hh ":" mm (":" ss ("." DIGIT+)?)? "Z"?
///
/// @return nothing where the text is no such date, or the date lies before the system's first day
FILTERS_API boost::optional<double> convertIsoDateToSerial(const std::string& text, DateSystem system);

} // namespace QV::Filters
