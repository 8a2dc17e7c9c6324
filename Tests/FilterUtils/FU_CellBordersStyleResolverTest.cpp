#include <FilterUtils/FU_CellBordersStyleResolver.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableStyle.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Tests/Support/StyledTable.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::getWidths;
using Tests::makeBorders;
using Tests::StyledTable;
using Widths = std::vector<float>; // left, top, right, bottom, vertical, horizontal; 0 where not set

// The layers, from the lowest. Each gives lines as wide as its number around, and tenfold inside.
enum Layer : unsigned
{
    Nothing = 0,
    Default = 1U << 1U,
    TableFar = 1U << 2U,
    TableNear = 1U << 3U,
    TableOwn = 1U << 4U,
    CellFar = 1U << 5U,
    CellNear = 1U << 6U,
    CellOwn = 1U << 7U,
};
constexpr unsigned LayersEnd = 8;

struct LayerRow
{
    const char* name;
    unsigned around; // the layers that give the four sides
    unsigned inside; // the layers that give the lines between cells
    bool usesTableStyle;
    Widths corner; // of the top left cell of nine
    Widths center;
};

void PrintTo(const LayerRow& row, std::ostream* out)
{
    *out << "layers around " << row.around << ", inside " << row.inside;
}

constexpr unsigned AllOfTable = Default | TableFar | TableNear | TableOwn;

// name, around, inside, usesTableStyle, corner, center
const LayerRow LayerRows[] = {
    {"NoLayer",               Nothing,              Nothing,              true,  {},                     {}                      },
    {"NoLayerNoTableStyle",   Nothing,              Nothing,              false, {},                     {}                      },
    {"DefaultAlone",          Default,              Nothing,              true,  {1, 1, 1, 1, 0, 0},     {1, 1, 1, 1, 0, 0}      },
    {"FarOverDefault",        Default | TableFar,   Nothing,              true,  {2, 2, 2, 2, 0, 0},     {2, 2, 2, 2, 0, 0}      },
    {"NearOverFar",           TableFar | TableNear, Nothing,              true,  {3, 3, 3, 3, 0, 0},     {3, 3, 3, 3, 0, 0}      },
    {"OwnOverNear",           TableNear | TableOwn, Nothing,              true,  {4, 4, 4, 4, 0, 0},     {4, 4, 4, 4, 0, 0}      },
    {"WithoutTableStyle",     AllOfTable,           Nothing,              false, {1, 1, 1, 1, 0, 0},     {1, 1, 1, 1, 0, 0}      },
    {"TableStyleSwitchedOff", TableNear | TableOwn, TableOwn,             false, {},                     {}                      },
    {"InsideAlone",           Nothing,              TableOwn,             true,  {0, 0, 40, 40, 40, 40}, {40, 40, 40, 40, 40, 40}},
    {"DefaultInside",         Nothing,              Default,              false, {0, 0, 10, 10, 10, 10}, {10, 10, 10, 10, 10, 10}},
    {"InsideNearOverFar",     Nothing,              TableFar | TableNear, true,  {0, 0, 30, 30, 30, 30},
     {30, 30, 30, 30, 30, 30}                                                                                                    },
    {"InsideFarOverDefault",  Nothing,              Default | TableFar,   true,  {0, 0, 20, 20, 20, 20},
     {20, 20, 20, 20, 20, 20}                                                                                                    },
    {"InsideOwnOverAll",      Nothing,              AllOfTable,           true,  {0, 0, 40, 40, 40, 40}, {40, 40, 40, 40, 40, 40}},
    {"LowInsideOverHighEdge", TableOwn,             Default,              true,  {4, 4, 10, 10, 10, 10}, {10, 10, 10, 10, 10, 10}},
    {"CellFarAlone",          CellFar,              Nothing,              true,  {5, 5, 5, 5, 0, 0},     {5, 5, 5, 5, 0, 0}      },
    {"CellFarOverTable",      AllOfTable | CellFar, TableOwn,             true,  {5, 5, 5, 5, 40, 40},   {5, 5, 5, 5, 40, 40}    },
    {"CellNearOverFar",       CellFar | CellNear,   TableOwn,             true,  {6, 6, 6, 6, 40, 40},   {6, 6, 6, 6, 40, 40}    },
    {"CellOwnOverNear",       CellNear | CellOwn,   TableOwn,             true,  {7, 7, 7, 7, 40, 40},   {7, 7, 7, 7, 40, 40}    },
    {"CellOwnOverDefault",    Default | CellOwn,    Nothing,              false, {7, 7, 7, 7, 0, 0},     {7, 7, 7, 7, 0, 0}      },
    {"CellInsideStaysInside", Default,              CellOwn,              true,  {1, 1, 1, 1, 70, 70},   {1, 1, 1, 1, 70, 70}    },
};

