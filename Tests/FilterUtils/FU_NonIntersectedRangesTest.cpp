#include <FilterUtils/FU_NonIntersectedRanges.h>

#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Table.h>
#include <Tests/Support/Printers.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Ranges = std::vector<TableRange>;

CellIndex at(unsigned long row, unsigned long column)
{
    return {RowIndex(row), ColumnIndex(column)};
}

TEST(NonIntersectedRanges, EmptyHoldsNothing)
{
    const NonIntersectedRanges merges;
    EXPECT_THAT(merges.getRanges(), IsEmpty());
    EXPECT_EQ(merges.findRangeContainsCell(at(0, 0)), boost::none);
}

TEST(NonIntersectedRanges, RefusedRangeChangesNothing)
{
    NonIntersectedRanges merges;
    EXPECT_TRUE(merges.appendRange({0, 0, 2, 2}));
    EXPECT_FALSE(merges.appendRange({1, 1, 3, 3}));
    EXPECT_THAT(merges.getRanges(), ElementsAre(TableRange(0, 0, 2, 2)));
    EXPECT_EQ(merges.findRangeContainsCell(at(2, 2)), boost::none);
    EXPECT_TRUE(merges.appendRange({2, 0, 3, 1})); // only touches the first
    EXPECT_THAT(merges.getRanges(), ElementsAre(TableRange(0, 0, 2, 2), TableRange(2, 0, 3, 1)));
}

TEST(NonIntersectedRanges, SameRangeIsRefused)
{
    NonIntersectedRanges merges;
    EXPECT_TRUE(merges.appendRange({3, 3, 4, 4}));
    EXPECT_FALSE(merges.appendRange({3, 3, 4, 4}));
}

struct FindRow
{
    const char* name;
    unsigned long row;
    unsigned long column;
    bool isFound;
};

void PrintTo(const FindRow& row, std::ostream* out)
{
    *out << "row " << row.row << ", column " << row.column;
}

const TableRange Block(2, 4, 5, 7);

const FindRow FindRows[] = {
    {"TopLeft",          2, 4, true },
    {"AboveTopLeft",     1, 4, false},
    {"BeforeTopLeft",    2, 3, false},
    {"Within",           3, 5, true },
    {"BottomRight",      4, 6, true },
    {"BelowBottomRight", 5, 6, false},
    {"AfterBottomRight", 4, 7, false},
    {"BottomLeft",       4, 4, true },
    {"TopRight",         2, 6, true },
    {"Origin",           0, 0, false},
};

class FindRangeContainsCell : public testing::TestWithParam<FindRow>
{
};

TEST_P(FindRangeContainsCell, KeepsRow)
{
    NonIntersectedRanges merges;
    ASSERT_TRUE(merges.appendRange(Block));
    EXPECT_EQ(merges.findRangeContainsCell(at(GetParam().row, GetParam().column)),
        GetParam().isFound ? boost::make_optional(Block) : boost::none);
}

