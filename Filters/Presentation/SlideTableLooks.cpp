#include <Filters/Presentation/SlideTableLooks.h>

#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/LineProps.h>
#include <DOM/Public/Properties.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/BuiltInTableStyles.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/ShapeTree.h>
#include <Filters/Presentation/SlideTableLines.h>
#include <Utils/Public/NumberText.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using Part = SlideTableLooks::Part;
using Line = DOM::BordersProps::Line;

const std::pair<const char*, Part> SlideTableParts[] = {
    {"wholeTbl", Part::WholeTable   },
    {"band1H",   Part::OddRows      },
    {"band2H",   Part::EvenRows     },
    {"band1V",   Part::OddColumns   },
    {"band2V",   Part::EvenColumns  },
    {"lastCol",  Part::LastColumn   },
    {"firstCol", Part::FirstColumn  },
    {"lastRow",  Part::LastRow      },
    {"seCell",   Part::SouthEastCell},
    {"swCell",   Part::SouthWestCell},
    {"firstRow", Part::FirstRow     },
    {"neCell",   Part::NorthEastCell},
    {"nwCell",   Part::NorthWestCell},
};

const std::pair<const char*, void (DOM::BordersProps::*)(Line&&)> SlideTableSides[] = {
    {"left",    &DOM::BordersProps::setLeft      },
    {"right",   &DOM::BordersProps::setRight     },
    {"top",     &DOM::BordersProps::setTop       },
    {"bottom",  &DOM::BordersProps::setBottom    },
    {"insideH", &DOM::BordersProps::setHorizontal},
    {"insideV", &DOM::BordersProps::setVertical  },
};

XMLElement findTableChild(const XMLElement& parent, const char* name)
{
    return findDrawingElement(parent, Vocabulary::Drawing, name);
}

bool isOnInTable(const XMLElement& element, const char* name)
{
    const auto text = element.getAttributeValue(name);
    return text && (*text == FilterUtils::XSDTrueValue || *text == "true" || *text == "on");
}

/// A line of a style: one of its own, or one of the theme in a colour.
Line readStyleLine(const XMLElement& side, const DrawingScope& scope)
{
    const XMLElement reference = findTableChild(side, "lnRef");
    if (!reference.isValid())
        return readTableLine(findTableChild(side, "ln"), scope);
    const auto index = strToUlong(reference.getAttributeValue("idx").value_or(std::string()));
    const XMLElement line = scope.theme.findLine(index.value_or(0));
    if (!line.isValid())
        return std::make_shared<const DOM::LineProps>();
    const ColorScheme colors =
        scope.colors.withPlaceholderColor(readDrawingColor(reference, scope.colors, scope.run.getReport()));
    return readTableLine(line,
        {scope.theme, colors, scope.theme.getRelationships(), scope.pictures, scope.run, scope.groupFill});
}

boost::optional<DOM::Color> readStyleColor(const XMLElement& cellStyle, const DrawingScope& scope)
{
    const XMLElement reference = findTableChild(cellStyle, "fillRef"); // no more than its colour is kept
    if (reference.isValid())
        return readDrawingColor(reference, scope.colors, scope.run.getReport());
    const auto fill = readFill(findTableChild(cellStyle, "fill"), scope);
    return fill ? findTableColor(*fill) : boost::none;
}

DOM::RunProps readStyleRunProps(const XMLElement& text, const DrawingScope& scope)
{
    DOM::RunProps props;
    if (const auto bold = text.getAttributeValue("b"))
        props.setBold(boost::make_optional(*bold != "def", *bold == "on"));
    if (const auto italic = text.getAttributeValue("i"))
        props.setItalic(boost::make_optional(*italic != "def", *italic == "on"));
    props.setColor(readDrawingColor(text, scope.colors, scope.run.getReport()));
    return props;
}

SlideCellLook readPartLook(const XMLElement& part, const DrawingScope& scope)
{
    SlideCellLook look;
    const XMLElement cellStyle = findTableChild(part, "tcStyle");
    look.background = readStyleColor(cellStyle, scope);
    const XMLElement borders = findTableChild(cellStyle, "tcBdr");
    for (const auto& side : SlideTableSides)
        (look.borders.*side.second)(readStyleLine(findTableChild(borders, side.first), scope));
    look.runProps = readStyleRunProps(findTableChild(part, "tcTxStyle"), scope);
    return look;
}

XMLElement findTableStyle(const XMLElement& tableProps, PresentationContext& context)
{
    XMLElement own = findTableChild(tableProps, "tableStyle");
    const auto identifier = findTableChild(tableProps, "tableStyleId").getText();
    if (own.isValid() || !identifier)
        return own;
    XMLElement style = context.tableStyles.find(*identifier);
    if (!style.isValid())
        style = makeBuiltInTableStyle(*identifier);
    if (!style.isValid())
        context.report("Table style {} is not there", *identifier);
    return style;
}

/// Puts the lines of a part to one of its cells: outer ones at the edges of the part, inner ones elsewhere.
void placePartBorders(
    const DOM::BordersProps& part, const TableRange& region, const TableRange& cell, DOM::BordersProps& lines)
{
    const auto choose = [](bool isOuter, const Line& outer, const Line& inner) {
        return isOuter ? outer : inner;
    };
    DOM::BordersProps placed;
    placed.setLeft(
        choose(cell.getBeginColumn() <= region.getBeginColumn(), part.getLeft(), part.getVertical()));
    placed.setRight(
        choose(cell.getEndColumn() >= region.getEndColumn(), part.getRight(), part.getVertical()));
    placed.setTop(choose(cell.getBeginRow() <= region.getBeginRow(), part.getTop(), part.getHorizontal()));
    placed.setBottom(choose(cell.getEndRow() >= region.getEndRow(), part.getBottom(), part.getHorizontal()));
    override(lines, placed);
}

