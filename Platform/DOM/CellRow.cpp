#include <DOM/Public/CellRow.h>

#include <algorithm>
#include <iterator>

namespace QV::DOM {

std::size_t CellRow::findPosition(ColumnIndex column) const
{
    const unsigned long wanted = column.get();
    if (_cells.empty() || _cells.back()._column < wanted)
        return _cells.size();
    if (wanted < _cells.size() && _cells[wanted]._column == wanted)
        return wanted; // no gap before it
    const auto found = std::lower_bound(_cells.begin(), _cells.end(), wanted,
        [](const Cell& cell, unsigned long value) { return cell._column < value; });
    return static_cast<std::size_t>(std::distance(_cells.begin(), found));
}

const Cell* CellRow::findCell(ColumnIndex column) const
{
    const std::size_t position = findPosition(column);
    const bool exists = position < _cells.size() && _cells[position]._column == column.get();
    return exists ? &_cells[position] : nullptr;
}

Cell* CellRow::findCell(ColumnIndex column)
{
    return const_cast<Cell*>(static_cast<const CellRow*>(this)->findCell(column));
}

Cell& CellRow::getOrMakeCell(ColumnIndex column)
{
    const std::size_t position = findPosition(column);
    if (position < _cells.size() && _cells[position]._column == column.get())
        return _cells[position];
    // Cells that are added to a finished row are few; twice its memory would be for nothing.
    if (_cells.size() == _cells.capacity())
        _cells.reserve(_cells.size() + _cells.size() / 8 + 1);
    Cell& cell = *_cells.emplace(_cells.begin() + static_cast<std::ptrdiff_t>(position));
    cell._column = static_cast<std::uint32_t>(column.get());
    return cell;
}

Cell& CellRow::appendCell(ColumnIndex column)
{
    Cell& cell = _cells.emplace_back();
    cell._column = static_cast<std::uint32_t>(column.get());
    return cell;
}

void CellRow::sortCells()
{
    const auto isLeft = [](const Cell& a, const Cell& b) { return a._column < b._column; };
    std::stable_sort(_cells.begin(), _cells.end(), isLeft);
    // Of several cells in one place the last one stays: unique keeps the first, so it walks from the right.
    const auto areInOnePlace = [](const Cell& a, const Cell& b) { return a._column == b._column; };
    const auto begin = std::unique(_cells.rbegin(), _cells.rend(), areInOnePlace).base();
    _cells.erase(_cells.begin(), begin);
}

} // namespace QV::DOM
