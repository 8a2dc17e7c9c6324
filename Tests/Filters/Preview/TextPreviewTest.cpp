#include <Filters/Preview/TextPreview.h>

#include <memory>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/TrackedChange.h>
#include <Utils/Public/UUID.h>

#include <Tests/Support/TextPreviewFixture.h>

namespace QV::Filters {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using Tests::makeChangeStyle;
using Tests::makeLinkStyle;
using Tests::makeParagraph;
using Tests::makeRunStyle;
using Tests::makeText;
using Tests::shareRunStyle;

using TextPreview = Tests::TextPreviewFixture;

TEST_F(TextPreview, OfNoTextSaysSo)
{
    const std::string page = write();
    EXPECT_THAT(page, HasSubstr("There is no text here."));
    EXPECT_THAT(page, HasSubstr("default-src 'none'; style-src 'unsafe-inline'; img-src data:"));
    EXPECT_THAT(page, HasSubstr("<title>letter &lt;1&gt;</title>"));
    EXPECT_THAT(page, Not(HasSubstr("Not shown")));
}

TEST_F(TextPreview, EscapesWhatTheDocumentSays)
{
    add("</style><script>alert(1)</script>\x01");
    const std::string page = write();
    EXPECT_THAT(page, HasSubstr("<p>&lt;/style&gt;&lt;script&gt;alert(1)&lt;/script&gt;\xEF\xBF\xBD</p>\n"));
    EXPECT_THAT(page, Not(HasSubstr("<script")));
    EXPECT_EQ(count(page, "</style>"), 1U);
}

TEST_F(TextPreview, MakesSheetsOfSections)
{
    add("one");
    add("two");
    add("three");
    auto props = std::make_shared<DOM::PageProps>();
    props->setWidth(400.0F);
    props->setHeight(500.0F);
    DOM::Section wide(DOM::BlockPosition(2));
    wide.setPageProps(props);
    auto usual = std::make_shared<DOM::HeaderFooterPair>();
    usual->setHeader(makeText(makeParagraph("usual top")));
    usual->setFooter(makeText(makeParagraph("usual bottom")));
    auto first = std::make_shared<DOM::HeaderFooterPair>();
    first->setHeader(makeText(makeParagraph("first top")));
    wide.setDefaultPair(usual);
    wide.setFirstPair(first);
    getDocument().appendSection(DOM::Section(DOM::BlockPosition(0)));
    getDocument().appendSection(wide);
    const std::string page = write();
    EXPECT_THAT(
        page, AllOf(HasSubstr(".c0{width:612pt;min-height:792pt;padding-left:72pt;padding-right:72pt;}"),
                  HasSubstr(".c1{padding-top:72pt;padding-bottom:72pt;}"),
                  HasSubstr(".c2{width:400pt;min-height:500pt;padding-left:72pt;padding-right:72pt;}"),
                  HasSubstr(".c3{min-height:72pt;padding-top:36pt;}"),
                  HasSubstr(".c4{min-height:72pt;padding-bottom:36pt;}")));
    EXPECT_THAT(page,
        HasSubstr(
            "<section class=\"page c0\">\n<div class=\"text c1\">\n<p>one</p>\n<p>two</p>\n</div>\n"
            "</section>\n<section class=\"page c2\">\n<header class=\"c3\">\n<p>first top</p>\n</header>\n"
            "<div class=\"text\">\n<p>three</p>\n</div>\n<footer class=\"c4\">\n<p>usual bottom</p>\n"
            "</footer>\n</section>\n"));
}

TEST_F(TextPreview, MakesHeadingsOfOutlineLevels)
{
    for (const unsigned long level : {0UL, 5UL, 6UL, 8UL, 9UL}) {
        DOM::ParaProps props;
        props.setOutlineLevel(level);
        add(makeParagraph("level", props));
    }
    DOM::ParaProps props;
    props.setOutlineLevel(1UL);
    add(makeParagraph("", props));
    EXPECT_THAT(write(), HasSubstr("<h1>level</h1>\n<h6>level</h6>\n<h6 aria-level=\"7\">level</h6>\n"
                                   "<h6 aria-level=\"9\">level</h6>\n<p>level</p>\n<p><br></p>\n"));
}

TEST_F(TextPreview, PutsLabelsIntoTheHangingIndent)
{
    auto marker = std::make_shared<DOM::NumListMarker>();
    marker->setType(DOM::NumListMarkerType::Decimal);
    marker->setText("<%1>");
    auto level = std::make_unique<DOM::NumberingLevel>();
    level->setListMarker(marker);
    auto spaced = std::make_unique<DOM::NumberingLevel>();
    spaced->setListMarker(marker);
    spaced->setSuffix(DOM::NumberingLevel::Suffix::Space);
    auto list = std::make_shared<DOM::NumberedList>();
    list->appendLevel(std::move(level));
    list->appendLevel(std::move(spaced));
    getDocument().addNumberedList(list);
    for (const unsigned long number : {0UL, 0UL, 1UL}) {
        DOM::ParaProps props;
        props.setLeftIndent(36.0F);
        props.setFirstLineIndent(-18.0F);
        DOM::Paragraph& paragraph = add(makeParagraph("item", props));
        auto reference = std::make_unique<DOM::NumberingRef>();
        reference->setNumListUUID(list->getUUID());
        reference->setLevel(number);
        paragraph.setNumRef(std::move(reference));
    }
    const std::string page = write();
    EXPECT_THAT(page,
        AllOf(HasSubstr(".c2{margin-left:36pt;text-indent:-18pt;}"), HasSubstr(".c3{min-width:18pt;}")));
    EXPECT_THAT(page, HasSubstr("<p class=\"c2\"><span class=\"label c3\">&lt;1&gt;</span>item</p>\n"
                                "<p class=\"c2\"><span class=\"label c3\">&lt;2&gt;</span>item</p>\n"
                                "<p class=\"c2\"><span class=\"label\">&lt;2&gt;</span> item</p>\n"));
}

TEST_F(TextPreview, NestsWhatARunIs)
{
    DOM::RunProps props;
    props.setBold(true);
    props.setVerticalPosition(DOM::VerticalPosition::Superscript);
    DOM::RunStyle style = *makeChangeStyle(DOM::TrackedChange::Kind::Inserted, "A \"B\"");
    style.setRunProps(std::make_shared<DOM::RunProps>(props));
    style.setHyperlink(std::make_shared<DOM::Hyperlink>("https://example.org/?a=1&b=2"));
    const DOM::SharedRunStyle shared = shareRunStyle(style);
    DOM::Paragraph& paragraph = add("a ");
    paragraph.appendRun(std::make_unique<DOM::TextRun>("b", shared));
    paragraph.appendRun(std::make_unique<DOM::FieldRun>("PAGE", "7", shared));
    paragraph.appendRun(std::make_unique<DOM::TextRun>(" c"));
    const std::string page = write();
    EXPECT_THAT(
        page, HasSubstr("<p>a <a href=\"https://example.org/?a=1&amp;b=2\">"
                        "<ins title=\"A &quot;B&quot;, 2024-05-01T10:00:00Z\"><sup><span class=\"c2\">b7"
                        "</span></sup></ins></a> c</p>"));
    EXPECT_THAT(page, HasSubstr(".c2{font-weight:bold;}"));
}

TEST_F(TextPreview, LinksNowhereElse)
{
    DOM::Paragraph& paragraph = add("");
    for (const char* url : {"javascript:alert(1)", "file:///etc/passwd", "java\tscript:alert(1)"})
        paragraph.appendRun(std::make_unique<DOM::TextRun>("x", makeLinkStyle(url)));
    paragraph.appendRun(std::make_unique<DOM::TextRun>("y", makeLinkStyle("", "nowhere")));
    paragraph.appendRun(
        std::make_unique<DOM::TextRun>("z", makeLinkStyle("https://e/" + std::string(4096, 'a'))));
    const std::string page = write();
    EXPECT_THAT(page, HasSubstr("<p>xxxyz</p>"));
    EXPECT_THAT(page, Not(HasSubstr("<a ")));
}

TEST_F(TextPreview, LinksToItsBookmarks)
{
    using Kind = DOM::BookmarkRun::Kind;
    add("").appendRun(std::make_unique<DOM::TextRun>("to", makeLinkStyle("", "\"><b>")));
    DOM::Paragraph& paragraph = add("");
    for (int i = 0; i < 2; ++i) {
        paragraph.appendRun(std::make_unique<DOM::BookmarkRun>(Kind::Start, "\"><b>"));
        paragraph.appendRun(std::make_unique<DOM::TextRun>("here"));
        paragraph.appendRun(std::make_unique<DOM::BookmarkRun>(Kind::End, "\"><b>"));
    }
    EXPECT_THAT(
        write(), HasSubstr("<p><a href=\"#b1\">to</a></p>\n<p><span id=\"b1\"></span>herehere</p>\n"));
    TextPreviewLimits limits;
    limits.blocks = 1;
    const std::string page = write(limits); // the place is not shown, but the link has its end
    EXPECT_THAT(page, HasSubstr("<a href=\"#b1\">to</a></p>"));
    EXPECT_THAT(page, HasSubstr("<span id=\"b1\"></span><p class=\"note\">Not shown: 1 paragraph or table."));
}

TEST_F(TextPreview, IsTheFinalView)
{
    using Kind = DOM::TrackedChange::Kind;
    DOM::Paragraph& paragraph = add("stays ");
    paragraph.appendRun(std::make_unique<DOM::TextRun>("goes", makeChangeStyle(Kind::Deleted, "A")));
    DOM::RunProps hidden;
    hidden.setHidden(true);
    paragraph.appendRun(std::make_unique<DOM::TextRun>("secret", makeRunStyle(hidden)));
    std::string page = write();
    EXPECT_THAT(page, HasSubstr("<p>stays </p>"));
    EXPECT_THAT(page, AllOf(Not(HasSubstr("goes")), Not(HasSubstr("secret"))));
    EXPECT_THAT(page, HasSubstr("1 piece of text deleted or moved away by tracked changes is not shown."));
    DOM::Paragraph& moved = add("");
    moved.appendRun(std::make_unique<DOM::TextRun>("away", makeChangeStyle(Kind::MovedFrom, "A")));
    moved.setSharedParaMarkStyle(makeChangeStyle(Kind::MovedFrom, "A"));
    add("").setSharedParaMarkStyle(makeRunStyle(hidden));
    page = write();
    EXPECT_EQ(count(page, "<p>"), 1U);
    EXPECT_THAT(page, HasSubstr("2 pieces of text deleted or moved away by tracked changes are not shown."));
}

TEST_F(TextPreview, PutsNotesToTheEnd)
{
    using Kind = DOM::Note::Kind;
    DOM::Paragraph& paragraph = add("text");
    for (const Kind kind : {Kind::Comment, Kind::Footnote, Kind::Endnote, Kind::Footnote}) {
        auto note = std::make_unique<DOM::Note>(kind, makeText(makeParagraph("said")));
        note->setAuthor(kind == Kind::Comment ? "<A>" : "");
        paragraph.appendRun(std::make_unique<DOM::AnchorRun>(note->getUUID()));
        getDocument().appendNote(std::move(note));
    }
    paragraph.appendRun(std::make_unique<DOM::AnchorRun>(getDocument().getNotes()[1]->getUUID()));
    paragraph.appendRun(std::make_unique<DOM::AnchorRun>(UUID(1, 2)));
    const std::string page = write();
    EXPECT_THAT(page, HasSubstr("<p>text<sup><a id=\"r1\" href=\"#n1\">[1]</a></sup>"
                                "<sup><a id=\"r2\" href=\"#n2\">1</a></sup>"
                                "<sup><a id=\"r3\" href=\"#n3\">i</a></sup>"
                                "<sup><a id=\"r4\" href=\"#n4\">2</a></sup>"
                                "<sup><a href=\"#n2\">1</a></sup></p>"));
    EXPECT_THAT(page,
        HasSubstr(
            "<h2>Footnotes</h2>\n<div class=\"item\" id=\"n2\"><a href=\"#r2\" aria-label=\"back to 1\">1"
            "</a><div><p>said</p>\n</div></div>\n<div class=\"item\" id=\"n4\">"));
    EXPECT_THAT(page,
        HasSubstr(
            "<h2>Comments</h2>\n<div class=\"item\" id=\"n1\"><a href=\"#r1\" aria-label=\"back to [1]\">"
            "[1]</a><div><p class=\"author\">&lt;A&gt;</p><p>said</p>\n</div></div>\n</section>"));
    TextPreviewLimits limits;
    limits.blocks = 1;
    EXPECT_EQ(count(write(limits), "<div class=\"item\" id="), 4U); // links have their ends
}

TEST_F(TextPreview, RunsFromRightToLeft)
{
    DOM::ParaProps props;
    props.setRightToLeft(true);
    add(makeParagraph("a", props));
    EXPECT_THAT(write(), HasSubstr("<p dir=\"rtl\">a</p>"));
}

} // namespace
} // namespace QV::Filters
