#pragma once

#include <cstddef>
#include <map>
#include <utility>

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellRow.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::DOM {

class Table;

template <typename TableType>
class TableCellIt;

/// Walks the cells of a table that exist, row by row. Ends when a cell is made or removed.
template <>
class TableCellIt<const Table>
{
public:
    using Rows = std::map<unsigned long, CellRow>;

    TableCellIt(const Table& table, Rows::const_iterator row, Rows::const_iterator end)
        : _table(&table)
        , _row(row)
        , _end(end)
    {
        skipEmptyRows();
    }

    const Table& getTable() const { return *_table; }
    RowIndex getRowIndex() const { return RowIndex(_row->first); }
    ColumnIndex getColIndex() const { return _row->second.getColumnAt(_position); }
    const Cell& operator*() const { return _row->second.getCellAt(_position); }
    const Cell* operator->() const { return &**this; }

    TableCellIt& operator++()
    {
        if (++_position == _row->second.getCellsCount()) {
            ++_row;
            skipEmptyRows();
        }
        return *this;
    }

    friend bool operator==(const TableCellIt& a, const TableCellIt& b)
    {
        return a._row == b._row && a._position == b._position;
    }
    friend bool operator!=(const TableCellIt& a, const TableCellIt& b) { return !(a == b); }

private:
    void skipEmptyRows()
    {
        _position = 0;
        while (_row != _end && _row->second.getCellsCount() == 0)
            ++_row;
    }

    const Table* _table;
    Rows::const_iterator _row;
    Rows::const_iterator _end;
    std::size_t _position = 0;
};

/// The first cell and the end, for a range-based loop.
template <typename TableType>
class TableCellRange
{
public:
    TableCellRange(TableCellIt<TableType> first, TableCellIt<TableType> last)
        : _begin(first)
        , _end(last)
    {
    }

    const TableCellIt<TableType>& begin() const { return _begin; }
    const TableCellIt<TableType>& end() const { return _end; }

private:
    TableCellIt<TableType> _begin;
    TableCellIt<TableType> _end;
};

} // namespace QV::DOM
