#include <Filters/Convert/SlidesText.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/Cell.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Table.h>

#include <Tests/Support/SlideBuilder.h>
#include <Tests/Support/TextModelBuilder.h>

namespace QV::Filters {
namespace {

using Tests::appendFrame;
using Tests::appendSlide;
using Tests::makeParagraph;
using Tests::makeShape;

class SlidesTextTest : public ::testing::Test
{
protected:
    /// A list whose items look like this.
    const DOM::NumberedList& addList(DOM::NumListMarkerType type, const char* text)
    {
        auto list = std::make_shared<DOM::NumberedList>();
        for (int level = 0; level < 2; ++level)
            Tests::appendLevel(*list, type, text);
        _document.addNumberedList(list);
        return *list;
    }

    std::string getPlainText() const
    {
        std::ostringstream out;
        writeSlidesPlainText(_document, out);
        return out.str();
    }
    std::string getMarkdown(const std::string& mediaFolder = {}) const
    {
        std::ostringstream out;
        writeSlidesMarkdown(_document, mediaFolder, out);
        return out.str();
    }

    DOM::Document _document;
};

DOM::SharedCellText makeSlideText(const std::string& text)
{
    return DOM::makePlainCellText(text);
}

DOM::SharedCellText makeSlideText(std::vector<std::unique_ptr<DOM::Block>> blocks)
{
    return DOM::SharedCellText(new DOM::CellText(std::move(blocks)));
}

std::unique_ptr<DOM::Block> makeSlideItem(
    const std::string& text, const DOM::NumberedList& list, unsigned long level)
{
    auto paragraph = makeParagraph(text);
    Tests::setItem(*paragraph, list, level);
    return paragraph;
}

std::shared_ptr<const DOM::SlideProps> makeSlideNotes(const std::string& text, bool isHidden = false)
{
    auto props = std::make_shared<DOM::SlideProps>();
    props->notes = makeSlideText(text);
    props->isHidden = isHidden;
    return props;
}

TEST_F(SlidesTextTest, WritesNothingForAnEmptyDocument)
{
    EXPECT_EQ(getPlainText(), "");
    EXPECT_EQ(getMarkdown(), "");
}

TEST_F(SlidesTextTest, SlidesAreApartAndHaveHeadings)
{
    DOM::Shape& first = appendSlide(_document);
    appendFrame(first, makeShape(makeSlideText("below")));
    appendFrame(first, makeShape(makeSlideText("A # title #"), "ctrTitle"));
    appendFrame(appendSlide(_document), makeShape(makeSlideText("1. text"), "body"));
    appendSlide(_document);
    EXPECT_EQ(getPlainText(), "below\nA # title #\n\n1. text\n\n");
    EXPECT_EQ(getMarkdown(), "## A # title \\#\n\nbelow\n\n## Slide 2\n\n1\\. text\n\n## Slide 3\n");
}

TEST_F(SlidesTextTest, TitleIsTheFirstOneWithText)
{
    DOM::Shape& slide = appendSlide(_document);
    appendFrame(slide, makeShape(makeSlideText(" "), "title"));
    appendFrame(slide, makeShape(makeSlideText("unseen"), "title")).setHidden(true);
    std::vector<std::unique_ptr<DOM::Block>> lines;
    for (const char* const line : {"Two", "", "lines"})
        lines.push_back(makeParagraph(line));
    appendFrame(slide, makeShape(makeSlideText(std::move(lines)), "title"));
    appendFrame(slide, makeShape(makeSlideText("another"), "title"));
    EXPECT_EQ(getPlainText(), "Two\n\nlines\nanother\n");
    EXPECT_EQ(getMarkdown(), "## Two lines\n\nanother\n");
}

TEST_F(SlidesTextTest, GroupsAreTheirChildrenAndHiddenShapesAreNotThere)
{
    auto group = std::make_unique<DOM::Shape>();
    group->setKind(DOM::Shape::Kind::Group);
    appendFrame(*group, makeShape(makeSlideText("inside")));
    appendFrame(*group, makeShape(makeSlideText("unseen"))).setHidden(true);
    appendFrame(*group, nullptr);
    DOM::Shape& slide = appendSlide(_document);
    appendFrame(slide, std::move(group));
    appendFrame(slide, makeShape(makeSlideText("above")));
    EXPECT_EQ(getPlainText(), "inside\nabove\n");
    EXPECT_EQ(getMarkdown(), "## Slide 1\n\ninside\n\nabove\n");
}

TEST_F(SlidesTextTest, ItemsAreLists)
{
    const DOM::NumberedList& bullets = addList(DOM::NumListMarkerType::Bullet, "\xE2\x80\xA2");
    const DOM::NumberedList& numbers = addList(DOM::NumListMarkerType::Decimal, "%1.");
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    blocks.push_back(makeSlideItem("point", bullets, 0));
    blocks.push_back(makeSlideItem("below", bullets, 1));
    blocks.push_back(makeSlideItem("first", numbers, 0));
    blocks.push_back(makeSlideItem("second", numbers, 0));
    blocks.push_back(makeParagraph("between"));
    blocks.push_back(makeSlideItem("third", numbers, 0));
    appendFrame(appendSlide(_document), makeShape(makeSlideText(std::move(blocks))));
    EXPECT_EQ(
        getPlainText(), "\xE2\x80\xA2 point\n\xE2\x80\xA2 below\n1. first\n2. second\nbetween\n3. third\n");
    EXPECT_EQ(
        getMarkdown(), "## Slide 1\n\n- point\n  - below\n1. first\n2. second\n\nbetween\n\n3. third\n");
}

TEST_F(SlidesTextTest, ListsOfTwoShapesStayTwo)
{
    const DOM::NumberedList& numbers = addList(DOM::NumListMarkerType::Decimal, "%1.");
    DOM::Shape& slide = appendSlide(_document);
    for (const char* const text : {"left", "right"}) {
        std::vector<std::unique_ptr<DOM::Block>> blocks;
        blocks.push_back(makeSlideItem(text, numbers, 0));
        appendFrame(slide, makeShape(makeSlideText(std::move(blocks))));
    }
    EXPECT_EQ(getPlainText(), "1. left\n1. right\n");
    EXPECT_EQ(getMarkdown(), "## Slide 1\n\n1. left\n\n<!-- -->\n\n1. right\n");
}

TEST_F(SlidesTextTest, TablesAreRowsOfCellsAndCoveredCellsAreEmpty)
{
    auto table = std::make_unique<DOM::Table>();
    const auto put = [&](unsigned long row, unsigned long column, const char* text) {
        table->getOrMakeCell(RowIndex(row), ColumnIndex(column)).setText(makeSlideText(text));
    };
    put(0, 0, "a|b");
    put(0, 1, "");
    put(0, 2, "c");
    put(1, 0, "wide");
    put(1, 1, "under");
    put(1, 2, "d");
    table->setMergeProps(RowIndex(1), ColumnIndex(0), 0, 1);
    appendFrame(appendSlide(_document), std::move(table));
    EXPECT_EQ(getPlainText(), "a|b\t\tc\nwide\td\n");
    EXPECT_EQ(getMarkdown(), "## Slide 1\n\n| a\\|b |  | c |\n| --- | --- | --- |\n| wide |  | d |\n");
}

TEST_F(SlidesTextTest, PicturesHaveTheirDescriptions)
{
    DOM::Shape& slide = appendSlide(_document);
    DOM::Frame& described = appendFrame(slide, std::make_unique<DOM::Picture>("id1.png", "image/png"));
    described.setName("Picture 1");
    described.setDescription("A [map]\nof it");
    appendFrame(slide, std::make_unique<DOM::Picture>("id2.png", "image/png")).setName("Picture 2");
    EXPECT_EQ(getPlainText(), "");
    EXPECT_EQ(getMarkdown("media"),
        "## Slide 1\n\n![A \\[map\\] of it](<media/id1.png>)\n\n![Picture 2](<media/id2.png>)\n");
    EXPECT_EQ(getMarkdown(), "## Slide 1\n\n\\[Picture 1\\]\n\n\\[Picture 2\\]\n");
}

TEST_F(SlidesTextTest, NotesFollowTheirSlide)
{
    appendFrame(appendSlide(_document, makeSlideNotes("Say *this*\nthen that", true)),
        makeShape(makeSlideText("shown")));
    appendSlide(_document, makeSlideNotes("\n "));
    EXPECT_EQ(getPlainText(), "shown\nNotes:\nSay *this*\nthen that\n\n");
    EXPECT_EQ(getMarkdown(), "## Slide 1\n\nshown\n\n> Say \\*this\\*\\\n> then that\n\n## Slide 2\n");
}

TEST_F(SlidesTextTest, QuotesHoldListsAndParagraphs)
{
    const DOM::NumberedList& numbers = addList(DOM::NumListMarkerType::Decimal, "%1.");
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    blocks.push_back(makeParagraph("First"));
    blocks.push_back(makeSlideItem("one", numbers, 0));
    auto props = std::make_shared<DOM::SlideProps>();
    props->notes = makeSlideText(std::move(blocks));
    appendSlide(_document, props);
    EXPECT_EQ(getMarkdown(), "## Slide 1\n\n> First\n>\n> 1. one\n");
}

TEST_F(SlidesTextTest, OnlySafeLinksAreLinks)
{
    DOM::Shape& slide = appendSlide(_document);
    auto paragraph = makeParagraph("here", Tests::makeLinkStyle("https://example.org/"));
    paragraph->appendText(" there", Tests::makeLinkStyle("file:///etc/passwd"));
    appendFrame(slide, makeShape(Tests::makeText(std::move(paragraph))));
    const std::string longest = "https://example.org/" + std::string(200, 'x');
    appendFrame(slide, makeShape(Tests::makeText(makeParagraph("far", Tests::makeLinkStyle(longest)))));
    EXPECT_EQ(getMarkdown(),
        "## Slide 1\n\n[here](<https://example.org/>) there\n\n[far][link1]\n\n[link1]: <" + longest + ">\n");
}

} // namespace
} // namespace QV::Filters
