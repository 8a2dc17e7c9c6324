#pragma once

#include <DOM/Public/Cell.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::DOM {
class Table;
}

namespace QV::Adapter {

/// A cell together with where it stands. As long-lived as the table is unchanged.
class CellInfo
{
public:
    CellInfo(const DOM::Table& table, const CellIndex& index, const DOM::Cell& cell)
        : _table(&table)
        , _cell(&cell)
        , _index(index)
    {
    }

    const DOM::Table& getTable() const { return *_table; }
    const DOM::Cell& getCell() const { return *_cell; }
    RowIndex getRowIndex() const { return _index.getRow(); }
    ColumnIndex getColIndex() const { return _index.getColumn(); }

private:
    const DOM::Table* _table;
    const DOM::Cell* _cell;
    CellIndex _index;
};

} // namespace QV::Adapter
