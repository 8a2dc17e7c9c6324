#include <Filters/Presentation/SlideTable.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <FilterUtils/FU_NonIntersectedRanges.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/ShapeReader.h>
#include <Filters/Presentation/ShapeTree.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Filters/Presentation/SlideTableLines.h>
#include <Filters/Presentation/SlideTableLooks.h>
#include <Filters/Presentation/SlideText.h>
#include <Utils/Public/NumberText.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr unsigned long SlideTableColumnsMax = 1000;
constexpr unsigned long SlideTableRowsMax = 10'000;

const std::pair<const char*, DOM::VerticalAlignment> CellAnchors[] = {
    {"t",    DOM::VerticalAlignment::Top        },
    {"ctr",  DOM::VerticalAlignment::Center     },
    {"b",    DOM::VerticalAlignment::Bottom     },
    {"just", DOM::VerticalAlignment::Justify    },
    {"dist", DOM::VerticalAlignment::Distributed},
};

const std::pair<const char*, void (DOM::BordersProps::*)(DOM::BordersProps::Line&&)> CellSides[] = {
    {"lnL", &DOM::BordersProps::setLeft  },
    {"lnR", &DOM::BordersProps::setRight },
    {"lnT", &DOM::BordersProps::setTop   },
    {"lnB", &DOM::BordersProps::setBottom},
};

/// The children of that name, up to one more than @p max.
std::vector<XMLElement> listTableChildren(const XMLElement& parent, const char* name, unsigned long max)
{
    std::vector<XMLElement> children;
    forEachDrawingElement(
        parent, Vocabulary::Drawing, [&](const std::string& local, const XMLElement& child) {
            if (local == name && children.size() <= max)
                children.push_back(child);
        });
    return children;
}

class SlideTableReader
{
public:
    SlideTableReader(const XMLElement& table, const ShapeTreeScope& scope)
        : _scope(scope)
        , _columns(listTableChildren(
              findDrawingElement(table, Vocabulary::Drawing, "tblGrid"), "gridCol", SlideTableColumnsMax))
        , _rows(listTableChildren(table, "tr", SlideTableRowsMax))
        , _looks(findDrawingElement(table, Vocabulary::Drawing, "tblPr"), scope)
        , _levels(makeBaseLevels(boost::none, scope))
        , _table(std::make_unique<DOM::Table>())
    {
    }

    std::unique_ptr<DOM::Table> read()
    {
        cutRows();
        std::vector<std::vector<XMLElement>> cells;
        unsigned long columnsCount = _columns.size();
        for (const XMLElement& row : _rows) {
            cells.push_back(listTableChildren(row, "tc", SlideTableColumnsMax));
            columnsCount = std::max<unsigned long>(columnsCount, cells.back().size());
        }
        columnsCount = cutColumns(columnsCount);
        if (_rows.empty() || columnsCount == 0)
            return std::move(_table);
        _table->ensureSize(_rows.size(), columnsCount);
        readColumnWidths();
        for (std::size_t row = 0; row < _rows.size(); ++row) {
            readRowHeight(row);
            cells[row].resize(std::min<std::size_t>(cells[row].size(), columnsCount));
            for (std::size_t column = 0; column < cells[row].size(); ++column)
                readCell(cells[row][column], row, column);
        }
        return std::move(_table);
    }

private:
    void cutRows()
    {
        if (_rows.size() <= SlideTableRowsMax)
            return;
        _scope.context.report(
            "A table has more than {} rows; the rest is left out", std::to_string(SlideTableRowsMax));
        _rows.resize(SlideTableRowsMax);
    }

    unsigned long cutColumns(unsigned long count)
    {
        if (count <= SlideTableColumnsMax)
            return count;
        _scope.context.report(
            "A table has more than {} columns; the rest is left out", std::to_string(SlideTableColumnsMax));
        _columns.resize(std::min<std::size_t>(_columns.size(), SlideTableColumnsMax));
        return SlideTableColumnsMax;
    }

    boost::optional<float> readTableSize(const XMLElement& element, const char* name)
    {
        const auto text = element.getAttributeValue(name);
        const auto size = text ? readCoordinate(*text, getReport()) : boost::none;
        return size && *size >= 0 ? size : boost::none;
    }

    void readColumnWidths()
    {
        for (unsigned long column = 0; column < _columns.size(); ++column) {
            DOM::ColumnProps props;
            props.setWidth(readTableSize(_columns[column], "w"));
            _table->setColumnsProps({ColumnIndex(column), ColumnIndex(column + 1)}, props);
        }
    }

