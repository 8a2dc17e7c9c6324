#include <Filters/Presentation/SlideText.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunStyle.h>

#include <Tests/Support/SlideTextFixture.h>

namespace QV::Filters {
namespace {

/// Writes runs as "text[props]@url#anchor", a break as "<br>", a tab as "<tab>".
class SlideRunsText final : public DOM::RunVisitor
{
public:
    void visit(const DOM::TextRun& run) override { add(run.getText(), run); }
    void visit(const DOM::TabRun& run) override { add("<tab>", run); }
    void visit(const DOM::BreakRun& run) override { add("<br>", run); }
    void visit(const DOM::DrawingRun& run) override { add("<other>", run); }
    void visit(const DOM::BookmarkRun& run) override { add("<other>", run); }
    void visit(const DOM::FieldRun& run) override { add("<other>", run); }
    void visit(const DOM::AnchorRun& run) override { add("<other>", run); }

    std::string text;

private:
    void add(const std::string& content, const DOM::Run& run)
    {
        text += (text.empty() ? "" : "|") + content;
        const DOM::RunStyle& style = run.getStyle();
        if (style.getRunProps())
            text += "[" + Tests::toText(*style.getRunProps()) + "]";
        if (const auto& link = style.getHyperlink())
            text += "@" + link->getURL() + "#" + link->getAnchor();
    }
};

std::string joinSlideRuns(const DOM::Paragraph& paragraph)
{
    SlideRunsText runs;
    for (const DOM::Run& run : paragraph.getRuns())
        run.accept(runs);
    return runs.text;
}

struct RunsRow
{
    const char* name;
    std::string content; // of the paragraph
    const char* runs;
    const char* message;
};

void PrintTo(const RunsRow& row, std::ostream* out)
{
    *out << row.content;
}

std::string makeLinked(const std::string& link)
{
    return "<a:r><a:rPr><a:solidFill><a:srgbClr val='010203'/></a:solidFill>" + link +
           "</a:rPr><a:t>x</a:t></a:r>";
}

const std::vector<RunsRow>& getRunsRows()
{
    static const std::string Run = "<a:r><a:t>a</a:t></a:r>";
    static const std::string Sign = "<a:rPr><a:sym typeface='Wingdings'/></a:rPr>";
    static const std::string Formula =
        "<a14:m><m:oMath "
        "xmlns:m='http://schemas.openxmlformats.org/officeDocument/2006/math'><m:r><m:t>y</m:t></m:r> "
        "<m:sup><m:t>2</m:t></m:sup></m:oMath></a14:m>";
    static const std::vector<RunsRow> rows = {
        {"Empty",              "",                                                                                     "",                                              ""},
        {"EmptyRun",           "<a:r><a:t/></a:r><a:r/>",                                                              "",                                              ""},
        {"Text",               "<a:r><a:rPr b='1'/><a:t>a b</a:t></a:r>",                                              "a b[b=1]",                                      ""},
        {"OneLookIsOneRun",    Run + Run + "<a:r><a:rPr b='1'/><a:t>b</a:t></a:r>",                                    "aa|b[b=1]",                                     ""},
        {"Break",              Run + "<a:br><a:rPr b='1'/></a:br>" + Run,                                              "a|<br>[b=1]|a",                                 ""},
        {"TabAndLineFeed",     "<a:r><a:t>a\tb\nc</a:t></a:r>",                                                        "a|<tab>|b|<br>|c",                              ""},
        {"Field",              "<a:fld id='{1}' type='slidenum'><a:rPr i='1'/><a:pPr/><a:t>7</a:t></a:fld>",           "7[i=1]",                                        ""},
        {"Sign",               "<a:r>" + Sign + "<a:t> \u00E0</a:t></a:r>",                                            " \u2192",                                       ""},
        {"PrivateSigns",       "<a:r>" + Sign + "<a:t>\uF0E0\uF0FC</a:t></a:r>",                                       "\u2192\u2713",                                  ""},
        {"TextBehindASign",    "<a:r>" + Sign + "<a:t>n\u00E0</a:t></a:r>",                                            "n\u00E0",                                       ""},
        {"UnknownElement",     "<unknown:r><a:t>b</a:t></unknown:r>" + Run,                                            "a",                                             ""},
        {"Math",               Run + Formula,                                                                          "ay2",                                           ""},
        {"MathInAlternatives",
         "<mc:AlternateContent><mc:Choice Requires='a14'>" + Formula + "</mc:Choice><mc:Fallback>" + Run +
                "</mc:Fallback></mc:AlternateContent>",                                                                "y2",                                            ""},
        {"Fallback",
         "<mc:AlternateContent><mc:Choice Requires='unknown'>" + Formula + "</mc:Choice><mc:Fallback>" +
                Run + "</mc:Fallback></mc:AlternateContent>",
         "a",                                                                                                                                                           ""},
        {"Link",               makeLinked("<a:hlinkClick r:id='web'/>"),                                               "x[color=0,0,255,255 u=1]@http://a.example/#b#",
         ""                                                                                                                                                               },
        {"LinkInColorOfText",
         makeLinked("<a:hlinkClick r:id='web'><a:extLst><a:ext uri='{A}'><h:hlinkClr "
                       "xmlns:h='http://schemas.microsoft.com/office/drawing/2018/hyperlinkcolor' val='tx'/>"
                       "</a:ext></a:extLst></a:hlinkClick>"),
         "x[color=1,2,3,255 u=1]@http://a.example/#b#",                                                                                                                 ""},
        {"LinkToPlace",        makeLinked("<a:hlinkClick r:id='place'/>"),                                             "x[color=0,0,255,255 u=1]@#there",               ""},
        {"LinkToSlide",        makeLinked("<a:hlinkClick r:id='next' action='ppaction://hlinksldjump'/>"),
         "x[color=0,0,255,255 u=1]@#ppt/slides/slide2.xml",                                                                                                             ""},
        {"Jump",               makeLinked("<a:hlinkClick r:id='' action='ppaction://hlinkshowjump?jump=nextslide'/>"),
         "x[color=0,0,255,255 u=1]",                                                                                                                                    ""},
        {"LongLink",           makeLinked("<a:hlinkClick r:id='long'/>"),                                              "x[color=0,0,255,255 u=1]",
         "Hyperlink of more than 8192 bytes is left out"                                                                                                                  },
        {"UnknownLink",        makeLinked("<a:hlinkClick r:id='x'/>"),                                                 "x[color=0,0,255,255 u=1]",
         "Hyperlink has an unknown relationship x"                                                                                                                        },
    };
    return rows;
}

class ReadSlideRuns : public Tests::SlideTextFixture, public testing::WithParamInterface<RunsRow>
{
};

TEST_P(ReadSlideRuns, KeepsRow)
{
    read("<a:p>" + GetParam().content + "</a:p>");
    ASSERT_EQ(text->getBlocks().size(), 1U);
    EXPECT_EQ(joinSlideRuns(getParagraph()), GetParam().runs);
    EXPECT_EQ(joinMessages(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadSlideRuns, testing::ValuesIn(getRunsRows()),
    [](const auto& row) { return std::string(row.param.name); });

struct ParagraphRow
{
    const char* name;
    const char* attributes; // of a:pPr
    const char* content;    // of a:pPr
    const char* runs;
    const char* props;
    const char* message;
};

void PrintTo(const ParagraphRow& row, std::ostream* out)
{
    *out << row.attributes << ' ' << row.content;
}

const ParagraphRow ParagraphRows[] = {
    {"FirstLevel",                        "",                        "",                                            "",                          "align=1 left=1 before=12",         ""                                       },
    {"OwnAttributes",                     "algn='r' indent='12700'", "",                                            "",                          "align=3 left=1 first=1 before=12", ""                                       },
    {"OwnListStyle",                      "lvl='1'",                 "",                                            "",                          "align=2 left=2",                   ""                                       },
    {"LastLevel",                         "lvl='8'",                 "",                                            "",                          "left=9",                           ""                                       },
    {"LevelTooDeep",                      "lvl='9'",                 "",                                            "",                          "left=9",                           "List level 9 of a slide's text is none" },
    {"NoLevel",                           "lvl='-1'",                "",                                            "",                          "align=1 left=1 before=12",         "List level -1 of a slide's text is none"},
    {"SpaceOfLargestFont",                "",                        "",
     "<a:r><a:rPr sz='1000'/><a:t>x</a:t></a:r><a:r><a:rPr sz='4000'/><a:t>x</a:t></a:r>",                                                       "align=1 left=1 before=24",         ""                                       },
    {"SpaceWithoutFont",                  "lvl='8'",                 "<a:spcAft><a:spcPct val='100%'/></a:spcAft>", "<a:r><a:t>x</a:t></a:r>",
     "left=9 after=21.6",                                                                                                                                                            ""                                       },
    {"SpaceOfEmptyParagraph",             "",                        "",                                            "<a:endParaRPr sz='1000'/>", "align=1 left=1 before=6",          ""                                       },
    {"SpaceInPoints",                     "",                        "<a:spcBef><a:spcPts val='300'/></a:spcBef>",  "",                          "align=1 left=1 before=3",          ""                                       },
    {"RunDefaultsOfAParagraphSayNothing", "lvl='8'",                 "<a:defRPr sz='900'/>",                        "<a:r><a:t>x</a:t></a:r>",
     "left=9",                                                                                                                                                                       ""                                       },
};

class ReadSlideParagraph : public Tests::SlideTextFixture, public testing::WithParamInterface<ParagraphRow>
{
};

TEST_P(ReadSlideParagraph, KeepsRow)
{
    const ParagraphRow& row = GetParam();
    levels = readLevels(
        "<a:lvl1pPr algn='l' marL='12700'><a:spcBef><a:spcPct val='50%'/></a:spcBef><a:defRPr sz='2000'/>"
        "</a:lvl1pPr><a:lvl2pPr algn='r' marL='25400'/><a:lvl9pPr marL='114300'/>");
    read(std::string("<a:bodyPr/><a:lstStyle><a:lvl2pPr algn='ctr'/></a:lstStyle><a:p><a:pPr ") +
         row.attributes + ">" + row.content + "</a:pPr>" + row.runs + "</a:p>");
    ASSERT_TRUE(getParagraph().getStyle().getParaProps());
    EXPECT_EQ(Tests::toText(*getParagraph().getStyle().getParaProps()), row.props);
    EXPECT_EQ(joinMessages(), row.message);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadSlideParagraph, testing::ValuesIn(ParagraphRows),
    [](const auto& row) { return std::string(row.param.name); });

using ReadSlideText = Tests::SlideTextFixture;

TEST_F(ReadSlideText, InvalidViewIsNull)
{
    parse("");
    EXPECT_EQ(readSlideText({}, {context, *part, levels}), nullptr);
}

TEST_F(ReadSlideText, NoParagraphsAreAnEmptyText)
{
    read("<a:bodyPr/>");
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->getBlocks().empty());
}

TEST_F(ReadSlideText, StrictDialectReadsAlike)
{
    read("<a:lstStyle><a:lvl1pPr algn='r'/></a:lstStyle><a:p><a:r><a:rPr "
         "b='1'/><a:t>x</a:t></a:r><a:br/></a:p>"
         "<a:p/>",
        true);
    EXPECT_EQ(text->getPlainText(), "x\n\n");
    EXPECT_EQ(joinSlideRuns(getParagraph()), "x[b=1]|<br>");
}

TEST_F(ReadSlideText, RunsHaveTheLooksOfAllLayers)
{
    levels = readLevels("<a:lvl1pPr><a:defRPr sz='2000' b='1'/></a:lvl1pPr>");
    read("<a:lstStyle><a:lvl1pPr><a:defRPr i='1'/></a:lvl1pPr></a:lstStyle>"
         "<a:p><a:r><a:rPr b='0'/><a:t>x</a:t></a:r><a:endParaRPr sz='1000'/></a:p>");
    EXPECT_EQ(joinSlideRuns(getParagraph()), "x[b=0 i=1 size=20]");
    EXPECT_EQ(Tests::toText(*getParagraph().getParaMarkStyle().getRunProps()), "b=1 i=1 size=10");
}

TEST_F(ReadSlideText, EqualStylesAreShared)
{
    read("<a:p><a:pPr algn='r'/><a:r><a:rPr b='1'/><a:t>x</a:t></a:r></a:p>"
         "<a:p><a:pPr algn='r'/><a:r><a:rPr b='1'/><a:t>y</a:t></a:r></a:p>");
    EXPECT_EQ(getParagraph(0).getSharedStyle(), getParagraph(1).getSharedStyle());
    EXPECT_EQ(run.getDocument().getSharedObjectFactory().getRunStylesCount(), 1U);
}

TEST_F(ReadSlideText, FormulasAreNamed)
{
    read("<a:p><a14:m/></a:p>");
    EXPECT_EQ(run.getLeftOut(), std::vector<std::string>{"layout of formulas (their text is kept)"});
}

TEST_F(ReadSlideText, EffectsAreNamed)
{
    const auto readProperties = [this](const std::string& content) {
        read("<a:p><a:r><a:rPr>" + content + "</a:rPr><a:t>x</a:t></a:r></a:p>");
        return run.getLeftOut();
    };
    EXPECT_TRUE(readProperties("<a:ln w='11430'/>").empty());
    EXPECT_TRUE(readProperties("<a:ln><a:noFill/></a:ln><a:effectLst/>").empty());
    const std::vector<std::string> named = {"outlines, effects and bends of text"};
    EXPECT_EQ(readProperties("<a:effectLst><a:glow rad='1'/></a:effectLst>"), named);
}

TEST_F(ReadSlideText, OutlinesAreNamed)
{
    read("<a:p><a:r><a:rPr><a:ln><a:solidFill><a:srgbClr val='FF0000'/></a:solidFill></a:ln></a:rPr>"
         "<a:t>x</a:t></a:r></a:p>");
    EXPECT_EQ(run.getLeftOut(), std::vector<std::string>{"outlines, effects and bends of text"});
}

TEST_F(ReadSlideText, ParagraphsOfATextAreBounded)
{
    std::string paragraphs;
    for (int i = 0; i < 100'002; ++i)
        paragraphs += "<a:p/>";
    read(paragraphs);
    EXPECT_EQ(text->getBlocks().size(), 100'000U);
    EXPECT_EQ(context.paragraphsCount, 100'000U);
    EXPECT_EQ(joinMessages(), "Text on a slide is cut after 100000 paragraphs");
}

TEST_F(ReadSlideText, ParagraphsOfAPresentationAreBounded)
{
    context.paragraphsCount = PresentationContext::ParagraphsMax - 1;
    read("<a:p/>");
    EXPECT_EQ(joinMessages(), "");
    read("<a:p/>");
    EXPECT_TRUE(text->getBlocks().empty());
    EXPECT_EQ(joinMessages(), "Text of the presentation is cut after 1000000 paragraphs");
}

struct TargetRow
{
    const char* name;
    const char* content;
    boost::optional<std::string> target;
};

void PrintTo(const TargetRow& row, std::ostream* out)
{
    *out << row.content;
}

const TargetRow TargetRows[] = {
    {"NoLink",          "",                                                                         boost::none                       },
    {"Page",            "<a:hlinkClick r:id='web'/>",                                               std::string("http://a.example/#b")},
    {"Slide",           "<a:hlinkClick r:id='next' action='ppaction://hlinksldjump'/>",
     std::string("#ppt/slides/slide2.xml")                                                                                            },
    {"OtherPart",       "<a:hlinkClick r:id='picture' action='ppaction://media'/>",                 boost::none                       },
    {"Jump",            "<a:hlinkClick r:id='' action='ppaction://hlinkshowjump?jump=nextslide'/>", boost::none                       },
    {"NoRelationship",  "<a:hlinkClick action='ppaction://noaction'/>",                             boost::none                       },
    {"MouseOverIsNone", "<a:hlinkHover r:id='web'/>",                                               boost::none                       },
};

class ReadClickTarget : public Tests::SlideTextFixture, public testing::WithParamInterface<TargetRow>
{
};

TEST_P(ReadClickTarget, KeepsRow)
{
    const auto root = parse(GetParam().content);
    EXPECT_EQ(readClickTarget(root, *part, context), GetParam().target);
    EXPECT_EQ(joinMessages(), "");
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadClickTarget, testing::ValuesIn(TargetRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
