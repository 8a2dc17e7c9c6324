#pragma once

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// Finishes the formulas of the run's document, once all of its tables are there: names of tables become
/// identifiers in the formulas of cells, charts and defined names, whatever the case of their letters; those
/// of tables in other documents stay. The documents that cells refer to are noted as links, in byte order.
/// Message, for the first thousand of such documents:
///     - "Formulas refer to document {}, whose address is not known": a number is in its place
FILTERS_API void resolveFormulaNames(FilterRun& run);

} // namespace QV::Filters
