#pragma once

/// @file
/// A chart of the model as JSON.

#include <Filters/Package/Export.h>

namespace QV::DOM {
class ChartSpace;
}

namespace QV::Formulas {
class TableContext;
}

namespace QV::Filters {

class JsonWriter;

/// Writes the members of a chart into the object that is open: "kind" (always "chart"), "type" (of the first
/// chart of the plot area), "title" (as it is shown), "titleReference" and "series".
///
/// A member of "series" has "type" (where it differs from the chart's), "name", "nameText", "categories" and
/// "values". References are texts, with the current names of tables in @p tables; several are one list in
/// parentheses. Constants stand as "nameText", "literalCategories" and "literalValues".
FILTERS_API void writeChart(
    const DOM::ChartSpace& chart, const Formulas::TableContext& tables, JsonWriter& json);

} // namespace QV::Filters
