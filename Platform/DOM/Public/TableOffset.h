#pragma once

#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TaggedValue.h>

namespace QV::DOM {

/// A point of a table: a cell, and how far the point lies to the right of the cell's left edge and below its
/// top edge, in points. The offsets may reach beyond the cell.
class TableOffset
{
public:
    TableOffset() = default;
    TableOffset(ColumnIndex columnIndex, float columnOffset, RowIndex rowIndex, float rowOffset)
        : _columnIndex(columnIndex)
        , _columnOffset(columnOffset)
        , _rowIndex(rowIndex)
        , _rowOffset(rowOffset)
    {
    }

    ColumnIndex getColumnIndex() const { return _columnIndex; }
    float getColumnOffset() const { return _columnOffset; }
    RowIndex getRowIndex() const { return _rowIndex; }
    float getRowOffset() const { return _rowOffset; }

    friend bool operator==(const TableOffset& a, const TableOffset& b)
    {
        return a._columnIndex == b._columnIndex && a._columnOffset == b._columnOffset &&
               a._rowIndex == b._rowIndex && a._rowOffset == b._rowOffset;
    }
    friend bool operator!=(const TableOffset& a, const TableOffset& b) { return !(a == b); }

private:
    ColumnIndex _columnIndex;
    float _columnOffset = 0;
    RowIndex _rowIndex;
    float _rowOffset = 0;
};

} // namespace QV::DOM