TableRange getTableRow(const TableRange& table, unsigned long row)
{
    return {row, table.getBeginColumn(), row + 1, table.getEndColumn()};
}

TableRange getTableColumn(const TableRange& table, unsigned long column)
{
    return {table.getBeginRow(), column, table.getEndRow(), column + 1};
}

} // namespace

SlideTableLooks::SlideTableLooks(const XMLElement& tableProps, const ShapeTreeScope& scope)
{
    _flags.hasFirstRow = isOnInTable(tableProps, "firstRow");
    _flags.hasLastRow = isOnInTable(tableProps, "lastRow");
    _flags.hasFirstColumn = isOnInTable(tableProps, "firstCol");
    _flags.hasLastColumn = isOnInTable(tableProps, "lastCol");
    _flags.hasRowBands = isOnInTable(tableProps, "bandRow");
    _flags.hasColumnBands = isOnInTable(tableProps, "bandCol");
    const XMLElement style = findTableStyle(tableProps, scope.context);
    const DrawingScope drawing = scope.part.makeDrawingScope(scope.context);
    for (const auto& part : SlideTableParts) {
        const XMLElement element = findTableChild(style, part.first);
        if (element.isValid() && isShown(part.second))
            _looks.push_back({part.second, readPartLook(element, drawing)});
    }
}

SlideCellLook SlideTableLooks::makeLook(const TableRange& cell, const TableRange& table) const
{
    SlideCellLook look;
    for (const PartLook& part : _looks) {
        const auto region = findRegion(part.part, cell, table);
        if (!region ||
            !region->containsCell({RowIndex(cell.getBeginRow()), ColumnIndex(cell.getBeginColumn())}))
            continue;
        if (part.look.background)
            look.background = part.look.background;
        placePartBorders(part.look.borders, *region, cell, look.borders);
        override(look.runProps, part.look.runProps);
    }
    return look;
}

bool SlideTableLooks::isShown(Part part) const
{
    switch (part) {
    case Part::WholeTable:
        return true;
    case Part::OddRows:
    case Part::EvenRows:
        return _flags.hasRowBands;
    case Part::OddColumns:
    case Part::EvenColumns:
        return _flags.hasColumnBands;
    case Part::LastColumn:
        return _flags.hasLastColumn;
    case Part::FirstColumn:
        return _flags.hasFirstColumn;
    case Part::LastRow:
        return _flags.hasLastRow;
    case Part::FirstRow:
        return _flags.hasFirstRow;
    case Part::SouthEastCell:
        return _flags.hasLastRow && _flags.hasLastColumn;
    case Part::SouthWestCell:
        return _flags.hasLastRow && _flags.hasFirstColumn;
    case Part::NorthEastCell:
        return _flags.hasFirstRow && _flags.hasLastColumn;
    case Part::NorthWestCell:
        return _flags.hasFirstRow && _flags.hasFirstColumn;
    }
    return false;
}

boost::optional<TableRange> SlideTableLooks::findBand(
    Part part, const TableRange& cell, const TableRange& table) const
{
    const bool isOfRows = part == Part::OddRows || part == Part::EvenRows;
    const bool isOdd = part == Part::OddRows || part == Part::OddColumns;
    const unsigned long begin = (isOfRows ? _flags.hasFirstRow : _flags.hasFirstColumn) ? 1 : 0;
    const unsigned long end = (isOfRows ? table.getEndRow() : table.getEndColumn()) -
                              ((isOfRows ? _flags.hasLastRow : _flags.hasLastColumn) ? 1 : 0);
    const unsigned long place = isOfRows ? cell.getBeginRow() : cell.getBeginColumn();
    if (place < begin || place >= end || ((place - begin) % 2 == 0) != isOdd)
        return boost::none;
    return isOfRows ? getTableRow(table, place) : getTableColumn(table, place);
}

boost::optional<TableRange> SlideTableLooks::findRegion(
    Part part, const TableRange& cell, const TableRange& table) const
{
    const unsigned long lastRow = table.getEndRow() - 1;
    const unsigned long lastColumn = table.getEndColumn() - 1;
    switch (part) {
    case Part::WholeTable:
        return table;
    case Part::OddRows:
    case Part::EvenRows:
    case Part::OddColumns:
    case Part::EvenColumns:
        return findBand(part, cell, table);
    case Part::LastColumn:
        return getTableColumn(table, lastColumn);
    case Part::FirstColumn:
        return getTableColumn(table, 0);
    case Part::LastRow:
        return getTableRow(table, lastRow);
    case Part::FirstRow:
        return getTableRow(table, 0);
    case Part::SouthEastCell:
        return TableRange(lastRow, lastColumn, lastRow + 1, lastColumn + 1);
    case Part::SouthWestCell:
        return TableRange(lastRow, 0, lastRow + 1, 1);
    case Part::NorthEastCell:
        return TableRange(0, lastColumn, 1, lastColumn + 1);
    case Part::NorthWestCell:
        return TableRange(0, 0, 1, 1);
    }
    return boost::none;
}

} // namespace QV::Filters
