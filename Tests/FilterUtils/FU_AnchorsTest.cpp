#include <FilterUtils/FU_Anchors.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <FilterUtils/FU_TableDimensionsInfo.h>

namespace QV::FilterUtils {
namespace {

using Sizes = std::vector<float>;

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

struct CellRow
{
    const char* name;
    float distance;
    Sizes sizes;
    float defaultSize;
    unsigned long index;
    float offset;
};

void PrintTo(const CellRow& row, std::ostream* out)
{
    *out << row.distance << " in " << testing::PrintToString(row.sizes) << ", then " << row.defaultSize;
}

const CellRow CellRows[] = {
    {"Edge",                 0,              {10, 20},     5,          0,                      0            },
    {"InTheFirst",           9.5F,           {10, 20},     5,          0,                      9.5F         },
    {"JustInTheFirst",       0x1.3ffffep3F,  {10, 20},     5,          0,                      0x1.3ffffep3F},
    {"EdgeOfTheSecond",      10,             {10, 20},     5,          1,                      0            },
    {"InTheSecond",          29,             {10, 20},     5,          1,                      19           },
    {"EdgePastTheSizes",     30,             {10, 20},     5,          2,                      0            },
    {"PastTheSizes",         34.5F,          {10, 20},     5,          2,                      4.5F         },
    {"EdgeOfADefault",       35,             {10, 20},     5,          3,                      0            },
    {"FarPastTheSizes",      42,             {10, 20},     5,          4,                      2            },
    {"Negative",             -12,            {10, 20},     5,          1,                      2            },
    {"NegativeZero",         -0.0F,          {10, 20},     5,          0,                      0            },
    {"NoSizes",              20,             {},           8,          2,                      4            },
    {"NoSizesAtTheEdge",     0,              {},           8,          0,                      0            },
    {"NegativeWithoutSizes", -20,            {},           8,          2,                      4            },
    {"HiddenFirst",          0,              {0, 0, 10},   5,          2,                      0            },
    {"HiddenInBetween",      10,             {10, 0, 20},  5,          2,                      0            },
    {"HiddenLast",           10,             {10, 0},      5,          2,                      0            },
    {"AllHidden",            3,              {0, 0},       5,          2,                      3            },
    {"FractionOfADefault",   1,              {},           0.3F,       3,                      0x1.99999p-4F},
    {"SumOfIndexLosesOne",   16777216,       {0},          1,          16777216,               0            },
    {"SumOfIndexGainsOne",   16777216,       {0, 0, 0},    1,          16777220,               0            },
    {"SizesLoseDigits",      16777216,       {0.4F, 0.4F}, 0.25F,      67108864,               0            },
    {"DefaultOfZero",        42,             {10, 20},     0,          2,                      12           },
    {"NothingOverZero",      30,             {10, 20},     0,          2,                      0            },
    {"ZeroWithoutSizes",     7,              {},           0,          0,                      7            },
    {"ZeroIsNotMet",         29,             {10, 20},     0,          1,                      19           },
    {"NegativeDefault",      42,             {10, 20},     -5,         2,                      12           },
    {"DefaultOfNaN",         42,             {10, 20},     NotANumber, 2,                      12           },
    {"DefaultOfInfinity",    42,             {10, 20},     Infinity,   2,                      NotANumber   },
    {"Infinite",             Infinity,       {10, 20},     5,          2,                      Infinity     },
    {"NegativeInfinite",     -Infinity,      {10, 20},     5,          2,                      Infinity     },
    {"NaN",                  NotANumber,     {10, 20},     5,          2,                      NotANumber   },
    {"IndexBeyondItsType",   1e30F,          {10, 20},     5,          2,                      1e30F        },
    {"LargestIndex",         0x1.fffffep63F, {},           1,          18446742974197923840UL, 0            },
    {"OneTooLargeIndex",     0x1p64F,        {},           1,          0,                      0x1p64F      },
};

class ConvertToCell : public testing::TestWithParam<CellRow>
{
};

TEST_P(ConvertToCell, KeepsRow)
{
    const CellRow& row = GetParam();
    const auto place = convertToCellIndexAndInCellOffset(row.distance, row.sizes, row.defaultSize);
    EXPECT_EQ(place.first, row.index);
    if (std::isnan(row.offset))
        EXPECT_TRUE(std::isnan(place.second)) << place.second;
    else
        EXPECT_EQ(place.second, row.offset);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertToCell, testing::ValuesIn(CellRows),
    [](const auto& row) { return std::string(row.param.name); });

// Each size is subtracted with its own rounding: their sum, even an exact one, gives other bits.
TEST(ConvertToCellByTenths, RoundsAfterEachSubtraction)
{
    const Sizes sizes(1000, 14.4F);
    float remainder = 10000;
    unsigned long index = 0;
    while (!(sizes[index] > remainder))
        remainder -= sizes[index++];
    EXPECT_EQ(convertToCellIndexAndInCellOffset(10000.0F, sizes, 1.0F), std::make_pair(index, remainder));
    EXPECT_NE(remainder, static_cast<float>(10000 - static_cast<double>(14.4F) * static_cast<double>(index)));
}

struct DistanceRow
{
    const char* name;
    std::pair<unsigned long, float> from;
    std::pair<unsigned long, float> to;
    Sizes sizes;
    float defaultSize;
    float distance;
};

void PrintTo(const DistanceRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.from) << " to " << testing::PrintToString(row.to) << " in "
         << testing::PrintToString(row.sizes) << ", then " << row.defaultSize;
}

const DistanceRow DistanceRows[] = {
    {"AcrossTheEnd",         {0, 0},  {3, 1},          {10, 20},         5, 36      },
    {"TheOtherWayRound",     {3, 1},  {0, 0},          {10, 20},         5, 36      },
    {"OffsetsOfTheOther",    {3, 1},  {0, 4},          {10, 20},         5, 32      },
    {"SameCell",             {1, 2},  {1, 5},          {10, 20},         5, 3       },
    {"SameCellBackwards",    {1, 5},  {1, 2},          {10, 20},         5, -3      },
    {"SameCellPastTheSizes", {7, 5},  {7, 2},          {10, 20},         5, -3      },
    {"SamePlace",            {1, 5},  {1, 5},          {10, 20},         5, 0       },
    {"NextCellBackwards",    {0, 50}, {1, 2},          {10, 20},         5, -38     },
    {"Within",               {0, 1},  {1, 1},          {10, 20},         5, 10      },
    {"ToTheLast",            {1, 0},  {1, 20},         {10, 20},         5, 20      },
    {"ToTheEndOfTheSizes",   {0, 0},  {2, 0},          {10, 20},         5, 30      },
    {"OnePastTheSizes",      {0, 0},  {3, 0},          {10, 20},         5, 35      },
    {"FromTheEnd",           {2, 0},  {4, 1},          {10, 20},         5, 11      },
    {"FromPastTheEnd",       {3, 2},  {5, 1},          {10, 20},         5, 9       },
    {"NoSizes",              {0, 0},  {3, 1},          {},               5, 16      },
    {"DefaultOfZero",        {0, 0},  {9, 1},          {10, 20},         0, 31      },
    {"Hidden",               {0, 0},  {2, 1},          {0, 0},           5, 1       },
    {"NegativeOffsets",      {0, -1}, {1, -2},         {10, 20},         5, 9       },
    {"SummedInDouble",       {0, 0},  {3, 0},          {16777216, 1, 1}, 5, 16777218},
    {"BaseAddedInDouble",    {0, 0},  {2, 0.5F},       {16777216, 1},    5, 16777218},
    {"RestAddedInFloat",     {0, 0},  {3, 0},          {16777216, 1},    1, 16777216},
    {"HugeIndex",            {0, 0},  {1UL << 40U, 0}, {10},             1, 0x1p40F },
    {"LargestIndices",       {0, 0},  {~0UL, 0},       {},               1, 0x1p64F },
    {"InfiniteOffset",       {0, 0},  {1, Infinity},   {10},             5, Infinity},
};

class ConvertToDistance : public testing::TestWithParam<DistanceRow>
{
};

TEST_P(ConvertToDistance, KeepsRow)
{
    const DistanceRow& row = GetParam();
    EXPECT_EQ(convertToDistance(
                  row.from.first, row.from.second, row.to.first, row.to.second, row.sizes, row.defaultSize),
        row.distance);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertToDistance, testing::ValuesIn(DistanceRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ConvertToDistanceOfNaN, IsNaN)
{
    EXPECT_TRUE(std::isnan(convertToDistance(0, NotANumber, 1, 0, Sizes{10, 20}, 5.0F)));
    EXPECT_TRUE(std::isnan(convertToDistance(0, 0, 5, 0, Sizes{10, 20}, NotANumber)));
}

// The way there and back, over sizes whose sums are exact.
TEST(BothWays, MeetAgain)
{
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        Sizes sizes;
        for (std::size_t count = random() % 20; count > 0; --count)
            sizes.push_back(static_cast<float>(random() % 40) * 0.25F);
        const float distance = static_cast<float>(random() % 2000) * 0.25F;
        const auto place = convertToCellIndexAndInCellOffset(distance, sizes, 7.5F);
        ASSERT_EQ(convertToDistance(0, 0, place.first, place.second, sizes, 7.5F), distance)
            << testing::PrintToString(sizes);
        const float size = place.first < sizes.size() ? sizes[place.first] : 7.5F;
        ASSERT_LT(place.second, size) << distance << " in " << testing::PrintToString(sizes);
        ASSERT_GE(place.second, 0) << distance << " in " << testing::PrintToString(sizes);
    }
}

TEST(ConvertPoints, TakesColumnsForXAndRowsForY)
{
    TableDimensionsInfo dimensions;
    dimensions.setColumnsWidths({10, 20});
    dimensions.setDefaultColumnWidth(5);
    dimensions.setRowsHeight({7});
    dimensions.setDefaultRowHeight(3);

    const DOM::TableOffset offset(ColumnIndex(3), 2, RowIndex(4), 1);
    EXPECT_EQ(convertToTableOffset({37, 17}, dimensions), offset);
    EXPECT_EQ(convertToTableOffset({-37, -17}, dimensions), offset);
    EXPECT_EQ(convertTableOffsetToPoint(offset, dimensions), cinder::Vec2<float>(37, 17));
    EXPECT_EQ(
        convertTableOffsetsToSize(DOM::TableOffset(ColumnIndex(1), 1, RowIndex(0), 2), offset, dimensions),
        Size2D<float>(26, 15));
    EXPECT_EQ(
        convertTableOffsetsToSize(offset, DOM::TableOffset(ColumnIndex(1), 1, RowIndex(4), 0), dimensions),
        Size2D<float>(26, -1));
}

} // namespace
} // namespace QV::FilterUtils
