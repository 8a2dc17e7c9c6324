#include <DOM/Public/TableBuilder.h>

namespace QV::DOM {

TableBuilder::TableBuilder(Table& table)
    : _table(table)
{
}

TableBuilder::~TableBuilder()
{
    finish();
}

Cell& TableBuilder::appendCell(RowIndex row, ColumnIndex column)
{
    if (!_row || _rowIndex != row.get()) {
        _row = &getRow(row);
        _rowIndex = row.get();
    }
    _table.ensureSize(row.get() + 1, column.get() + 1);
    const std::size_t count = _row->getCellsCount();
    if (count > 0 && !(_row->getColumnAt(count - 1) < column))
        _isSorted = false;
    return _row->appendCell(column);
}

CellRow& TableBuilder::getRow(RowIndex row)
{
    auto& rows = _table._rows;
    const bool isLast = rows.empty() || rows.rbegin()->first < row.get();
    if (!isLast) {
        _isFresh = false;
        return rows[row.get()];
    }

    CellRow& made = rows.emplace_hint(rows.end(), row.get(), CellRow())->second;
    if (_row) // rows of a sheet tend to be alike, so what the row before needed is a good guess
        made._cells.reserve(_row->getCellsCount());
    trimRow();
    _isFresh = true;
    return made;
}

void TableBuilder::trimRow()
{
    if (_row &&
        _isFresh) // once for each row: a row that is visited again and again would be copied every time
        _row->_cells.shrink_to_fit();
}

void TableBuilder::finish()
{
    if (!_isSorted)
        for (auto& row : _table._rows)
            row.second.sortCells();
    trimRow();
    _isSorted = true;
    _row = nullptr;
}

} // namespace QV::DOM
