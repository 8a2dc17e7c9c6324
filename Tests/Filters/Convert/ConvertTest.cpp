#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/Cell.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <Filters/Convert/Markdown.h>
#include <Filters/Convert/PlainText.h>
#include <Tests/Support/TextModelBuilder.h>

namespace QV::Filters {
namespace {

using Tests::makeParagraph;

class ConvertTest : public ::testing::Test
{
protected:
    DOM::Paragraph& append(std::unique_ptr<DOM::Paragraph> paragraph)
    {
        DOM::Paragraph& reference = *paragraph;
        _document.getBlocks().append(std::move(paragraph));
        return reference;
    }
    void append(std::unique_ptr<DOM::Block> block) { _document.getBlocks().append(std::move(block)); }

    std::string getPlainText() const
    {
        std::ostringstream out;
        writePlainText(_document, out);
        return out.str();
    }
    std::string getMarkdown(const std::string& mediaFolder = {}) const
    {
        std::ostringstream out;
        writeMarkdown(_document, mediaFolder, out);
        return out.str();
    }

    DOM::Document _document;
};

DOM::RunProps makeProps(bool isBold, bool isItalic, bool isStruck)
{
    DOM::RunProps props;
    props.setBold(isBold);
    props.setItalic(isItalic);
    props.setStrikethrough(isStruck);
    return props;
}

TEST_F(ConvertTest, WritesNothingForAnEmptyDocument)
{
    EXPECT_EQ(getPlainText(), "");
    EXPECT_EQ(getMarkdown(), "");
}

TEST_F(ConvertTest, WritesParagraphsAndHeadings)
{
    Tests::setOutlineLevel(append(makeParagraph("Scope")), 0);
    append(makeParagraph("First\nline\tend"));
    append(makeParagraph());
    Tests::setOutlineLevel(append(makeParagraph("Deep")), 7);
    Tests::setOutlineLevel(append(makeParagraph("1. no heading")), 9);
    EXPECT_EQ(getPlainText(), "Scope\nFirst\nline\tend\n\nDeep\n1. no heading\n");
    EXPECT_EQ(getMarkdown(), "# Scope\n\nFirst\\\nline end\n\n###### Deep\n\n1\\. no heading\n");
}

TEST_F(ConvertTest, EmphasisHasItsBlanksOutside)
{
    DOM::Paragraph& paragraph = append(makeParagraph("a"));
    paragraph.appendText(" bold ", Tests::makeRunStyle(makeProps(true, false, false)));
    paragraph.appendText("both", Tests::makeRunStyle(makeProps(true, true, false)));
    paragraph.appendText("struck", Tests::makeRunStyle(makeProps(false, false, true)));
    paragraph.appendText(" ", Tests::makeRunStyle(makeProps(true, false, false)));
    paragraph.appendText("here", Tests::makeLinkStyle("https://example.org/", "top"));
    paragraph.appendText("!", Tests::makeLinkStyle("javascript:alert(1)"));
    EXPECT_EQ(getMarkdown(), "a **bold** ***both***~~struck~~ [here](<https://example.org/#top>)!\n");
    EXPECT_EQ(getPlainText(), "a bold bothstruck here!\n");
}

TEST_F(ConvertTest, SignsBeforeLinksMakeNoPictures)
{
    DOM::Paragraph& paragraph = append(makeParagraph("Look!"));
    paragraph.appendText("here", Tests::makeLinkStyle("https://example.org/"));
    paragraph.appendText("! ");
    paragraph.appendText("there", Tests::makeLinkStyle("https://example.org/"));
    EXPECT_EQ(getMarkdown(), "Look\\![here](<https://example.org/>)! [there](<https://example.org/>)\n");
}

TEST_F(ConvertTest, LongTargetsStandOnceAtTheEnd)
{
    const std::string longest(180, 'x'); // of those that stand at their links
    DOM::Paragraph& paragraph = append(makeParagraph());
    for (const char* const text : {"a", "b"}) {
        paragraph.appendText(text, Tests::makeLinkStyle("https://example.org/" + longest));
        paragraph.appendText(text, Tests::makeLinkStyle("https://example.org/" + longest + "y"));
        paragraph.appendText(text, Tests::makeLinkStyle("https://example.org/" + longest + "z"));
    }
    const std::string target = "<https://example.org/" + longest;
    EXPECT_EQ(getMarkdown(), "[a](" + target + ">)[a][link1][a][link2][b](" + target +
                                 ">)[b][link1][b][link2]\n\n[link1]: " + target + "y>\n\n[link2]: " + target +
                                 "z>\n");
}

TEST_F(ConvertTest, MarksStandBeforeBreaks)
{
    const auto appendTo = [](std::unique_ptr<DOM::Paragraph> paragraph) {
        paragraph->appendText("Title", Tests::makeRunStyle(makeProps(true, false, false)));
        paragraph->appendRun(std::make_unique<DOM::BreakRun>(
            DOM::BreakRun::Kind::Line, Tests::makeRunStyle(makeProps(true, false, false))));
        paragraph->appendText("text");
        return paragraph;
    };
    append(appendTo(makeParagraph()));
    auto table = std::make_unique<DOM::Table>();
    table->getOrMakeCell(RowIndex(0), ColumnIndex(0)).setText(Tests::makeText(appendTo(makeParagraph())));
    append(std::move(table));
    EXPECT_EQ(getMarkdown(), "**Title**\\\ntext\n\n| **Title**<br>text |\n| --- |\n");
}

TEST_F(ConvertTest, LinesBehindBreaksBeginNothingElse)
{
    append(makeParagraph("a\n- b\n# c\n1. d\n\n=="));
    append(makeParagraph("ends\n\n"));
    append(makeParagraph("\n"));
    append(makeParagraph("\\"));
    EXPECT_EQ(getMarkdown(), "a\\\n\\- b\\\n\\# c\\\n1\\. d\\\n\\\n\\==\n\nends\n\n\\\\\n");
}

TEST_F(ConvertTest, HeadingsKeepSignsAtTheirEnds)
{
    for (const char* const text : {"C #", "C#", "# ##", "#"})
        Tests::setOutlineLevel(append(makeParagraph(text)), 0);
    EXPECT_EQ(getMarkdown(), "# C \\#\n\n# C#\n\n# \\# \\##\n\n# \\#\n");
}

TEST_F(ConvertTest, LeavesOutWhatIsDeletedOrHidden)
{
    DOM::RunProps hidden;
    hidden.setHidden(true);
    DOM::Paragraph& paragraph = append(makeParagraph("kept"));
    paragraph.appendText("gone", Tests::makeChangedStyle(DOM::TrackedChange::Kind::Deleted));
    paragraph.appendText("moved", Tests::makeChangedStyle(DOM::TrackedChange::Kind::MovedFrom));
    paragraph.appendText(" new", Tests::makeChangedStyle(DOM::TrackedChange::Kind::Inserted));
    paragraph.appendText("unseen", Tests::makeRunStyle(hidden));
    DOM::Paragraph& deleted = append(makeParagraph());
    deleted.setSharedParaMarkStyle(Tests::makeChangedStyle(DOM::TrackedChange::Kind::Deleted));
    EXPECT_EQ(getPlainText(), "kept new\n");
    EXPECT_EQ(getMarkdown(), "kept new\n");
}

TEST_F(ConvertTest, ItemsHaveTheirTrueNumbers)
{
    auto numbers = std::make_shared<DOM::NumberedList>();
    Tests::appendLevel(*numbers, DOM::NumListMarkerType::Decimal, "%1.", 3);
    Tests::appendLevel(*numbers, DOM::NumListMarkerType::LowerLetter, "%2)");
    auto bullets = std::make_shared<DOM::NumberedList>();
    Tests::appendLevel(*bullets, DOM::NumListMarkerType::Bullet, "\xE2\x80\xA2");
    _document.addNumberedList(numbers);
    _document.addNumberedList(bullets);
    Tests::setItem(append(makeParagraph("three")), *numbers, 0);
    Tests::setItem(append(makeParagraph("below\nit")), *numbers, 1);
    Tests::setItem(append(makeParagraph("four")), *numbers, 0);
    append(makeParagraph("between"));
    Tests::setItem(append(makeParagraph("point")), *bullets, 0);
    DOM::RunProps hidden;
    hidden.setHidden(true);
    DOM::Paragraph& unseen = append(makeParagraph());
    unseen.appendText("unseen", Tests::makeRunStyle(hidden));
    unseen.setSharedParaMarkStyle(Tests::makeRunStyle(hidden));
    Tests::setItem(unseen, *numbers, 0);
    Tests::setItem(append(makeParagraph("five")), *numbers, 0);
    EXPECT_EQ(getPlainText(), "3. three\na) below\nit\n4. four\nbetween\n\xE2\x80\xA2 point\n5. five\n");
    EXPECT_EQ(getMarkdown(), "3. three\n   - a) below\\\n     it\n4. four\n\nbetween\n\n- point\n5. five\n");
}

TEST_F(ConvertTest, TablesAreRowsOfCells)
{
    auto table = std::make_unique<DOM::Table>();
    table->getOrMakeCell(RowIndex(0), ColumnIndex(0)).setText(Tests::makeText(makeParagraph("a|b")));
    table->getOrMakeCell(RowIndex(0), ColumnIndex(2)).setText(Tests::makeText(makeParagraph("c\nd")));
    table->getOrMakeCell(RowIndex(1), ColumnIndex(0)).setText(Tests::makeText(makeParagraph("e")));
    append(std::move(table));
    EXPECT_EQ(getPlainText(), "a|b\tc d\ne\n");
    EXPECT_EQ(getMarkdown(), "| a\\|b |  | c<br>d |\n| --- | --- | --- |\n| e |\n");
}

TEST_F(ConvertTest, AFarCellCostsNoMoreThanAFewEmptyOnes)
{
    auto table = std::make_unique<DOM::Table>();
    table->getOrMakeCell(RowIndex(0), ColumnIndex(16'000)).setText(Tests::makeText(makeParagraph("far")));
    append(std::move(table));
    EXPECT_LT(getMarkdown().size(), 1000U);
}

TEST_F(ConvertTest, NotesStandAtTheEnd)
{
    auto note =
        std::make_unique<DOM::Note>(DOM::Note::Kind::Footnote, Tests::makeText(makeParagraph("See *there*")));
    auto comment =
        std::make_unique<DOM::Note>(DOM::Note::Kind::Comment, Tests::makeText(makeParagraph("Really?")));
    DOM::Paragraph& paragraph = append(makeParagraph("Text"));
    paragraph.appendRun(std::make_unique<DOM::AnchorRun>(comment->getUUID()));
    paragraph.appendRun(std::make_unique<DOM::AnchorRun>(note->getUUID()));
    _document.appendNote(std::move(comment));
    _document.appendNote(std::move(note));
    EXPECT_EQ(getPlainText(), "Text[1]\n\n[1] See *there*\n");
    EXPECT_EQ(getMarkdown(), "Text[^1]\n\n[^1]: See \\*there\\*\n");
}

TEST_F(ConvertTest, PicturesAreLinksIntoTheMediaFolder)
{
    auto frame = std::make_shared<DOM::Frame>();
    frame->setGraphicalObject(std::make_unique<DOM::Picture>("id1.png", "image/png"));
    frame->setName("A [map]");
    append(makeParagraph()).appendRun(std::make_unique<DOM::DrawingRun>(frame));
    EXPECT_EQ(getMarkdown("my 5% media"), "![A \\[map\\]](<my%205%25%20media/id1.png>)\n");
    EXPECT_EQ(getMarkdown("a#b?c"), "![A \\[map\\]](<a%23b%3Fc/id1.png>)\n");
    EXPECT_EQ(getMarkdown(), "\\[A \\[map\\]\\]\n");
}

TEST_F(ConvertTest, TextBoxesFollowTheirParagraph)
{
    auto shape = std::make_unique<DOM::Shape>();
    shape->setText(Tests::makeText(makeParagraph("in the box")));
    auto frame = std::make_shared<DOM::Frame>();
    frame->setGraphicalObject(std::move(shape));
    append(makeParagraph("beside")).appendRun(std::make_unique<DOM::DrawingRun>(frame));
    EXPECT_EQ(getPlainText(), "beside\nin the box\n");
    EXPECT_EQ(getMarkdown(), "beside\n\nin the box\n");
}

TEST_F(ConvertTest, ListsOfTextBoxesAndNotesCountForThemselves)
{
    auto numbers = std::make_shared<DOM::NumberedList>();
    Tests::appendLevel(*numbers, DOM::NumListMarkerType::Decimal, "%1.");
    _document.addNumberedList(numbers);
    const auto makeItem = [&](const char* text) {
        auto paragraph = makeParagraph(text);
        Tests::setItem(*paragraph, *numbers, 0);
        return paragraph;
    };
    auto shape = std::make_unique<DOM::Shape>();
    shape->setText(Tests::makeText(makeItem("boxed")));
    auto frame = std::make_shared<DOM::Frame>();
    frame->setGraphicalObject(std::move(shape));
    auto first = makeItem("first");
    first->appendRun(std::make_unique<DOM::DrawingRun>(frame));
    append(std::move(first));
    append(makeItem("second"));
    for (const char* const text : {"noted", "again"})
        _document.appendNote(
            std::make_unique<DOM::Note>(DOM::Note::Kind::Footnote, Tests::makeText(makeItem(text))));
    EXPECT_EQ(getPlainText(), "1. first\n1. boxed\n2. second\n\n[1] 1. noted\n[2] 1. again\n");
    EXPECT_EQ(getMarkdown(), "1. first\n1. boxed\n2. second\n\n[^1]: 1\\. noted\n\n[^2]: 1\\. again\n");
}

TEST_F(ConvertTest, TablesOfContentsAreTheirEntries)
{
    auto contents = std::make_unique<DOM::TableOfContents>();
    contents->appendBlock(makeParagraph("Scope\t3"));
    append(std::move(contents));
    EXPECT_EQ(getPlainText(), "Scope\t3\n");
    EXPECT_EQ(getMarkdown(), "Scope 3\n");
}

} // namespace
} // namespace QV::Filters
