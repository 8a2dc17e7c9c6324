#include <Filters/Preview/TextPageCss.h>

#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <Filters/Preview/StyleSheet.h>

namespace QV::Filters {
namespace {

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float Infinity = std::numeric_limits<float>::infinity();

struct PointsRow
{
    const char* name;
    float points;
    const char* css;
};

void PrintTo(const PointsRow& row, std::ostream* out)
{
    *out << row.name;
}

const PointsRow PointsRows[] = {
    {"Whole",        36.0F,     "36pt"    },
    {"Fraction",     10.5F,     "10.5pt"  },
    {"Hundredths",   0.126F,    "0.13pt"  },
    {"Tiny",         1e-6F,     "0pt"     },
    {"TinyNegative", -1e-6F,    "0pt"     },
    {"Negative",     -18.0F,    "-18pt"   },
    {"Largest",      10'000.0F, "10000pt" },
    {"Larger",       10'001.0F, "10000pt" },
    {"Lowest",       -1e30F,    "-10000pt"},
    {"NoNumber",     NaN,       "0pt"     },
    {"Infinite",     Infinity,  "0pt"     },
};

class MakePointsCss : public ::testing::TestWithParam<PointsRow>
{
};

TEST_P(MakePointsCss, FollowsRow)
{
    EXPECT_EQ(makePointsCss(GetParam().points), GetParam().css);
}

INSTANTIATE_TEST_SUITE_P(Rows, MakePointsCss, ::testing::ValuesIn(PointsRows),
    [](const auto& row) { return std::string(row.param.name); });

DOM::Color makeColor(unsigned char red, unsigned char green, unsigned char blue, unsigned char alpha = 255)
{
    return DOM::Color(DOM::Color::RGBA(red, green, blue, alpha));
}

std::shared_ptr<const DOM::LineProps> makeLine(DOM::LineStyle style, float width)
{
    return std::make_shared<DOM::LineProps>(style, width);
}

TEST(MakeParagraphCss, SaysNothingOfNothing)
{
    EXPECT_EQ(makeParagraphCss({}, {}, {}), "");
}

TEST(MakeParagraphCss, SaysWhatIsSet)
{
    DOM::ParaProps props;
    props.setAlignment(DOM::HorizontalAlignment::Justify);
    props.setLeftIndent(36.0F);
    props.setRightIndent(-9.0F);
    props.setFirstLineIndent(-18.0F);
    props.setSpaceBefore(6.0F);
    props.setSpaceAfter(8.0F);
    props.setBackgroundColor(makeColor(0xFF, 0xCC, 0));
    EXPECT_EQ(makeParagraphCss(props, {}, {}),
        "text-align:justify;margin-left:36pt;margin-right:-9pt;text-indent:-18pt;margin-top:6pt;"
        "margin-bottom:8pt;background:#FFCC00;");
    props.setBackgroundColor(makeColor(0xFF, 0xCC, 0, 0));
    EXPECT_EQ(makeParagraphCss(props, {false, true}, {false, true}),
        "text-align:justify;margin-left:36pt;margin-right:-9pt;text-indent:-18pt;");
}

struct LineSpacingRow
{
    const char* name;
    DOM::LineSpacing::Kind kind;
    float value;
    const char* css;
};

void PrintTo(const LineSpacingRow& row, std::ostream* out)
{
    *out << row.name;
}

const LineSpacingRow LineSpacingRows[] = {
    {"Single",           DOM::LineSpacing::Kind::Multiple, 1.0F,     "line-height:1.2;"            },
    {"Double",           DOM::LineSpacing::Kind::Multiple, 2.0F,     "line-height:2.4;"            },
    {"TooManyLines",     DOM::LineSpacing::Kind::Multiple, 1e9F,     "line-height:158.4;"          },
    {"AtLeast",          DOM::LineSpacing::Kind::AtLeast,  14.0F,    "line-height:max(14pt,1.2em);"},
    {"Exact",            DOM::LineSpacing::Kind::Exact,    12.0F,    "line-height:12pt;"           },
    {"None",             DOM::LineSpacing::Kind::Exact,    0.0F,     ""                            },
    {"Negative",         DOM::LineSpacing::Kind::Multiple, -1.0F,    ""                            },
    {"NoNumber",         DOM::LineSpacing::Kind::AtLeast,  NaN,      ""                            },
    {"InfiniteMultiple", DOM::LineSpacing::Kind::Multiple, Infinity, ""                            },
};

class LineSpacingCss : public ::testing::TestWithParam<LineSpacingRow>
{
};

TEST_P(LineSpacingCss, FollowsRow)
{
    DOM::ParaProps props;
    props.setLineSpacing(DOM::LineSpacing(GetParam().kind, GetParam().value));
    EXPECT_EQ(makeParagraphCss(props, {}, {}), GetParam().css);
}

INSTANTIATE_TEST_SUITE_P(Rows, LineSpacingCss, ::testing::ValuesIn(LineSpacingRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(MakeParagraphCss, JoinsBoxesOfNeighbours)
{
    DOM::BordersProps borders;
    borders.setTop(makeLine(DOM::LineStyle::Solid, 0.75F));
    borders.setBottom(makeLine(DOM::LineStyle::Dashed, 1.5F));
    borders.setHorizontal(makeLine(DOM::LineStyle::Dotted, 0.75F));
    DOM::ParaProps props;
    props.setSpaceAfter(8.0F);
    props.setBorders(std::make_shared<DOM::BordersProps>(borders));
    EXPECT_EQ(makeParagraphCss(props, {}, {}),
        "margin-bottom:8pt;border-top:1px solid #000000;border-bottom:2px dashed #000000;");
    EXPECT_EQ(makeParagraphCss(props, {}, {true, false}), "padding-bottom:8pt;border-top:1px solid #000000;");
    EXPECT_EQ(makeParagraphCss(props, {true, false}, {}),
        "margin-bottom:8pt;border-top:1px dotted #000000;border-bottom:2px dashed #000000;");
}

TEST(MakeParagraphCss, LeavesOutWhatIsNoNumber)
{
    DOM::ParaProps props;
    props.setLeftIndent(NaN);
    props.setRightIndent(Infinity);
    props.setFirstLineIndent(-Infinity);
    props.setSpaceBefore(NaN);
    props.setSpaceAfter(-3.0F);
    EXPECT_EQ(makeParagraphCss(props, {}, {}), "");
}

TEST(MakeBordersCss, BringsWidthsBack)
{
    EXPECT_EQ(makeBordersCss(nullptr), "");
    DOM::BordersProps borders;
    borders.setLeft(makeLine(DOM::LineStyle::Solid, NaN));
    borders.setTop(makeLine(DOM::LineStyle::Solid, 1e30F));
    borders.setRight(makeLine(DOM::LineStyle::None, 3.0F));
    borders.setBottom(makeLine(DOM::LineStyle::Solid, -5.0F));
    EXPECT_EQ(makeBordersCss(&borders),
        "border-left:1px solid #000000;border-top:133px solid #000000;border-bottom:1px solid #000000;");
}

TEST(MakeRunCss, SaysWhatDiffersFromTheParagraph)
{
    DOM::RunProps inherited;
    inherited.setBold(true);
    inherited.setFontSize(11.0F);
    inherited.setFontName(std::string("Serif"));
    EXPECT_EQ(
        makeInheritedCss(inherited), "font-weight:bold;font-size:11pt;font-family:\"Serif\",sans-serif;");
    EXPECT_EQ(makeRunCss(inherited, inherited), "");
    DOM::RunProps props = inherited;
    props.setBold(false);
    props.setItalic(true);
    props.setColor(makeColor(0x12, 0x34, 0x56));
    EXPECT_EQ(makeRunCss(props, inherited), "font-weight:normal;font-style:italic;color:#123456;");
}

TEST(MakeRunCss, DrawsLinesAndColoursOfEachRun)
{
    DOM::RunProps props;
    props.setUnderline(DOM::Underline::Wave);
    props.setStrikethrough(true);
    props.setBackgroundColor(makeColor(0xFF, 0xFF, 0));
    const std::string css = "text-decoration:underline line-through wavy;background:#FFFF00;";
    EXPECT_EQ(makeRunCss(props, {}), css);
    EXPECT_EQ(makeRunCss(props, props), css); // the element of a paragraph has none of these
    EXPECT_EQ(makeInheritedCss(props), "");
    props = {};
    props.setUnderline(DOM::Underline::Thick);
    EXPECT_EQ(makeRunCss(props, {}), "text-decoration:underline;text-decoration-thickness:1.5pt;");
    props.setUnderline(DOM::Underline::None);
    EXPECT_EQ(makeRunCss(props, {}), "");
}

TEST(MakeRunCss, TurnsLetterCaseOver)
{
    DOM::RunProps capitals;
    capitals.setLetterCase(DOM::LetterCase::Capitals);
    DOM::RunProps small;
    small.setLetterCase(DOM::LetterCase::SmallCapitals);
    DOM::RunProps written;
    written.setLetterCase(DOM::LetterCase::AsWritten);
    EXPECT_EQ(makeRunCss(capitals, {}), "text-transform:uppercase;font-variant:normal;");
    EXPECT_EQ(makeRunCss(small, capitals), "text-transform:none;font-variant:small-caps;");
    EXPECT_EQ(makeRunCss(written, capitals), "text-transform:none;font-variant:normal;");
    EXPECT_EQ(makeRunCss(capitals, capitals), "");
}

TEST(MakeRunCss, RefusesFontsThatCannotBe)
{
    for (const float size : {NaN, Infinity, 0.0F, -1.0F}) {
        DOM::RunProps props;
        props.setFontSize(size);
        EXPECT_EQ(makeRunCss(props, {}), "") << size;
    }
    DOM::RunProps props;
    props.setFontSize(1e9F);
    EXPECT_EQ(makeRunCss(props, {}), "font-size:1638pt;");
    props = {};
    props.setFontName(std::string(200, 'a'));
    EXPECT_NE(makeRunCss(props, {}), "");
    props.setFontName(std::string(201, 'a'));
    EXPECT_EQ(makeRunCss(props, {}), "");
    props.setFontName(std::string("</style>\"}"));
    EXPECT_EQ(makeRunCss(props, {}), "font-family:\"\\3c /style\\3e \\22 }\",sans-serif;");
}

TEST(MakeTextCellCss, FillsAndPlaces)
{
    DOM::CellProps props;
    EXPECT_EQ(makeTextCellCss(props), "");
    props.setBackgroundColor(makeColor(1, 2, 3));
    props.setVerticalAlignment(DOM::VerticalAlignment::Center);
    EXPECT_EQ(makeTextCellCss(props), "background:#010203;vertical-align:middle;");
    props.setBackgroundColor(makeColor(1, 2, 3, 0));
    props.setVerticalAlignment(DOM::VerticalAlignment::Bottom);
    EXPECT_EQ(makeTextCellCss(props), "vertical-align:bottom;");
}

TEST(MakeDiagonalLines, DrawsBoth)
{
    DOM::CellProps props;
    EXPECT_EQ(makeDiagonalLines(props), "");
    props.setDiagonalDown(makeLine(DOM::LineStyle::Solid, NaN));
    EXPECT_EQ(makeDiagonalLines(props),
        "<svg aria-hidden=\"true\"><line x1=\"0\" y1=\"0\" x2=\"100%\" y2=\"100%\" stroke=\"#000000\" "
        "stroke-width=\"0pt\"/></svg>");
}

TEST(MakePaperSize, IsThatOfALetterWhereNothingIsSaid)
{
    const PaperSize paper = makePaperSize(nullptr);
    EXPECT_EQ(paper.width, 612);
    EXPECT_EQ(paper.height, 792);
    EXPECT_EQ(paper.left, 72);
    EXPECT_EQ(paper.getTextWidth(), 468);
}

TEST(MakePaperSize, TakesWhatCanBe)
{
    auto margins = std::make_shared<DOM::Insets>();
    margins->setLeft(100.0F);
    margins->setTop(-50.0F); // a header cannot push the text down
    margins->setRight(NaN);
    DOM::PageProps props;
    props.setWidth(400.0F);
    props.setHeight(NaN);
    props.setMargins(margins);
    props.setHeaderDistance(20.0F);
    props.setFooterDistance(Infinity);
    PaperSize paper = makePaperSize(&props);
    EXPECT_EQ(paper.width, 400);
    EXPECT_EQ(paper.height, 792);
    EXPECT_EQ(paper.left, 100);
    EXPECT_EQ(paper.top, 50);
    EXPECT_EQ(paper.right, 72);
    EXPECT_EQ(paper.header, 20);
    EXPECT_EQ(paper.footer, 36);
    props.setWidth(208.0F);
    EXPECT_EQ(makePaperSize(&props).getTextWidth(), 36);
    props.setWidth(207.0F); // no room for a text
    EXPECT_EQ(makePaperSize(&props).left, 20.7F);
    props.setWidth(35.0F);
    EXPECT_EQ(makePaperSize(&props).width, 612);
    props.setWidth(1e9F);
    EXPECT_EQ(makePaperSize(&props).width, 10'000);
}

TEST(StyleSheet, StopsAtItsLimit)
{
    StyleSheet styles(1);
    EXPECT_EQ(styles.getClass("color:#000"), "c0");
    EXPECT_EQ(styles.getRefusedCount(), 0U);
    EXPECT_EQ(styles.getClass("color:#fff"), "");
    EXPECT_EQ(styles.getClass("color:#000"), "c0");
    EXPECT_EQ(styles.getRefusedCount(), 1U);
    EXPECT_EQ(styles.getRules().size(), 1U);
    EXPECT_EQ(styles.getRulesBytes(), std::string(".c0{color:#000}").size());
}

} // namespace
} // namespace QV::Filters
