#include <DOM/Public/Adapter/TableDimensions.h>

#include <DOM/Public/CellRow.h>
#include <DOM/Public/Table.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Adapter {

TableDimensions getTableDimensionsInfo(const DOM::Table& table)
{
    const float rowHeight = table.getDefaultRowHeight();
    const float columnWidth = table.getDefaultColumnWidth();
    std::vector<RowDimensions> rows(table.getRowPropsEnd().get(), RowDimensions(rowHeight, false));
    table.forEachRowProps([&](RowIndex row, const DOM::RowProps& props) {
        if (props.hasSize()) // a row may have a style alone, and then it may stand beyond all sizes
            rows[row.get()] = RowDimensions(props.getHeight().value_or(rowHeight), props.isHidden());
    });

    std::vector<ColumnDimensions> columns;
    const unsigned long columnsEnd = table.getColumnPropsEnd().get();
    columns.reserve(columnsEnd);
    for (unsigned long i = 0; i < columnsEnd; ++i) {
        const DOM::ColumnProps props = table.getColumnProps(ColumnIndex(i));
        columns.emplace_back(props.getWidth().value_or(columnWidth), props.isHidden());
    }
    return {rowHeight, columnWidth, std::move(rows), std::move(columns)};
}

} // namespace QV::Adapter
