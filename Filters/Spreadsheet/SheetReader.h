#pragma once

#include <string>
#include <vector>

#include <Filters/Package/Export.h>
#include <Filters/Spreadsheet/SheetLinks.h>

namespace QV::DOM {
class Table;
}

namespace QV::Filters {

class Colors;
class FilterRun;
class Package;
struct WorkbookContext;

/// What a sheet part refers to, for others to read.
struct SheetReferences
{
    std::string drawingId; ///< of the relationship; empty where the sheet has no drawing
    std::vector<SheetLink> links;
    std::vector<std::string> tableIds; ///< of the relationships to the tables within the sheet
};

/// Reads a worksheet part into a table, as a stream: a sheet of any size costs only what its table does.
/// A part that is broken is reported, and leaves what came before the damage; one that is no worksheet leaves
/// nothing but the message "Part {} is no worksheet". Throws PackageError for a refused part.
FILTERS_API SheetReferences readSheet(Package& package, const std::string& part,
    const WorkbookContext& workbook, const Colors& colors, DOM::Table& table, FilterRun& run);

} // namespace QV::Filters
