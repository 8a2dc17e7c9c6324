#pragma once

/// @file
/// A workbook of the model as JSON.

#include <iosfwd>

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// Writes the run's document: an object with "format", "tables", "links" and "media". Lengths are points.
/// The tables' ids are drawn from the run.
FILTERS_API void writeSpreadsheetJson(FilterRun& run, std::ostream& out);

} // namespace QV::Filters
