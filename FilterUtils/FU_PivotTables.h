#pragma once

/// @file
/// Where pivot tables lie.

#include <DOM/Public/FormulaReferences.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::DOM {
class PivotTable;
class Table;
} // namespace QV::DOM

namespace QV::FilterUtils {

/// The cells of @p table that @p pivotTable covers when its top-left cell is @p topLeft: a range of plain
/// indices in the formula's own document, on the table by its identifier.
///
///     pivotTable.setSize({3, 2});
///     resolvePivotTableTargetRange(table, pivotTable, {RowIndex(4), ColumnIndex(1)});    // B5:D6
///
/// The size is taken as two unsigned 32-bit numbers and not checked: width or height 0 gives a range that
/// ends before it begins (with the largest index before row or column 0), a negative one gives a range far
/// beyond every table. Formulas::isValidRange refuses both.
FILTERUTILS_API DOM::FormulaSyntaxTree::CellRange resolvePivotTableTargetRange(
    const DOM::Table& table, const DOM::PivotTable& pivotTable, const CellIndex& topLeft);

} // namespace QV::FilterUtils
