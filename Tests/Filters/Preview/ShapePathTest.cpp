#include <Filters/Preview/ShapePath.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

using Kind = DOM::PathCommand::Kind;
using Filling = DOM::GeometryPath::Filling;

/// "M 1 2 A 1 2 3 4 Z" in coordinates of 100 by 100.
DOM::GeometryPath makePath(const std::string& text)
{
    DOM::GeometryPath path;
    path.width = 100;
    path.height = 100;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::size_t kind = std::string("MLAQCZ").find(word);
        if (kind == std::string::npos) {
            path.commands.back().operands.push_back(word);
        } else {
            path.commands.emplace_back();
            path.commands.back().kind = static_cast<Kind>(kind);
        }
    }
    return path;
}

std::string drawCommands(const std::string& commands, float width = 100, float height = 100)
{
    DOM::ShapeGeometry geometry;
    geometry.paths = {makePath(commands)};
    const DrawnOutline outline = drawOutline(&geometry, {width, height});
    return outline.paths.empty() ? "" : outline.paths[0].data;
}

std::string drawPreset(const std::string& preset, const char* name = nullptr, const char* formula = "")
{
    DOM::ShapeGeometry geometry;
    geometry.preset = preset;
    if (name) {
        geometry.adjustValues.emplace_back();
        geometry.adjustValues[0].name = name;
        geometry.adjustValues[0].formula = formula;
    }
    return drawOutline(&geometry, {100, 60}).paths.at(0).data;
}

const std::string Rectangle = "M0 0L100 0L100 60L0 60Z";

TEST(DrawOutline, DrawsPresetsAtTheirDefaults)
{
    EXPECT_EQ(drawPreset("ooxml-rect"), Rectangle);
    EXPECT_EQ(drawPreset("ooxml-hexagon"), "M0 30L15 0L85 0L100 30L85 60L15 60Z");
    EXPECT_EQ(drawPreset("ooxml-rightArrow"), "M0 15L70 15L70 0L100 30L70 60L70 45L0 45Z");
    EXPECT_EQ(drawPreset("ooxml-roundRect"), "M0 10A10 10 0 0 1 10 0L90 0A10 10 0 0 1 100 10L100 50"
                                             "A10 10 0 0 1 90 60L10 60A10 10 0 0 1 0 50Z");
    EXPECT_EQ(drawPreset("ooxml-ellipse"), "M0 30A50 30 0 0 1 50 0A50 30 0 0 1 100 30A50 30 0 0 1 50 60"
                                           "A50 30 0 0 1 0 30Z");
}

TEST(DrawOutline, TakesAdjustValuesOverThePresets)
{
    EXPECT_EQ(drawPreset("ooxml-triangle"), "M0 60L50 0L100 60Z");
    EXPECT_EQ(drawPreset("ooxml-triangle", "adj", "val 20000"), "M0 60L20 0L100 60Z");
    EXPECT_EQ(drawPreset("ooxml-triangle", "adj", "val 200000"), "M0 60L100 0L100 60Z");
    EXPECT_EQ(drawPreset("ooxml-triangle", "adj", "*/ 100 1 0"), "M0 60L0 0L100 60Z");
    EXPECT_EQ(drawPreset("ooxml-triangle", "adj1", "val 20000"), "M0 60L50 0L100 60Z");
}

TEST(DrawOutline, DrawsARectangleForWhatItDoesNotKnow)
{
    EXPECT_EQ(drawPreset("ooxml-none"), Rectangle);
    EXPECT_EQ(drawPreset("ellipse"), Rectangle);
    EXPECT_EQ(drawPreset("ooxml-"), Rectangle);
    EXPECT_EQ(drawPreset("ooxml-@ellipse"), Rectangle);
    const DrawnOutline outline = drawOutline(nullptr, {100, 60});
    ASSERT_EQ(outline.paths.size(), 1U);
    EXPECT_EQ(outline.paths[0].data, Rectangle);
    EXPECT_EQ(outline.paths[0].filling, Filling::Normal);
    EXPECT_TRUE(outline.paths[0].isStroked);
    EXPECT_EQ(outline.textBox.extent, Size2D<float>(100, 60));
}

