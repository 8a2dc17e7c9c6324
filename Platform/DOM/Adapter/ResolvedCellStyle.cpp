#include <DOM/Public/Adapter/ResolvedCellStyle.h>

#include <DOM/Public/Table.h>

namespace QV::Adapter {

const DOM::CellStyle& getResolvedCellStyle(const CellInfo& cell, const DOM::Styles&)
{
    static const DOM::CellStyle empty;
    if (const DOM::SharedCellStyle& own = cell.getCell().getSharedStyle())
        return *own;
    const DOM::Table& table = cell.getTable();
    // The table shares the styles, so they outlive the copies of its properties.
    if (const DOM::SharedCellStyle style = table.getRowProps(cell.getRowIndex()).getSharedCellStyle())
        return *style;
    if (const DOM::SharedCellStyle style = table.getColumnProps(cell.getColIndex()).getSharedCellStyle())
        return *style;
    return empty;
}

} // namespace QV::Adapter