    void readRowHeight(unsigned long row)
    {
        DOM::RowProps props;
        props.setHeight(readTableSize(_rows[row], "h"));
        _table->setRowProps(RowIndex(row), props);
    }

    unsigned long readSpan(const XMLElement& cell, const char* name)
    {
        const auto text = cell.getAttributeValue(name);
        const auto span = text ? strToUlong(*text) : boost::none;
        if (!text || (span && *span > 0 && text->find_first_not_of("0123456789") == std::string::npos))
            return span.value_or(1);
        _scope.context.report("Table cell spans {} rows or columns", *text);
        return 1;
    }

    /// The cells that this one spans, cut at the edges of the table; itself where another cell has some of
    /// them.
    TableRange takeRange(const XMLElement& cell, unsigned long row, unsigned long column)
    {
        const unsigned long rows = std::min(readSpan(cell, "rowSpan"), _table->getLiveRowsCount() - row);
        const unsigned long columns =
            std::min(readSpan(cell, "gridSpan"), _table->getLiveColsCount() - column);
        const TableRange range(row, column, row + rows, column + columns);
        if (rows * columns > 1 && _merges.appendRange(range)) {
            _table->setMergeProps(RowIndex(row), ColumnIndex(column), rows - 1, columns - 1);
            return range;
        }
        return {row, column, row + 1, column + 1};
    }

    void readCell(const XMLElement& element, unsigned long row, unsigned long column)
    {
        if (_merges.findRangeContainsCell({RowIndex(row), ColumnIndex(column)})) // seen nowhere
            return;
        const TableRange range = takeRange(element, row, column);
        const TableRange all(0, 0, _table->getLiveRowsCount(), _table->getLiveColsCount());
        const SlideCellLook look = _looks.makeLook(range, all);
        DOM::TextLevels levels = _levels;
        for (DOM::TextLevel& level : levels)
            override(level.runProps, look.runProps);
        const XMLElement textBody = findDrawingElement(element, Vocabulary::Drawing, "txBody");
        const DOM::SharedCellText text =
            readSlideText(textBody, {_scope.context, _scope.part, std::move(levels)});
        DOM::Cell& cell = _table->getOrMakeCell(RowIndex(row), ColumnIndex(column));
        if (text)
            cell.setText(text);
        DOM::CellStyle style;
        style.setCellProps(std::make_shared<const DOM::CellProps>(
            readCellProps(findDrawingElement(element, Vocabulary::Drawing, "tcPr"), look)));
        cell.setSharedStyle(_scope.context.run.getDocument().getSharedObjectFactory().getShared(style));
    }

    DOM::CellProps readCellProps(const XMLElement& element, const SlideCellLook& look)
    {
        const DrawingScope drawing = _scope.part.makeDrawingScope(_scope.context);
        DOM::CellProps props;
        props.setBackgroundColor(look.background);
        if (const auto fill = readFill(element, drawing))
            if (const auto color = findTableColor(*fill))
                props.setBackgroundColor(color);
        DOM::BordersProps borders = look.borders;
        for (const auto& side : CellSides)
            if (auto line =
                    readTableLine(findDrawingElement(element, Vocabulary::Drawing, side.first), drawing))
                (borders.*side.second)(std::move(line));
        if (!isEmpty(borders))
            props.setBorders(std::make_shared<const DOM::BordersProps>(std::move(borders)));
        const std::string anchor = element.getAttributeValue("anchor").value_or("t");
        for (const auto& known : CellAnchors)
            if (anchor == known.first)
                props.setVerticalAlignment(known.second);
        if (!props.getVerticalAlignment())
            _scope.context.report("Table cell has an unknown alignment {}", anchor);
        for (const char* const name : {"marL", "marR", "marT", "marB", "vert"})
            if (element.getAttributeValue(name))
                _scope.context.run.leaveOut(SlideLeftOut::CellLooks);
        return props;
    }

    OperationReport& getReport() const { return _scope.context.run.getReport(); }

    const ShapeTreeScope& _scope;
    std::vector<XMLElement> _columns;
    std::vector<XMLElement> _rows;
    const SlideTableLooks _looks;
    const DOM::TextLevels _levels;
    FilterUtils::NonIntersectedRanges _merges;
    std::unique_ptr<DOM::Table> _table;
};

} // namespace

std::unique_ptr<DOM::Table> readSlideTable(const XMLElement& table, const ShapeTreeScope& scope)
{
    return SlideTableReader(table, scope).read();
}

} // namespace QV::Filters
