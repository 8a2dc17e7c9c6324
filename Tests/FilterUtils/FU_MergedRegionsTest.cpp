#include <FilterUtils/FU_MergedRegions.h>

#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>
#include <Tests/Support/RecordedAssertions.h>

namespace QV::FilterUtils {
namespace {

using testing::Each;
using testing::ElementsAre;
using Ranges = std::vector<TableRange>;

MergedRegions makeRegions(const Ranges& ranges)
{
    MergedRegions regions;
    for (const TableRange& range : ranges)
        regions.addRegion(range);
    return regions;
}

TEST(MergedRegions, AreInDescendingOrderOfTheEndCorner)
{
    const MergedRegions regions = makeRegions({
        {0, 0, 2, 3},
        {5, 5, 6, 6},
        {0, 3, 2, 5},
        {3, 0, 4, 9},
    });
    EXPECT_THAT(regions.getRegions(), ElementsAre(TableRange(5, 5, 6, 6), TableRange(3, 0, 4, 9),
                                          TableRange(0, 3, 2, 5), TableRange(0, 0, 2, 3)));
}

TEST(MergedRegions, KeepTheFirstOfTheSameEndCorner)
{
    const MergedRegions regions = makeRegions({
        {1, 1, 3, 3},
        {0, 0, 3, 3},
        {2, 2, 3, 3},
    });
    EXPECT_THAT(regions.getRegions(), ElementsAre(TableRange(1, 1, 3, 3)));
}

TEST(MergedRegions, MayOverlap)
{
    const MergedRegions regions = makeRegions({
        {0, 0, 3, 3},
        {1, 1, 4, 4},
    });
    EXPECT_EQ(regions.getRegions().size(), 2U);
}

struct CellRow
{
    const char* name;
    unsigned long row;
    unsigned long column;
    bool isIn;
};

void PrintTo(const CellRow& row, std::ostream* out)
{
    *out << "row " << row.row << ", column " << row.column;
}

// The corners of rows 2 and 3, columns 4 to 6, from both sides, and a region that ends on row 3 before them.
const CellRow CellRows[] = {
    {"TopLeft",          2,       4,     true },
    {"AboveTopLeft",     1,       4,     false},
    {"BeforeTopLeft",    2,       3,     false},
    {"TopRight",         2,       6,     true },
    {"AfterTopRight",    2,       7,     false},
    {"BottomLeft",       3,       4,     true },
    {"BeforeBottomLeft", 3,       3,     false},
    {"BottomRight",      3,       6,     true },
    {"AfterBottomRight", 3,       7,     false},
    {"BelowBottomRight", 4,       6,     false},
    {"OtherRegion",      3,       1,     true },
    {"AboveOtherRegion", 2,       1,     false},
    {"FarBelow",         1048575, 4,     false},
    {"FarRight",         2,       16383, false},
};

class IsCellInRegions : public testing::TestWithParam<CellRow>
{
};

TEST_P(IsCellInRegions, KeepsRow)
{
    const MergedRegions regions = makeRegions({
        {2, 4, 4, 7},
        {3, 1, 4, 2},
    });
    EXPECT_EQ(
        regions.isCellInRegions(RowIndex(GetParam().row), ColumnIndex(GetParam().column)), GetParam().isIn);
}

INSTANTIATE_TEST_SUITE_P(Rows, IsCellInRegions, testing::ValuesIn(CellRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(IsCellInRegionsOfNone, IsFalse)
{
    EXPECT_FALSE(MergedRegions().isCellInRegions(RowIndex(0), ColumnIndex(0)));
}

struct ColumnRow
{
    const char* name;
    Ranges ranges;
    unsigned long row;
    std::vector<unsigned long> columns; // of the first ordinals
};

void PrintTo(const ColumnRow& row, std::ostream* out)
{
    *out << "row " << row.row << " of " << testing::PrintToString(row.ranges);
}

const Ranges TwoBlocks = {
    {0, 1, 4, 2},
    {2, 3, 4, 5}
};
const Ranges NeighbourBlocks = {
    {0, 1, 3, 3},
    {1, 3, 3, 6},
    {0, 6, 2, 7}
};
const Ranges WholeRow = {
    {0, 0, 3, 16384}
};

const ColumnRow ColumnRows[] = {
    {"NoRegions",           {},              0, {0, 1, 2, 3}         },
    {"RowAboveAll",         {{5, 0, 6, 2}},  4, {0, 1, 2, 3}         },
    {"RowBelowAll",         {{5, 0, 6, 2}},  6, {0, 1, 2, 3}         },
    {"OnlyTheFirstBlock",   TwoBlocks,       1, {0, 2, 3, 4}         },
    {"TopLeftOfTheFirst",   TwoBlocks,       0, {0, 1, 2, 3}         },
    {"BothBlocks",          TwoBlocks,       2, {0, 2, 3, 5}         },
    {"LastRowOfBoth",       TwoBlocks,       3, {0, 2, 5, 6}         },
    {"BelowBoth",           TwoBlocks,       4, {0, 1, 2, 3}         },
    {"NeighboursFirstRow",  NeighbourBlocks, 0, {0, 1, 3, 4, 5, 6, 7}},
    {"NeighboursSecondRow", NeighbourBlocks, 1, {0, 3, 7, 8}         },
    {"NeighboursThirdRow",  NeighbourBlocks, 2, {0, 6, 7, 8}         },
    {"WholeRowFirst",       WholeRow,        0, {0, 16384, 16385}    },
    {"WholeRowCovered",     WholeRow,        1, {16384, 16385}       },
};

class CalculateColumnIndex : public testing::TestWithParam<ColumnRow>
{
};

TEST_P(CalculateColumnIndex, SkipsWhatIsCovered)
{
    const MergedRegions regions = makeRegions(GetParam().ranges);
    for (unsigned long ordinal = 0; ordinal < GetParam().columns.size(); ++ordinal)
        EXPECT_EQ(
            regions.calculateColumnIndex(RowIndex(GetParam().row), ordinal), GetParam().columns[ordinal])
            << "ordinal " << ordinal;
}

INSTANTIATE_TEST_SUITE_P(Rows, CalculateColumnIndex, testing::ValuesIn(ColumnRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CalculateColumnIndexOfOverlappingRegions, FailsAnAssertionAndReturns)
{
    const Tests::RecordedAssertions assertions;
    const MergedRegions regions = makeRegions({
        {0, 0, 2, 4},
        {0, 2, 1, 6},
    });
    regions.calculateColumnIndex(RowIndex(0), 5);
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("end >= begin"));
}

constexpr unsigned long Size = 12;

TableRange makeRandomRange(std::mt19937& random)
{
    const unsigned long row = random() % Size;
    const unsigned long column = random() % Size;
    return {row, column, row + 1 + random() % 4, column + 1 + random() % 4};
}

Ranges makeRandomLayout(std::mt19937& random, bool mayOverlap)
{
    Ranges ranges;
    for (unsigned long tries = random() % 20; tries > 0; --tries) {
        const TableRange range = makeRandomRange(random);
        bool isFree = true;
        for (const TableRange& other : ranges)
            isFree = isFree && !range.intersectWith(other);
        if (mayOverlap || isFree)
            ranges.push_back(range);
    }
    return ranges;
}

bool isCovered(const Ranges& ranges, unsigned long row, unsigned long column)
{
    for (const TableRange& range : ranges)
        if (range.containsCell({RowIndex(row), ColumnIndex(column)}))
            return true;
    return false;
}

bool isTopLeft(const Ranges& ranges, unsigned long row, unsigned long column)
{
    for (const TableRange& range : ranges)
        if (range.getBeginRow() == row && range.getBeginColumn() == column)
            return true;
    return false;
}

// The slow and obvious answer: walk the row and write down its cells.
TEST(CalculateColumnIndexSweep, AgreesWithWalkingTheRow)
{
    std::mt19937 random(1);
    for (int layout = 0; layout < 10000; ++layout) {
        const Ranges ranges = makeRandomLayout(random, false);
        const MergedRegions regions = makeRegions(ranges);
        const unsigned long row = random() % (Size + 4);
        unsigned long ordinal = 0;
        for (unsigned long column = 0; column < 2 * Size; ++column)
            if (!isCovered(ranges, row, column) || isTopLeft(ranges, row, column)) {
                ASSERT_EQ(regions.calculateColumnIndex(RowIndex(row), ordinal), column)
                    << "ordinal " << ordinal << ", row " << row << " of " << testing::PrintToString(ranges);
                ++ordinal;
            }
    }
}

TEST(IsCellInRegionsSweep, AgreesWithAskingEveryRegion)
{
    std::mt19937 random(2);
    for (int layout = 0; layout < 10000; ++layout) {
        const MergedRegions regions = makeRegions(makeRandomLayout(random, true));
        const Ranges kept(regions.getRegions().begin(), regions.getRegions().end());
        for (int i = 0; i < 20; ++i) {
            const unsigned long row = random() % (Size + 4);
            const unsigned long column = random() % (Size + 4);
            ASSERT_EQ(
                regions.isCellInRegions(RowIndex(row), ColumnIndex(column)), isCovered(kept, row, column))
                << "row " << row << ", column " << column << " of " << testing::PrintToString(kept);
        }
    }
}

// Whatever the regions and the numbers, an answer comes back, and nothing but the one assertion fails.
TEST(CalculateColumnIndexSweep, SurvivesOverlappingRegions)
{
    const Tests::RecordedAssertions assertions;
    std::mt19937 random(3);
    for (int layout = 0; layout < 10000; ++layout) {
        const MergedRegions regions = makeRegions(makeRandomLayout(random, true));
        regions.calculateColumnIndex(RowIndex(random() % Size), random() % (2 * Size));
    }
    EXPECT_THAT(assertions.getExpressions(), Each("end >= begin"));
    EXPECT_FALSE(assertions.getFailures().empty());
}

} // namespace
} // namespace QV::FilterUtils
