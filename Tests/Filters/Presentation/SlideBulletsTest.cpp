#include <Filters/Presentation/SlideText.h>

#include <cstddef>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/TextLevels.h>
#include <Utils/Public/UUID.h>

#include <Tests/Support/SlideTextFixture.h>

namespace QV::Filters {
namespace {

std::string makeItem(const std::string& content, int level = 0)
{
    return "<a:p><a:pPr lvl='" + std::to_string(level) + "'>" + content +
           "</a:pPr><a:r><a:t>x</a:t></a:r></a:p>";
}

std::string makeNumber(const char* type, int level = 0, int start = 1)
{
    return makeItem(
        "<a:buAutoNum type='" + std::string(type) + "' startAt='" + std::to_string(start) + "'/>", level);
}

const std::string EmptyItem = "<a:p><a:pPr><a:buAutoNum type='arabicPeriod'/></a:pPr></a:p>";
const std::string PlainItem = makeItem("<a:buNone/>");
const std::string Period = makeNumber("arabicPeriod");
const std::string Letter = makeNumber("alphaLcParenR", 1);

struct LabelsRow
{
    const char* name;
    std::string paragraphs;
    std::string labels;
    const char* message;
};

void PrintTo(const LabelsRow& row, std::ostream* out)
{
    *out << row.paragraphs;
}

const std::string Bullet = makeItem("<a:buChar char='\u2022'/>");
const std::string PlainOfALevel = makeItem("", 1);
const std::string PlainDeepDown = makeItem("", 2);
const std::string Roman = makeNumber("romanUcPeriod");
const std::string FromTwo = makeNumber("arabicPeriod", 0, 2);
const std::string FromFive = makeNumber("arabicPeriod", 0, 5);
const std::string LargestStart = makeNumber("arabicPlain", 0, 32767);
const std::string StartTooLarge = makeNumber("arabicPlain", 0, 32768);
const std::string StartTooSmall = makeNumber("arabicPlain", 0, 0);
const std::string UnknownScheme = makeNumber("x");
const std::string DeepestLevel = makeNumber("arabicPeriod", 8);
const std::string Bold = "<a:p><a:pPr><a:buAutoNum type='arabicPeriod'/></a:pPr><a:r><a:rPr b='1'/>"
                         "<a:t>x</a:t></a:r></a:p>";
const std::string Schemes = makeNumber("alphaUcPeriod") + makeNumber("alphaLcParenBoth") +
                            makeNumber("romanLcParenR", 0, 4) + makeNumber("arabicParenBoth") +
                            makeNumber("circleNumWdBlackPlain") + makeNumber("hebrew2Minus") +
                            makeNumber("thaiAlphaPeriod");
const std::string EmptyBullet = makeItem("<a:buChar char=''/>");
const std::string PictureBullet = makeItem("<a:buBlip/>");
const std::string Square = makeItem("<a:buFont typeface='Wingdings'/><a:buChar char='\u00A7'/>");
const std::string Arrow = makeItem("<a:buFont typeface='wingdings'/><a:buChar char='\u00E0'/>");
const std::string PrivateSign = makeItem("<a:buFont typeface='Symbol'/><a:buChar char='\uF0B7'/>");
const std::string UnknownPrivateSign = makeItem("<a:buFont typeface='Some'/><a:buChar char='\uF0B7'/>");
const std::string UnknownSign = makeItem("<a:buFont typeface='Wingdings 3'/><a:buChar char='u'/>");
const std::string PlainFont = makeItem("<a:buFont typeface='Courier New'/><a:buChar char='o'/>");
const std::string LongBullet = makeItem("<a:buChar char='" + std::string(1025, '-') + "'/>");
const std::string LongLabel(1024, '-');

const LabelsRow LabelsRows[] = {
    {"None",                          PlainItem,                                  "",                                 ""                                                      },
    {"NoneOnALevel",                  PlainDeepDown,                              "-",                                ""                                                      },
    {"Counts",                        Period + Period + Period,                   "1.|2.|3.",                         ""                                                      },
    {"GoesOnBehindALevel",            Period + Period + Letter + Letter + Period, "1.|2.|a)|b)|3.",                   ""                                                      },
    {"OuterItemRestarts",             Period + Letter + Period + Letter,          "1.|a)|2.|a)",                      ""                                                      },
    {"DeeperItemFirst",               Letter + Period + Letter,                   "a)|1.|a)",                         ""                                                      },
    {"PlainParagraphRestarts",        Period + PlainItem + Period,                "1.||1.",                           ""                                                      },
    {"BulletRestarts",                Period + Bullet + Period,                   "1.|\u2022|1.",                     ""                                                      },
    {"PlainParagraphOfALevelDoesNot", Period + PlainOfALevel + Period,            "1.|-|2.",                          ""                                                      },
    {"EmptyParagraphDoesNotCount",    Period + EmptyItem + Period,                "1.||2.",                           ""                                                      },
    {"OtherSchemeRestarts",           Period + Roman + Period,                    "1.|I.|1.",                         ""                                                      },
    {"Start",                         FromFive + FromFive,                        "5.|6.",                            ""                                                      },
    {"OtherStartRestarts",            Period + Period + FromTwo,                  "1.|2.|2.",                         ""                                                      },
    {"LargestStart",                  LargestStart,                               "32767",                            ""                                                      },
    {"StartTooLarge",                 StartTooLarge,                              "1",                                "Text of a slide has an unknown value startAt=\"32768\""},
    {"StartTooSmall",                 StartTooSmall,                              "1",                                "Text of a slide has an unknown value startAt=\"0\""    },
    {"UnknownScheme",                 UnknownScheme,                              "1.",                               "Text of a slide has an unknown value type=\"x\""       },
    {"LookDoesNotRestart",            Period + Bold + Period,                     "1.|2.|3.",                         ""                                                      },
    {"DeepestLevel",                  DeepestLevel + DeepestLevel,                "1.|2.",                            ""                                                      },
    {"Schemes",                       Schemes,                                    "A.|(a)|iv)|(1)|\u2460|\u05D0-|1.", ""                                                      },
    {"Bullet",                        Bullet + Bullet,                            "\u2022|\u2022",                    ""                                                      },
    {"EmptyBulletIsNone",             EmptyBullet,                                "",                                 ""                                                      },
    {"PictureBullet",                 PictureBullet,                              "\u2022",                           ""                                                      },
    {"Square",                        Square,                                     "\u25AA",                           ""                                                      },
    {"Arrow",                         Arrow,                                      "\u2192",                           ""                                                      },
    {"PrivateSign",                   PrivateSign,                                "\u2022",                           ""                                                      },
    {"UnknownPrivateSign",            UnknownPrivateSign,                         "\u2022",                           ""                                                      },
    {"UnknownSign",                   UnknownSign,                                "\u2022",                           ""                                                      },
    {"PlainFontKeeps",                PlainFont,                                  "o",                                ""                                                      },
    {"LongBulletIsCut",               LongBullet,                                 LongLabel,                          "Bullet of a slide is cut at 1024 bytes"                },
};

class SlideLabels : public Tests::SlideTextFixture, public testing::WithParamInterface<LabelsRow>
{
};

TEST_P(SlideLabels, KeepsRow)
{
    const LabelsRow& row = GetParam();
    read(row.paragraphs);
    EXPECT_EQ(joinLabels(), row.labels);
    EXPECT_EQ(joinMessages(), row.message);
}

INSTANTIATE_TEST_SUITE_P(Rows, SlideLabels, testing::ValuesIn(LabelsRows),
    [](const auto& row) { return std::string(row.param.name); });

struct LookRow
{
    const char* name;
    const char* bullet; // children of a:pPr
    const char* look;
};

void PrintTo(const LookRow& row, std::ostream* out)
{
    *out << row.bullet;
}

// The text is bold, of 20 points, in Some.
const LookRow LookRows[] = {
    {"LikeTheText",    "",                                             "b=1 size=20 font=Some color=1,2,3,255" },
    {"Color",          "<a:buClr><a:srgbClr val='040506'/></a:buClr>", "b=1 size=20 font=Some color=4,5,6,255" },
    {"ColorOfText",    "<a:buClrTx/>",                                 "b=1 size=20 font=Some color=1,2,3,255" },
    {"Share",          "<a:buSzPct val='150000'/>",                    "b=1 size=30 font=Some color=1,2,3,255" },
    {"SmallestShare",  "<a:buSzPct val='25%'/>",                       "b=1 size=5 font=Some color=1,2,3,255"  },
    {"Points",         "<a:buSzPts val='700'/>",                       "b=1 size=7 font=Some color=1,2,3,255"  },
    {"SizeOfText",     "<a:buSzTx/>",                                  "b=1 size=20 font=Some color=1,2,3,255" },
    {"Font",           "<a:buFont typeface='Other'/>",                 "b=1 size=20 font=Other color=1,2,3,255"},
    {"FontOfTheme",    "<a:buFont typeface='+mj-lt'/>",                "b=1 size=20 font=Head color=1,2,3,255" },
    {"FontOfText",     "<a:buFontTx/>",                                "b=1 size=20 font=Some color=1,2,3,255" },
    {"SymbolFontGoes", "<a:buFont typeface='Wingdings'/>",             "b=1 size=20 font=Some color=1,2,3,255" },
};

class SlideMarkerLook : public Tests::SlideTextFixture, public testing::WithParamInterface<LookRow>
{
};

TEST_P(SlideMarkerLook, KeepsRow)
{
    // What lies below is replaced wherever the row says something.
    levels = readLevels("<a:lvl1pPr><a:buChar char='l'/></a:lvl1pPr>");
    read(std::string("<a:p><a:pPr>") + GetParam().bullet +
         "</a:pPr><a:r><a:rPr b='1' u='sng' sz='2000'><a:solidFill><a:srgbClr val='010203'/></a:solidFill>"
         "<a:latin typeface='Some'/></a:rPr><a:t>x</a:t></a:r></a:p>");
    const auto& lists = context.lists.getNumberedLists();
    ASSERT_EQ(lists.size(), 1U);
    ASSERT_EQ(lists[0]->getLevels().size(), 1U);
    EXPECT_EQ(Tests::toText(*lists[0]->getLevels()[0]->getRunProps()), GetParam().look);
}

INSTANTIATE_TEST_SUITE_P(Rows, SlideMarkerLook, testing::ValuesIn(LookRows),
    [](const auto& row) { return std::string(row.param.name); });

using SlideListsOf = Tests::SlideTextFixture;

TEST_F(SlideListsOf, LayersBelowLoseTheirSizeAndLooks)
{
    levels = readLevels("<a:lvl1pPr><a:buClr><a:srgbClr val='040506'/></a:buClr><a:buSzPts val='700'/>"
                        "<a:buFont typeface='Other'/><a:buChar char='-'/></a:lvl1pPr>");
    read(makeItem("<a:buClrTx/><a:buSzPct val='50%'/><a:buFontTx/>"));
    const auto& lists = context.lists.getNumberedLists();
    EXPECT_EQ(Tests::toText(*lists.at(0)->getLevels()[0]->getRunProps()), "size=9");
}

TEST_F(SlideListsOf, LevelsShareAList)
{
    read(Period + Letter + Period + Letter + makeNumber("romanLcPeriod", 4) + Period);
    ASSERT_EQ(context.lists.getNumberedLists().size(), 1U);
    const auto& levelsOfList = context.lists.getNumberedLists()[0]->getLevels();
    ASSERT_EQ(levelsOfList.size(), 5U);
    EXPECT_EQ(levelsOfList[1]->getListMarker()->getText(), "%2)");
    EXPECT_EQ(*levelsOfList[2]->getListMarker()->getType(), DOM::NumListMarkerType::None);
    std::set<UUID> tags;
    for (const std::size_t first : {0U, 2U, 5U})
        tags.insert(*getParagraph(first).getNumRef()->getListTagUUID());
    EXPECT_EQ(tags.size(), 1U);
    for (const std::size_t other : {1U, 3U, 4U})
        tags.insert(*getParagraph(other).getNumRef()->getListTagUUID());
    EXPECT_EQ(tags.size(), 4U);
    EXPECT_EQ(*getParagraph(4).getNumRef()->getLevel(), 4UL);
}

TEST_F(SlideListsOf, LooksThatTakeTurnsShareTheirLists)
{
    std::string paragraphs;
    for (int i = 0; i < 10; ++i)
        paragraphs += Period + makeItem("<a:buClr><a:srgbClr val='040506'/></a:buClr><a:buAutoNum "
                                        "type='arabicPeriod'/>");
    read(paragraphs);
    EXPECT_EQ(context.lists.getNumberedLists().size(), 2U);
    EXPECT_EQ(joinLabels(), "1.|2.|3.|4.|5.|6.|7.|8.|9.|10.|11.|12.|13.|14.|15.|16.|17.|18.|19.|20.");
}

TEST_F(SlideListsOf, PicturesOfBulletsAreNamed)
{
    read(PictureBullet);
    EXPECT_EQ(run.getLeftOut(), std::vector<std::string>{"pictures as bullets"});
}

TEST_F(SlideListsOf, TextsCountByThemselves)
{
    read(Period + Period);
    read(Period);
    EXPECT_EQ(joinLabels(), "1.");
    EXPECT_EQ(context.lists.getNumberedLists().size(), 2U);
}

} // namespace
} // namespace QV::Filters
