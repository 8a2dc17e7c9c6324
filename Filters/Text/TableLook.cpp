#include <Filters/Text/TableLook.h>

#include <cstddef>
#include <string>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <Filters/Package/Namespaces.h>
#include <Utils/Public/NumberText.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

struct LookFlag
{
    const char* attribute;
    unsigned long bit;
    bool TableLook::*flag;
    bool isNegative; // the flag is off where the bit is set
};

constexpr LookFlag LookFlags[] = {
    {"firstRow",    0x0020, &TableLook::hasFirstRow,      false},
    {"lastRow",     0x0040, &TableLook::hasLastRow,       false},
    {"firstColumn", 0x0080, &TableLook::hasFirstColumn,   false},
    {"lastColumn",  0x0100, &TableLook::hasLastColumn,    false},
    {"noHBand",     0x0200, &TableLook::hasRowStripes,    true },
    {"noVBand",     0x0400, &TableLook::hasColumnStripes, true },
};

/// One axis of a table: its first and last lines (rows or columns), and what lies between them.
struct LookAxis
{
    unsigned long begin;
    unsigned long end;
    bool hasFirst;
    bool hasLast;

    bool isFirst(unsigned long line) const { return hasFirst && line == begin; }
    bool isLast(unsigned long line) const { return hasLast && line + 1 == end; }
};

/// Lines [begin, end), and whether they are the first stripe, or a second one after it.
struct LookStripe
{
    unsigned long begin;
    unsigned long end;
    bool isOdd;
};

boost::optional<LookStripe> findLookStripe(const LookAxis& axis, unsigned long line, unsigned long size)
{
    if (size == 0 || axis.isFirst(line) || axis.isLast(line))
        return boost::none;
    const unsigned long first = axis.begin + (axis.hasFirst ? 1 : 0);
    const unsigned long end = axis.end - (axis.hasLast ? 1 : 0);
    const unsigned long number = (line - first) / size;
    const unsigned long begin = first + number * size;
    return LookStripe{begin, end - begin < size ? end : begin + size, number % 2 == 0};
}

/// Lays the parts that hold a cell over each other.
class CellLookBuilder
{
public:
    CellLookBuilder(const TableConditions& conditions, const TableRange& cell)
        : _conditions(conditions)
        , _cell(cell)
    {
    }

    void add(TablePart part, const TableRange& range)
    {
        const TablePartFormat& format = _conditions.parts[static_cast<std::size_t>(part)];
        FilterUtils::override(_cellProps, placeBorders(format.cellProps, range, _cell));
        FilterUtils::override(_paraProps, format.paraProps);
        FilterUtils::override(_runProps, format.runProps);
    }

    DOM::CellStyle make() const
    {
        DOM::CellStyle style;
        style.setCellProps(_cellProps);
        style.setParaProps(_paraProps);
        style.setRunProps(_runProps);
        return style;
    }

private:
    const TableConditions& _conditions;
    const TableRange& _cell;
    std::shared_ptr<DOM::CellProps> _cellProps;
    std::shared_ptr<DOM::ParaProps> _paraProps;
    std::shared_ptr<DOM::RunProps> _runProps;
};

void addStripes(CellLookBuilder& builder, const TableConditions& conditions, const TableLook& look,
    const TableRange& cell, const TableRange& table)
{
    const LookAxis rows{table.getBeginRow(), table.getEndRow(), look.hasFirstRow, look.hasLastRow};
    const LookAxis columns{
        table.getBeginColumn(), table.getEndColumn(), look.hasFirstColumn, look.hasLastColumn};
    if (look.hasColumnStripes)
        if (const auto stripe = findLookStripe(columns, cell.getBeginColumn(), conditions.columnStripe))
            builder.add(stripe->isOdd ? TablePart::OddColumns : TablePart::EvenColumns,
                {table.getBeginRow(), stripe->begin, table.getEndRow(), stripe->end});
    if (look.hasRowStripes)
        if (const auto stripe = findLookStripe(rows, cell.getBeginRow(), conditions.rowStripe))
            builder.add(stripe->isOdd ? TablePart::OddRows : TablePart::EvenRows,
                {stripe->begin, table.getBeginColumn(), stripe->end, table.getEndColumn()});
}

