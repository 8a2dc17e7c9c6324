#pragma once

/// @file
/// The frames of a table as JSON.

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Table;
}

namespace QV::Formulas {
class TableContext;
}

namespace QV::Filters {

class JsonWriter;

/// Writes an array with an object for each frame, from back to front: what it shows, its anchor, and its box
/// in points.
FILTERS_API void writeFramesJson(
    const DOM::Table& table, const Formulas::TableContext& tables, JsonWriter& json);

} // namespace QV::Filters