class BordersOfLayers : public testing::TestWithParam<LayerRow>
{
protected:
    /// Null where the layer gives nothing at all.
    std::shared_ptr<const DOM::BordersProps> makeLayer(unsigned number) const
    {
        const bool isAround = (GetParam().around >> number & 1U) != 0;
        const bool isInside = (GetParam().inside >> number & 1U) != 0;
        if (!isAround && !isInside)
            return nullptr;
        const float around = isAround ? static_cast<float>(number) : 0;
        const float inside = isInside ? 10 * static_cast<float>(number) : 0;
        return makeBorders({around, around, around, around, inside, inside});
    }
};

TEST_P(BordersOfLayers, WinAsTheirOrderSays)
{
    StyledTable styled(3, 3);
    ASSERT_EQ(LayersEnd, 8U);
    const UUID tableParent = styled.addStyle(styled.addStyle({}, makeLayer(2)), makeLayer(3));
    styled.setTableStyle(tableParent, makeLayer(4));
    const UUID cellParent = styled.addStyle(styled.addStyle({}, makeLayer(5)), makeLayer(6));
    styled.setCellStyle(0, 0, cellParent, makeLayer(7));
    styled.setCellStyle(1, 1, cellParent, makeLayer(7));
    const CellBordersStyleResolver resolver(
        styled.getStyles(), styled.getTable(), GetParam().usesTableStyle, makeLayer(1));
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(0, 0))), GetParam().corner);
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(1, 1))), GetParam().center);
}

INSTANTIATE_TEST_SUITE_P(Rows, BordersOfLayers, testing::ValuesIn(LayerRows),
    [](const auto& row) { return std::string(row.param.name); });

struct PlaceRow
{
    const char* name;
    unsigned long rows; // of the table
    unsigned long columns;
    unsigned long row; // of the cell
    unsigned long column;
    unsigned long extraRows;
    unsigned long extraColumns;
    Widths sides; // where the table gives 1 around, 20 between columns and 30 between rows
};

void PrintTo(const PlaceRow& row, std::ostream* out)
{
    *out << "row " << row.row << " + " << row.extraRows << " of " << row.rows << ", column " << row.column
         << " + " << row.extraColumns << " of " << row.columns;
}

