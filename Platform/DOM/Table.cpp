#include <DOM/Public/Table.h>

#include <algorithm>
#include <iterator>

namespace QV::DOM {

Table::Table() = default;
Table::~Table() = default;

void Table::ensureSize(unsigned long rowsCount, unsigned long columnsCount)
{
    _rowsCount = std::max(_rowsCount, rowsCount);
    _columnsCount = std::max(_columnsCount, columnsCount);
}

const Cell* Table::findCell(RowIndex row, ColumnIndex column) const
{
    const auto found = _rows.find(row.get());
    return found == _rows.end() ? nullptr : found->second.findCell(column);
}

Cell* Table::findCell(RowIndex row, ColumnIndex column)
{
    return const_cast<Cell*>(static_cast<const Table*>(this)->findCell(row, column));
}

Cell& Table::getOrMakeCell(RowIndex row, ColumnIndex column)
{
    ensureSize(row.get() + 1, column.get() + 1);
    return _rows[row.get()].getOrMakeCell(column);
}

TableCellRange<const Table> Table::getTableIterators() const
{
    return {TableCellIt<const Table>(*this, _rows.begin(), _rows.end()),
        TableCellIt<const Table>(*this, _rows.end(), _rows.end())};
}

void Table::setMergeProps(
    RowIndex row, ColumnIndex column, unsigned long extraRows, unsigned long extraColumns)
{
    const MergeProps props(extraRows, extraColumns);
    const bool isMerged = props != MergeProps();
    Cell* const existing = findCell(row, column);
    const bool wasMerged = getCellMergeProps(existing) != MergeProps();
    if (!isMerged && !wasMerged)
        return;

    const CellIndex index(row, column);
    if (!isMerged) {
        _mergedCells.erase(std::find(_mergedCells.begin(), _mergedCells.end(), index));
        existing->_extras->mergeProps = props;
        existing->trimExtras();
        return;
    }
    Cell& cell = getOrMakeCell(row, column);
    ensureSize(row.get() + extraRows + 1, column.get() + extraColumns + 1);
    if (!wasMerged)
        _mergedCells.push_back(index);
    cell.getOrMakeExtras().mergeProps = props;
}

MergeProps Table::getMergeProps(RowIndex row, ColumnIndex column) const
{
    return getCellMergeProps(findCell(row, column));
}

std::vector<TableRange> Table::getMergedRanges() const
{
    std::vector<TableRange> ranges;
    ranges.reserve(_mergedCells.size());
    for (const CellIndex& index : _mergedCells) {
        const unsigned long row = index.getRow().get();
        const unsigned long column = index.getColumn().get();
        const MergeProps props = getMergeProps(index.getRow(), index.getColumn());
        ranges.emplace_back(
            row, column, row + props.getCapturedRowsCount() + 1, column + props.getCapturedColsCount() + 1);
    }
    return ranges;
}

RowProps Table::getRowProps(RowIndex row) const
{
    const auto found = _rows.find(row.get());
    return found == _rows.end() ? RowProps() : found->second.getProps();
}

void Table::setRowProps(RowIndex row, const RowProps& props)
{
    const auto found = _rows.find(row.get());
    if (found != _rows.end())
        found->second.setProps(props);
    else if (!props.isEmpty())
        _rows[row.get()].setProps(props);
}

RowIndex Table::getRowPropsEnd() const
{
    const auto last = std::find_if(
        _rows.rbegin(), _rows.rend(), [](const auto& row) { return row.second.getProps().hasSize(); });
    return RowIndex(last == _rows.rend() ? 0 : last->first + 1);
}

void Table::forEachRowProps(const std::function<void(RowIndex, const RowProps&)>& function) const
{
    for (const auto& row : _rows)
        if (!row.second.getProps().isEmpty())
            function(RowIndex(row.first), row.second.getProps());
}

ColumnProps Table::getColumnProps(ColumnIndex column) const
{
    const auto next = _columns.upper_bound(column.get());
    if (next == _columns.begin())
        return {};
    const ColumnsRun& run = std::prev(next)->second;
    return column.get() < run.end ? run.props : ColumnProps();
}

void Table::setColumnsProps(const ColumnsSpan& columns, const ColumnProps& props)
{
    const unsigned long begin = columns.first.get();
    const unsigned long end = columns.second.get();
    if (begin >= end)
        return;
    cutColumnsRunAt(begin);
    cutColumnsRunAt(end);
    _columns.erase(_columns.lower_bound(begin), _columns.lower_bound(end));
    _columns.emplace(begin, ColumnsRun{end, props});
}

ColumnIndex Table::getColumnPropsEnd() const
{
    return ColumnIndex(_columns.empty() ? 0 : std::prev(_columns.end())->second.end);
}

std::size_t Table::getAllocatedSize() const
{
    constexpr std::size_t NodeHeadSize =
        4 * sizeof(void*); // colour and three links of a balanced tree's node
    std::size_t size = sizeof(Table);
    for (const auto& row : _rows)
        size += NodeHeadSize + sizeof(row) + row.second.getAllocatedSize();
    return size;
}

void Table::cutColumnsRunAt(unsigned long column)
{
    const auto next = _columns.lower_bound(column);
    if (next == _columns.begin())
        return;
    ColumnsRun& run = std::prev(next)->second;
    if (run.end <= column)
        return;
    _columns.emplace_hint(next, column, run);
    run.end = column;
}

} // namespace QV::DOM
