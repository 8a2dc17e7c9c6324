#pragma once

#include <memory>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

struct TextContext;

/// Gathers one table of a text document as its elements come, and makes it a table of the model: columns with
/// their widths, rows with their heights, cells that span columns and rows, borders, fillings, and what the
/// table style says of each cell's place. Elements may be in either dialect.
///
/// The first of several rows of cells that are merged holds the text of all. A table has at most 16,384
/// columns; the text of cells beyond them goes to the last one. Reported, besides what FormatValues says:
///     - "A table has more than {} columns": once for a table
///     - "Table style {} is not there"
///
///     table.beginRow();
///     table.beginCell();
///     table.endCell(std::move(blocks));
///     table.endRow();
///     document.getBlocks().append(table.finish());
class FILTERS_API TextTable
{
public:
    explicit TextTable(TextContext& context);
    ~TextTable();

    void readTableProps(const FilterUtils::XMLElement& tableProps);
    void readGrid(const FilterUtils::XMLElement& grid);

    void beginRow();
    void readRowProps(const FilterUtils::XMLElement& rowProps);
    void readRowExceptions(const FilterUtils::XMLElement& exceptions);
    void endRow();

    void beginCell();
    void readCellProps(const FilterUtils::XMLElement& cellProps);
    /// @param blocks no null entries
    void endCell(std::vector<std::unique_ptr<DOM::Block>> blocks);

    /// Rows and cells that are open end here. A table without cells is an empty one. The text of a cell that
    /// a merge covers moves into the merge's first cell, so that none is lost.
    std::unique_ptr<DOM::Table> finish();

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace QV::Filters
