#pragma once

#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include <FilterUtils/FU_Export.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::DOM {
class Table;
}

namespace QV::FilterUtils {

/// The merge rectangles of one sheet: no two of them share a cell, and the first to claim a cell keeps it.
///
///     NonIntersectedRanges merges;
///     merges.appendRange({0, 0, 2, 2});    // true
///     merges.appendRange({1, 1, 3, 3});    // false: shares a cell; nothing changes
///     merges.appendRange({2, 0, 3, 1});    // true: only touches the first
///
/// One thread at a time.
class FILTERUTILS_API NonIntersectedRanges
{
public:
    NonIntersectedRanges();
    ~NonIntersectedRanges();

    /// Accepts @p range and returns true; or returns false and changes nothing, where an accepted range
    /// shares a cell with it. O(log n) on average for n accepted ranges.
    bool appendRange(const TableRange& range);

    /// The accepted range that holds @p cell, or nothing. O(log n) on average.
    boost::optional<TableRange> findRangeContainsCell(const CellIndex& cell) const;

    /// In the order of acceptance. Valid until the next appendRange().
    const std::vector<TableRange>& getRanges() const { return _ranges; }

private:
    struct Index;

    std::unique_ptr<Index> _index; // holds exactly the boxes of _ranges
    std::vector<TableRange> _ranges;
};

/// Marks each range as a merged block of @p table, which grows to hold them: to one row and one column at
/// least, and to 1048576 rows and 16384 columns at most. What sticks out is cut off; a range wholly outside
/// is left out.
///
/// @param maxRowsCount a range of that many rows or more, such as a merge of whole columns, does not make the
///     table taller
/// @param maxColumnsCount a range of that many columns or more does not make it wider
FILTERUTILS_API void applyMergedPropsToTable(const NonIntersectedRanges& ranges, unsigned long maxRowsCount,
    unsigned long maxColumnsCount, DOM::Table& table);

} // namespace QV::FilterUtils
