#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Export.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::DOM {

/// What a table says of a row besides its cells.
class RowProps
{
public:
    /// In points; nothing where the row has the table's default height.
    const boost::optional<float>& getHeight() const { return _height; }
    bool isHidden() const { return _isHidden; }

    /// The format of the cells that the row does not have; null where it has none.
    const SharedCellStyle& getSharedCellStyle() const { return _cellStyle; }

    void setHeight(const boost::optional<float>& points) { _height = points; }
    void setHidden(bool isHidden) { _isHidden = isHidden; }
    void setSharedCellStyle(SharedCellStyle style) { _cellStyle = std::move(style); }

    /// Whether the row's height is its own, or none at all.
    bool hasSize() const { return _height || _isHidden; }
    bool isEmpty() const { return !hasSize() && !_cellStyle; }

private:
    SharedCellStyle _cellStyle;
    boost::optional<float> _height;
    bool _isHidden = false;
};

/// The cells of one row that exist, from left to right. Gaps cost nothing.
class DOM_API CellRow
{
public:
    CellRow() = default;
    CellRow(CellRow&&) = default;
    CellRow& operator=(CellRow&&) = default;

    /// Null where the row has no cell there. O(log n); O(1) where the cells before it have no gap.
    const Cell* findCell(ColumnIndex column) const;
    Cell* findCell(ColumnIndex column);

    /// The cell there, made where there is none. O(1) at the right end, O(n) in a gap.
    /// Cells of the row move, so pointers to them end here.
    Cell& getOrMakeCell(ColumnIndex column);

    std::size_t getCellsCount() const { return _cells.size(); }
    const Cell& getCellAt(std::size_t position) const { return _cells[position]; }
    ColumnIndex getColumnAt(std::size_t position) const { return ColumnIndex(_cells[position]._column); }

    const RowProps& getProps() const { return _props; }
    void setProps(const RowProps& props) { _props = props; }

    /// Bytes that the row's cells take, without what they share.
    std::size_t getAllocatedSize() const { return _cells.capacity() * sizeof(Cell); }

private:
    friend class TableBuilder; // appends cells in any order and sorts them once

    std::size_t findPosition(ColumnIndex column) const;
    Cell& appendCell(ColumnIndex column);
    void sortCells();

    std::vector<Cell> _cells; // ascending columns, but while a TableBuilder is at work
    RowProps _props;
};

} // namespace QV::DOM
