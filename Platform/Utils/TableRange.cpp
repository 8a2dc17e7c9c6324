#include <Utils/Public/TableIndices/TableRange.h>

#include <algorithm>
#include <limits>

#include <Utils/Public/Assertions.h>

namespace QV {
namespace {

void makeOneLong(unsigned long& begin, unsigned long& end)
{
    begin = std::min(begin, std::numeric_limits<unsigned long>::max() - 1);
    end = begin + 1;
}

} // namespace

TableRange::TableRange(
    unsigned long beginRow, unsigned long beginColumn, unsigned long endRow, unsigned long endColumn)
    : _beginRow(beginRow)
    , _beginColumn(beginColumn)
    , _endRow(endRow)
    , _endColumn(endColumn)
{
    QV_ASSERT(_beginRow < _endRow);
    if (!(_beginRow < _endRow))
        makeOneLong(_beginRow, _endRow);
    QV_ASSERT(_beginColumn < _endColumn);
    if (!(_beginColumn < _endColumn))
        makeOneLong(_beginColumn, _endColumn);
}

boost::optional<TableRange> TableRange::intersectWith(const TableRange& other) const
{
    const unsigned long beginRow = std::max(_beginRow, other._beginRow);
    const unsigned long beginColumn = std::max(_beginColumn, other._beginColumn);
    const unsigned long endRow = std::min(_endRow, other._endRow);
    const unsigned long endColumn = std::min(_endColumn, other._endColumn);
    if (beginRow >= endRow || beginColumn >= endColumn)
        return boost::none;
    return TableRange(beginRow, beginColumn, endRow, endColumn);
}

bool TableRange::containsCell(const CellIndex& cell) const
{
    const unsigned long row = cell.getRow().get();
    const unsigned long column = cell.getColumn().get();
    return _beginRow <= row && row < _endRow && _beginColumn <= column && column < _endColumn;
}

} // namespace QV
