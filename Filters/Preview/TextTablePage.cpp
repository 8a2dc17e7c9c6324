#include <Filters/Preview/TextTablePage.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <fmt/format.h>

#include <DOM/Public/Adapter/ResolvedCellStyle.h>
#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_CellBordersStyleResolver.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Preview/StyleSheet.h>
#include <Filters/Preview/TextPage.h>
#include <Filters/Preview/TextPageContext.h>
#include <Filters/Preview/TextPageCss.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Filters {
namespace {

constexpr float CellPadding = 5.4F;           // points at the left and at the right
constexpr float TableColumnWidthMax = 10'000; // points

/// Lays what the named styles that @p style derives from say over @p props, and then what it says itself.
template <typename Style>
void overrideWithCellLook(DOM::CellProps& props, const DOM::Styles& styles, const Style& style)
{
    FilterUtils::forEachStyleInHierarchy(
        styles, FilterUtils::getParent(styles, style), [&props](const DOM::NamedTableStyle& named) {
            if (named.getCellProps())
                override(props, *named.getCellProps());
        });
    if (style.getCellProps())
        override(props, *style.getCellProps());
}

/// Nothing where a size is not said, or cannot be.
boost::optional<float> findTableLength(const boost::optional<float>& points)
{
    if (!points || !std::isfinite(*points) || *points <= 0)
        return boost::none;
    return std::min(*points, TableColumnWidthMax);
}

/// Writes the rows of a table.
class TextTableWriter
{
public:
    TextTableWriter(const DOM::Table& table, unsigned long rowsCount, const TextPlace& place,
        TextPageContext& context, std::string& page)
        : _table(table)
        , _styles(context.document.getStyles())
        , _place(place)
        , _context(context)
        , _page(page)
        , _resolver(_styles, table, true, nullptr)
        , _it(Adapter::getCellIterators(table).begin())
        , _end(Adapter::getCellIterators(table).end())
        , _rowsCount(rowsCount)
        , _coveredUntil(table.getLiveColsCount())
    {
        overrideWithCellLook(_tableProps, _styles, table.getStyle());
    }

    /// The rows that were written; fewer than asked for where the page is full.
    unsigned long write()
    {
        writeTableColumns();
        unsigned long row = 0;
        for (; row < _rowsCount && !_context.isFull(_page); ++row)
            writeTableRow(row);
        _page += "</tbody></table>\n";
        return row;
    }

private:
    void writeTableColumns()
    {
        bool isWhole = true;
        std::string columns;
        for (unsigned long i = 0; i < _coveredUntil.size(); ++i) {
            const DOM::ColumnProps props = _table.getColumnProps(ColumnIndex(i));
            const auto width =
                props.isHidden() ? boost::optional<float>(0.0F) : findTableLength(props.getWidth());
            isWhole = isWhole && width;
            _widths.push_back(width.value_or(0.0F));
            columns += width ? fmt::format("<col style=\"width:{}\">", makePointsCss(*width)) : "<col>";
        }
        const float total = std::accumulate(_widths.begin(), _widths.end(), 0.0F);
        _page += isWhole ? fmt::format("<table class=\"fixed\" style=\"width:{}\">", makePointsCss(total))
                         : std::string("<table>");
        _page += "<colgroup>" + columns + "</colgroup>\n<tbody>\n";
    }

    void writeTableRow(unsigned long row)
    {
        const DOM::RowProps props = _table.getRowProps(RowIndex(row));
        const auto height = findTableLength(props.getHeight());
        _page += "<tr";
        if (height)
            _page += fmt::format(" style=\"height:{}\"", makePointsCss(*height));
        _page += props.isHidden() ? " hidden>" : ">";
        for (unsigned long column = 0; column < _coveredUntil.size(); ++column) {
            const bool isThere =
                _it != _end && _it.getRowIndex().get() == row && _it.getColIndex().get() == column;
            if (_coveredUntil[column] <= row) {
                if (isThere)
                    writeTableCell(row, column);
                else
                    _page += "<td></td>";
            }
            if (isThere)
                ++_it;
        }
        while (_it != _end && _it.getRowIndex().get() == row)
            ++_it; // what stands beyond the last column
        _page += "</tr>\n";
    }

    /// Takes the place of the cell's merge, as far as it is shown and free.
    std::pair<unsigned long, unsigned long> takeSpan(unsigned long row, unsigned long column)
    {
        const DOM::MergeProps merge = _it->getMergeProps();
        const unsigned long rows = std::min(merge.getCapturedRowsCount(), _rowsCount - row - 1) + 1;
        const unsigned long columnsMax =
            std::min<unsigned long>(merge.getCapturedColsCount(), _coveredUntil.size() - column - 1) + 1;
        unsigned long columns = 0;
        while (columns < columnsMax && _coveredUntil[column + columns] <= row)
            _coveredUntil[column + columns++] = row + rows;
        return {rows, columns};
    }

    void writeTableCell(unsigned long row, unsigned long column)
    {
        const DOM::CellStyle& style = Adapter::getResolvedCellStyle(_it.getCellInfo(), _styles);
        const auto [rows, columns] = takeSpan(row, column);
        _page += "<td";
        if (rows > 1)
            _page += fmt::format(" rowspan=\"{}\"", rows);
        if (columns > 1)
            _page += fmt::format(" colspan=\"{}\"", columns);
        DOM::CellProps props = _tableProps;
        overrideWithCellLook(props, _styles, style);
        const std::string name =
            _context.styles.getClass(makeTextCellCss(props) + makeBordersCss(_resolver.resolve(_it).get()));
        if (!name.empty())
            _page += fmt::format(" class=\"{}\"", name);
        _page += '>' + makeDiagonalLines(props);
        if (const auto* const blocks = _it->getRawBlocks()) {
            TextPlace inner = _place.makeInner(getTextWidth(column, columns));
            inner.scope = {&_table.getStyle(), &style};
            writeTextBlocks(*blocks, inner, _context, _page);
        }
        _page += "</td>";
    }

    float getTextWidth(unsigned long column, unsigned long columns) const
    {
        const auto begin = _widths.begin() + static_cast<std::ptrdiff_t>(column);
        const float width = std::accumulate(begin, begin + static_cast<std::ptrdiff_t>(columns), 0.0F);
        return width > 2 * CellPadding ? width - 2 * CellPadding : _place.width;
    }

    const DOM::Table& _table;
    const DOM::Styles& _styles;
    const TextPlace& _place;
    TextPageContext& _context;
    std::string& _page;
    FilterUtils::CellBordersStyleResolver _resolver;
    Adapter::ConstTableCellIterator _it; // the first cell that was not passed yet
    Adapter::ConstTableCellIterator _end;
    unsigned long _rowsCount;
    std::vector<unsigned long> _coveredUntil; // by column: the first row that no merge above reaches
    std::vector<float> _widths;               // of the columns; 0 where one says nothing
    DOM::CellProps _tableProps;               // of the table as a whole
};

} // namespace

void writeTextTable(
    const DOM::Table& table, const TextPlace& place, TextPageContext& context, std::string& page)
{
    const unsigned long rows = table.getLiveRowsCount();
    const unsigned long columns = table.getLiveColsCount();
    if (rows == 0 || columns == 0)
        return;
    const unsigned long room = context.limits.cells - context.counts.cells;
    const unsigned long rowsMax = std::min(rows, room / columns);
    unsigned long written = 0;
    if (rowsMax > 0) {
        context.counts.cells += rowsMax * columns;
        written = TextTableWriter(table, rowsMax, place, context, page).write();
    }
    context.counts.leftRows += rows - written;
}

} // namespace QV::Filters
