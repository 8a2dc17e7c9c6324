#pragma once

/// @file
/// A walk over the cells of a table that keeps in mind where it is:
///
///     const auto cells = Adapter::getCellIterators(table);
///     for (auto it = cells.begin(); it != cells.end(); ++it)
///         resolver.resolve(it);

#include <DOM/Public/Adapter/CellInfo.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableCellIterator.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Adapter {

template <bool IsConst>
class TableCellIteratorImpl;

/// Walks the cells that exist, row by row and from left to right, each step in constant time. Ends when a
/// cell is made or removed. At the end it has a table, and nothing else.
template <>
class TableCellIteratorImpl<true>
{
public:
    explicit TableCellIteratorImpl(const DOM::TableCellIt<const DOM::Table>& position)
        : _position(position)
    {
    }

    const DOM::Table& getTable() const { return _position.getTable(); }
    RowIndex getRowIndex() const { return _position.getRowIndex(); }
    ColumnIndex getColIndex() const { return _position.getColIndex(); }
    CellInfo getCellInfo() const { return {getTable(), CellIndex(getRowIndex(), getColIndex()), **this}; }

    const DOM::Cell& operator*() const { return *_position; }
    const DOM::Cell* operator->() const { return &*_position; }

    TableCellIteratorImpl& operator++()
    {
        ++_position;
        return *this;
    }

    friend bool operator==(const TableCellIteratorImpl& a, const TableCellIteratorImpl& b)
    {
        return a._position == b._position;
    }
    friend bool operator!=(const TableCellIteratorImpl& a, const TableCellIteratorImpl& b)
    {
        return !(a == b);
    }

private:
    DOM::TableCellIt<const DOM::Table> _position;
};

using ConstTableCellIterator = TableCellIteratorImpl<true>;

/// The first cell of a table and the end.
class ConstTableCellRange
{
public:
    explicit ConstTableCellRange(const DOM::Table& table)
        : _begin(table.getTableIterators().begin())
        , _end(table.getTableIterators().end())
    {
    }

    const ConstTableCellIterator& begin() const { return _begin; }
    const ConstTableCellIterator& end() const { return _end; }

private:
    ConstTableCellIterator _begin;
    ConstTableCellIterator _end;
};

inline ConstTableCellRange getCellIterators(const DOM::Table& table)
{
    return ConstTableCellRange(table);
}

} // namespace QV::Adapter
