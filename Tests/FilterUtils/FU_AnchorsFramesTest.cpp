#include <FilterUtils/FU_Anchors.h>

#include <memory>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <DOM/Public/GraphicalObject.h>
#include <FilterUtils/FU_AnchorsConverter.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>

#include <Tests/Support/FrameBuilder.h>

namespace QV::FilterUtils {
namespace {

using Size = Size2D<float>;

// Columns of 10, 20, 5, 5, ...; rows of 30, 4, 4, ...
TableDimensionsInfo makeDimensions()
{
    TableDimensionsInfo dimensions;
    dimensions.setColumnsWidths({10, 20});
    dimensions.setDefaultColumnWidth(5);
    dimensions.setRowsHeight({30});
    dimensions.setDefaultRowHeight(4);
    return dimensions;
}

struct FrameRow
{
    const char* name;
    DOM::Frame frame;
    DOM::Frame converted;
};

void PrintTo(const FrameRow& row, std::ostream* out)
{
    *out << row.frame;
}

const DOM::TextAnchor InText;
const DOM::AbsoluteAnchor At10And10 = makeAbsolute(10, 10);
const DOM::TableOffset Corner = makeOffset(1, 2, 0, 3); // at (12, 3)
const DOM::TableOffset Far = makeOffset(4, 1, 2, 1);    // at (41, 35)

const DOM::OneCellAnchor Narrow = makeOneCell(Corner, {20, 40});
const DOM::TwoCellAnchor Spanning = makeTwoCell(Corner, Far);
const DOM::TwoCellAnchor Reversed = makeTwoCell(Far, Corner);

const FrameRow AbsoluteRows[] = {
    {"Text",                     makeFrame(InText),   makeFrame(InText)        },
    {                                       "TextWithExtent",                           makeFrame(InText,                             Size(1,                                             2)), makeFrame(InText, Size(1, 2))},
    {                                    "Absolute",                                                                              makeFrame(At10And10),                                                                             makeFrame(At10And10)        },
    { "AbsoluteWithSize", makeFrame(At10And10,Size(1,                                                             2)), makeFrame(At10And10, Size(1, 2))},
    {                                                                                           "OneCell",       makeFrame(Narrow),     makeFrame(makeAbsolute(12,                                                           3), Size(20, 40))},
    {                                                                                 "OneCellsOwnSize",                          makeFrame(Narrow,                      Size(1,                                    2)), makeFrame(makeAbsolute(12, 3), Size(20, 40))},
    {                                                                      "TwoCells",                                                                                                                makeFrame(Spanning),                                                                             makeFrame(makeAbsolute(12,                   3), Size(29, 32))},
    {                                   "TwoCellsOwnSize",                                                                             makeFrame(Spanning,           Size(1, 2)), makeFrame(makeAbsolute(12, 3), Size(29, 32))},
    {                                     "TwoCellsReversed",                                                                        makeFrame(Reversed),                                                                                                                                         makeFrame(makeAbsolute(41, 35), Size(29, 32))},
};

class AbsoluteFrame : public testing::TestWithParam<FrameRow>
{
};

TEST_P(AbsoluteFrame, KeepsRow)
{
    const FrameRow& row = GetParam();
    EXPECT_EQ(convertToAbsoluteAnchor(row.frame, makeDimensions()), row.converted);
    EXPECT_EQ(AnchorsConverter(makeDimensions()).convertToAbsoluteAnchor(row.frame), row.converted);
}

INSTANTIATE_TEST_SUITE_P(Rows, AbsoluteFrame, testing::ValuesIn(AbsoluteRows),
    [](const auto& row) { return std::string(row.param.name); });

// The one-cell anchor turns by the frame's extent, and by nothing where there is none. Its corner goes from
// (12, 3) to (42, -27) with a frame of 100 by 40, which lies in the fourth default column and, the sign lost,
// in row 0.
const DOM::OneCellAnchor TurnedNarrow = makeOneCell(makeOffset(4, 2, 0, 27), {40, 100});
const DOM::OneCellAnchor NarrowWithoutSize = makeOneCell(Corner, {0, 0});
// From 29 by 32 at (12, 3): the corner goes to (10.5, 4.5), the other one to (42.5, 33.5).
const DOM::TwoCellAnchor TurnedSpanning =
    makeTwoCell(makeOffset(1, 0.5F, 0, 4.5F), makeOffset(4, 2.5F, 1, 3.5F));
// From 29 by 32 at (41, 35): to (39.5, 36.5) and (71.5, 65.5).
const DOM::TwoCellAnchor TurnedReversed =
    makeTwoCell(makeOffset(3, 4.5F, 2, 2.5F), makeOffset(10, 1.5F, 9, 3.5F));

const FrameRow TurnRows[] = {
    {"Text",                     makeFrame(InText, Size(1,                  2)), makeFrame(InText, Size(1, 2))},
    {"Absolute",          makeFrame(At10And10,                    Size(100,                                        40)), makeFrame(makeAbsolute(40, -20), Size(40, 100))},
    {"AbsoluteBack",                 makeFrame(makeAbsolute(40,     -20), Size(40, 100)), makeFrame(At10And10, Size(100, 40))},
    {"AbsoluteSquare", makeFrame(At10And10,             Size(50,                             50)), makeFrame(At10And10, Size(50, 50))},
    {"AbsoluteNoSize",                          makeFrame(At10And10),                             makeFrame(At10And10,           Size(0, 0))},
    {"OneCell",                   makeFrame(Narrow,                              Size(100,                                  40)), makeFrame(TurnedNarrow, Size(100, 40))},
    {"OneCellWithoutSize",                      makeFrame(Narrow),                                      makeFrame(NarrowWithoutSize)                                             },
    {"TwoCells",                   makeFrame(Spanning),                   makeFrame(TurnedSpanning)},
    {"TwoCellsWithSize",                      makeFrame(Spanning,                                      Size(7,                                              8)), makeFrame(TurnedSpanning, Size(7, 8))},
    {"TwoCellsReversed",       makeFrame(Reversed),makeFrame(TurnedReversed)},
};

class TurnedFrame : public testing::TestWithParam<FrameRow>
{
};

TEST_P(TurnedFrame, KeepsRow)
{
    const FrameRow& row = GetParam();
    EXPECT_EQ(turnFrameOXMLSpecificWay(row.frame, makeDimensions()), row.converted);
    EXPECT_EQ(AnchorsConverter(makeDimensions()).turnFrameOXMLSpecificWay(row.frame), row.converted);
}

INSTANTIATE_TEST_SUITE_P(Rows, TurnedFrame, testing::ValuesIn(TurnRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ChangedFrame, KeepsWhatIsNotItsPlace)
{
    DOM::Frame frame = makeFrame(Spanning);
    frame.setGraphicalObject(std::make_unique<DOM::Picture>("id1.png", "image/png"));
    frame.setName("Picture 1");
    frame.setRotation(90);
    frame.setFlippedHorizontally(true);
    for (const DOM::Frame& changed : {convertToAbsoluteAnchor(frame, makeDimensions()),
             turnFrameOXMLSpecificWay(frame, makeDimensions())}) {
        EXPECT_EQ(changed.getGraphicalObject(), frame.getGraphicalObject());
        EXPECT_EQ(changed.getName(), "Picture 1");
        EXPECT_EQ(changed.getRotation(), 90);
        EXPECT_TRUE(changed.isFlippedHorizontally());
        EXPECT_FALSE(changed.isFlippedVertically());
    }
    EXPECT_EQ(frame.getAnchor(), DOM::Anchor(Spanning));
}

} // namespace
} // namespace QV::FilterUtils
