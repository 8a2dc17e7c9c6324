#include <FilterUtils/FU_TableDimensionsInfo.h>

#include <DOM/Public/Adapter/TableDimensions.h>

namespace QV::FilterUtils {

TableDimensionsInfo getTableDimensionsInfo(const DOM::Table& table)
{
    const Adapter::TableDimensions dimensions = Adapter::getTableDimensionsInfo(table);
    TableDimensionsInfo info;
    info.setDefaultRowHeight(dimensions.getDefaultRowHeight());
    info.setDefaultColumnWidth(dimensions.getDefaultColumnWidth());
    info.getRowsHeight().reserve(dimensions.getRowsProps().size());
    for (const auto& row : dimensions.getRowsProps())
        info.getRowsHeight().push_back(row.isHidden() ? 0 : row.getHeight().getValue());
    info.getColumnsWidth().reserve(dimensions.getColumnsProps().size());
    for (const auto& column : dimensions.getColumnsProps())
        info.getColumnsWidth().push_back(column.isHidden() ? 0 : column.getWidth());
    return info;
}

} // namespace QV::FilterUtils