void addEdges(
    CellLookBuilder& builder, const TableLook& look, const TableRange& cell, const TableRange& table)
{
    const bool isInFirstRow = look.hasFirstRow && cell.getBeginRow() == table.getBeginRow();
    const bool isInLastRow = look.hasLastRow && cell.getBeginRow() + 1 == table.getEndRow();
    const bool isInFirstColumn = look.hasFirstColumn && cell.getBeginColumn() == table.getBeginColumn();
    // A cell that spans columns is in the last one where it ends there.
    const bool isInLastColumn = look.hasLastColumn && cell.getEndColumn() >= table.getEndColumn();
    const TableRange row(
        cell.getBeginRow(), table.getBeginColumn(), cell.getBeginRow() + 1, table.getEndColumn());
    const TableRange column(
        table.getBeginRow(), cell.getBeginColumn(), table.getEndRow(), cell.getEndColumn());
    if (isInFirstRow)
        builder.add(TablePart::FirstRow, row);
    if (isInLastRow)
        builder.add(TablePart::LastRow, row);
    if (isInFirstColumn)
        builder.add(TablePart::FirstColumn, column);
    if (isInLastColumn)
        builder.add(TablePart::LastColumn, column);
    if (isInFirstRow && isInFirstColumn)
        builder.add(TablePart::NorthWestCell, cell);
    if (isInFirstRow && isInLastColumn)
        builder.add(TablePart::NorthEastCell, cell);
    if (isInLastRow && isInFirstColumn)
        builder.add(TablePart::SouthWestCell, cell);
    if (isInLastRow && isInLastColumn)
        builder.add(TablePart::SouthEastCell, cell);
}

} // namespace

TableLook readTableLook(const XMLElement& element, const Names& names)
{
    TableLook look;
    const auto findText = [&](const char* attribute) {
        return element.getAttributeValue(names(Vocabulary::WordProcessing, attribute));
    };
    const auto value = findText("val");
    const unsigned long bits = value ? strToUlong(*value, nullptr, 16).value_or(0) : 0;
    for (const LookFlag& flag : LookFlags) {
        bool isSet = (bits & flag.bit) != 0;
        if (const auto text = findText(flag.attribute))
            isSet = *text == FilterUtils::XSDTrueValue || *text == "true" || *text == "on";
        look.*flag.flag = isSet != flag.isNegative;
    }
    return look;
}

DOM::CellStyle makeConditionalStyle(
    const TableConditions& conditions, const TableLook& look, const TableRange& cell, const TableRange& table)
{
    CellLookBuilder builder(conditions, cell);
    builder.add(TablePart::WholeTable, table);
    addStripes(builder, conditions, look, cell, table);
    addEdges(builder, look, cell, table);
    return builder.make();
}

std::shared_ptr<const DOM::CellProps> placeBorders(
    const std::shared_ptr<const DOM::CellProps>& props, const TableRange& part, const TableRange& cell)
{
    if (!props || !props->getBorders())
        return props;
    const DOM::BordersProps& lines = *props->getBorders();
    using Line = DOM::BordersProps::Line;
    auto borders = std::make_shared<DOM::BordersProps>();
    const bool isLeft = cell.getBeginColumn() <= part.getBeginColumn();
    const bool isTop = cell.getBeginRow() <= part.getBeginRow();
    const bool isRight = cell.getEndColumn() >= part.getEndColumn();
    const bool isBottom = cell.getEndRow() >= part.getEndRow();
    borders->setLeft(Line(isLeft ? lines.getLeft() : lines.getVertical()));
    borders->setTop(Line(isTop ? lines.getTop() : lines.getHorizontal()));
    borders->setRight(Line(isRight ? lines.getRight() : lines.getVertical()));
    borders->setBottom(Line(isBottom ? lines.getBottom() : lines.getHorizontal()));
    auto placed = std::make_shared<DOM::CellProps>(*props);
    placed->setBorders(DOM::isEmpty(*borders) ? nullptr : std::move(borders));
    return placed;
}

} // namespace QV::Filters