// name, rows, columns, row, column, extraRows, extraColumns, sides
const PlaceRow PlaceRows[] = {
    {"OneByOne",            1, 1, 0, 0, 0, 0, {1, 1, 1, 1, 20, 30}    },
    {"TopLeft",             3, 3, 0, 0, 0, 0, {1, 1, 20, 30, 20, 30}  },
    {"Top",                 3, 3, 0, 1, 0, 0, {20, 1, 20, 30, 20, 30} },
    {"TopRight",            3, 3, 0, 2, 0, 0, {20, 1, 1, 30, 20, 30}  },
    {"Left",                3, 3, 1, 0, 0, 0, {1, 30, 20, 30, 20, 30} },
    {"Center",              3, 3, 1, 1, 0, 0, {20, 30, 20, 30, 20, 30}},
    {"Right",               3, 3, 1, 2, 0, 0, {20, 30, 1, 30, 20, 30} },
    {"BottomLeft",          3, 3, 2, 0, 0, 0, {1, 30, 20, 1, 20, 30}  },
    {"Bottom",              3, 3, 2, 1, 0, 0, {20, 30, 20, 1, 20, 30} },
    {"BottomRight",         3, 3, 2, 2, 0, 0, {20, 30, 1, 1, 20, 30}  },
    {"OneRow",              1, 3, 0, 1, 0, 0, {20, 1, 20, 1, 20, 30}  },
    {"OneColumn",           3, 1, 1, 0, 0, 0, {1, 30, 1, 30, 20, 30}  },
    {"MergedOverRow",       3, 3, 1, 0, 0, 2, {1, 30, 1, 30, 20, 30}  },
    {"MergedShortOfRight",  3, 3, 1, 0, 0, 1, {1, 30, 20, 30, 20, 30} },
    {"MergedToRight",       3, 3, 1, 1, 0, 1, {20, 30, 1, 30, 20, 30} },
    {"MergedOverColumn",    3, 3, 0, 1, 2, 0, {20, 1, 20, 1, 20, 30}  },
    {"MergedShortOfBottom", 3, 3, 0, 1, 1, 0, {20, 1, 20, 30, 20, 30} },
    {"MergedToBottom",      3, 3, 1, 1, 1, 0, {20, 30, 20, 1, 20, 30} },
    {"MergedOverAll",       3, 3, 0, 0, 2, 2, {1, 1, 1, 1, 20, 30}    },
    {"MergedInTheMiddle",   4, 4, 1, 1, 1, 1, {20, 30, 20, 30, 20, 30}},
    {"MergedToTheCorner",   4, 4, 2, 2, 1, 1, {20, 30, 1, 1, 20, 30}  },
};

class BordersOfPlaces : public testing::TestWithParam<PlaceRow>
{
};

TEST_P(BordersOfPlaces, ShowInnerLinesWhereThereIsANeighbour)
{
    const PlaceRow& row = GetParam();
    StyledTable styled(row.rows, row.columns);
    styled.setTableStyle({}, makeBorders({1, 1, 1, 1, 20, 30}));
    styled.getTable().getOrMakeCell(RowIndex(row.row), ColumnIndex(row.column));
    styled.getTable().setMergeProps(
        RowIndex(row.row), ColumnIndex(row.column), row.extraRows, row.extraColumns);
    ASSERT_EQ(styled.getTable().getLiveColsCount(), row.columns);
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(row.row, row.column))), row.sides);
}

INSTANTIATE_TEST_SUITE_P(Rows, BordersOfPlaces, testing::ValuesIn(PlaceRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CellBordersStyleResolver, InnerLinesAloneLeaveASingleCellWithoutSides)
{
    StyledTable styled(1, 1);
    styled.setTableStyle({}, makeBorders({0, 0, 0, 0, 20, 30}));
    styled.getTable().getOrMakeCell(RowIndex(0), ColumnIndex(0));
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(0, 0))), (Widths{0, 0, 0, 0, 20, 30}));
}

TEST(CellBordersStyleResolver, OneInnerLineTurnsIntoTwoSides)
{
    StyledTable styled(3, 3);
    styled.getTable().getOrMakeCell(RowIndex(1), ColumnIndex(1));
    styled.setTableStyle({}, makeBorders({1, 1, 1, 1, 20, 0}));
    const CellBordersStyleResolver columns(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(columns.resolve(styled.findCell(1, 1))), (Widths{20, 1, 20, 1, 20, 0}));
    styled.setTableStyle({}, makeBorders({1, 1, 1, 1, 0, 30}));
    const CellBordersStyleResolver rows(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(rows.resolve(styled.findCell(1, 1))), (Widths{1, 30, 1, 30, 0, 30}));
}

