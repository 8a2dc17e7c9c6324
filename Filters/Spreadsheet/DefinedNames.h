#pragma once

#include <vector>

#include <Filters/Spreadsheet/Workbook.h>

namespace QV::DOM {
class Table;
}

namespace QV::Filters {

class FilterRun;
struct FormulaContext;

/// Puts the names that the workbook part lists into the document. Messages:
///     - "Defined name {} has a formula that cannot be read; its text is kept: {}"
///     - "Defined name {} belongs to sheet {}, which there is not": the name is left out
/// Of each, the first thousand.
///
/// @param tables those of the sheets, in the order of the workbook; null for a sheet that is none
void readDefinedNames(const std::vector<NameEntry>& names, const std::vector<const DOM::Table*>& tables,
    FormulaContext& formulas, FilterRun& run);

} // namespace QV::Filters
