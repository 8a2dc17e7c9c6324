#include <Filters/Presentation/SlideText.h>

#include <cstddef>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/TextLevels.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/Namespaces.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/SlideTextFixture.h>

namespace QV::Filters {
namespace {

std::string toLevelText(const DOM::TextLevel& level)
{
    Tests::PropsText shares;
    shares.add("beforeShare", level.spaceBeforeShare).add("afterShare", level.spaceAfterShare);
    std::string all;
    for (const std::string& text : {Tests::toText(level.paraProps), shares.get(), Tests::toText(level.bullet),
             Tests::toText(level.runProps)})
        all += all.empty() || text.empty() ? text : ' ' + text;
    return all;
}

struct LevelRow
{
    const char* name;
    const char* attributes;
    const char* content;
    const char* level;
    const char* message;
};

void PrintTo(const LevelRow& row, std::ostream* out)
{
    *out << row.attributes << ' ' << row.content;
}

const LevelRow LevelRows[] = {
    {"Nothing",            "",                                            "",                                                                          "",                             ""                                                      },
    {"Indents",            "marL='457200' marR='12700' indent='-228600'", "",                                                                          "left=36 right=1 first=-18",    ""                                                      },
    {"IndentInInches",     "marL='1in'",                                  "",                                                                          "left=72",                      ""                                                      },
    {"LargestIndent",      "marL='51206400'",                             "",                                                                          "left=4032",                    ""                                                      },
    {"IndentTooLarge",     "marL='51212750'",                             "",                                                                          "",                             "Text of a slide has an unknown value marL=\"51212750\""},
    {"NoIndent",           "indent='x'",                                  "",                                                                          "",                             "Can't parse length value x"                            },
    {"Center",             "algn='ctr'",                                  "",                                                                          "align=2",                      ""                                                      },
    {"Left",               "algn='l'",                                    "",                                                                          "align=1",                      ""                                                      },
    {"Right",              "algn='r'",                                    "",                                                                          "align=3",                      ""                                                      },
    {"Justified",          "algn='just'",                                 "",                                                                          "align=4",                      ""                                                      },
    {"Distributed",        "algn='thaiDist'",                             "",                                                                          "align=5",                      ""                                                      },
    {"NoAlignment",        "algn='x'",                                    "",                                                                          "",                             "Text of a slide has an unknown value algn=\"x\""       },
    {"RightToLeft",        "rtl='true'",                                  "",                                                                          "rtl=1",                        ""                                                      },
    {"LeftToRight",        "rtl='0'",                                     "",                                                                          "rtl=0",                        ""                                                      },
    {"LineShare",          "",                                            "<a:lnSpc><a:spcPct val='90000'/></a:lnSpc>",                                "line=x0.9",                    ""                                                      },
    {"LinePercent",        "",                                            "<a:lnSpc><a:spcPct val='150%'/></a:lnSpc>",                                 "line=x1.5",                    ""                                                      },
    {"LinePoints",         "",                                            "<a:lnSpc><a:spcPts val='1250'/></a:lnSpc>",                                 "line=pt12.5",                  ""                                                      },
    {"SpacePoints",        "",
     "<a:spcBef><a:spcPts val='600'/></a:spcBef><a:spcAft><a:spcPts val='158400'/></a:spcAft>",                                                        "before=6 after=1584",          ""                                                      },
    {"SpaceShares",        "",
     "<a:spcBef><a:spcPct val='20000'/></a:spcBef><a:spcAft><a:spcPct val='0'/></a:spcAft>",                                                           "beforeShare=0.2 afterShare=0", ""                                                      },
    {"SpaceTooLarge",      "",                                            "<a:spcBef><a:spcPts val='158401'/></a:spcBef>",                             "",
     "Text of a slide has an unknown value val=\"158401\""                                                                                                                                                                                     },
    {"SpaceNegative",      "",                                            "<a:spcBef><a:spcPct val='-1'/></a:spcBef>",                                 "",
     "Text of a slide has an unknown value val=\"-1\""                                                                                                                                                                                         },
    {"NoSpace",            "",                                            "<a:spcBef><a:spcPct val='x'/></a:spcBef>",                                  "",                             "Can't parse percentage value x"                        },
    {"Tabs",               "",                                            "<a:tabLst><a:tab pos='25400' algn='r'/><a:tab pos='12700'/></a:tabLst>",    "tabs= =1:0 =2:2",
     ""                                                                                                                                                                                                                                        },
    {"NoTabs",             "",                                            "<a:tabLst/>",                                                               "tabs=",                        ""                                                      },
    {"RunFlags",           "",                                            "<a:defRPr b='1' i='0' strike='dblStrike'/>",                                "b=1 i=0 strike=1",             ""                                                      },
    {"Size",               "",                                            "<a:defRPr sz='1050'/>",                                                     "size=10.5",                    ""                                                      },
    {"SmallestSize",       "",                                            "<a:defRPr sz='100'/>",                                                      "size=1",                       ""                                                      },
    {"LargestSize",        "",                                            "<a:defRPr sz='400000'/>",                                                   "size=4000",                    ""                                                      },
    {"SizeTooSmall",       "",                                            "<a:defRPr sz='99'/>",                                                       "",                             "Text of a slide has an unknown value sz=\"99\""        },
    {"SizeTooLarge",       "",                                            "<a:defRPr sz='400001'/>",                                                   "",                             "Text of a slide has an unknown value sz=\"400001\""    },
    {"SizeBeyondNumbers",  "",                                            "<a:defRPr sz='99999999999999999999'/>",                                     "",
     "Text of a slide has an unknown value sz=\"99999999999999999999\""                                                                                                                                                                        },
    {"Underline",          "",                                            "<a:defRPr u='wavyDbl'/>",                                                   "u=9",                          ""                                                      },
    {"NoUnderline",        "",                                            "<a:defRPr u='none'/>",                                                      "u=0",                          ""                                                      },
    {"Superscript",        "",                                            "<a:defRPr baseline='30000'/>",                                              "position=1",                   ""                                                      },
    {"Subscript",          "",                                            "<a:defRPr baseline='-25%'/>",                                               "position=2",                   ""                                                      },
    {"Baseline",           "",                                            "<a:defRPr baseline='0'/>",                                                  "position=0",                   ""                                                      },
    {"Capitals",           "",                                            "<a:defRPr cap='all'/>",                                                     "case=1",                       ""                                                      },
    {"SmallCapitals",      "",                                            "<a:defRPr cap='small'/>",                                                   "case=2",                       ""                                                      },
    {"Font",               "",                                            "<a:defRPr><a:latin typeface='Some'/></a:defRPr>",                           "font=Some",                    ""                                                      },
    {"FontOfTheme",        "",                                            "<a:defRPr><a:latin typeface='+mn-lt'/></a:defRPr>",                         "font=Body",                    ""                                                      },
    {"Color",              "",                                            "<a:defRPr><a:solidFill><a:srgbClr val='010203'/></a:solidFill></a:defRPr>",
     "color=1,2,3,255",                                                                                                                                                                ""                                                      },
    {"GradientIsItsFirst", "",
     "<a:defRPr><a:gradFill><a:gsLst><a:gs pos='0'><a:srgbClr val='010203'/></a:gs><a:gs pos='100000'>"
        "<a:srgbClr val='040506'/></a:gs></a:gsLst></a:gradFill></a:defRPr>",                                                                          "color=1,2,3,255",              ""                                                      },
    {"NoFill",             "",                                            "<a:defRPr><a:noFill/></a:defRPr>",                                          "color=0,0,0,0",                ""                                                      },
    {"OutlineAlone",       "",
     "<a:defRPr><a:ln><a:solidFill><a:srgbClr val='010203'/></a:solidFill></a:ln><a:noFill/></a:defRPr>",                                              "color=1,2,3,255",              ""                                                      },
    {"Highlight",          "",                                            "<a:defRPr><a:highlight><a:srgbClr val='010203'/></a:highlight></a:defRPr>",
     "back=1,2,3,255",                                                                                                                                                                 ""                                                      },
};

class ReadTextLevels : public Tests::SlideTextFixture, public testing::WithParamInterface<LevelRow>
{
};

TEST_P(ReadTextLevels, KeepsRow)
{
    const LevelRow& row = GetParam();
    for (const bool isStrict : {false, true}) {
        const std::string level =
            std::string("<a:lvl3pPr ") + row.attributes + ">" + row.content + "</a:lvl3pPr>";
        const DOM::TextLevels read = readLevels(level, isStrict);
        EXPECT_EQ(toLevelText(read[2]), row.level);
        EXPECT_EQ(toLevelText(read[1]), "");
        const std::string message = row.message;
        EXPECT_EQ(joinMessages(), isStrict && !message.empty() ? message + '|' + message : message);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadTextLevels, testing::ValuesIn(LevelRows),
    [](const auto& row) { return std::string(row.param.name); });

using ReadTextLevelsOf = Tests::SlideTextFixture;

TEST_F(ReadTextLevelsOf, InvalidViewSetsNothing)
{
    parse("");
    for (const DOM::TextLevel& level : readTextLevels({}, *part, context))
        EXPECT_EQ(toLevelText(level), "");
}

TEST_F(ReadTextLevelsOf, DefaultsLieBelowAllLevels)
{
    const DOM::TextLevels read = readLevels("<a:lvl1pPr algn='r'><a:defRPr i='1'/></a:lvl1pPr><a:defPPr "
                                            "algn='ctr' marL='12700'><a:defRPr b='1'/></a:defPPr>");
    EXPECT_EQ(toLevelText(read[0]), "align=3 left=1 b=1 i=1");
    for (std::size_t i = 1; i < read.size(); ++i)
        EXPECT_EQ(toLevelText(read[i]), "align=2 left=1 b=1") << i;
}

TEST_F(ReadTextLevelsOf, SpaceTakesTheOtherKindAway)
{
    DOM::TextLevels read = readLevels("<a:lvl1pPr><a:spcBef><a:spcPct val='50%'/></a:spcBef></a:lvl1pPr>");
    DOM::overrideLevels(
        read, readLevels("<a:lvl1pPr><a:spcBef><a:spcPts val='100'/></a:spcBef></a:lvl1pPr>"));
    EXPECT_EQ(toLevelText(read[0]), "before=1");
}

TEST_F(ReadTextLevelsOf, LongNamesOfFontsAreCut)
{
    const std::string longest(1024, 'f');
    const auto readFonts = [this](const std::string& font) {
        const std::string attribute = " typeface='" + font + "'/>";
        return toLevelText(readLevels("<a:lvl1pPr><a:buFont" + attribute + "<a:defRPr><a:latin" + attribute +
                                      "</a:defRPr></a:lvl1pPr>")[0]);
    };
    const std::string read = readFonts(longest);
    EXPECT_NE(read.find("font=" + longest), std::string::npos);
    EXPECT_TRUE(run.getReport().getMessages().empty());
    EXPECT_EQ(readFonts(longest + "f"), read);
    ASSERT_EQ(run.getReport().getMessages().size(), 2U);
    EXPECT_EQ(run.getReport().getMessages().front().toString(), "Name of a font is cut at 1024 bytes");
}

TEST_F(ReadTextLevelsOf, MessagesAreCounted)
{
    const std::string level = "<a:lvl1pPr algn='x'/>";
    for (int i = 0; i < 1001; ++i)
        readLevels(level);
    std::size_t count = 0;
    for (const auto& message : run.getReport().getMessages())
        count += message.toString() == "Text of a slide has an unknown value algn=\"x\"" ? 1 : 0;
    EXPECT_EQ(count, 1000U);
}

struct BodyRow
{
    const char* name;
    const char* attributes;
    const char* content;
    const char* props;
    const char* message;
};

void PrintTo(const BodyRow& row, std::ostream* out)
{
    *out << row.attributes << ' ' << row.content;
}

std::string toBodyText(const DOM::ShapeProps& props)
{
    Tests::PropsText text;
    text.add("left", props.getTextLeftInset())
        .add("top", props.getTextTopInset())
        .add("right", props.getTextRightInset())
        .add("bottom", props.getTextBottomInset())
        .addNumber("anchor", props.getTextAlignment())
        .add("centered", props.getTextCentered())
        .add("wrap", props.getTextWrapping())
        .addNumber("direction", props.getTextDirection())
        .add("columns", props.getTextColumns());
    if (const auto& fit = props.getTextFit())
        text.word("fit") << static_cast<int>(fit->kind) << ',' << fit->fontScale << ','
                         << fit->lineSpacingReduction;
    return text.get();
}

const BodyRow BodyRows[] = {
    {"Nothing",          "",                                                 "",                                                          "top=5",                          ""                                                  },
    {"Insets",           "lIns='12700' tIns='0' rIns='-25400' bIns='38100'", "",                                                          "left=1 top=0 right=-2 bottom=3", ""                                                  },
    {"Top",              "anchor='t'",                                       "",                                                          "top=5 anchor=0",                 ""                                                  },
    {"Middle",           "anchor='ctr' anchorCtr='1'",                       "",                                                          "top=5 anchor=1 centered=1",      ""                                                  },
    {"Bottom",           "anchor='b' anchorCtr='0'",                         "",                                                          "top=5 anchor=2 centered=0",      ""                                                  },
    {"Justified",        "anchor='just'",                                    "",                                                          "top=5 anchor=3",                 ""                                                  },
    {"Distributed",      "anchor='dist'",                                    "",                                                          "top=5 anchor=4",                 ""                                                  },
    {"NoAnchor",         "anchor='x'",                                       "",                                                          "top=5",                          "Text of a slide has an unknown value anchor=\"x\"" },
    {"Wrap",             "wrap='square'",                                    "",                                                          "top=5 wrap=1",                   ""                                                  },
    {"NoWrap",           "wrap='none'",                                      "",                                                          "top=5 wrap=0",                   ""                                                  },
    {"Horizontal",       "vert='horz'",                                      "",                                                          "top=5 direction=0",              ""                                                  },
    {"Clockwise",        "vert='vert'",                                      "",                                                          "top=5 direction=1",              ""                                                  },
    {"CounterClockwise", "vert='vert270'",                                   "",                                                          "top=5 direction=2",              ""                                                  },
    {"Stacked",          "vert='wordArtVertRtl'",                            "",                                                          "top=5 direction=3",              ""                                                  },
    {"EastAsian",        "vert='eaVert'",                                    "",                                                          "top=5 direction=4",              ""                                                  },
    {"Columns",          "numCol='16'",                                      "",                                                          "top=5 columns=16",               ""                                                  },
    {"NoColumn",         "numCol='0'",                                       "",                                                          "top=5",                          "Text of a slide has an unknown value numCol=\"0\"" },
    {"TooManyColumns",   "numCol='17'",                                      "",                                                          "top=5",                          "Text of a slide has an unknown value numCol=\"17\""},
    {"Overflow",         "",                                                 "<a:noAutofit/>",                                            "top=5 fit=0,1,0",                ""                                                  },
    {"Shrink",           "",                                                 "<a:normAutofit/>",                                          "top=5 fit=1,1,0",                ""                                                  },
    {"Shrunk",           "",                                                 "<a:normAutofit fontScale='62500' lnSpcReduction='20000'/>", "top=5 fit=1,0.625,0.2",          ""                                                  },
    {"ShrunkTooFar",     "",                                                 "<a:normAutofit fontScale='999'/>",                          "top=5 fit=1,1,0",
     "Text of a slide has an unknown value fontScale=\"999\""                                                                                                                                                                   },
    {"Grow",             "",                                                 "<a:spAutoFit/>",                                            "top=5 fit=2,1,0",                ""                                                  },
};

class ReadTextBodyProps : public Tests::SlideTextFixture, public testing::WithParamInterface<BodyRow>
{
};

TEST_P(ReadTextBodyProps, KeepsRow)
{
    const BodyRow& row = GetParam();
    const auto root = parse(std::string("<a:bodyPr ") + row.attributes + ">" + row.content + "</a:bodyPr>");
    DOM::ShapeProps props;
    props.setTextTopInset(5.0F); // stays where the element does not say
    readTextBodyProps(findDrawingElement(root, Vocabulary::Drawing, "bodyPr"), props, run.getReport());
    EXPECT_EQ(toBodyText(props), row.props);
    EXPECT_EQ(joinMessages(), row.message);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadTextBodyProps, testing::ValuesIn(BodyRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