TEST(CellBordersStyleResolver, SingleSidesComeFromDifferentLayers)
{
    StyledTable styled(1, 1);
    const UUID parent = styled.addStyle({}, makeBorders({2, 2, 0, 0, 0, 0}));
    styled.setTableStyle({}, makeBorders({1, 1, 1, 0, 0, 0}));
    styled.setCellStyle(0, 0, parent, makeBorders({3, 0, 0, 0, 0, 0}));
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(0, 0))), (Widths{3, 2, 1, 0, 0, 0}));
}

TEST(CellBordersStyleResolver, WalksChainsOfFive)
{
    StyledTable styled(1, 1);
    UUID parent;
    for (int generation = 1; generation <= 5; ++generation) { // each one sets one side more than the next
        std::vector<float> widths(6, 0.0F);
        for (std::size_t side = 0; side < 6 - static_cast<std::size_t>(generation); ++side)
            widths[side] = static_cast<float>(generation);
        parent = styled.addStyle(parent, makeBorders(widths));
    }
    const Widths expected{5, 4, 3, 2, 1, 0};
    styled.setCellStyle(0, 0, parent, nullptr);
    const CellBordersStyleResolver ofCell(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(ofCell.resolve(styled.findCell(0, 0))), expected);

    styled.setCellStyle(0, 0, {}, nullptr);
    styled.setTableStyle(parent, nullptr);
    const CellBordersStyleResolver ofTable(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(ofTable.resolve(styled.findCell(0, 0))), expected);
}

TEST(CellBordersStyleResolver, StylesWithoutCellPropsOrBordersArePassedOver)
{
    StyledTable styled(1, 1);
    const UUID root = styled.addStyle({}, makeBorders({1, 1, 1, 1, 0, 0}));
    const UUID middle = styled.addStyle(root, nullptr); // cell properties without borders
    DOM::NamedTableStyle bare;                          // no cell properties
    bare.setParentUUID(middle);
    const UUID parent = styled.addStyle(bare);
    styled.setCellStyle(0, 0, parent, nullptr);
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(0, 0))), (Widths{1, 1, 1, 1, 0, 0}));
}

TEST(CellBordersStyleResolver, ParentsThatAreMissingEndTheChain)
{
    StyledTable styled(1, 1);
    const UUID missing = UUID::generate();
    const UUID orphan = styled.addStyle(missing, makeBorders({2, 2, 2, 2, 0, 0}));
    styled.setTableStyle(missing, makeBorders({1, 1, 1, 1, 0, 0}));
    styled.setCellStyle(0, 0, missing, nullptr);
    const CellBordersStyleResolver ofMissing(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(ofMissing.resolve(styled.findCell(0, 0))), (Widths{1, 1, 1, 1, 0, 0}));
    styled.setCellStyle(0, 0, orphan, nullptr);
    EXPECT_EQ(getWidths(ofMissing.resolve(styled.findCell(0, 0))), (Widths{2, 2, 2, 2, 0, 0}));
}

TEST(CellBordersStyleResolver, CellsBordersLeaveOutTheTable)
{
    StyledTable styled(2, 2);
    styled.setTableStyle({}, makeBorders({1, 1, 1, 1, 20, 30}));
    styled.setCellStyle(0, 0, {}, nullptr);
    styled.setCellStyle(1, 1, {}, makeBorders({0, 7, 0, 0, 0, 0}));
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(resolver.getResolvedBordersFromCellRowColumn(styled.findCell(0, 0)), nullptr);
    EXPECT_EQ(getWidths(resolver.getResolvedBordersFromCellRowColumn(styled.findCell(1, 1))),
        (Widths{0, 7, 0, 0, 0, 0}));
}

