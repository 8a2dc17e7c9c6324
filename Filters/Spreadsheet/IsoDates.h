#pragma once

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/DateSystem.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

using DOM::DateSystem;

/// Reads a date of ISO 8601 as the number that a workbook's cells keep: days, and the time as a part of the
/// day.
///
///     DATETIME ::= DATE | DATE "T" TIME | TIME
///     DATE     ::= YYYY "-" MM "-" DD
///     TIME     ::= hh ":" mm (":" ss ("." DIGIT+)?)? "Z"?
///
/// In the system of 1900, 1899-12-30 and 1899-12-31 are both day 0.
///
/// @return nothing where the text is no such date, or the date lies before the system's first day
FILTERS_API boost::optional<double> convertIsoDateToSerial(const std::string& text, DateSystem system);

} // namespace QV::Filters
