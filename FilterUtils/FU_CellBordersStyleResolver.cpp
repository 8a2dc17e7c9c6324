#include <FilterUtils/FU_CellBordersStyleResolver.h>

#include <DOM/Public/Adapter/ResolvedCellStyle.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <Utils/Public/Assertions.h>

namespace QV::FilterUtils {
namespace {

using Borders = std::shared_ptr<DOM::BordersProps>;
using BordersLine = DOM::BordersProps::Line;

void overrideWithOwn(Borders& borders, const std::shared_ptr<const DOM::CellProps>& props)
{
    if (props)
        override(borders, props->getBorders());
}

/// Lays the borders of the named styles that @p style derives from over @p borders, and then its own.
template <typename Style>
void overrideWithStyle(Borders& borders, const DOM::Styles& styles, const Style& style)
{
    forEachStyleInHierarchy(styles, getParent(styles, style),
        [&](const DOM::NamedTableStyle& named) { overrideWithOwn(borders, named.getCellProps()); });
    overrideWithOwn(borders, style.getCellProps());
}

/// Where a cell, with all that its merge spans, lies along one axis of its table.
struct Extent
{
    bool isFirst;
    bool isLast;
};

Extent findExtent(unsigned long index, unsigned long captured, unsigned long liveCount)
{
    return {index == 0, liveCount <= index + captured + 1};
}

/// Puts the lines between the cells of a table where the cell has a neighbour.
void turnInnerLinesIntoSides(DOM::BordersProps& borders, const Extent& columns, const Extent& rows)
{
    if (const BordersLine& vertical = borders.getVertical()) {
        if (!columns.isFirst)
            borders.setLeft(BordersLine(vertical));
        if (!columns.isLast)
            borders.setRight(BordersLine(vertical));
    }
    if (const BordersLine& horizontal = borders.getHorizontal()) {
        if (!rows.isFirst)
            borders.setTop(BordersLine(horizontal));
        if (!rows.isLast)
            borders.setBottom(BordersLine(horizontal));
    }
}

} // namespace

CellBordersStyleResolver::CellBordersStyleResolver(const DOM::Styles& styles, const DOM::Table& table,
    bool useTableStyle, const std::shared_ptr<const DOM::BordersProps>& defaultBorders)
    : _styles(styles)
    , _table(table)
{
    override(_tableBorders, defaultBorders);
    if (useTableStyle)
        overrideWithStyle(_tableBorders, styles, table.getStyle());
}

Borders CellBordersStyleResolver::resolve(const Adapter::TableCellIteratorImpl<true>& cellIt) const
{
    QV_ASSERT(&cellIt.getTable() == &_table.get());
    const DOM::Table& table = _table;
    Borders borders;
    if (_tableBorders) {
        const DOM::MergeProps merge = getCellMergeProps(&*cellIt);
        borders = std::make_shared<DOM::BordersProps>(*_tableBorders);
        turnInnerLinesIntoSides(*borders,
            findExtent(cellIt.getColIndex().get(), merge.getCapturedColsCount(), table.getLiveColsCount()),
            findExtent(cellIt.getRowIndex().get(), merge.getCapturedRowsCount(), table.getLiveRowsCount()));
    }
    override<DOM::BordersProps>(borders, getResolvedBordersFromCellRowColumn(cellIt));
    return borders;
}

Borders CellBordersStyleResolver::getResolvedBordersFromCellRowColumn(
    const Adapter::TableCellIteratorImpl<true>& cellIt) const
{
    Borders borders;
    overrideWithStyle(borders, _styles, Adapter::getResolvedCellStyle(cellIt.getCellInfo(), _styles));
    return borders;
}

} // namespace QV::FilterUtils
