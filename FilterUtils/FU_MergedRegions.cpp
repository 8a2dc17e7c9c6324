#include <FilterUtils/FU_MergedRegions.h>

#include <tuple>

namespace QV::FilterUtils {
namespace {

struct BeginColumnAscending
{
    bool operator()(const TableRange& a, const TableRange& b) const
    {
        return std::make_tuple(a.getBeginColumn(), a.getBeginRow()) <
               std::make_tuple(b.getBeginColumn(), b.getBeginRow());
    }
};

using RowRegions = boost::container::set<TableRange, BeginColumnAscending>;

RowRegions collectRegionsOfRow(const MergedRegions::Regions& regions, unsigned long row)
{
    RowRegions found;
    for (const TableRange& region : regions) {
        if (row >= region.getEndRow())
            break; // and so does every later region
        if (region.getBeginRow() <= row)
            found.insert(region);
    }
    return found;
}

} // namespace

bool MergedRegions::EndCornerDescending::operator()(const TableRange& a, const TableRange& b) const
{
    return std::make_tuple(a.getEndRow(), a.getEndColumn()) >
           std::make_tuple(b.getEndRow(), b.getEndColumn());
}

void MergedRegions::addRegion(TableRange region)
{
    _regions.insert(region);
}

bool MergedRegions::isCellInRegions(RowIndex row, ColumnIndex column) const
{
    for (const TableRange& region : _regions) {
        const unsigned long lastRow = region.getEndRow() - 1;
        if (row.get() > lastRow || (row.get() == lastRow && column.get() >= region.getEndColumn()))
            return false; // every later region ends above the cell, or before it on its row
        if (region.containsCell({row, column}))
            return true;
    }
    return false;
}

unsigned long MergedRegions::calculateColumnIndex(RowIndex row, unsigned long ordinal) const
{
    unsigned long consumedColumns = 0; // where the part of the row dealt with so far ends
    unsigned long presentCells = 0;    // that this part holds
    unsigned long candidate = ordinal;
    for (const TableRange& region : collectRegionsOfRow(_regions, row.get())) {
        if (region.getBeginColumn() > candidate)
            break;
        const bool beginsHere = region.getBeginRow() == row.get();
        if (region.getBeginColumn() != candidate) {
            presentCells += ColumnIndex(region.getBeginColumn()) - ColumnIndex(consumedColumns);
            presentCells += beginsHere ? 1 : 0;
            consumedColumns = region.getEndColumn();
        } else if (beginsHere) {
            return candidate;
        } else {
            consumedColumns += region.getEndColumn() - region.getBeginColumn();
        }
        candidate = ordinal + consumedColumns - presentCells;
    }
    return candidate;
}

} // namespace QV::FilterUtils
