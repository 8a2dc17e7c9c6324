#include <Filters/Spreadsheet/DrawingPlaces.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <FilterUtils/FU_AnchorsConverter.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>

#include <Tests/Support/FrameBuilder.h>

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

class AnchoredFrame : public testing::Test
{
protected:
    // Columns and rows of 10 points.
    AnchoredFrame()
        : converter([] {
            FilterUtils::TableDimensionsInfo dimensions;
            dimensions.setDefaultColumnWidth(10);
            dimensions.setDefaultRowHeight(10);
            return dimensions;
        }())
    {
        object.kind = DrawnObject::Kind::Shape;
        anchor.kind = DrawnAnchor::Kind::TwoCell;
        anchor.from = makeOffset(4, 0, 1, 0);
        anchor.to = makeOffset(8, 0, 3, 0);
        anchor.position = {40, 10};
        anchor.extent = {40, 20};
    }

    FilterUtils::AnchorsConverter converter;
    DrawnAnchor anchor;
    DrawnObject object{};
};

TEST_F(AnchoredFrame, HasTheAnchorOfThePart)
{
    object.name = "Box";
    object.transform.isFlippedVertically = true;
    object.transform.rotation = 44 * Degree + Degree / 2;
    const DOM::Frame frame = makeAnchoredFrame(anchor, object, converter);
    EXPECT_EQ(frame.getAnchor(), DOM::Anchor(makeTwoCell(anchor.from, anchor.to)));
    EXPECT_FALSE(frame.getExtent());
    EXPECT_EQ(frame.getName(), "Box");
    EXPECT_EQ(frame.getRotation(), 44.5F);
    EXPECT_FALSE(frame.isFlippedHorizontally());
    EXPECT_TRUE(frame.isFlippedVertically());

    anchor.kind = DrawnAnchor::Kind::OneCell;
    const DOM::Frame oneCell = makeAnchoredFrame(anchor, object, converter);
    EXPECT_EQ(oneCell.getAnchor(), DOM::Anchor(makeOneCell(anchor.from, {40, 20})));
    EXPECT_EQ(oneCell.getExtent(), Size2D<float>(40, 20));

    anchor.kind = DrawnAnchor::Kind::Absolute;
    const DOM::Frame absolute = makeAnchoredFrame(anchor, object, converter);
    EXPECT_EQ(absolute.getAnchor(), DOM::Anchor(makeAbsolute(40, 10)));
    EXPECT_EQ(absolute.getExtent(), Size2D<float>(40, 20));
}

// 40 by 20 at (40, 10) becomes 20 by 40 at (50, 0).
TEST_F(AnchoredFrame, IsTurnedBackAfterAQuarterTurn)
{
    object.transform.rotation = 90 * Degree;
    const DOM::Frame twoCells = makeAnchoredFrame(anchor, object, converter);
    EXPECT_EQ(twoCells.getAnchor(), DOM::Anchor(makeTwoCell(makeOffset(5, 0, 0, 0), makeOffset(7, 0, 4, 0))));
    EXPECT_EQ(twoCells.getRotation(), 90);

    anchor.kind = DrawnAnchor::Kind::OneCell;
    const DOM::Frame oneCell = makeAnchoredFrame(anchor, object, converter);
    EXPECT_EQ(oneCell.getAnchor(), DOM::Anchor(makeOneCell(makeOffset(5, 0, 0, 0), {20, 40})));
    EXPECT_EQ(oneCell.getExtent(), Size2D<float>(20, 40));

    anchor.kind = DrawnAnchor::Kind::Absolute;
    const DOM::Frame absolute = makeAnchoredFrame(anchor, object, converter);
    EXPECT_EQ(absolute.getAnchor(), DOM::Anchor(makeAbsolute(50, 0)));
    EXPECT_EQ(absolute.getExtent(), Size2D<float>(20, 40));
}

TEST_F(AnchoredFrame, LeavesItsCellsWhereItsOwnBoxBeginsBeyondTheEdge)
{
    object.transform.rotation = 270 * Degree;
    anchor.from = makeOffset(4, 0, 0, 9);
    anchor.to = makeOffset(8, 0, 2, 9);
    const DOM::Frame frame = makeAnchoredFrame(anchor, object, converter);
    EXPECT_EQ(frame.getAnchor(), DOM::Anchor(makeAbsolute(50, -1)));
    EXPECT_EQ(frame.getExtent(), Size2D<float>(20, 40));
}

TEST_F(AnchoredFrame, StandsForItselfWithoutAnAnchor)
{
    anchor.kind = DrawnAnchor::Kind::None;
    EXPECT_EQ(makeAnchoredFrame(anchor, object, converter).getAnchor(), DOM::Anchor(DOM::TextAnchor()));
    object.transform.box = DrawnBox{
        {1, 2},
        {3, 4}
    };
    object.transform.rotation = 90 * Degree;
    const DOM::Frame frame = makeAnchoredFrame(anchor, object, converter);
    EXPECT_EQ(frame.getAnchor(), DOM::Anchor(makeAbsolute(1, 2)));
    EXPECT_EQ(frame.getExtent(), Size2D<float>(3, 4));
}

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
    *out << row.box.offset << ' ' << row.box.extent;
}

constexpr float Reach = 2147483648.0F;

const ScaleRow ScaleRows[] = {
    {"Same",        {{0, 0}, {10, 10}},       {{0, 0}, {10, 10}},       {{1, 2}, {3, 4}},              0,           {{1, 2}, {3, 4}} },
    {"Moved",       {{5, 6}, {10, 10}},       {{1, 1}, {10, 10}},       {{1, 2}, {3, 4}},              0,           {{5, 7}, {3, 4}} },
    {"Scaled",      {{0, 0}, {20, 5}},        {{0, 0}, {10, 10}},       {{1, 2}, {3, 4}},              0,           {{2, 1}, {6, 2}} },
    {"Both",        {{5, 6}, {20, 5}},        {{1, 2}, {10, 10}},       {{2, 4}, {3, 4}},              0,           {{7, 7}, {6, 2}} },
    {"QuarterTurn", {{0, 0}, {20, 10}},       {{0, 0}, {10, 10}},       {{2, 2}, {4, 6}},              90 * Degree,
     {{6, -1}, {4, 12}}                                                                                                              },
    {"NoWidth",     {{5, 6}, {20, 20}},       {{0, 0}, {0, 10}},        {{1, 2}, {3, 4}},              0,           {{6, 10}, {3, 8}}},
    {"NoHeight",    {{5, 6}, {20, 20}},       {{0, 0}, {10, 0}},        {{1, 2}, {3, 4}},              0,           {{7, 8}, {6, 4}} },
    {"GroupOf0",    {{5, 6}, {0, 0}},         {{0, 0}, {10, 10}},       {{1, 2}, {3, 4}},              0,           {{5, 6}, {0, 0}} },
    {"OutOfReach",  {{0, 0}, {Reach, Reach}}, {{0, 0}, {1e-4F, 1e-4F}}, {{-Reach, Reach}, {Reach, 1}}, 0,
     {{-Reach, Reach}, {Reach, Reach}}                                                                                               },
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
