#include <Filters/Preview/SheetGrid.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/LineWidths.h>
#include <DOM/Public/Table.h>
#include <Filters/Preview/CellLook.h>

namespace QV::Filters {
namespace {

using DOM::LineProps;
using DOM::LineStyle;

TEST(SheetGrid, TakesSizesAndHidesWhatIsHidden)
{
    DOM::Table table;
    table.ensureSize(3, 3);
    table.setDefaultRowHeight(15);
    table.setDefaultColumnWidth(48);
    DOM::RowProps row;
    row.setHeight(30.0F);
    table.setRowProps(RowIndex(1), row);
    DOM::ColumnProps hidden;
    hidden.setWidth(60.0F);
    hidden.setHidden(true);
    table.setColumnsProps({ColumnIndex(1), ColumnIndex(2)}, hidden);
    const SheetGrid grid(table, 3, 2);
    EXPECT_EQ(grid.getRowsCount(), 3U);
    EXPECT_EQ(grid.getColumnsCount(), 2U);
    EXPECT_EQ(grid.getHeight(0), 15);
    EXPECT_EQ(grid.getHeight(1), 30);
    EXPECT_EQ(grid.getWidth(0), 48);
    EXPECT_EQ(grid.getWidth(1), 0);
    EXPECT_EQ(grid.getTotalWidth(), 48);
}

TEST(SheetGrid, CutsMergesAtItsEdges)
{
    DOM::Table table;
    table.ensureSize(10, 10);
    table.setMergeProps(RowIndex(1), ColumnIndex(1), 8, 1);
    table.setMergeProps(RowIndex(0), ColumnIndex(3), 0, 6);
    table.setMergeProps(RowIndex(5), ColumnIndex(5), 1, 1);
    const SheetGrid grid(table, 3, 4);
    EXPECT_EQ(grid.getPlace(0, 0), SheetGrid::Place::Single);
    EXPECT_EQ(grid.getPlace(1, 1), SheetGrid::Place::Begin);
    EXPECT_EQ(grid.getSpan(1, 1), std::make_pair(2UL, 2UL));
    EXPECT_EQ(grid.getPlace(2, 2), SheetGrid::Place::Covered);
    EXPECT_EQ(grid.getPlace(0, 3), SheetGrid::Place::Begin);
    EXPECT_EQ(grid.getSpan(0, 3), std::make_pair(1UL, 1UL));
    EXPECT_EQ(grid.getSpan(0, 0), std::make_pair(1UL, 1UL));
}

struct LineRow
{
    const char* name;
    LineProps line;
    std::string css;
};

TEST(LineCss, HasWholePixels)
{
    const DOM::Color red(DOM::Color::RGBA(255, 0, 0, 255));
    const LineRow rows[] = {
        {"Thin",      {LineStyle::Solid, DOM::ThinLineWidth},        "border-left:1px solid #000000;" },
        {"Medium",    {LineStyle::Solid, DOM::MediumLineWidth, red}, "border-left:2px solid #FF0000;" },
        {"Thick",     {LineStyle::Solid, DOM::ThickLineWidth},       "border-left:3px solid #000000;" },
        {"Hair",      {LineStyle::Hair, 0.1F},                       "border-left:1px dotted #000000;"},
        {"Double",    {LineStyle::Double, DOM::ThinLineWidth},       "border-left:3px double #000000;"},
        {"DashDot",   {LineStyle::DashDot, DOM::MediumLineWidth},    "border-left:2px dashed #000000;"},
        {"TakenAway", {LineStyle::None, DOM::ThickLineWidth},        ""                               },
    };
    for (const LineRow& row : rows)
        EXPECT_EQ(makeLineCss("left", &row.line), row.css) << row.name;
    EXPECT_EQ(makeLineCss("left", nullptr), "");
}

TEST(ChooseLine, TakesTheWiderAndThenTheSecond)
{
    const LineProps thin(LineStyle::Solid, 1);
    const LineProps other(LineStyle::Dashed, 1);
    const LineProps thick(LineStyle::Solid, 2);
    const LineProps none(LineStyle::None, 5);
    EXPECT_EQ(chooseLine(&thin, &thick), &thick);
    EXPECT_EQ(chooseLine(&thick, &thin), &thick);
    EXPECT_EQ(chooseLine(&thin, &other), &other);
    EXPECT_EQ(chooseLine(&thin, nullptr), &thin);
    EXPECT_EQ(chooseLine(&thin, &none), &thin);
    EXPECT_EQ(chooseLine(nullptr, &thin), &thin);
    EXPECT_EQ(chooseLine(nullptr, nullptr), nullptr);
}

std::shared_ptr<const LineProps> makeLine(float width)
{
    return std::make_shared<const LineProps>(LineStyle::Solid, width);
}

/// The widths of the lines that a cell draws: left, top, right, bottom; 0 for none.
std::vector<float> getWidths(const EdgeLines::Sides& sides)
{
    std::vector<float> widths;
    for (const LineProps* line : {sides.left, sides.top, sides.right, sides.bottom})
        widths.push_back(line ? line->getWidth() : 0);
    return widths;
}

using Widths = std::vector<float>;

TEST(EdgeLines, BelongToTheCellBehindThem)
{
    DOM::Table table;
    table.setDefaultRowHeight(15);
    table.setDefaultColumnWidth(48);
    const SheetGrid grid(table, 2, 2);
    EdgeLines edges(grid);
    DOM::BordersProps borders;
    borders.setLeft(makeLine(1));
    borders.setTop(makeLine(2));
    borders.setRight(makeLine(3));
    borders.setBottom(makeLine(4));
    EXPECT_EQ(getWidths(edges.resolve(0, 0, &borders)), (Widths{1, 2, 0, 0}));
    EXPECT_EQ(getWidths(edges.resolve(0, 1, nullptr)), (Widths{3, 0, 0, 0}));
    EXPECT_EQ(getWidths(edges.resolve(1, 0, nullptr)), (Widths{0, 4, 0, 0}));
    EXPECT_EQ(getWidths(edges.resolve(1, 1, &borders)), (Widths{1, 2, 3, 4}));
}

TEST(EdgeLines, AreSeenBeyondHiddenRowsAndColumns)
{
    DOM::Table table;
    table.setDefaultRowHeight(15);
    table.setDefaultColumnWidth(48);
    DOM::RowProps hiddenRow;
    hiddenRow.setHidden(true);
    table.setRowProps(RowIndex(1), hiddenRow);
    DOM::ColumnProps hiddenColumn;
    hiddenColumn.setHidden(true);
    table.setColumnsProps({ColumnIndex(1), ColumnIndex(2)}, hiddenColumn);
    const SheetGrid grid(table, 3, 3);
    EdgeLines edges(grid);
    DOM::BordersProps borders;
    borders.setRight(makeLine(3));
    borders.setBottom(makeLine(4));
    edges.resolve(0, 0, &borders);
    edges.resolve(0, 1, nullptr);
    EXPECT_EQ(getWidths(edges.resolve(0, 2, nullptr)), (Widths{3, 0, 0, 0}));
    for (unsigned long column = 0; column < 3; ++column)
        edges.resolve(1, column, nullptr);
    EXPECT_EQ(getWidths(edges.resolve(2, 0, nullptr)), (Widths{0, 4, 0, 0}));
    EXPECT_EQ(getWidths(edges.resolve(2, 1, nullptr)), (Widths{0, 0, 0, 0}));
}

TEST(EdgeLines, OfMergesGoRoundThem)
{
    DOM::Table table;
    table.setDefaultRowHeight(15);
    table.setDefaultColumnWidth(48);
    table.ensureSize(4, 3);
    table.setMergeProps(RowIndex(0), ColumnIndex(0), 2, 1);
    const SheetGrid grid(table, 4, 3);
    EdgeLines edges(grid);
    DOM::BordersProps begin;
    begin.setRight(makeLine(1));
    begin.setBottom(makeLine(2));
    DOM::BordersProps covered; // the right edge of the merge's second row, and lines within it
    covered.setRight(makeLine(5));
    covered.setBottom(makeLine(6));
    EXPECT_EQ(getWidths(edges.resolve(0, 0, &begin)), (Widths{0, 0, 0, 0}));
    edges.resolve(0, 1, nullptr);
    EXPECT_EQ(getWidths(edges.resolve(0, 2, nullptr)), (Widths{1, 0, 0, 0}));
    edges.resolve(1, 0, nullptr);
    edges.resolve(1, 1, &covered);
    EXPECT_EQ(getWidths(edges.resolve(1, 2, nullptr)), (Widths{5, 0, 0, 0}));
    edges.resolve(2, 0, nullptr);
    edges.resolve(2, 1, nullptr);
    EXPECT_EQ(getWidths(edges.resolve(2, 2, nullptr)), (Widths{1, 0, 0, 0}));
    EXPECT_EQ(getWidths(edges.resolve(3, 0, nullptr)), (Widths{0, 2, 0, 0}));
    EXPECT_EQ(getWidths(edges.resolve(3, 1, nullptr)), (Widths{0, 2, 0, 0}));
    EXPECT_EQ(getWidths(edges.resolve(3, 2, nullptr)), (Widths{0, 0, 0, 0}));
}

} // namespace
} // namespace QV::Filters
