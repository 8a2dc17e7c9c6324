#include <Utils/Public/TableIndices/TableRange.h>

#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TaggedValue.h>

#include <Tests/Support/Printers.h>
#include <Tests/Support/RecordedAssertions.h>

namespace QV {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedAssertions;

constexpr unsigned long Last = static_cast<unsigned long>(-1);

static_assert(std::is_same_v<RowIndex,
    TaggedValue<unsigned long, TypeUtils::ValueTag<RowOrColumnTag, RowOrColumnTag(0)>>>);
static_assert(std::is_same_v<ColumnIndex,
    TaggedValue<unsigned long, TypeUtils::ValueTag<RowOrColumnTag, RowOrColumnTag(1)>>>);
static_assert(!std::is_same_v<RowIndex, ColumnIndex> && !std::is_convertible_v<RowIndex, ColumnIndex>);
static_assert(!std::is_constructible_v<RowIndex, ColumnIndex>);
static_assert(
    !std::is_convertible_v<unsigned long, RowIndex> && !std::is_convertible_v<RowIndex, unsigned long>);
static_assert(!std::is_constructible_v<CellIndex, ColumnIndex, RowIndex>, "the row comes first");
static_assert(sizeof(RowIndex) == 8 && sizeof(TableRange) == 32);
static_assert(MaxRowIndex.get() == 1048575 && MaxColumnIndex.get() == 16383);

TEST(TaggedValue, IsMadeAndTakenApartExplicitly)
{
    const RowIndex row(7);
    EXPECT_EQ(row.get(), 7U);
    EXPECT_EQ(static_cast<unsigned long>(row), 7U);
    EXPECT_EQ(RowIndex().get(), 0U);
    const TaggedValue<std::string, struct NameTag> name("text");
    EXPECT_EQ(name.get(), "text");
}

TEST(TaggedValue, ComparesAsItsValueDoes)
{
    const unsigned long values[] = {0, 1, 2, Last};
    for (const unsigned long a : values)
        for (const unsigned long b : values) {
            EXPECT_EQ(RowIndex(a) == RowIndex(b), a == b);
            EXPECT_EQ(RowIndex(a) != RowIndex(b), a != b);
            EXPECT_EQ(RowIndex(a) < RowIndex(b), a < b);
            EXPECT_EQ(RowIndex(a) > RowIndex(b), a > b);
            EXPECT_EQ(RowIndex(a) <= RowIndex(b), a <= b);
            EXPECT_EQ(RowIndex(a) >= RowIndex(b), a >= b);
        }
}

struct ExtentRow
{
    const char* name;
    unsigned long end;
    unsigned long begin;
    unsigned long extent;
    bool holds;
};

void PrintTo(const ExtentRow& row, std::ostream* out)
{
    *out << row.end << " - " << row.begin;
}

const ExtentRow ExtentRows[] = {
    {"Some",      5,    2,    3,    true },
    {"None",      5,    5,    0,    true },
    {"All",       Last, 0,    Last, true },
    {"BelowNone", 4,    5,    0,    false},
    {"FarBelow",  0,    Last, 0,    false},
};

class IndexExtent : public testing::TestWithParam<ExtentRow>
{
};

TEST_P(IndexExtent, KeepsRow)
{
    const ExtentRow& row = GetParam();
    const RecordedAssertions recorded;
    EXPECT_EQ(RowIndex(row.end) - RowIndex(row.begin), row.extent);
    EXPECT_EQ(ColumnIndex(row.end) - ColumnIndex(row.begin), row.extent);
    if (row.holds)
        EXPECT_THAT(recorded.getExpressions(), IsEmpty());
    else
        EXPECT_THAT(recorded.getExpressions(), ElementsAre("end >= begin", "end >= begin"));
}

INSTANTIATE_TEST_SUITE_P(Rows, IndexExtent, testing::ValuesIn(ExtentRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CellIndex, HoldsARowAndAColumn)
{
    const CellIndex cell(RowIndex(3), ColumnIndex(4));
    EXPECT_EQ(cell.getRow(), RowIndex(3));
    EXPECT_EQ(cell.getColumn(), ColumnIndex(4));
    EXPECT_EQ(cell, CellIndex(RowIndex(3), ColumnIndex(4)));
    EXPECT_NE(cell, CellIndex(RowIndex(4), ColumnIndex(4)));
    EXPECT_NE(cell, CellIndex(RowIndex(3), ColumnIndex(3)));
    EXPECT_EQ(CellIndex(), CellIndex(RowIndex(0), ColumnIndex(0)));
}

const char* const RowsFail = "_beginRow < _endRow";
const char* const ColumnsFail = "_beginColumn < _endColumn";

struct RangeRow
{
    const char* name;
    unsigned long bounds[4]; // begin row, begin column, end row, end column
    unsigned long kept[4];
    std::vector<std::string> failures;
};

void PrintTo(const RangeRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.bounds);
}

const RangeRow RangeRows[] = {
    {"OneCell",         {2, 3, 3, 4},       {2, 3, 3, 4},                     {}                     },
    {"Block",           {0, 0, 2, 3},       {0, 0, 2, 3},                     {}                     },
    {"Largest",         {0, 0, Last, Last}, {0, 0, Last, Last},               {}                     },
    {"NoRows",          {2, 3, 2, 4},       {2, 3, 3, 4},                     {RowsFail}             },
    {"NoColumns",       {2, 3, 3, 3},       {2, 3, 3, 4},                     {ColumnsFail}          },
    {"EmptyTable",      {0, 0, 0, 0},       {0, 0, 1, 1},                     {RowsFail, ColumnsFail}},
    {"RowsReversed",    {5, 0, 2, 1},       {5, 0, 6, 1},                     {RowsFail}             },
    {"ColumnsReversed", {0, 5, 1, 2},       {0, 5, 1, 6},                     {ColumnsFail}          },
    {"NothingBeyond",   {Last, Last, 0, 0}, {Last - 1, Last - 1, Last, Last}, {RowsFail, ColumnsFail}},
};

class TableRangeBounds : public testing::TestWithParam<RangeRow>
{
};

TEST_P(TableRangeBounds, AreNeverEmpty)
{
    const RangeRow& row = GetParam();
    const RecordedAssertions recorded;
    const TableRange range(row.bounds[0], row.bounds[1], row.bounds[2], row.bounds[3]);
    EXPECT_EQ(recorded.getExpressions(), row.failures);
    EXPECT_EQ(range.getBeginRow(), row.kept[0]);
    EXPECT_EQ(range.getBeginColumn(), row.kept[1]);
    EXPECT_EQ(range.getEndRow(), row.kept[2]);
    EXPECT_EQ(range.getEndColumn(), row.kept[3]);
}

INSTANTIATE_TEST_SUITE_P(Rows, TableRangeBounds, testing::ValuesIn(RangeRows),
    [](const auto& row) { return std::string(row.param.name); });

std::vector<TableRange> makeAllRanges(unsigned long size)
{
    std::vector<TableRange> ranges;
    for (unsigned long top = 0; top < size; ++top)
        for (unsigned long bottom = top + 1; bottom <= size; ++bottom)
            for (unsigned long left = 0; left < size; ++left)
                for (unsigned long right = left + 1; right <= size; ++right)
                    ranges.emplace_back(top, left, bottom, right);
    return ranges;
}

bool coversCell(const TableRange& range, unsigned long row, unsigned long column)
{
    return row >= range.getBeginRow() && row < range.getEndRow() && column >= range.getBeginColumn() &&
           column < range.getEndColumn();
}

TEST(TableRange, SharesTheCellsThatBothHold)
{
    constexpr unsigned long Size = 4;
    const std::vector<TableRange> ranges = makeAllRanges(Size);
    const RecordedAssertions recorded;
    for (const TableRange& a : ranges)
        for (const TableRange& b : ranges) {
            const boost::optional<TableRange> shared = a.intersectWith(b);
            for (unsigned long row = 0; row < Size; ++row)
                for (unsigned long column = 0; column < Size; ++column)
                    ASSERT_EQ(shared && coversCell(*shared, row, column),
                        coversCell(a, row, column) && coversCell(b, row, column))
                        << testing::PrintToString(a) << " with " << testing::PrintToString(b);
            ASSERT_EQ(shared, b.intersectWith(a));
        }
    EXPECT_THAT(recorded.getExpressions(), IsEmpty());
}

TEST(TableRange, RangesThatTouchShareNothing)
{
    const TableRange range(2, 2, 4, 4);
    EXPECT_EQ(range.intersectWith(TableRange(4, 2, 6, 4)), boost::none);
    EXPECT_EQ(range.intersectWith(TableRange(2, 4, 4, 6)), boost::none);
    EXPECT_EQ(range.intersectWith(TableRange(4, 4, 6, 6)), boost::none);
    EXPECT_EQ(range.intersectWith(TableRange(3, 3, Last, Last)), TableRange(3, 3, 4, 4));
}

TEST(TableRange, ContainsTheCellsBeforeItsEnds)
{
    constexpr unsigned long Size = 4;
    for (const TableRange& range : makeAllRanges(Size))
        for (unsigned long row = 0; row <= Size; ++row)
            for (unsigned long column = 0; column <= Size; ++column)
                ASSERT_EQ(range.containsCell(CellIndex(RowIndex(row), ColumnIndex(column))),
                    coversCell(range, row, column));
}

TEST(TableRange, EqualsInAllFourBounds)
{
    const TableRange range(1, 2, 3, 4);
    EXPECT_EQ(range, TableRange(1, 2, 3, 4));
    EXPECT_NE(range, TableRange(0, 2, 3, 4));
    EXPECT_NE(range, TableRange(1, 1, 3, 4));
    EXPECT_NE(range, TableRange(1, 2, 4, 4));
    EXPECT_NE(range, TableRange(1, 2, 3, 5));
}

} // namespace
} // namespace QV
