#include <Filters/Preview/SheetPage.h>

#include <algorithm>
#include <memory>

#include <fmt/format.h>

#include <DOM/Public/Adapter/ResolvedCellStyle.h>
#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Styles.h>
#include <FilterUtils/FU_CellBordersStyleResolver.h>
#include <FilterUtils/FU_CellQueries.h>
#include <FilterUtils/FU_TableIndices.h>
#include <FilterUtils/FU_Text.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/SafeLink.h>
#include <Filters/Preview/CellContent.h>
#include <Filters/Preview/FramesPage.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/SheetGrid.h>

namespace QV::Filters {
namespace {

using CellIterator = Adapter::ConstTableCellIterator;

constexpr unsigned long SpillMax = 30; // columns over which long text goes on

/// Writes the rows of a sheet.
class SheetWriter
{
public:
    SheetWriter(const DOM::Table& table, const SheetGrid& grid, const PageContext& context, std::string& page)
        : _styles(context.run.getDocument().getStyles())
        , _grid(grid)
        , _context(context)
        , _page(page)
        , _resolver(_styles, table, true, nullptr)
        , _edges(grid)
        , _it(Adapter::getCellIterators(table).begin())
        , _end(Adapter::getCellIterators(table).end())
    {
    }

    /// The rows that were written; fewer than the grid has where the page is full.
    unsigned long write()
    {
        writeHead();
        unsigned long row = 0;
        for (; row < _grid.getRowsCount() && _page.size() < _context.limits.textBytes; ++row)
            writeRow(row);
        _page += "</tbody></table>\n";
        return row;
    }

private:
    void writeHead()
    {
        _page += fmt::format("<table style=\"width:{}pt\"><colgroup><col style=\"width:{}pt\">",
            _grid.getTotalWidth() + RowHeadWidth, RowHeadWidth);
        for (unsigned long i = 0; i < _grid.getColumnsCount(); ++i)
            _page += fmt::format("<col style=\"width:{}pt\">", _grid.getWidth(i));
        _page += fmt::format("</colgroup>\n<thead><tr style=\"height:{}pt\"><td></td>", ColumnHeadHeight);
        for (unsigned long i = 0; i < _grid.getColumnsCount(); ++i) {
            const std::string cell = FilterUtils::toAlphaIndex(RowIndex(0), ColumnIndex(i));
            _page += fmt::format("<th scope=\"col\"><b>{}</b></th>", cell.substr(0, cell.size() - 1));
        }
        _page += "</tr></thead>\n<tbody>\n";
    }

    void writeRow(unsigned long row)
    {
        _page += fmt::format(
            "<tr style=\"height:{}pt\"><th scope=\"row\"><b>{}</b></th>", _grid.getHeight(row), row + 1);
        for (unsigned long column = 0; column < _grid.getColumnsCount(); ++column) {
            const bool isThere = isAt(_it, row, column);
            std::shared_ptr<DOM::BordersProps> borders;
            if (isThere)
                borders = _resolver.resolve(_it);
            const EdgeLines::Sides sides = _edges.resolve(row, column, borders.get());
            if (_grid.getPlace(row, column) != SheetGrid::Place::Covered)
                writeCell(row, column, sides);
            if (isThere)
                ++_it;
        }
        while (_it != _end && _it.getRowIndex().get() == row)
            ++_it; // what stands beyond the last column
        _page += "</tr>\n";
    }

    bool isAt(const CellIterator& it, unsigned long row, unsigned long column) const
    {
        return it != _end && it.getRowIndex().get() == row && it.getColIndex().get() == column;
    }

    void writeCell(unsigned long row, unsigned long column, const EdgeLines::Sides& sides)
    {
        _page += "<td";
        const auto [rows, columns] = _grid.getSpan(row, column);
        if (rows > 1)
            _page += fmt::format(" rowspan=\"{}\"", rows);
        if (columns > 1)
            _page += fmt::format(" colspan=\"{}\"", columns);
        const bool isVisible = _grid.getHeight(row) > 0 && (_grid.getWidth(column) > 0 || columns > 1);
        if (!isAt(_it, row, column) || !isVisible) {
            _page += '>';
            writeLines(sides, nullptr, isVisible);
            _page += "</td>";
            return;
        }
        const CellLooks::Look& look =
            _context.looks.getLook(Adapter::getResolvedCellStyle(_it.getCellInfo(), _styles));
        std::string css = look.css;
        if (!look.isAligned)
            css += getValueAlignment(_it->getKind());
        const std::string name = _context.styles.getClass(css);
        if (!name.empty())
            _page += fmt::format(" class=\"{}\"", name);
        _page += '>';
        writeLines(sides, look.diagonals.empty() ? nullptr : &look.diagonals, true);
        writeContent(row, column, look);
        _page += "</td>";
    }

