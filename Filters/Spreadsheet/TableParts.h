#pragma once

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}
namespace QV::DOM {
class Table;
}

namespace QV::Filters {

/// Reads the root element of a table within a sheet: its name, the cells that it takes and the name of its
/// style become a styled range of @p table. One without a range of the sheet is reported and left out; the
/// invalid view is passed over.
FILTERS_API void readTablePart(
    const FilterUtils::XMLElement& part, DOM::Table& table, OperationReport& report);

} // namespace QV::Filters
