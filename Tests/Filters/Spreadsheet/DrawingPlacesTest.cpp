#include <Filters/Spreadsheet/DrawingPlaces.h>

#include <gtest/gtest.h>

#include <FilterUtils/FU_AnchorsConverter.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>

#include <Tests/Support/FrameBuilder.h>

namespace QV::Filters {
namespace {

constexpr int Degree = 60000;

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

} // namespace
} // namespace QV::Filters
