#include <FilterUtils/FU_NonIntersectedRanges.h>

#include <algorithm>
#include <utility>

#include <boost/geometry.hpp> // the R-tree needs algorithms that its own header does not include
#include <boost/geometry/index/rtree.hpp>

#include <DOM/Public/Table.h>

namespace QV::FilterUtils {
namespace {

namespace bg = boost::geometry;

using Point = bg::model::point<unsigned long, 2, bg::cs::cartesian>; // row, column
using Box = bg::model::box<Point>;                                   // both corners belong to it
using Entry = std::pair<Box, int>;

Box makeBox(const TableRange& range)
{
    return {Point(range.getBeginRow(), range.getBeginColumn()),
        Point(range.getEndRow() - 1, range.getEndColumn() - 1)};
}

TableRange makeRange(const Box& box)
{
    return {box.min_corner().get<0>(), box.min_corner().get<1>(), box.max_corner().get<0>() + 1,
        box.max_corner().get<1>() + 1};
}

// The extent that a table needs along one axis, as far as the range says.
unsigned long extend(unsigned long needed, unsigned long begin, unsigned long end, unsigned long maxCount)
{
    return end - begin < maxCount ? std::max(needed, end) : needed;
}

} // namespace

struct NonIntersectedRanges::Index
{
    bg::index::rtree<Entry, bg::index::rstar<16, 4, 4, 32>> boxes;
};

NonIntersectedRanges::NonIntersectedRanges()
    : _index(std::make_unique<Index>())
{
}

NonIntersectedRanges::~NonIntersectedRanges() = default;

bool NonIntersectedRanges::appendRange(const TableRange& range)
{
    const Box box = makeBox(range);
    if (_index->boxes.qbegin(bg::index::intersects(box)) != _index->boxes.qend())
        return false;
    _index->boxes.insert(Entry(box, 0));
    _ranges.push_back(range);
    return true;
}

boost::optional<TableRange> NonIntersectedRanges::findRangeContainsCell(const CellIndex& cell) const
{
    const Point point(cell.getRow().get(), cell.getColumn().get());
    const auto hit = _index->boxes.qbegin(bg::index::intersects(point));
    if (hit == _index->boxes.qend())
        return boost::none;
    return makeRange(hit->first);
}

void applyMergedPropsToTable(const NonIntersectedRanges& ranges, unsigned long maxRowsCount,
    unsigned long maxColumnsCount, DOM::Table& table)
{
    unsigned long rowsCount = 1;
    unsigned long columnsCount = 1;
    for (const TableRange& range : ranges.getRanges()) {
        rowsCount = extend(rowsCount, range.getBeginRow(), range.getEndRow(), maxRowsCount);
        columnsCount = extend(columnsCount, range.getBeginColumn(), range.getEndColumn(), maxColumnsCount);
    }
    table.ensureSize(
        std::min(rowsCount, MaxRowIndex.get() + 1), std::min(columnsCount, MaxColumnIndex.get() + 1));

    const TableRange whole(0, 0, table.getLiveRowsCount(), table.getLiveColsCount());
    for (const TableRange& range : ranges.getRanges())
        if (const auto inside = range.intersectWith(whole))
            table.setMergeProps(RowIndex(inside->getBeginRow()), ColumnIndex(inside->getBeginColumn()),
                inside->getEndRow() - inside->getBeginRow() - 1,
                inside->getEndColumn() - inside->getBeginColumn() - 1);
}

} // namespace QV::FilterUtils