TEST(DrawOutline, KeepsHowPathsAreDrawn)
{
    DOM::ShapeGeometry geometry;
    geometry.preset = "ooxml-cube";
    const DrawnOutline outline = drawOutline(&geometry, {100, 60});
    const std::pair<Filling, bool> expected[] = {
        {Filling::Normal,      false},
        {Filling::LightenLess, false},
        {Filling::DarkenLess,  false},
        {Filling::None,        true }
    };
    ASSERT_EQ(outline.paths.size(), 4U);
    for (std::size_t i = 0; i < outline.paths.size(); ++i)
        EXPECT_EQ(std::make_pair(outline.paths[i].filling, outline.paths[i].isStroked), expected[i]) << i;
    EXPECT_EQ(outline.paths[1].data, "M0 15L15 0L100 0L85 15Z");
}

struct CommandsRow
{
    const char* name;
    const char* commands;
    const char* data;
};

void PrintTo(const CommandsRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class DrawnCommands : public testing::TestWithParam<CommandsRow>
{
};

TEST_P(DrawnCommands, BecomePathData)
{
    EXPECT_EQ(drawCommands(GetParam().commands), GetParam().data);
}

const char* const WholeCircle = "M60 50A10 10 0 0 1 45 58.66A10 10 0 0 1 45 41.34A10 10 0 0 1 60 50";
const char* const WholeCircleBack = "M60 50A10 10 0 0 0 45 41.34A10 10 0 0 0 45 58.66A10 10 0 0 0 60 50";

// The ray of 45 degrees meets the ellipse of radii 20 and 10 at (4 * sqrt(5), 4 * sqrt(5)).
const CommandsRow CommandsRows[] = {
    {"Lines",           "M 1 2 L 3 4.5 L -5 6 Z",                      "M1 2L3 4.5L-5 6Z"                    },
    {"Curves",          "M 0 0 Q 1 2 3 4 C 1 2 3 4 5 6",               "M0 0Q1 2 3 4C1 2 3 4 5 6"            },
    {"ThreeDecimals",   "M 0.12345 0.9999 L -0.0001 0.0005",           "M0.123 1L0 0.001"                    },
    {"Quarter",         "M 70 50 A 20 10 0 5400000",                   "M70 50A20 10 0 0 1 50 60"            },
    {"QuarterBack",     "M 70 50 A 20 10 0 -5400000",                  "M70 50A20 10 0 0 0 50 40"            },
    {"SeenAngles",      "M 50 50 A 20 10 2700000 5400000",             "M50 50A20 10 0 0 1 32.111 50"        },
    {"MoreTurns",       "M 50 50 A 20 10 45900000 5400000",            "M50 50A20 10 0 0 1 32.111 50"        },
    {"Half",            "M 1 5 A 5 5 10800000 10800000",               "M1 5A5 5 0 0 1 6 0A5 5 0 0 1 11 5"   },
    {"Whole",           "M 60 50 A 10 10 0 21600000",                  WholeCircle                           },
    {"WholeBack",       "M 60 50 A 10 10 0 -21600000",                 WholeCircleBack                       },
    {"NoMoreThanWhole", "M 60 50 A 10 10 0 99999999999",               WholeCircle                           },
    {"NoSwing",         "M 60 50 A 10 10 0 0 L 1 1",                   "M60 50L1 1"                          },
    {"NoRadii",         "M 60 50 A 0 0 0 5400000 L 1 1",               "M60 50A0 0 0 0 1 60 50L1 1"          },
    {"FlatHalf",        "M 6 5 A 0 5 5400000 10800000",                "M6 5A0 5 0 0 1 6 0A0 5 0 0 1 6 -5"   },
    {"ArcAfterArc",     "M 9 0 A 9 9 0 5400000 A 9 9 5400000 5400000", "M9 0A9 9 0 0 1 0 9A9 9 0 0 1 -9 0"   },
    {"ArcAfterClose",   "M 70 50 L 1 1 Z A 20 10 0 5400000",           "M70 50L1 1ZA20 10 0 0 1 50 60"       },
    {"ArcAfterCurve",   "M 0 0 C 1 2 3 4 70 50 A 20 10 0 5400000",     "M0 0C1 2 3 4 70 50A20 10 0 0 1 50 60"},
    {"NoBeginning",     "L 3 4 Z",                                     "M0 0L3 4Z"                           },
    {"TooFewOperands",  "M 1 2 L 3 C 1 2 3 4 5 A 1 2 3 L 5 6",         "M1 2L5 6"                            },
    {"TooManyOperands", "M 1 2 L 3 4 5 Z 1 L 5 6",                     "M1 2L5 6"                            },
    {"UnknownNames",    "M ?none $none L none 1e999",                  "M0 0L0 0"                            },
    {"FarAway",         "M 1e300 -1e300",                              "M1000000 -1000000"                   },
    {"HugeArc",         "M 0 0 A 1e308 5 0 5400000",                   "M0 0A1000000 5 0 0 1 -1000000 5"     },
    {"Nothing",         "",                                            ""                                    },
};
INSTANTIATE_TEST_SUITE_P(All, DrawnCommands, testing::ValuesIn(CommandsRows));

TEST(DrawOutline, ScalesCoordinatesOfPaths)
{
    EXPECT_EQ(drawCommands("M 50 25 A 10 10 0 5400000", 200, 40), "M100 10A20 4 0 0 1 80 14");
    DOM::ShapeGeometry geometry;
    geometry.paths = {makePath("M hc vc L 12700 -25400 L r b")};
    geometry.paths[0].width = 0; // in EMU
    geometry.paths[0].height = -1;
    EXPECT_EQ(drawOutline(&geometry, {100, 60}).paths.at(0).data, "M50 30L1 -2L100 60");
}

TEST(DrawOutline, EvaluatesGuidesInTheirOrder)
{
    DOM::ShapeGeometry geometry;
    geometry.adjustValues.resize(1);
    geometry.adjustValues[0].name = "a";
    geometry.adjustValues[0].formula = "val 25";
    geometry.guides.resize(2);
    geometry.guides[0].name = "x";
    geometry.guides[0].formula = "*/ w $a 100";
    geometry.guides[1].name = "y";
    geometry.guides[1].formula = "*/ ?x 2 1";
    geometry.paths = {makePath("M ?x ?y")};
    geometry.paths[0].width = geometry.paths[0].height = 0;
    geometry.textRectangle.resize(1);
    geometry.textRectangle[0].left = "?x";
    geometry.textRectangle[0].top = "t";
    geometry.textRectangle[0].right = "r";
    geometry.textRectangle[0].bottom = "-12700";
    const DrawnOutline outline = drawOutline(&geometry, {80, 60});
    EXPECT_EQ(outline.paths.at(0).data, "M20 40");
    EXPECT_EQ(outline.textBox.offset.x, 20);
    EXPECT_EQ(outline.textBox.offset.y, 0);
    EXPECT_EQ(outline.textBox.extent, Size2D<float>(60, 0)); // not turned over
}

TEST(DrawOutline, HasNoSizeWhereTheShapeHasNone)
{
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float size : {0.0F, -5.0F, infinity, -infinity, std::nanf("")}) {
        const DrawnOutline outline = drawOutline(nullptr, {size, size});
        EXPECT_EQ(outline.paths.at(0).data, "M0 0L0 0L0 0L0 0Z") << size;
        EXPECT_EQ(outline.textBox.extent, Size2D<float>(0, 0)) << size;
        EXPECT_EQ(drawCommands("M 10 10 A 10 10 0 5400000", size, size), "M0 0A0 0 0 0 1 0 0") << size;
    }
}

} // namespace
} // namespace QV::Filters
