#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/PivotTable.h>
#include <DOM/Public/StyledRange.h>
#include <DOM/Public/TableCellIterator.h>
#include <DOM/Public/TableStyle.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::DOM {

/// What a table says of a column.
class ColumnProps
{
public:
    /// In points; nothing where the column has the table's default width.
    const boost::optional<float>& getWidth() const { return _width; }
    bool isHidden() const { return _isHidden; }

    /// The format of the cells that the column does not have, where their row has none; null for none.
    const SharedCellStyle& getSharedCellStyle() const { return _cellStyle; }

    void setWidth(const boost::optional<float>& points) { _width = points; }
    void setHidden(bool isHidden) { _isHidden = isHidden; }
    void setSharedCellStyle(SharedCellStyle style) { _cellStyle = std::move(style); }

private:
    SharedCellStyle _cellStyle;
    boost::optional<float> _width;
    bool _isHidden = false;
};

/// A table of a text document, a sheet of a workbook, or a table in a frame of a slide.
///
/// Cells exist where something put them; a table of any size without cells takes no room. Rows and columns
/// that were not removed are live, and counted. One thread at a time.
class DOM_API Table : public Block, public GraphicalObject
{
public:
    /// Columns [first, second) that share their properties.
    using ColumnsSpan = std::pair<ColumnIndex, ColumnIndex>;

    Table();
    ~Table() override;

    const std::string& getName() const { return _name; }
    void setName(std::string name) { _name = std::move(name); }
    bool isVisible() const { return _isVisible; }
    void setVisible(bool isVisible) { _isVisible = isVisible; }

    unsigned long getLiveRowsCount() const { return _rowsCount; }
    unsigned long getLiveColsCount() const { return _columnsCount; }
    /// Grows the table to at least that many rows and columns. Makes no cells.
    void ensureSize(unsigned long rowsCount, unsigned long columnsCount);

    /// Null where the table has no cell there. O(log rows + log cells of the row).
    const Cell* findCell(RowIndex row, ColumnIndex column) const;
    Cell* findCell(RowIndex row, ColumnIndex column);
    /// The cell there, made where there is none; the table grows to hold it. Pointers to cells of the row end
    /// here.
    Cell& getOrMakeCell(RowIndex row, ColumnIndex column);
    /// The cells that exist, row by row and from left to right.
    TableCellRange<const Table> getTableIterators() const;

    /// Marks the block whose top-left cell is (row, column), and which reaches @p extraRows below it and
    /// @p extraColumns to its right; 0 and 0 make it a single cell again. The cell is made where there is
    /// none.
    void setMergeProps(RowIndex row, ColumnIndex column, unsigned long extraRows, unsigned long extraColumns);
    /// Of an absent cell too: it spans no other one.
    MergeProps getMergeProps(RowIndex row, ColumnIndex column) const;
    /// The merged blocks, in the order in which they were marked.
    std::vector<TableRange> getMergedRanges() const;

    /// In points.
    float getDefaultRowHeight() const { return _defaultRowHeight; }
    float getDefaultColumnWidth() const { return _defaultColumnWidth; }
    void setDefaultRowHeight(float points) { _defaultRowHeight = points; }
    void setDefaultColumnWidth(float points) { _defaultColumnWidth = points; }

    RowProps getRowProps(RowIndex row) const;
    void setRowProps(RowIndex row, const RowProps& props);
    /// One past the last row that has a size of its own; 0 where none has.
    RowIndex getRowPropsEnd() const;
    /// Calls @p function for each row that has properties of its own, in order.
    void forEachRowProps(const std::function<void(RowIndex, const RowProps&)>& function) const;
    ColumnProps getColumnProps(ColumnIndex column) const;
    /// Gives columns [begin, end) their properties, in place of what they had.
    void setColumnsProps(const ColumnsSpan& columns, const ColumnProps& props);
    ColumnIndex getColumnPropsEnd() const;

    const TableStyle& getStyle() const { return _style; }
    void setStyle(TableStyle style) { _style = std::move(style); }
    /// In the order in which they came.
    const std::vector<StyledRange>& getStyledRanges() const { return _styledRanges; }
    void appendStyledRange(StyledRange range) { _styledRanges.push_back(std::move(range)); }

    const std::vector<std::unique_ptr<Frame>>& getFrames() const { return _frames; }
    void appendFrame(std::unique_ptr<Frame> frame) { _frames.push_back(std::move(frame)); }

    const std::vector<PivotTable>& getPivotTables() const { return _pivotTables; }
    void appendPivotTable(PivotTable pivotTable) { _pivotTables.push_back(std::move(pivotTable)); }

    /// Bytes that the rows and cells of the table take, without the texts and styles that they share.
    std::size_t getAllocatedSize() const;

private:
    friend class TableBuilder;
    friend class TableCellIt<const Table>;

    using Rows = std::map<unsigned long, CellRow>;

    struct ColumnsRun
    {
        unsigned long end;
        ColumnProps props;
    };

    void cutColumnsRunAt(unsigned long column);

    std::string _name;
    bool _isVisible = true;
    unsigned long _rowsCount = 0;
    unsigned long _columnsCount = 0;
    float _defaultRowHeight = 0;
    float _defaultColumnWidth = 0;
    Rows _rows;
    std::map<unsigned long, ColumnsRun> _columns; // by the first column; runs do not overlap
    std::vector<CellIndex> _mergedCells;          // top-left cells in the order of marking
    std::vector<std::unique_ptr<Frame>> _frames;  // no null entries
    std::vector<StyledRange> _styledRanges;
    TableStyle _style;
    std::vector<PivotTable> _pivotTables;
};

} // namespace QV::DOM
