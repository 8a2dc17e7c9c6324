#include <Filters/Preview/TextPreview.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Table.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

#include <Tests/Support/TextPreviewFixture.h>

namespace QV::Filters {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using Tests::makeParagraph;
using Tests::makePicture;
using Tests::makeRunStyle;
using Tests::makeTable;
using Tests::makeText;

using TextPreviewLimit = Tests::TextPreviewFixture;

TEST_F(TextPreviewLimit, CountsBlocksBeyondTheLimit)
{
    for (int i = 0; i < 3; ++i)
        add("text");
    TextPreviewLimits limits;
    limits.blocks = 3;
    EXPECT_THAT(write(limits), Not(HasSubstr("Not shown")));
    limits.blocks = 1;
    const std::string page = write(limits);
    EXPECT_EQ(count(page, "<p>text</p>"), 1U);
    EXPECT_THAT(page, HasSubstr("<p class=\"note\">Not shown: 2 paragraphs and tables.</p>"));
}

TEST_F(TextPreviewLimit, CutsLongTextBetweenCharacters)
{
    add("aäö").appendRun(std::make_unique<DOM::TextRun>("b"));
    TextPreviewLimits limits;
    limits.paragraphTextBytes = 6;
    EXPECT_THAT(write(limits), AllOf(HasSubstr("<p>aäöb</p>"), Not(HasSubstr("Not shown"))));
    limits.paragraphTextBytes = 5;
    EXPECT_THAT(write(limits), HasSubstr("<p>aäö…</p>"));
    limits.paragraphTextBytes = 4;
    EXPECT_THAT(write(limits), AllOf(HasSubstr("<p>aä…</p>"), HasSubstr("Not shown: 1 end of a paragraph.")));
}

TEST_F(TextPreviewLimit, CountsRowsBeyondTheLimit)
{
    getDocument().getBlocks().append(makeTable(2, 2));
    getDocument().getBlocks().append(makeTable(1'000'000, 16'000));
    TextPreviewLimits limits;
    limits.cells = 3;
    std::string page = write(limits);
    EXPECT_EQ(count(page, "<tr>"), 1U);
    EXPECT_THAT(page, HasSubstr("Not shown: 1000001 rows of tables."));
    limits.cells = 4;
    page = write(limits);
    EXPECT_EQ(count(page, "<tr>"), 2U);
    EXPECT_THAT(page, HasSubstr("Not shown: 1000000 rows of tables."));
}

TEST_F(TextPreviewLimit, CountsWhatIsTooDeep)
{
    auto inner = makeTable(1, 1);
    inner->getOrMakeCell(RowIndex(0), ColumnIndex(0)).setText(makeText(makeParagraph("deep")));
    auto outer = makeTable(1, 1);
    outer->getOrMakeCell(RowIndex(0), ColumnIndex(0)).setText(makeText(std::move(inner)));
    getDocument().getBlocks().append(std::move(outer));
    TextPreviewLimits limits;
    limits.nesting = 2;
    EXPECT_THAT(write(limits), AllOf(HasSubstr("<p>deep</p>"), Not(HasSubstr("Not shown"))));
    limits.nesting = 1;
    EXPECT_THAT(write(limits), AllOf(Not(HasSubstr("deep")), HasSubstr("Not shown: 1 paragraph or table.")));
}

TEST_F(TextPreviewLimit, EndsWhereThePageIsFull)
{
    for (int i = 0; i < 1000; ++i)
        add("twenty bytes of text");
    const std::size_t whole = write().size();
    TextPreviewLimits limits;
    limits.textBytes = 2000;
    const std::string page = write(limits);
    EXPECT_LT(page.size(), whole - 20'000);
    EXPECT_THAT(page, HasSubstr("Not shown: 9"));
    limits.textBytes = 50'000;
    EXPECT_EQ(write(limits).size(), whole);
}

TEST_F(TextPreviewLimit, CountsLooksBeyondTheLimit)
{
    for (const float indent : {1.0F, 2.0F, 3.0F, 3.0F}) {
        DOM::ParaProps props;
        props.setLeftIndent(indent);
        add(makeParagraph("text", props));
    }
    TextPreviewLimits limits;
    limits.rules = 5; // two of the sheet of paper
    EXPECT_THAT(write(limits), Not(HasSubstr("Not shown")));
    limits.rules = 4;
    const std::string page = write(limits);
    EXPECT_EQ(count(page, "<p>text</p>"), 2U);
    EXPECT_THAT(page, HasSubstr("Not shown: 2 looks of elements."));
}

TEST_F(TextPreviewLimit, KeepsNumbersThatAreNoneOutOfThePage)
{
    for (const float number :
        {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 1e30F, -1e30F}) {
        auto borders = std::make_shared<DOM::BordersProps>();
        borders->setTop(std::make_shared<DOM::LineProps>(DOM::LineStyle::Solid, number));
        DOM::ParaProps props;
        props.setLeftIndent(number);
        props.setSpaceBefore(number);
        props.setFirstLineIndent(number);
        props.setLineSpacing(DOM::LineSpacing(DOM::LineSpacing::Kind::Exact, number));
        props.setBorders(borders);
        props.setTabStops(
            std::make_shared<DOM::TabStops>(DOM::TabStops{DOM::TabStop(DOM::TabStop::Kind::Right, number)}));
        DOM::RunProps font;
        font.setFontSize(number);
        DOM::Paragraph& paragraph = add(makeParagraph("a\tb", props));
        paragraph.appendRun(std::make_unique<DOM::TextRun>("c", makeRunStyle(font)));
        auto frame = makePicture("gone", "Frame", number, number);
        frame->setAnchor(DOM::AbsoluteAnchor({number, number}));
        frame->setRotation(number);
        paragraph.appendRun(std::make_unique<DOM::DrawingRun>(frame));
        auto table = makeTable(1, 1);
        DOM::ColumnProps column;
        column.setWidth(number);
        table->setColumnsProps({ColumnIndex(0), ColumnIndex(1)}, column);
        DOM::RowProps row;
        row.setHeight(number);
        table->setRowProps(RowIndex(0), row);
        getDocument().getBlocks().append(std::move(table));
    }
    const std::string page = write();
    EXPECT_EQ(count(page, "<table"), 4U);
    EXPECT_THAT(page, AllOf(Not(HasSubstr("nan")), Not(HasSubstr("inf")), Not(HasSubstr("e+"))));
    for (const char* element : {"p", "span", "div", "section", "table", "td"})
        EXPECT_EQ(
            count(page, std::string("<") + element + " ") + count(page, std::string("<") + element + ">"),
            count(page, std::string("</") + element + ">"))
            << element;
}

} // namespace
} // namespace QV::Filters
