#include <Filters/Text/GatheredTable.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Paragraph.h>

namespace QV::Filters {
namespace {

using CellBlocks = std::vector<std::unique_ptr<DOM::Block>>;

bool holdsCellText(const std::unique_ptr<DOM::Block>& block)
{
    const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(block.get());
    return !paragraph || !paragraph->getRuns().empty();
}

/// Moves the text of a covered cell to the cell that covers it; empty paragraphs alone are no text.
void moveCellText(CellBlocks& from, CellBlocks& to)
{
    if (std::any_of(from.begin(), from.end(), holdsCellText))
        std::move(from.begin(), from.end(), std::back_inserter(to));
    from.clear();
}

/// A merged cell ends with the line below the last cell that it covers.
void takeBottomLine(
    const std::shared_ptr<const DOM::CellProps>& from, std::shared_ptr<const DOM::CellProps>& to)
{
    if (!from || !from->getBorders() || !from->getBorders()->getBottom())
        return;
    auto borders = std::make_shared<DOM::BordersProps>();
    borders->setBottom(DOM::BordersProps::Line(from->getBorders()->getBottom()));
    DOM::CellProps bottom;
    bottom.setBorders(std::move(borders));
    auto props = to ? std::make_shared<DOM::CellProps>(*to) : std::make_shared<DOM::CellProps>();
    DOM::override(*props, bottom);
    to = std::move(props);
}

} // namespace

bool GatheredTable::placeCells(GatheredRow& row)
{
    std::vector<GatheredCell> listed;
    listed.swap(row.cells);
    unsigned long column = std::min(row.gapBefore, ColumnsMax - 1);
    bool isMerging = false;
    bool fits = true;
    for (GatheredCell& cell : listed) {
        const bool goesOn = isMerging && cell.horizontal == CellMerge::Continue;
        isMerging = goesOn || cell.horizontal == CellMerge::Restart;
        const unsigned long span = std::min(cell.span, ColumnsMax - column);
        fits = fits && span == cell.span;
        if (goesOn || span == 0) {
            row.cells.back().span += span;
            moveCellText(cell.blocks, row.cells.back().blocks);
        } else {
            cell.column = column;
            cell.span = span;
            noteWidth(cell);
            row.cells.push_back(std::move(cell));
        }
        column += span;
    }
    return fits;
}

void GatheredTable::noteWidth(const GatheredCell& cell)
{
    const bool isInGrid = cell.column < grid.size() && grid[cell.column];
    if (cell.span != 1 || !cell.width || isInGrid)
        return;
    float& known = cellWidths[cell.column];
    known = std::max(known, *cell.width);
}

void GatheredTable::mergeRows()
{
    std::map<unsigned long, GatheredCell*> above; // the first cells of merges that may go on, by column
    for (GatheredRow& row : rows) {
        std::map<unsigned long, GatheredCell*> here;
        for (GatheredCell& cell : row.cells) {
            if (cell.vertical == CellMerge::Restart)
                here[cell.column] = &cell;
            if (cell.vertical != CellMerge::Continue)
                continue;
            const auto first = above.find(cell.column);
            if (first == above.end() || first->second->span != cell.span)
                continue;
            GatheredCell& merged = *first->second;
            ++merged.rows;
            cell.rows = 0;
            moveCellText(cell.blocks, merged.blocks);
            takeBottomLine(cell.props, merged.props);
            here[cell.column] = &merged;
        }
        above = std::move(here);
    }
}

unsigned long GatheredTable::countColumns() const
{
    unsigned long count = 0;
    for (const GatheredRow& row : rows)
        if (!row.cells.empty())
            count = std::max(count, row.cells.back().column + row.cells.back().span);
    return count;
}

} // namespace QV::Filters
