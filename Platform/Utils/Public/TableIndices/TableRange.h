#pragma once

#include <boost/optional.hpp>

#include <Utils/Public/Export.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV {

/// A rectangle of cells: rows [begin, end) by columns [begin, end), zero-based and never empty.
///
///     const TableRange block(0, 0, 2, 3); // A1:C2
class UTILS_API TableRange
{
public:
    /// Asserts "_beginRow < _endRow" and "_beginColumn < _endColumn". Where one fails and the handler
    /// returns, the range becomes one row tall (or one column wide) at its begin, so that it stays a
    /// rectangle of cells.
    TableRange(
        unsigned long beginRow, unsigned long beginColumn, unsigned long endRow, unsigned long endColumn);

    unsigned long getBeginRow() const { return _beginRow; }
    unsigned long getBeginColumn() const { return _beginColumn; }
    unsigned long getEndRow() const { return _endRow; }
    unsigned long getEndColumn() const { return _endColumn; }

    /// The cells that both rectangles hold, or nothing. Rectangles that only touch share no cell.
    boost::optional<TableRange> intersectWith(const TableRange& other) const;

    bool containsCell(const CellIndex& cell) const;

    friend bool operator==(const TableRange& a, const TableRange& b)
    {
        return a._beginRow == b._beginRow && a._beginColumn == b._beginColumn && a._endRow == b._endRow &&
               a._endColumn == b._endColumn;
    }
    friend bool operator!=(const TableRange& a, const TableRange& b) { return !(a == b); }

private:
    unsigned long _beginRow;
    unsigned long _beginColumn;
    unsigned long _endRow;
    unsigned long _endColumn;
};

} // namespace QV
