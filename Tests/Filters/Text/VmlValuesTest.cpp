#include <Filters/Text/VmlValues.h>

#include <cmath>
#include <ostream>
#include <sstream>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <FilterUtils/FU_Lengths.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Text/VmlPlaces.h>
#include <Filters/Text/VmlShapes.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/FrameBuilder.h>

namespace QV::Filters {
namespace {

std::string getOnlyVmlMessage(const OperationReport& report)
{
    if (report.getMessages().empty())
        return {};
    return report.getMessages().size() == 1 ? report.getMessages().front().toString()
                                            : std::to_string(report.getMessages().size()) + " messages";
}

/// What a text of some kind becomes, written down.
struct VmlRow
{
    const char* name;
    const char* text;
    const char* expected; // empty: nothing
    const char* message;  // empty: none
};

void PrintTo(const VmlRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

std::string getRowName(const testing::TestParamInfo<VmlRow>& row)
{
    return row.param.name;
}

const VmlRow LengthRows[] = {
    {"Points",         "12.5pt",  "12.5",              ""                             },
    {"Inches",         "-1in",    "-72",               ""                             },
    {"Picas",          "1pc",     "12",                ""                             },
    {"Pixels",         "4px",     "3",                 ""                             },
    {"NegativePixels", "-4px",    "-3",                ""                             },
    {"UpperCase",      "2PT",     "2",                 ""                             },
    {"BlanksAround",   " 2pt\t",  "2",                 ""                             },
    {"Unitless",       "100",     "100 units",         ""                             },
    {"UnitlessPart",   "-.5",     "-0.5 units",        ""                             },
    {"UnitlessHuge",   "1e99",    "4.29497e+09 units", ""                             },
    {"Zero",           "0",       "0 units",           ""                             },
    {"Largest",        "1e6pt",   "1e+06",             ""                             },
    {"Huge",           "2e6pt",   "1e+06",             ""                             },
    {"Infinite",       "1e999pt", "1e+06",             ""                             },
    {"HugePixels",     "-1e99px", "-1e+06",            ""                             },
    {"Empty",          "",        "",                  ""                             },
    {"Auto",           "auto",    "",                  ""                             },
    {"Percentage",     "50%",     "",                  ""                             },
    {"FontSizes",      "2em",     "",                  ""                             },
    {"FontHeights",    "2ex",     "",                  ""                             },
    {"OtherUnit",      "1ell",    "",                  "Can't parse length value 1ell"},
    {"UnknownUnit",    "1q",      "",                  "Unknown units in 1q"          },
    {"NoNumber",       "pt",      "",                  "Can't parse length value pt"  },
    {"NotANumber",     "nan",     "",                  "Can't parse length value nan" },
};

class ReadVmlLength : public testing::TestWithParam<VmlRow>
{
};

TEST_P(ReadVmlLength, KeepsRow)
{
    OperationReport report;
    std::ostringstream text;
    if (const auto length = readVmlLength(GetParam().text, FilterUtils::anyLength, report))
        text << length->value << (length->isUnitless ? " units" : "");
    EXPECT_EQ(text.str(), GetParam().expected);
    EXPECT_EQ(getOnlyVmlMessage(report), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadVmlLength, testing::ValuesIn(LengthRows), getRowName);

TEST(ReadVmlLength, KeepsToTheType)
{
    OperationReport report;
    EXPECT_FALSE(readVmlLength("-1pt", FilterUtils::nonNegativeLength, report));
    EXPECT_EQ(getOnlyVmlMessage(report), "Unexpected value for nonNegativeLength -1pt");
}

const VmlRow ColorRows[] = {
    {"Parts",           "#0A141E",          "10 20 30 255",    ""                                       },
    {"PartsWithNumber", "#0a141e [3204]",   "10 20 30 255",    ""                                       },
    {"ThreeDigits",     "#f0a",             "255 0 170 255",   ""                                       },
    {"NoSign",          "0A141E",           "10 20 30 255",    ""                                       },
    {"Function",        "rgb(10,20,30)",    "10 20 30 255",    ""                                       },
    {"FunctionBlanks",  "RGB( 10, 20, 30)", "10 20 30 255",    ""                                       },
    {"Name",            "red",              "255 0 0 255",     ""                                       },
    {"NameWithNumber",  "red [10]",         "255 0 0 255",     ""                                       },
    {"NameUpperCase",   " White ",          "255 255 255 255", ""                                       },
    {"FirstName",       "aqua",             "0 255 255 255",   ""                                       },
    {"LastName",        "yellow",           "255 255 0 255",   ""                                       },
    {"None",            "none",             "",                ""                                       },
    {"Empty",           "",                 "",                ""                                       },
    {"UnknownName",     "reddish",          "",                "Incorrect color value: reddish"         },
    {"Changed",         "fill darken(118)", "",                "Incorrect color value: fill darken(118)"},
    {"BadParts",        "#12345g",          "",                "Incorrect color value: #12345g"         },
    {"BadFunction",     "rgb(1,2)",         "",                "Incorrect color value: rgb(1,2)"        },
};

class ReadVmlColor : public testing::TestWithParam<VmlRow>
{
};

TEST_P(ReadVmlColor, KeepsRow)
{
    OperationReport report;
    std::ostringstream text;
    if (const auto color = readVmlColor(GetParam().text, report)) {
        const DOM::Color::RGBA& rgba = color->getRGBA();
        text << int(rgba.r) << ' ' << int(rgba.g) << ' ' << int(rgba.b) << ' ' << int(rgba.a);
    }
    EXPECT_EQ(text.str(), GetParam().expected);
    EXPECT_EQ(getOnlyVmlMessage(report), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadVmlColor, testing::ValuesIn(ColorRows), getRowName);

const VmlRow RotationRows[] = {
    {"Degrees",     "90",        "90",  ""                              },
    {"DegreesSign", "90deg",     "90",  ""                              },
    {"Parts",       "5898240fd", "90",  ""                              },
    {"Negative",    "-90",       "270", ""                              },
    {"FullTurn",    "360",       "0",   ""                              },
    {"BelowZero",   "-1e-30",    "0",   ""                              },
    {"MoreTurns",   "725.5",     "5.5", ""                              },
    {"Infinite",    "1e999",     "",    "Drawing rotation 1e999 is none"},
    {"NoNumber",    "x",         "",    "Drawing rotation x is none"    },
    {"Empty",       "",          "",    "Drawing rotation  is none"     },
};

class ReadVmlRotation : public testing::TestWithParam<VmlRow>
{
};

TEST_P(ReadVmlRotation, KeepsRow)
{
    OperationReport report;
    std::ostringstream text;
    if (const auto degrees = readVmlRotation(GetParam().text, report))
        text << *degrees;
    EXPECT_EQ(text.str(), GetParam().expected);
    EXPECT_EQ(getOnlyVmlMessage(report), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadVmlRotation, testing::ValuesIn(RotationRows), getRowName);

const VmlRow FractionRows[] = {
    {"Number",     ".5",     "0.5", ""                                 },
    {"Percentage", "50%",    "0.5", ""                                 },
    {"Parts",      "32768f", "0.5", ""                                 },
    {"Above",      "2",      "1",   ""                                 },
    {"Below",      "-1%",    "0",   ""                                 },
    {"NoNumber",   "half",   "",    "Can't parse percentage value half"},
    {"NoPercents", "x%",     "",    "Can't parse percentage value x%"  },
};

class ReadVmlFraction : public testing::TestWithParam<VmlRow>
{
};

TEST_P(ReadVmlFraction, KeepsRow)
{
    OperationReport report;
    std::ostringstream text;
    if (const auto fraction = readVmlFraction(GetParam().text, report))
        text << *fraction;
    EXPECT_EQ(text.str(), GetParam().expected);
    EXPECT_EQ(getOnlyVmlMessage(report), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadVmlFraction, testing::ValuesIn(FractionRows), getRowName);

TEST(ReadVmlStyle, TrimsNamesAndValues)
{
    const VmlStyle style = readVmlStyle(" Width : 10pt ;\nflip:x y;;z-index;top:");
    EXPECT_EQ(style, (VmlStyle{
                         {"width", "10pt"},
                         {"flip",  "x y" }
    }));
    EXPECT_EQ(findVmlProperty(style, "width"), std::string("10pt"));
    EXPECT_EQ(findVmlProperty(style, "height"), boost::none);
    EXPECT_EQ(readVmlStyle(""), VmlStyle());
}

TEST(ReadVmlPair, FillsInWhatIsUsual)
{
    const cinder::Vec2<float> usual(1000, 2000);
    EXPECT_EQ(readVmlPair("21600,100", usual), cinder::Vec2<float>(21600, 100));
    EXPECT_EQ(readVmlPair(" 1 , -2 ", usual), cinder::Vec2<float>(1, -2));
    EXPECT_EQ(readVmlPair("5", usual), cinder::Vec2<float>(5, 2000));
    EXPECT_EQ(readVmlPair(",5", usual), cinder::Vec2<float>(1000, 5));
    EXPECT_EQ(readVmlPair("x,1e999", usual), cinder::Vec2<float>(1000, 4294967296.0F));
    EXPECT_EQ(readVmlPair("", usual), usual);
}

TEST(IsVmlFalse, KnowsTheWordsForNo)
{
    for (const char* const text : {"f", "F", "false", "0", "no", " off"})
        EXPECT_TRUE(isVmlFalse(text)) << text;
    for (const char* const text : {"t", "true", "1", "", "x"})
        EXPECT_FALSE(isVmlFalse(text)) << text;
}

TEST(ReadVmlBox, CountsInPointsOrUnits)
{
    OperationReport report;
    const VmlStyle style = readVmlStyle("left:10;margin-left:1pt;top:20;width:40;height:3pt");
    const auto outer = readVmlBox(style, VmlUnits(), report);
    ASSERT_TRUE(outer);
    EXPECT_EQ(outer->offset, cinder::Vec2<float>(8.5F, 15));
    EXPECT_EQ(outer->extent, Size2D<float>(30, 3));

    const auto inner = readVmlBox(style, {2, 0.5F, true}, report);
    ASSERT_TRUE(inner);
    EXPECT_EQ(inner->offset, cinder::Vec2<float>(10.5F, 20));
    EXPECT_EQ(inner->extent, Size2D<float>(40, 6));
    EXPECT_EQ(getOnlyVmlMessage(report), "");
}

TEST(ReadVmlBox, NeedsBothSides)
{
    OperationReport report;
    EXPECT_FALSE(readVmlBox(readVmlStyle("width:40"), VmlUnits(), report));
    EXPECT_FALSE(readVmlBox(readVmlStyle("width:40;height:auto"), VmlUnits(), report));
    EXPECT_EQ(getOnlyVmlMessage(report), "");
    EXPECT_FALSE(readVmlBox(readVmlStyle("width:-1pt;height:1pt"), VmlUnits(), report));
    EXPECT_EQ(getOnlyVmlMessage(report), "Unexpected value for nonNegativeLength -1pt");
}

TEST(ReadVmlLine, IsFlippedWhereItRunsBack)
{
    OperationReport report;
    const DrawnTransform line = readVmlLine("10pt,2pt", "4pt,3pt", VmlUnits(), report);
    ASSERT_TRUE(line.box);
    EXPECT_EQ(line.box->offset, cinder::Vec2<float>(4, 2));
    EXPECT_EQ(line.box->extent, Size2D<float>(6, 1));
    EXPECT_TRUE(line.isFlippedHorizontally);
    EXPECT_FALSE(line.isFlippedVertically);
}

struct AnchorRow
{
    const char* style;
    bool isAbsolute;
    cinder::Vec2<float> offset;
    DOM::AbsoluteAnchor::Origin horizontal;
    DOM::AbsoluteAnchor::Origin vertical;
};

TEST(ReadVmlAnchor, KnowsWhatItCountsFrom)
{
    using Origin = DOM::AbsoluteAnchor::Origin;
    const AnchorRow rows[] = {
        {"margin-left:5pt",                                   false, {},        Origin::Page,   Origin::Page     },
        {"position:relative",                                 false, {},        Origin::Page,   Origin::Page     },
        {"position:absolute;margin-left:5pt;margin-top:-6pt", true,  {5, -6},   Origin::Column,
         Origin::Paragraph                                                                                       },
        {"position:absolute;left:1e9pt;mso-position-horizontal-relative:page;"
         "mso-position-vertical-relative:margin",    true,  {1e6F, 0}, Origin::Page,   Origin::Margin   },
        {"position:absolute;mso-position-horizontal-relative:right-margin-area;"
         "mso-position-vertical-relative:line",      true,  {},        Origin::Margin, Origin::Paragraph},
        {"position:absolute;margin-left:5pt;margin-top:6pt;mso-position-horizontal:center;"
         "mso-position-vertical:absolute",           true,  {0, 6},    Origin::Column, Origin::Paragraph},
    };
    for (const AnchorRow& row : rows) {
        OperationReport report;
        DOM::Anchor expected = DOM::TextAnchor();
        if (row.isAbsolute) {
            DOM::AbsoluteAnchor anchor(row.offset);
            anchor.setOrigins(row.horizontal, row.vertical);
            expected = anchor;
        }
        EXPECT_EQ(readVmlAnchor(readVmlStyle(row.style), report), expected) << row.style;
        EXPECT_EQ(getOnlyVmlMessage(report), "") << row.style;
    }
}

TEST(ReadVmlTurn, TurnsAndFlips)
{
    OperationReport report;
    DrawnTransform transform;
    readVmlTurn(readVmlStyle("rotation:-90;flip:x"), transform, report);
    EXPECT_EQ(transform.rotation, 16200000);
    EXPECT_TRUE(transform.isFlippedHorizontally);
    EXPECT_FALSE(transform.isFlippedVertically);
    readVmlTurn(readVmlStyle("rotation:359.9999999;flip:xy"), transform, report);
    EXPECT_EQ(transform.rotation, 0);
    EXPECT_FALSE(transform.isFlippedHorizontally);
    EXPECT_TRUE(transform.isFlippedVertically);
    EXPECT_EQ(getOnlyVmlMessage(report), "");
}

TEST(VmlShapes, HaveGeometriesByType)
{
    EXPECT_EQ(findVmlShapeType("#_x0000_t202"), 202UL);
    EXPECT_EQ(findVmlShapeType("_x0000_t1"), 1UL);
    EXPECT_EQ(findVmlShapeType("#shapetype_75"), 75UL);
    for (const char* const reference :
        {"", "#", "#_x0000_t", "#_x0000_t1a", "#_x0000_s202", "#_x0000_t-1", "#_x0000_t99999999999999999999"})
        EXPECT_FALSE(findVmlShapeType(reference)) << reference;

    EXPECT_EQ(findVmlTypeGeometry(0), "");
    EXPECT_EQ(findVmlTypeGeometry(1), "rect");
    EXPECT_EQ(findVmlTypeGeometry(3), "ellipse");
    EXPECT_EQ(findVmlTypeGeometry(14), "");
    EXPECT_EQ(findVmlTypeGeometry(109), "flowChartProcess");
    EXPECT_EQ(findVmlTypeGeometry(135), "flowChartDelay");
    EXPECT_EQ(findVmlTypeGeometry(200), "actionButtonMovie");
    EXPECT_EQ(findVmlTypeGeometry(202), "rect");
    EXPECT_EQ(findVmlTypeGeometry(203), "");
    EXPECT_EQ(findVmlElementGeometry("oval"), "ellipse");
    EXPECT_EQ(findVmlElementGeometry("shape"), "");
}

} // namespace
} // namespace QV::Filters
