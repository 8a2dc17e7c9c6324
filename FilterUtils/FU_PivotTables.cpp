#include <FilterUtils/FU_PivotTables.h>

#include <string>

#include <DOM/Public/PivotTable.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_Errors.h>

namespace QV::FilterUtils {
namespace {

// Both ends are included.
unsigned long findLast(unsigned long first, int count)
{
    return first + static_cast<unsigned int>(count) - numCast<unsigned long>(1);
}

} // namespace

DOM::FormulaSyntaxTree::CellRange resolvePivotTableTargetRange(
    const DOM::Table& table, const DOM::PivotTable& pivotTable, const CellIndex& topLeft)
{
    namespace Tree = DOM::FormulaSyntaxTree;

    const Size2D<int>& size = pivotTable.getSize();
    const RowIndex lastRow(findLast(topLeft.getRow().get(), size.getHeight()));
    const ColumnIndex lastColumn(findLast(topLeft.getColumn().get(), size.getWidth()));
    return Tree::CellRange(Tree::EmptyDocumentAddress, table.getUUID(), std::string(),
        Tree::ColumnAxis(topLeft.getColumn(), lastColumn), Tree::RowAxis(topLeft.getRow(), lastRow));
}

} // namespace QV::FilterUtils
