#include <Filters/Preview/SlideTransforms.h>

#include <array>
#include <limits>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Frame.h>
#include <Filters/Preview/SvgNumbers.h>
#include <Utils/Public/Size2D.h>

namespace QV::Filters {
namespace {

struct NumberRow
{
    double number;
    const char* text;
    const char* share;
};

TEST(FormatSvgNumber, WritesFewDecimals)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const NumberRow rows[] = {
        {0,                                       "0",        "0"       },
        {12,                                      "12",       "12"      },
        {100,                                     "100",      "100"     },
        {-12.5,                                   "-12.5",    "-12.5"   },
        {0.0625,                                  "0.062",    "0.0625"  },
        {1.0 / 3,                                 "0.333",    "0.333333"},
        {-0.0001,                                 "0",        "-0.0001" },
        {-0.0000001,                              "0",        "0"       },
        {1e9,                                     "1000000",  "1000000" },
        {-1e9,                                    "-1000000", "-1000000"},
        {nan,                                     "0",        "0"       },
        {std::numeric_limits<double>::infinity(), "0",        "0"       },
    };
    for (const NumberRow& row : rows) {
        EXPECT_EQ(formatSvgNumber(row.number), row.text);
        EXPECT_EQ(formatSvgShare(row.number), row.share);
    }
}

using SpatialAngles = boost::optional<std::array<float, 3>>;

struct TurnRow
{
    float rotation;
    SpatialAngles spatial;
    const char* frame; // behind the place
    const char* group;
};

DOM::Frame makeFrame()
{
    DOM::Frame frame;
    frame.setAnchor(DOM::AbsoluteAnchor({10, 20}));
    frame.setExtent(Size2D<float>(100, 50));
    return frame;
}

TEST(SlideTransforms, TurnAboutTheCentre)
{
    const SpatialAngles inPlane = std::array<float, 3>{0, 0, 90};
    const SpatialAngles aboutUpAxis = std::array<float, 3>{0, 60, 0};
    const SpatialAngles noNumbers = std::array<float, 3>{0, std::numeric_limits<float>::quiet_NaN(), 0};
    const TurnRow rows[] = {
        {0,                                      boost::none, "",                         ""                        },
        {30,                                     boost::none, " rotate(30 50 25)",        "rotate(30 60 45)"        },
        {750,                                    boost::none, " rotate(30 50 25)",        "rotate(30 60 45)"        },
        {360,                                    boost::none, "",                         ""                        },
        {45,                                     inPlane,     " matrix(0 1 -1 0 75 -25)", "matrix(0 1 -1 0 105 -15)"},
        {0,                                      aboutUpAxis, " matrix(0.5 0 0 1 25 0)",  "matrix(0.5 0 0 1 30 0)"  },
        {30,                                     noNumbers,   " rotate(30 50 25)",        "rotate(30 60 45)"        },
        {std::numeric_limits<float>::infinity(), boost::none, "",                         ""                        },
    };
    for (const TurnRow& row : rows) {
        DOM::Frame frame = makeFrame();
        frame.setRotation(row.rotation);
        frame.setSpatialRotation(row.spatial);
        const DrawnBox box = findSlideBox(frame).value();
        EXPECT_EQ(makeFrameTransform(frame, box), std::string("translate(10 20)") + row.frame);
        EXPECT_EQ(makeGroupTransform(frame, box), row.group);
        EXPECT_EQ(makeFlipTransform(frame, box.extent), "");
        EXPECT_EQ(makeUprightTransform(frame, box.extent, false), "");
    }
}

struct FlipRow
{
    bool isHorizontal;
    bool isVertical;
    const char* flip;
    const char* group;
    const char* upright;
};

TEST(SlideTransforms, MirrorDrawingsAndNoText)
{
    const FlipRow rows[] = {
        {false, false, "",                               "",                               ""                  },
        {true,  false, "translate(100 0) scale(-1 1)",   "translate(120 0) scale(-1 1)",   ""                  },
        {false, true,  "translate(0 50) scale(1 -1)",    "translate(0 90) scale(1 -1)",    " rotate(180 50 25)"},
        {true,  true,  "translate(100 50) scale(-1 -1)", "translate(120 90) scale(-1 -1)",
         " rotate(180 50 25)"                                                                                  },
    };
    for (const FlipRow& row : rows) {
        DOM::Frame frame = makeFrame();
        frame.setFlippedHorizontally(row.isHorizontal);
        frame.setFlippedVertically(row.isVertical);
        const DrawnBox box = findSlideBox(frame).value();
        EXPECT_EQ(makeFrameTransform(frame, box), "translate(10 20)");
        EXPECT_EQ(makeFlipTransform(frame, box.extent), row.flip);
        EXPECT_EQ(makeGroupTransform(frame, box), row.group);
        EXPECT_EQ(makeUprightTransform(frame, box.extent, false), row.upright + (*row.upright ? 1 : 0));
        EXPECT_EQ(makeUprightTransform(frame, box.extent, true),
            std::string("translate(100 0) scale(-1 1)") + row.upright);
        frame.setRotation(90);
        EXPECT_EQ(makeGroupTransform(frame, box),
            std::string("rotate(90 60 45)") + (*row.group ? " " : "") + row.group);
    }
}

TEST(FindSlideBox, NeedsAPlaceAndASize)
{
    DOM::Frame frame;
    frame.setExtent(Size2D<float>(100, -50));
    EXPECT_FALSE(findSlideBox(frame));
    frame.setAnchor(DOM::AbsoluteAnchor({10, -1e9F}));
    const auto box = findSlideBox(frame);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->offset.y, -100'000);
    EXPECT_EQ(box->extent, Size2D<float>(100, 0));
    frame.setExtent(boost::none);
    EXPECT_FALSE(findSlideBox(frame));
    for (const float number :
        {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        frame.setExtent(Size2D<float>(number, 1));
        EXPECT_FALSE(findSlideBox(frame));
        frame.setExtent(Size2D<float>(1, 1));
        frame.setAnchor(DOM::AbsoluteAnchor({0, number}));
        EXPECT_FALSE(findSlideBox(frame));
        frame.setAnchor(DOM::AbsoluteAnchor({0, 0}));
    }
}

} // namespace
} // namespace QV::Filters
