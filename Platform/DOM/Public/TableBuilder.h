#pragma once

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Table.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::DOM {

/// Fills a table with many cells: O(1) for each cell that comes in reading order, and never more than O(log
/// n) on average in any other order.
///
///     TableBuilder builder(table);
///     builder.appendCell(RowIndex(0), ColumnIndex(0)).setNumber(1);
///     builder.finish();
///
/// Between the first cell and finish(), the table's own look-ups of cells have no meaning.
class DOM_API TableBuilder
{
public:
    explicit TableBuilder(Table& table);
    /// Finishes what is not finished.
    ~TableBuilder();

    TableBuilder(const TableBuilder&) = delete;
    TableBuilder& operator=(const TableBuilder&) = delete;

    /// A new cell; of several in one place, the last one stays. The reference ends with the next cell.
    Cell& appendCell(RowIndex row, ColumnIndex column);

    void finish();

private:
    CellRow& getRow(RowIndex row);
    void trimRow();

    Table& _table;
    CellRow* _row = nullptr; // of the last cell
    unsigned long _rowIndex = 0;
    bool _isFresh = false; // _row was made for the last cell, or for one just before it
    bool _isSorted = true; // every row so far
};

} // namespace QV::DOM
