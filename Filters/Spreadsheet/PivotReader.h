#pragma once

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/PivotTable.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;
class Package;

/// Reads a pivot table's part: its name, and the cells of its sheet that it covers. Filters of the whole
/// pivot table, which stand above these cells, are not among them.
///
/// Messages:
///     - "Part {} is no pivot table"
///     - "Pivot table {} has no place {} on a sheet"
///
/// @return nothing after such a message, or one of readXml. Throws PackageError as readXml does.
FILTERS_API boost::optional<DOM::PivotTable> readPivotTable(
    Package& package, const std::string& part, FilterRun& run);

} // namespace QV::Filters
