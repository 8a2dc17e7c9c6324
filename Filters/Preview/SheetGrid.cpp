#include <Filters/Preview/SheetGrid.h>

#include <algorithm>
#include <cstddef>
#include <numeric>

#include <Filters/Preview/CellLook.h>

namespace QV::Filters {

SheetGrid::SheetGrid(const DOM::Table& table, unsigned long rowsCount, unsigned long columnsCount)
{
    for (unsigned long i = 0; i < rowsCount; ++i) {
        const DOM::RowProps props = table.getRowProps(RowIndex(i));
        _heights.push_back(props.isHidden() ? 0.0F : props.getHeight().value_or(table.getDefaultRowHeight()));
    }
    for (unsigned long i = 0; i < columnsCount; ++i) {
        const DOM::ColumnProps props = table.getColumnProps(ColumnIndex(i));
        _widths.push_back(props.isHidden() ? 0.0F : props.getWidth().value_or(table.getDefaultColumnWidth()));
    }
    _covered.resize(_heights.size() * _widths.size());
    for (const TableRange& range : table.getMergedRanges()) {
        const unsigned long endRow = std::min<unsigned long>(range.getEndRow(), rowsCount);
        const unsigned long endColumn = std::min<unsigned long>(range.getEndColumn(), columnsCount);
        if (range.getBeginRow() >= endRow || range.getBeginColumn() >= endColumn)
            continue;
        for (unsigned long row = range.getBeginRow(); row < endRow; ++row)
            for (unsigned long column = range.getBeginColumn(); column < endColumn; ++column)
                _covered[getIndex(row, column)] = true;
        _spans[getIndex(range.getBeginRow(), range.getBeginColumn())] = {
            endRow - range.getBeginRow(), endColumn - range.getBeginColumn()};
    }
}

float SheetGrid::getTotalWidth() const
{
    return std::accumulate(_widths.begin(), _widths.end(), 0.0F);
}

SheetGrid::Place SheetGrid::getPlace(unsigned long row, unsigned long column) const
{
    const std::size_t index = getIndex(row, column);
    if (!_covered[index])
        return Place::Single;
    return _spans.count(index) != 0 ? Place::Begin : Place::Covered;
}

std::pair<unsigned long, unsigned long> SheetGrid::getSpan(unsigned long row, unsigned long column) const
{
    const auto span = _spans.find(getIndex(row, column));
    return span != _spans.end() ? span->second : std::pair<unsigned long, unsigned long>(1, 1);
}

EdgeLines::EdgeLines(const SheetGrid& grid)
    : _grid(grid)
    , _below(grid.getColumnsCount())
{
}

EdgeLines::Sides EdgeLines::resolve(unsigned long row, unsigned long column, const DOM::BordersProps* borders)
{
    Sides sides;
    sides.left = takeLeft(row, column);
    if (_below[column].row == row)
        sides.top = _below[column].line;
    if (borders) {
        sides.left = chooseLine(sides.left, borders->getLeft().get());
        sides.top = chooseLine(sides.top, borders->getTop().get());
    }
    const DOM::LineProps* right = borders ? borders->getRight().get() : nullptr;
    const DOM::LineProps* bottom = borders ? borders->getBottom().get() : nullptr;
    // A hidden cell draws nothing either: the edges on both sides of it are one.
    if (_grid.getWidth(column) <= 0)
        right = chooseLine(sides.left, right);
    if (_grid.getHeight(row) <= 0)
        bottom = chooseLine(sides.top, bottom);
    // A covered cell draws nothing, and hands on the edges that it has to the cells beside its merge.
    const auto [rows, columns] = _grid.getSpan(row, column);
    const unsigned long endRow = row + rows;
    const unsigned long endColumn = column + columns;
    if (endColumn < _grid.getColumnsCount()) {
        for (unsigned long i = row; right && i < endRow; ++i) {
            const DOM::LineProps*& edge = _rightOf[static_cast<std::size_t>(i) * _below.size() + endColumn];
            edge = chooseLine(edge, right);
        }
    } else {
        sides.right = right;
    }
    for (unsigned long i = column; i < endColumn; ++i) {
        if (_below[i].row > endRow)
            continue; // inside a merge, whose lower edge is known
        if (_below[i].row < endRow)
            _below[i] = {endRow, nullptr};
        _below[i].line = chooseLine(_below[i].line, bottom);
    }
    if (endRow == _grid.getRowsCount())
        sides.bottom = bottom;
    return sides;
}

const DOM::LineProps* EdgeLines::takeLeft(unsigned long row, unsigned long column)
{
    const auto edge = _rightOf.find(static_cast<std::size_t>(row) * _below.size() + column);
    if (edge == _rightOf.end())
        return nullptr;
    const DOM::LineProps* const line = edge->second;
    _rightOf.erase(edge);
    return line;
}

} // namespace QV::Filters
