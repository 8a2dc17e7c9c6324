#pragma once

/// @file
/// Zero-based row and column numbers that cannot be mistaken for one another, and the extent between two of
/// them.

#include <Utils/Public/Assertions.h>
#include <Utils/Public/TaggedValue.h>

namespace QV {

enum RowOrColumnTag
{
    RowTag,
    ColumnTag,
};

using RowIndex = TaggedValue<unsigned long, TypeUtils::ValueTag<RowOrColumnTag, RowTag>>;
using ColumnIndex = TaggedValue<unsigned long, TypeUtils::ValueTag<RowOrColumnTag, ColumnTag>>;

/// The largest indices of a sheet: 1,048,576 rows by 16,384 columns (A1 to XFD1048576).
constexpr RowIndex MaxRowIndex(1048575);
constexpr ColumnIndex MaxColumnIndex(16383);

/// The number of rows or columns from @p begin up to but not including @p end.
/// Asserts "end >= begin"; 0 where that fails.
template <RowOrColumnTag Axis>
unsigned long operator-(const TaggedValue<unsigned long, TypeUtils::ValueTag<RowOrColumnTag, Axis>>& end,
    const TaggedValue<unsigned long, TypeUtils::ValueTag<RowOrColumnTag, Axis>>& begin)
{
    QV_ASSERT(end >= begin);
    return end >= begin ? end.get() - begin.get() : 0;
}

/// A cell's place: its row, then its column.
class CellIndex
{
public:
    constexpr CellIndex() = default;
    constexpr CellIndex(RowIndex row, ColumnIndex column)
        : _row(row)
        , _column(column)
    {
    }

    constexpr RowIndex getRow() const { return _row; }
    constexpr ColumnIndex getColumn() const { return _column; }

    friend constexpr bool operator==(const CellIndex& a, const CellIndex& b)
    {
        return a._row == b._row && a._column == b._column;
    }
    friend constexpr bool operator!=(const CellIndex& a, const CellIndex& b) { return !(a == b); }

private:
    RowIndex _row;
    ColumnIndex _column;
};

} // namespace QV
