#include <Filters/Preview/TextPreview.h>

#include <memory>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <Utils/Public/Size2D.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

#include <Tests/Support/TextPreviewFixture.h>

namespace QV::Filters {
namespace {

using ::testing::HasSubstr;
using Tests::makeParagraph;
using Tests::makePicture;
using Tests::makeTable;
using Tests::makeText;

using TextPreviewParts = Tests::TextPreviewFixture;

TEST_F(TextPreviewParts, MakesTablesWithSpansAndLines)
{
    auto table = makeTable(2, 2);
    for (unsigned long i = 0; i < 2; ++i) {
        DOM::ColumnProps props;
        props.setWidth(50.0F * static_cast<float>(i + 1));
        table->setColumnsProps({ColumnIndex(i), ColumnIndex(i + 1)}, props);
    }
    auto borders = std::make_shared<DOM::BordersProps>();
    borders->setBottom(std::make_shared<DOM::LineProps>(DOM::LineStyle::Solid, 1.5F));
    auto cellProps = std::make_shared<DOM::CellProps>();
    cellProps->setBorders(borders);
    cellProps->setBackgroundColor(DOM::Color(DOM::Color::RGBA(255, 0, 0, 255)));
    DOM::CellStyle style;
    style.setCellProps(cellProps);
    table->setMergeProps(RowIndex(0), ColumnIndex(0), 0, 1);
    DOM::Cell& cell = table->getOrMakeCell(RowIndex(0), ColumnIndex(0));
    cell.setSharedStyle(DOM::SharedCellStyle(new DOM::CellStyle(style)));
    cell.setText(makeText(makeParagraph("head")));
    DOM::RowProps row;
    row.setHeight(20.0F);
    table->setRowProps(RowIndex(1), row);
    table->getOrMakeCell(RowIndex(1), ColumnIndex(1)).setText(makeText(makeParagraph("<i>")));
    getDocument().getBlocks().append(std::move(table));
    const std::string page = write();
    EXPECT_THAT(page, HasSubstr(".c2{background:#FF0000;border-bottom:2px solid #000000;}"));
    EXPECT_THAT(page,
        HasSubstr("<table class=\"fixed\" style=\"width:150pt\"><colgroup><col style=\"width:50pt\">"
                  "<col style=\"width:100pt\"></colgroup>\n<tbody>\n"
                  "<tr><td colspan=\"2\" class=\"c2\"><p>head</p>\n</td></tr>\n"
                  "<tr style=\"height:20pt\"><td></td><td><p>&lt;i&gt;</p>\n</td></tr>\n</tbody></table>\n"));
}

TEST_F(TextPreviewParts, ClipsMerges)
{
    auto table = makeTable(2, 3);
    table->setMergeProps(RowIndex(0), ColumnIndex(1), 1000, 0);
    table->setMergeProps(RowIndex(1), ColumnIndex(0), 0, 2);
    getDocument().getBlocks().append(std::move(table));
    TextPreviewLimits limits;
    limits.cells = 6; // two of the 1001 rows that the merge reaches over
    EXPECT_THAT(write(limits), HasSubstr("<tr><td></td><td rowspan=\"2\"></td><td></td></tr>\n"
                                         "<tr><td></td><td></td></tr>\n"));
}

TEST_F(TextPreviewParts, ShowsPicturesInTheLineOrBesideIt)
{
    const std::string id = savePicture("ABC");
    DOM::Paragraph& paragraph = add("");
    paragraph.appendRun(std::make_unique<DOM::DrawingRun>(makePicture(id, "\"Logo\"", 30, 40)));
    for (const float x : {72.0F, 400.0F}) {
        auto frame = makePicture(id, "", 10, 20);
        frame->setAnchor(DOM::AbsoluteAnchor({x, 0}));
        frame->setRotation(x == 400 ? 90.0F : 0.0F);
        paragraph.appendRun(std::make_unique<DOM::DrawingRun>(frame));
    }
    paragraph.appendRun(std::make_unique<DOM::DrawingRun>(makePicture("gone", "<Gone>", 5, 6)));
    EXPECT_THAT(write(),
        HasSubstr(
            "<p><img alt=\"&quot;Logo&quot;\" style=\"width:30pt;height:40pt;\" "
            "src=\"data:image/png;base64,QUJD\">"
            "<img alt=\"Picture\" style=\"float:left;width:10pt;height:20pt;\" "
            "src=\"data:image/png;base64,QUJD\">"
            "<img alt=\"Picture\" style=\"float:right;transform:rotate(90deg);width:10pt;height:20pt;\" "
            "src=\"data:image/png;base64,QUJD\">"
            "<span class=\"frame empty\" role=\"img\" aria-label=\"&lt;Gone&gt;\" "
            "style=\"width:5pt;height:6pt;\">&lt;Gone&gt;</span></p>"));
    TextPreviewLimits limits;
    limits.frames = 3;
    limits.pictureBytes = 52; // two of 26 bytes
    const std::string page = write(limits);
    EXPECT_EQ(count(page, "<img"), 2U);
    EXPECT_THAT(page, HasSubstr("Not shown: 2 pictures and shapes."));
    limits = {};
    limits.repeatedBytes = 26; // the second time
    EXPECT_EQ(count(write(limits), "<img"), 2U);
    limits.repeatedBytes = 25;
    EXPECT_EQ(count(write(limits), "<img"), 1U);
}

TEST_F(TextPreviewParts, PutsTextBoxesBeforeTheirParagraph)
{
    auto child = makePicture("gone", "child", 5, 6);
    child->setAnchor(DOM::AbsoluteAnchor({110, 220}));
    auto group = std::make_unique<DOM::Shape>();
    group->appendChild(std::make_unique<DOM::Frame>(*child));
    auto groupFrame = std::make_shared<DOM::Frame>();
    groupFrame->setGraphicalObject(std::move(group));
    groupFrame->setAnchor(DOM::AbsoluteAnchor({100, 200}));
    groupFrame->setExtent(Size2D<float>(50, 60));
    auto box = std::make_unique<DOM::Shape>();
    box->setText(makeText(makeParagraph("inside")));
    box->setPresetGeometry("ooxml-ellipse");
    auto frame = std::make_shared<DOM::Frame>();
    frame->setGraphicalObject(std::move(box));
    frame->setExtent(Size2D<float>(100, 50));
    DOM::Paragraph& paragraph = add("around ");
    paragraph.appendRun(std::make_unique<DOM::DrawingRun>(frame));
    paragraph.appendRun(std::make_unique<DOM::DrawingRun>(groupFrame));
    paragraph.appendRun(std::make_unique<DOM::TextRun>("it"));
    EXPECT_THAT(write(),
        HasSubstr(
            "<div class=\"box\" style=\"width:100pt;min-height:50pt;border-radius:50%;\"><p>inside</p>\n"
            "</div>\n<div class=\"group\" style=\"float:left;width:50pt;height:60pt;\">"
            "<span class=\"frame empty\" role=\"img\" aria-label=\"child\" "
            "style=\"position:absolute;left:10pt;top:20pt;width:5pt;height:6pt;\">child</span></div>\n"
            "<p>around it</p>\n"));
}

TEST_F(TextPreviewParts, MakesContentsANavigation)
{
    auto contents = std::make_unique<DOM::TableOfContents>();
    DOM::ParaProps props;
    props.setTabStops(std::make_shared<DOM::TabStops>(DOM::TabStops{
        {DOM::TabStop::Kind::Left,  22 },
        {DOM::TabStop::Kind::Right, 468}
    }));
    contents->appendBlock(makeParagraph("1\tIntroduction\t3", props));
    getDocument().getBlocks().append(std::move(contents));
    EXPECT_THAT(write(),
        HasSubstr(
            "<nav aria-label=\"Table of contents\">\n<p><span class=\"parts\"><span>1\tIntroduction</span>"
            "<span>3</span></span></p>\n</nav>\n"));
}

struct TabsRow
{
    const char* text;
    const char* html;
};

TEST_F(TextPreviewParts, PartsLinesAtCentredAndRightStops)
{
    const TabsRow rows[] = {
        {"left\tmiddle\tright",  "<p><span class=\"parts thirds\"><span>left</span><span>middle</span>"
                                "<span>right</span></span></p>"},
        {"\tmiddle",             "<p><span class=\"parts thirds\"><span></span><span>middle</span><span></span>"
                     "</span></p>"                                        },
        {"a\tb\tc\td",           "<p><span class=\"parts thirds\"><span>a</span><span>b</span>"
                       "<span>c\td</span></span></p>"                   },
        {"no tab",               "<p>no tab</p>"                                              },
        {"two\tlines\nof\ttext", "<p>two\tlines<br>of\ttext</p>"                              },
    };
    DOM::ParaProps props;
    props.setTabStops(std::make_shared<DOM::TabStops>(DOM::TabStops{
        {DOM::TabStop::Kind::Center, 234},
        {DOM::TabStop::Kind::Right,  468}
    }));
    for (const TabsRow& row : rows)
        add(makeParagraph(row.text, props));
    const std::string page = write();
    for (const TabsRow& row : rows)
        EXPECT_THAT(page, HasSubstr(row.html));
}

TEST_F(TextPreviewParts, DrawsPageBreaks)
{
    DOM::ParaProps props;
    props.setPageBreakBefore(true);
    DOM::Paragraph& paragraph = add(makeParagraph("a", props));
    paragraph.appendRun(std::make_unique<DOM::BreakRun>(DOM::BreakRun::Kind::Page));
    paragraph.appendRun(std::make_unique<DOM::BreakRun>(DOM::BreakRun::Kind::Column));
    EXPECT_THAT(write(), HasSubstr("<hr class=\"break\">\n<p>a<span class=\"break\" role=\"separator\" "
                                   "aria-label=\"page break\"></span><br></p>"));
}

} // namespace
} // namespace QV::Filters