    static const char* getValueAlignment(DOM::Cell::Kind kind)
    {
        switch (kind) {
        case DOM::Cell::Kind::Number:
            return "text-align:right;";
        case DOM::Cell::Kind::Boolean:
        case DOM::Cell::Kind::Error:
            return "text-align:center;";
        case DOM::Cell::Kind::Empty:
        case DOM::Cell::Kind::Text:
            break;
        }
        return "";
    }

    /// The lines lie over the cell, so that they change nothing of its size.
    void writeLines(const EdgeLines::Sides& sides, const std::string* diagonals, bool isVisible)
    {
        if (!isVisible)
            return;
        const std::string css = makeLineCss("left", sides.left) + makeLineCss("top", sides.top) +
                                makeLineCss("right", sides.right) + makeLineCss("bottom", sides.bottom);
        if (!css.empty())
            _page += fmt::format("<i class=\"{}\"></i>", _context.styles.getClass(css));
        if (diagonals)
            _page += *diagonals;
    }

    void writeContent(unsigned long row, unsigned long column, const CellLooks::Look& look)
    {
        const DOM::CellFormat* const format =
            _context.displays.findFormat(Adapter::getResolvedCellStyle(_it.getCellInfo(), _styles));
        const std::string content =
            makeCellContent(*_it, format, _context.displays, _context.limits.cellTextBytes);
        if (content.empty())
            return;
        const float spill = look.wrapsText || look.isAligned ? 0 : getSpill(row, column);
        _page += spill > 0 ? fmt::format("<div style=\"right:-{}pt\">", spill) : "<div>";
        std::string target;
        if (const auto link = FilterUtils::getCellHyperlink(*_it))
            target = makeLinkTarget(*link, _context);
        if (target.empty())
            _page += "<p>" + content + "</p></div>";
        else
            _page += fmt::format("<p><a href=\"{}\">{}</a></p></div>", escapeHtml(target), content);
    }

    /// How far text of this cell may go on to the right: over the empty cells beside it, in points.
    float getSpill(unsigned long row, unsigned long column) const
    {
        if (_it->getKind() != DOM::Cell::Kind::Text ||
            _grid.getPlace(row, column) != SheetGrid::Place::Single)
            return 0;
        float width = 0;
        CellIterator next = _it;
        ++next;
        const unsigned long end = std::min(_grid.getColumnsCount(), column + 1 + SpillMax);
        for (unsigned long i = column + 1; i < end; ++i) {
            if (_grid.getPlace(row, i) != SheetGrid::Place::Single)
                break;
            if (isAt(next, row, i)) {
                if (next->getKind() != DOM::Cell::Kind::Empty)
                    break;
                ++next;
            }
            width += _grid.getWidth(i);
        }
        return width;
    }

    const DOM::Styles& _styles;
    const SheetGrid& _grid;
    const PageContext& _context;
    std::string& _page;
    FilterUtils::CellBordersStyleResolver _resolver;
    EdgeLines _edges;
    CellIterator _it; // the first cell that was not passed yet
    CellIterator _end;
};

} // namespace

void writeSheet(const DOM::Table& table, const std::string& id, const PageContext& context, std::string& page)
{
    const PreviewLimits& limits = context.limits;
    const unsigned long columns = std::min(table.getLiveColsCount(), limits.columns);
    const unsigned long rows = std::min(table.getLiveRowsCount(), limits.cells / std::max(columns, 1UL));
    page +=
        fmt::format("<section id=\"{}\"><h2>{}</h2>\n<div class=\"sheet\">", id, escapeHtml(table.getName()));
    const SheetGrid grid(table, rows, columns);
    const unsigned long written = SheetWriter(table, grid, context, page).write();
    writeFrames(table, context, page);
    page += "</div>\n";
    if (written < table.getLiveRowsCount() || columns < table.getLiveColsCount())
        page += fmt::format("<p class=\"note\">Shown: {} of {} rows, {} of {} columns.</p>\n", written,
            table.getLiveRowsCount(), columns, table.getLiveColsCount());
    page += "</section>\n";
}

std::string makeLinkTarget(const DOM::Hyperlink& link, const PageContext& context)
{
    if (!link.getURL().empty()) {
        const std::string target = FilterUtils::joinHyperlink(link);
        return isSafeLink(target) ? target : std::string();
    }
    // "Sheet!A1" or "'My ''own'' sheet'!A1"; a cell of the same sheet has no "!".
    const std::size_t mark = link.getAnchor().rfind('!');
    if (mark == std::string::npos)
        return {};
    std::string name = link.getAnchor().substr(0, mark);
    if (name.size() >= 2 && name.front() == '\'' && name.back() == '\'') {
        name = name.substr(1, name.size() - 2);
        for (std::size_t i = name.find("''"); i != std::string::npos; i = name.find("''", i + 1))
            name.erase(i, 1);
    }
    const auto sheet = context.sheetIds.find(name);
    return sheet != context.sheetIds.end() ? "#" + sheet->second : std::string();
}

} // namespace QV::Filters
