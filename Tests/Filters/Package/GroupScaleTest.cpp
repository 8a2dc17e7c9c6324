#include <Filters/Package/GroupScale.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

constexpr int Degree = 60000;

struct TurnRow
{
    const char* name;
    int rotation;
    bool isQuarter;
};

void PrintTo(const TurnRow& row, std::ostream* out)
{
    *out << row.rotation;
}

const TurnRow TurnRows[] = {
    {"None",          0,                false},
    {"BelowFirst",    45 * Degree - 1,  false},
    {"FirstBegins",   45 * Degree,      true },
    {"Quarter",       90 * Degree,      true },
    {"FirstEnds",     135 * Degree - 1, true },
    {"AfterFirst",    135 * Degree,     false},
    {"Half",          180 * Degree,     false},
    {"BelowSecond",   225 * Degree - 1, false},
    {"SecondBegins",  225 * Degree,     true },
    {"ThreeQuarters", 270 * Degree,     true },
    {"SecondEnds",    315 * Degree - 1, true },
    {"AfterSecond",   315 * Degree,     false},
    {"AlmostWhole",   360 * Degree - 1, false},
};

class QuarterTurn : public testing::TestWithParam<TurnRow>
{
};

TEST_P(QuarterTurn, KeepsRow)
{
    EXPECT_EQ(isQuarterTurned(GetParam().rotation), GetParam().isQuarter);
}

INSTANTIATE_TEST_SUITE_P(Rows, QuarterTurn, testing::ValuesIn(TurnRows),
    [](const auto& row) { return std::string(row.param.name); });

struct ScaleRow
{
    const char* name;
    DrawnBox group;
    DrawnBox children;
    DrawnBox box;
    int rotation;
    DrawnBox scaled;
};

void PrintTo(const ScaleRow& row, std::ostream* out)
{
    *out << row.name;
}

constexpr float Reach = 2147483648.0F;

const ScaleRow ScaleRows[] = {
    {"Same",         {{0, 0}, {10, 10}},       {{0, 0}, {10, 10}},       {{1, 2}, {3, 4}},              0,               {{1, 2}, {3, 4}} },
    {"Moved",        {{5, 6}, {10, 10}},       {{1, 1}, {10, 10}},       {{1, 2}, {3, 4}},              0,               {{5, 7}, {3, 4}} },
    {"Scaled",       {{0, 0}, {20, 5}},        {{0, 0}, {10, 10}},       {{1, 2}, {3, 4}},              0,               {{2, 1}, {6, 2}} },
    {"Both",         {{5, 6}, {20, 5}},        {{1, 2}, {10, 10}},       {{2, 4}, {3, 4}},              0,               {{7, 7}, {6, 2}} },
    {"QuarterTurn",  {{0, 0}, {20, 10}},       {{0, 0}, {10, 10}},       {{2, 2}, {4, 6}},              90 * Degree,
     {{6, -1}, {4, 12}}                                                                                                                   },
    {"NotYetTurned", {{0, 0}, {20, 10}},       {{0, 0}, {10, 10}},       {{2, 2}, {4, 6}},              45 * Degree - 1,
     {{4, 2}, {8, 6}}                                                                                                                     },
    {"NoWidth",      {{5, 6}, {20, 20}},       {{0, 0}, {0, 10}},        {{1, 2}, {3, 4}},              0,               {{6, 10}, {3, 8}}},
    {"NoHeight",     {{5, 6}, {20, 20}},       {{0, 0}, {10, 0}},        {{1, 2}, {3, 4}},              0,               {{7, 8}, {6, 4}} },
    {"GroupOf0",     {{5, 6}, {0, 0}},         {{0, 0}, {10, 10}},       {{1, 2}, {3, 4}},              0,               {{5, 6}, {0, 0}} },
    {"OutOfReach",   {{0, 0}, {Reach, Reach}}, {{0, 0}, {1e-4F, 1e-4F}}, {{-Reach, Reach}, {Reach, 1}}, 0,
     {{-Reach, Reach}, {Reach, Reach}}                                                                                                    },
};

class GroupScaleOf : public testing::TestWithParam<ScaleRow>
{
};

TEST_P(GroupScaleOf, KeepsRow)
{
    const ScaleRow& row = GetParam();
    const DrawnBox scaled = GroupScale(row.group, row.children).apply(row.box, row.rotation);
    EXPECT_EQ(scaled.offset, row.scaled.offset);
    EXPECT_EQ(scaled.extent, row.scaled.extent);
}

INSTANTIATE_TEST_SUITE_P(Rows, GroupScaleOf, testing::ValuesIn(ScaleRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
