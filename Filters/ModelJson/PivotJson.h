#pragma once

/// @file
/// Pivot tables of the model as JSON.

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Table;
}

namespace QV::Filters {

class JsonWriter;

/// Writes the member "pivotTables" into the object that is open: an array of objects with "name" and "range",
/// the cells that the pivot table covers.
FILTERS_API void writePivotTables(const DOM::Table& table, JsonWriter& json);

} // namespace QV::Filters