INSTANTIATE_TEST_SUITE_P(Rows, FindRangeContainsCell, testing::ValuesIn(FindRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(NonIntersectedRanges, HoldRangesAtTheEndOfTheirNumbers)
{
    constexpr unsigned long end = std::numeric_limits<unsigned long>::max();
    NonIntersectedRanges merges;
    EXPECT_TRUE(merges.appendRange({end - 2, end - 2, end, end}));
    EXPECT_TRUE(merges.appendRange({0, 0, end - 2, end}));
    EXPECT_FALSE(merges.appendRange({0, end - 1, end, end}));
    EXPECT_EQ(merges.findRangeContainsCell(at(end - 1, end - 1)), TableRange(end - 2, end - 2, end, end));
    EXPECT_EQ(merges.findRangeContainsCell(at(end, end)), boost::none);
}

Ranges makeEveryRangeIn(unsigned long size)
{
    Ranges ranges;
    for (unsigned long top = 0; top < size; ++top)
        for (unsigned long left = 0; left < size; ++left)
            for (unsigned long bottom = top + 1; bottom <= size; ++bottom)
                for (unsigned long right = left + 1; right <= size; ++right)
                    ranges.emplace_back(top, left, bottom, right);
    return ranges;
}

// The slow and obvious answer: walk the cells.
bool sharesACell(const TableRange& a, const TableRange& b)
{
    for (unsigned long row = a.getBeginRow(); row < a.getEndRow(); ++row)
        for (unsigned long column = a.getBeginColumn(); column < a.getEndColumn(); ++column)
            if (b.containsCell(at(row, column)))
                return true;
    return false;
}

TEST(NonIntersectedRangesSweep, AgreesWithWalkingTheCellsForEveryPair)
{
    const Ranges ranges = makeEveryRangeIn(4);
    for (const TableRange& a : ranges)
        for (const TableRange& b : ranges) {
            NonIntersectedRanges merges;
            ASSERT_TRUE(merges.appendRange(a));
            ASSERT_EQ(merges.appendRange(b), !sharesACell(a, b))
                << testing::PrintToString(a) << " and " << testing::PrintToString(b);
        }
}

TableRange makeRandomRange(std::mt19937& random, unsigned long size)
{
    const unsigned long row = random() % size;
    const unsigned long column = random() % size;
    const unsigned long height =
        random() % 10 == 0 ? size : 1 + random() % 4; // some are as tall as the sheet
    return {row, column, row + height, column + 1 + random() % 4};
}

TEST(NonIntersectedRangesSweep, AgreesWithAScanOfAllRanges)
{
    std::mt19937 random(1);
    for (int layout = 0; layout < 10000; ++layout) {
        const unsigned long size = 5 + random() % 40;
        NonIntersectedRanges merges;
        Ranges accepted;
        for (unsigned long count = random() % 60; count > 0; --count) {
            const TableRange range = makeRandomRange(random, size);
            bool isFree = true;
            for (const TableRange& other : accepted)
                isFree = isFree && !range.intersectWith(other);
            ASSERT_EQ(merges.appendRange(range), isFree)
                << testing::PrintToString(range) << " after " << testing::PrintToString(accepted);
            if (isFree)
                accepted.push_back(range);
        }
        ASSERT_THAT(merges.getRanges(), ElementsAreArray(accepted));
        for (int i = 0; i < 10; ++i) {
            const CellIndex cell = at(random() % (size + 4), random() % (size + 4));
            boost::optional<TableRange> expected;
            for (const TableRange& range : accepted)
                if (range.containsCell(cell))
                    expected = range;
            ASSERT_EQ(merges.findRangeContainsCell(cell), expected) << testing::PrintToString(accepted);
        }
    }
}

struct ApplyRow
{
    const char* name;
    Ranges ranges;
    unsigned long maxRows;
    unsigned long maxColumns;
    unsigned long rows; // of the table afterwards
    unsigned long columns;
    Ranges merged;
};

void PrintTo(const ApplyRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.ranges) << " with at most " << row.maxRows << " by " << row.maxColumns;
}

constexpr unsigned long SheetRows = 1048576;
constexpr unsigned long SheetColumns = 16384;

const Ranges None;
const Ranges OneBlock = {
    {1, 2, 3, 5}
};
const Ranges OneCell = {
    {4, 5, 5, 6}
};
const Ranges TwoRows = {
    {0, 0, 2, 1}
};
const Ranges TallAndShort = {
    {0, 0, 10, 1},
    {2, 1, 4,  3}
};
const Ranges TallAndShortCut = {
    {0, 0, 4, 1},
    {2, 1, 4, 3}
};
const Ranges WideAndNarrow = {
    {0, 0, 1, 10},
    {2, 1, 3, 4 }
};
const Ranges WideAndNarrowCut = {
    {0, 0, 1, 4},
    {2, 1, 3, 4}
};
const Ranges TallFarRight = {
    {0, 7, 10, 9}
};
const Ranges TallFarRightCut = {
    {0, 7, 1, 9}
};
const Ranges TallFarBelow = {
    {5, 0, 15, 1}
};
const Ranges BeyondTheSheet = {
    {0, 0, 2000000, 1}
};
const Ranges BeyondTheSheetCut = {
    {0, 0, SheetRows, 1}
};
const Ranges WideBeyondTheSheet = {
    {0, 16000, 1, 20000}
};
const Ranges WideBeyondTheSheetCut = {
    {0, 16000, 1, SheetColumns}
};
const Ranges WhollyBeyondTheSheet = {
    {SheetRows, 0,            SheetRows + 1, 1               },
    {0,         SheetColumns, 1,             SheetColumns + 1}
};

// name, ranges, maxRows, maxColumns, rows, columns, merged
const ApplyRow ApplyRows[] = {
    {"NoRanges",              None,                 100,     100,     1,         1,            None                 },
    {"Block",                 OneBlock,             100,     100,     3,         5,            OneBlock             },
    {"Cell",                  OneCell,              100,     100,     5,         6,            None                 },
    {"AsTallAsTheMaximum",    TwoRows,              2,       100,     1,         1,            None                 },
    {"BelowTheMaximum",       TwoRows,              3,       100,     2,         1,            TwoRows              },
    {"TallIsCut",             TallAndShort,         10,      100,     4,         3,            TallAndShortCut      },
    {"WideIsCut",             WideAndNarrow,        100,     10,      3,         4,            WideAndNarrowCut     },
    {"TallStillWidens",       TallFarRight,         10,      100,     1,         9,            TallFarRightCut      },
    {"TallFarBelowIsLeftOut", TallFarBelow,         10,      100,     1,         1,            None                 },
    {"ZeroMaxima",            OneBlock,             0,       0,       1,         1,            None                 },
    {"BeyondTheSheet",        BeyondTheSheet,       3000000, 100,     SheetRows, 1,            BeyondTheSheetCut    },
    {"WideBeyondTheSheet",    WideBeyondTheSheet,   100,     30000,   1,         SheetColumns, WideBeyondTheSheetCut},
    {"WhollyBeyondTheSheet",  WhollyBeyondTheSheet, 3000000, 3000000, SheetRows, SheetColumns, None                 },
};

class ApplyMergedPropsToTable : public testing::TestWithParam<ApplyRow>
{
};

TEST_P(ApplyMergedPropsToTable, GrowsTheTableAndMarksItsBlocks)
{
    const ApplyRow& row = GetParam();
    NonIntersectedRanges merges;
    for (const TableRange& range : row.ranges)
        ASSERT_TRUE(merges.appendRange(range));
    DOM::Table table;
    applyMergedPropsToTable(merges, row.maxRows, row.maxColumns, table);
    EXPECT_EQ(table.getLiveRowsCount(), row.rows);
    EXPECT_EQ(table.getLiveColsCount(), row.columns);
    EXPECT_THAT(table.getMergedRanges(), ElementsAreArray(row.merged));
}

INSTANTIATE_TEST_SUITE_P(Rows, ApplyMergedPropsToTable, testing::ValuesIn(ApplyRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ApplyMergedPropsToALargerTable, DoesNotShrinkItAndCutsAtItsEdge)
{
    NonIntersectedRanges merges;
    ASSERT_TRUE(merges.appendRange({8, 8, 40, 12}));
    DOM::Table table;
    table.ensureSize(20, 10);
    applyMergedPropsToTable(merges, 20, 100, table);
    EXPECT_EQ(table.getLiveRowsCount(), 20U);
    EXPECT_EQ(table.getLiveColsCount(), 12U);
    EXPECT_THAT(table.getMergedRanges(), ElementsAre(TableRange(8, 8, 20, 12)));
}

} // namespace
} // namespace QV::FilterUtils
