#pragma once

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;
class Package;

/// Reads the workbook of a package into the run's document: a table for each worksheet, in their order.
///
/// What is wrong in a part other than the workbook itself is reported to the run, and the rest comes in.
/// Throws PackageError where the package holds no workbook, the workbook cannot be read, or the package is
/// refused; the document may hold some tables then.
FILTERS_API void importSpreadsheet(Package& package, FilterRun& run);

} // namespace QV::Filters
