#include <cstddef>
#include <string>
#include <vector>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TrackedChange.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/StoryFixture.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;

class StoryChanges : public Tests::StoryFixture
{
protected:
    std::vector<std::string> readRuns(const std::string& content)
    {
        read("<w:p>" + content + "</w:p>");
        EXPECT_EQ(blocks.size(), 1U);
        return listRunsOf(0);
    }

    static std::string makeRun(const std::string& text) { return "<w:r><w:t>" + text + "</w:t></w:r>"; }

    /// Runs inside of an element of a change.
    static std::string makeChange(
        const std::string& name, const std::string& author, const std::string& content)
    {
        return "<w:" + name + " w:author='" + author + "' w:date='2024-05-01T10:00:00Z'>" + content +
               "</w:" + name + ">";
    }
};

TEST_F(StoryChanges, RunsCarryThem)
{
    EXPECT_THAT(readRuns(makeRun("a") + makeChange("ins", "A", makeRun("b") + makeRun("c")) +
                         makeChange("del", "B", "<w:r><w:delText>d</w:delText></w:r>") +
                         makeChange("moveFrom", "C", makeRun("e")) + makeChange("moveTo", "C", makeRun("f")) +
                         makeRun("g")),
        ElementsAre("a", "bc~inserted A", "d~deleted B", "e~movedFrom C", "f~movedTo C", "g"));
    const auto runs = getBlock<DOM::Paragraph>(0).getRuns();
    EXPECT_EQ(runs[1].getStyle().getChange()->getDate(), "2024-05-01T10:00:00Z");
}

TEST_F(StoryChanges, ChangeWithoutAuthor)
{
    EXPECT_THAT(readRuns("<w:ins>" + makeRun("a") + "</w:ins>"), ElementsAre("a~inserted "));
    EXPECT_EQ(getBlock<DOM::Paragraph>(0).getRuns()[0].getStyle().getChange()->getDate(), "");
}

TEST_F(StoryChanges, RemovalWinsOverInsertion)
{
    EXPECT_THAT(readRuns(makeChange("ins", "A", makeChange("del", "B", makeRun("x")) + makeRun("y")) +
                         makeChange("del", "B", makeChange("ins", "A", makeRun("z"))) +
                         makeChange("ins", "A", makeChange("moveTo", "C", makeRun("w")))),
        ElementsAre("x~deleted B", "y~inserted A", "z~deleted B", "w~movedTo C"));
}

TEST_F(StoryChanges, StayAroundLinks)
{
    EXPECT_THAT(
        readRuns(makeChange("ins", "A", "<w:hyperlink w:anchor='p'>" + makeRun("x") + "</w:hyperlink>") +
                 "<w:hyperlink w:anchor='p'>" + makeChange("del", "B", makeRun("y")) + "</w:hyperlink>"),
        ElementsAre("x@#p~inserted A", "y@#p~deleted B"));
}

TEST_F(StoryChanges, DoNotReachIntoCells)
{
    read("<w:ins w:author='A'><w:tbl><w:tr><w:tc><w:p>" + makeRun("in") +
         "</w:p></w:tc></w:tr></w:tbl><w:p>" + makeRun("x") + "</w:p></w:ins>");
    EXPECT_THAT(listRunsOf(1), ElementsAre("x~inserted A"));
    const DOM::Cell* const cell = getBlock<DOM::Table>(0).findCell(RowIndex(0), ColumnIndex(0));
    ASSERT_TRUE(cell && cell->getText());
    const auto& inside = dynamic_cast<const DOM::Paragraph&>(*cell->getText()->getBlocks().front());
    EXPECT_THAT(Tests::listRuns(inside), ElementsAre("in"));
}

TEST_F(StoryChanges, MarksOfParagraphsCarryThem)
{
    read("<w:p><w:pPr><w:rPr><w:ins w:author='A' w:date='d'/></w:rPr></w:pPr></w:p>"
         "<w:p><w:pPr><w:rPr><w:del w:author='B'/></w:rPr></w:pPr></w:p><w:p/>");
    const auto change = [&](std::size_t block) {
        return getBlock<DOM::Paragraph>(block).getParaMarkStyle().getChange();
    };
    ASSERT_TRUE(change(0));
    EXPECT_EQ(*change(0), DOM::TrackedChange(DOM::TrackedChange::Kind::Inserted, "A", "d"));
    ASSERT_TRUE(change(1));
    EXPECT_EQ(*change(1), DOM::TrackedChange(DOM::TrackedChange::Kind::Deleted, "B", ""));
    EXPECT_EQ(getBlock<DOM::Paragraph>(2).getSharedParaMarkStyle(), nullptr);
}

TEST_F(StoryChanges, FormatsBeforeThemAreKept)
{
    readRuns("<w:r><w:rPr><w:b/><w:rPrChange w:author='A'><w:rPr><w:i/></w:rPr></w:rPrChange></w:rPr>"
             "<w:t>x</w:t></w:r><w:r><w:rPr><w:b/><w:rPrChange w:author='A'><w:rPr/></w:rPrChange></w:rPr>"
             "<w:t>y</w:t></w:r>");
    const auto runs = getBlock<DOM::Paragraph>(0).getRuns();
    ASSERT_EQ(runs.size(), 2U);
    ASSERT_TRUE(runs[0].getStyle().getTrackedRunProps());
    EXPECT_EQ(runs[0].getStyle().getTrackedRunProps()->getItalic(), true);
    EXPECT_EQ(runs[0].getStyle().getRunProps()->getBold(), true);
    ASSERT_TRUE(runs[1].getStyle().getTrackedRunProps());
    EXPECT_EQ(runs[1].getStyle().getTrackedRunProps()->getBold(), boost::none);
}

} // namespace
} // namespace QV::Filters
