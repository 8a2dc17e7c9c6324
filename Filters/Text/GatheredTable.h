#pragma once

/// @file
/// A table of a text document as its file lists it, and where its cells stand.

#include <map>
#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/CellProps.h>

namespace QV::Filters {

/// How a cell takes part in a merge along one direction.
enum class CellMerge
{
    None,
    Restart,
    Continue
};

/// A cell. This format lists the cells that a merge covers, too, so the column of a cell is the sum of the
/// spans before it; MergedRegions::calculateColumnIndex is for formats that leave them out.
struct GatheredCell
{
    unsigned long column = 0; ///< once GatheredTable::placeCells has seen its row
    unsigned long span = 1;
    unsigned long rows = 1; ///< once GatheredTable::mergeRows was called; 0 for a cell that is covered
    CellMerge vertical = CellMerge::None;
    CellMerge horizontal = CellMerge::None;
    boost::optional<float> width; ///< in points
    std::shared_ptr<const DOM::CellProps> props;
    std::vector<std::unique_ptr<DOM::Block>> blocks;
};

struct GatheredRow
{
    unsigned long gapBefore = 0;   ///< columns
    boost::optional<float> height; ///< in points
    std::shared_ptr<const DOM::CellProps> exceptions;
    std::vector<GatheredCell> cells;
};

struct GatheredTable
{
    static constexpr unsigned long ColumnsMax = 16384;

    std::vector<boost::optional<float>> grid;  ///< the widths of columns, in points
    std::map<unsigned long, float> cellWidths; ///< by column, where the grid has none
    std::vector<GatheredRow> rows;

    /// Gives the cells of a row their columns, and joins those that are merged with the one before them.
    /// Cells beyond the last column that a table may have are joined to the last one.
    ///
    /// @return false where the row has more columns than a table may have
    bool placeCells(GatheredRow& row);

    /// Joins cells with those above them that begin and end in the same columns; so merges are rectangles
    /// that share no cell. A cell that goes on with none stays by itself.
    void mergeRows();

    /// One past the last column that a cell stands in.
    unsigned long countColumns() const;

private:
    void noteWidth(const GatheredCell& cell);
};

} // namespace QV::Filters
