#pragma once

#include <boost/container/set.hpp>

#include <FilterUtils/FU_Export.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::FilterUtils {

/// The merged blocks of one sheet, for formats that write a block once, as its top-left cell, and leave out
/// the cells that it covers.
///
///     MergedRegions regions;
///     regions.addRegion({0, 1, 4, 2});    // column 1 of rows 0 to 3
///     regions.addRegion({2, 3, 4, 5});    // columns 3 and 4 of rows 2 and 3
///     regions.calculateColumnIndex(RowIndex(2), 3);    // 5: row 2 has cells in columns 0, 2, 3, 5...
///
/// One thread at a time.
class FILTERUTILS_API MergedRegions
{
public:
    /// By end corner, the lowest row and in it the rightmost column first. Regions with the same end corner
    /// count as equal.
    struct FILTERUTILS_API EndCornerDescending
    {
        bool operator()(const TableRange& a, const TableRange& b) const;
    };

    using Regions = boost::container::set<TableRange, EndCornerDescending>;

    /// Adds @p region, unless a region with the same end corner is there already. Does not ask whether it
    /// overlaps another one. O(log n).
    void addRegion(TableRange region);

    const Regions& getRegions() const { return _regions; }

    /// Whether a region covers the cell. Looks only at regions that end on or below its row.
    bool isCellInRegions(RowIndex row, ColumnIndex column) const;

    /// The column of the cell that is written at position @p ordinal, from zero, among the cells of @p row.
    /// A cell is written where no region covers it, and as the top-left cell of a region.
    ///
    /// Regions that overlap on the row are a mistake of the caller, and may fail the assertion "end >=
    /// begin"; the result is then some column. Looks only at regions that end on or below the row.
    unsigned long calculateColumnIndex(RowIndex row, unsigned long ordinal) const;

private:
    Regions _regions;
};

} // namespace QV::FilterUtils