TEST(CellBordersStyleResolver, WithoutTableLayersTheCellsOwnStayOrNothing)
{
    StyledTable styled(2, 2);
    styled.setTableStyle({}, makeBorders({1, 1, 1, 1, 20, 30}));
    styled.setCellStyle(0, 0, {}, nullptr);
    styled.setCellStyle(1, 1, {}, makeBorders({0, 7, 0, 0, 0, 0}));
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), false, nullptr);
    EXPECT_EQ(resolver.resolve(styled.findCell(0, 0)), nullptr);
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(1, 1))), (Widths{0, 7, 0, 0, 0, 0}));
}

TEST(CellBordersStyleResolver, RowsAndColumnsStandInForCellsWithoutAStyle)
{
    StyledTable styled(2, 2);
    styled.setRowStyle(0, makeBorders({2, 0, 0, 0, 0, 0}));
    styled.setColumnStyle(0, makeBorders({3, 0, 0, 0, 0, 0}));
    styled.getTable().getOrMakeCell(RowIndex(0), ColumnIndex(0));
    styled.getTable().getOrMakeCell(RowIndex(1), ColumnIndex(0));
    styled.getTable().getOrMakeCell(RowIndex(1), ColumnIndex(1));
    styled.setCellStyle(0, 1, {}, nullptr); // an empty style of its own
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(0, 0))), (Widths{2, 0, 0, 0, 0, 0}));
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(1, 0))), (Widths{3, 0, 0, 0, 0, 0}));
    EXPECT_EQ(resolver.resolve(styled.findCell(1, 1)), nullptr);
    EXPECT_EQ(resolver.resolve(styled.findCell(0, 1)), nullptr);
}

TEST(CellBordersStyleResolver, EachResultIsAnObjectOfItsOwn)
{
    StyledTable styled(3, 3);
    const auto defaults = makeBorders({1, 1, 1, 1, 20, 30});
    styled.getTable().getOrMakeCell(RowIndex(1), ColumnIndex(1));
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, defaults);
    const auto first = resolver.resolve(styled.findCell(1, 1));
    const auto second = resolver.resolve(styled.findCell(1, 1));
    EXPECT_NE(first, second);
    EXPECT_EQ(*first, *second);
    first->setLeft(std::make_shared<DOM::LineProps>(DOM::LineStyle::Double, 9.0F));
    EXPECT_EQ(getWidths(resolver.resolve(styled.findCell(1, 1))), (Widths{20, 30, 20, 30, 20, 30}));
    EXPECT_EQ(getWidths(defaults), (Widths{1, 1, 1, 1, 20, 30}));
}

TEST(CellBordersStyleResolver, AnotherTablesCellFailsAndIsTakenByItsPlace)
{
    StyledTable styled(3, 3);
    styled.setTableStyle({}, makeBorders({1, 1, 1, 1, 20, 30}));
    StyledTable other(9, 9);
    other.setCellStyle(2, 2, {}, makeBorders({7, 0, 0, 0, 0, 0}));
    other.getTable().getOrMakeCell(RowIndex(8), ColumnIndex(8));
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    const Tests::RecordedAssertions assertions;
    EXPECT_EQ(getWidths(resolver.resolve(other.findCell(2, 2))), (Widths{7, 30, 1, 1, 20, 30}));
    EXPECT_EQ(getWidths(resolver.resolve(other.findCell(8, 8))), (Widths{20, 30, 1, 1, 20, 30}));
    ASSERT_THAT(assertions.getExpressions(),
        ElementsAre("&cellIt.getTable() == &_table.get()", "&cellIt.getTable() == &_table.get()"));
    EXPECT_EQ(assertions.getFailures().front().file, "FilterUtils/FU_CellBordersStyleResolver.cpp");
}

TEST(CellBordersStyleResolver, ItsOwnTablesCellsFailNothing)
{
    StyledTable styled(1, 1);
    styled.setCellStyle(0, 0, {}, nullptr);
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    const Tests::RecordedAssertions assertions;
    resolver.resolve(styled.findCell(0, 0));
    EXPECT_THAT(assertions.getExpressions(), IsEmpty());
}

} // namespace
} // namespace QV::FilterUtils
