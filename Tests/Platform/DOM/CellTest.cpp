#include <DOM/Public/Cell.h>

#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/FormulaSyntaxTree.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/Table.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/RecordedAssertions.h>

namespace QV::DOM {
namespace {

using testing::ElementsAre;

TEST(Cell, IsSmall)
{
    EXPECT_LE(sizeof(Cell), 32U);
}

TEST(Cell, HasAFormulaBesideItsValue)
{
    namespace Tree = FormulaSyntaxTree;
    Cell cell;
    EXPECT_EQ(cell.getFormula(), nullptr);
    cell.setBlocksBesideValue(nullptr);
    cell.setFormula(Formula(std::make_unique<Tree::Number>(1)));
    cell.setNumber(2);
    cell.setBlocksBesideValue(makePlainCellText("a"));
    cell.setBlocksBesideValue(nullptr);
    Cell moved = std::move(cell);
    ASSERT_NE(moved.getFormula(), nullptr);
    EXPECT_EQ(moved.getNumber(), 2);
    moved.setFormula(Formula(std::make_unique<Tree::Bool>(true)));
    EXPECT_TRUE(std::as_const(moved).getFormula()->getSyntaxTree() == Tree::Bool(true));
}

TEST(Cell, HoldsOneKindAtATime)
{
    Cell cell;
    EXPECT_EQ(cell.getKind(), Cell::Kind::Empty);
    cell.setNumber(2.5);
    EXPECT_EQ(cell.getNumber(), 2.5);
    EXPECT_FALSE(cell.getBoolean());
    EXPECT_EQ(cell.getText(), nullptr);
    cell.setBoolean(true);
    EXPECT_TRUE(cell.getBoolean());
    EXPECT_EQ(cell.getNumber(), 0);
    cell.setError(makePlainCellText("#N/A"));
    EXPECT_EQ(cell.getKind(), Cell::Kind::Error);
    EXPECT_EQ(cell.getText()->getPlainText(), "#N/A");
    EXPECT_FALSE(cell.getBoolean());
    cell.setEmpty();
    EXPECT_EQ(cell.getText(), nullptr);
}

TEST(Cell, SharesTextAndLetsItGo)
{
    const SharedCellText text = makePlainCellText("shared");
    {
        Cell first;
        Cell second;
        first.setText(text);
        second.setText(text);
        EXPECT_EQ(first.getText(), second.getText());
        EXPECT_EQ(text->use_count(), 3U);
        first.setText(text); // once more into the same cell
        EXPECT_EQ(text->use_count(), 3U);

        Cell moved(std::move(first));
        EXPECT_EQ(moved.getText(), text.get());
        EXPECT_EQ(text->use_count(), 3U);
        second = std::move(moved);
        EXPECT_EQ(text->use_count(), 2U);
        second.setNumber(1);
        EXPECT_EQ(text->use_count(), 1U);
    }
    EXPECT_EQ(text->use_count(), 1U);
}

TEST(Cell, TextsFromAStockAreCountedOnceForEachCell)
{
    constexpr unsigned Count = 10'000; // more than are counted ahead at once
    const SharedCellText text = makePlainCellText("stocked");
    {
        std::vector<Cell> cells(Count);
        {
            std::vector<CellTextStock> stocks;
            stocks.emplace_back(text);
            for (Cell& cell : cells)
                cell.setText(stocks[0]);
            cells[0].setText(stocks[0]); // once more into the same cell
            stocks.emplace_back(text);   // moves the first one
            cells[1].setText(stocks[0]);
            EXPECT_GE(text->use_count(), 1 + Count + 2);
        }
        EXPECT_EQ(cells.back().getText(), text.get());
        EXPECT_EQ(text->use_count(), 1 + Count);
    }
    EXPECT_EQ(text->use_count(), 1U);
}

TEST(Cell, NullTextFailsAndLeavesTheCellEmpty)
{
    const Tests::RecordedAssertions assertions;
    Cell cell;
    cell.setNumber(1);
    cell.setText(nullptr);
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("text"));
    EXPECT_EQ(cell.getKind(), Cell::Kind::Empty);
}

TEST(Cell, OnlyTextAndEmptyCellsHaveTextBlocks)
{
    Cell cell;
    ASSERT_TRUE(cell.getTextBlocks());
    EXPECT_TRUE(cell.getTextBlocks()->empty());
    cell.setText(makePlainCellText("a"));
    ASSERT_TRUE(cell.getTextBlocks());
    EXPECT_EQ(cell.getTextBlocks()->size(), 1U);
    cell.setNumber(1);
    EXPECT_FALSE(cell.getTextBlocks());
}

TEST(CellText, BreaksAndTabsAreRuns)
{
    const SharedCellText text = makePlainCellText("a\n\tb\n");
    EXPECT_EQ(text->getPlainText(), "a\n\tb\n");
    const auto& paragraph = dynamic_cast<const Paragraph&>(*text->getBlocks().front());
    EXPECT_EQ(paragraph.getRuns().size(), 5U);
}

TEST(CellText, EmptyTextHasNoRuns)
{
    const SharedCellText text = makePlainCellText("");
    EXPECT_EQ(text->getPlainText(), "");
    EXPECT_TRUE(dynamic_cast<const Paragraph&>(*text->getBlocks().front()).getRuns().empty());
}

TEST(CellText, ParagraphsAreJoinedByLineFeeds)
{
    std::vector<std::unique_ptr<Block>> blocks;
    for (const char* const text : {"one", "", "three"}) {
        auto paragraph = std::make_unique<Paragraph>();
        paragraph->appendText(text);
        blocks.push_back(std::move(paragraph));
    }
    EXPECT_EQ(CellText(std::move(blocks)).getPlainText(), "one\n\nthree");
}

CellStyle makeStyle(unsigned char red, bool isBold)
{
    auto cellProps = std::make_shared<CellProps>();
    cellProps->setBackgroundColor(Color({red, 0, 0, 255}));
    auto runProps = std::make_shared<RunProps>();
    runProps->setBold(isBold);
    CellStyle style;
    style.setCellProps(cellProps);
    style.setRunProps(runProps);
    return style;
}

TEST(SharedObjectFactory, MakesOneObjectForEachValue)
{
    SharedObjectFactory factory;
    const SharedCellStyle style = factory.getShared(makeStyle(1, true));
    EXPECT_EQ(factory.getShared(makeStyle(1, true)), style) << "equal by value, not by object";
    EXPECT_NE(factory.getShared(makeStyle(2, true)), style);
    EXPECT_NE(factory.getShared(makeStyle(1, false)), style);
    EXPECT_EQ(factory.getCellStylesCount(), 3U);
}

TEST(SharedObjectFactory, ObjectsOutliveIt)
{
    SharedCellStyle style;
    {
        SharedObjectFactory factory;
        style = factory.getShared(makeStyle(9, true));
    }
    EXPECT_EQ(*style, makeStyle(9, true));
    EXPECT_EQ(style->use_count(), 1U);
}

TEST(CellStyle, EmptyPropertiesSetNothing)
{
    CellStyle style;
    EXPECT_TRUE(style.isEmpty());
    style.setRunProps(std::make_shared<RunProps>());
    EXPECT_TRUE(style.isEmpty());
    style.setParentUUID(UUID::generate());
    EXPECT_FALSE(style.isEmpty());
    EXPECT_FALSE(makeStyle(1, false).isEmpty());
}

TEST(Properties, OverrideTakesWhatTheSourceSets)
{
    RunProps target;
    target.setBold(true);
    target.setFontSize(10.0F);
    RunProps source;
    source.setFontSize(12.0F);
    source.setItalic(false);
    override(target, source);
    EXPECT_EQ(target.getBold(), boost::optional<bool>(true));
    EXPECT_EQ(target.getItalic(), boost::optional<bool>(false));
    EXPECT_EQ(target.getFontSize(), boost::optional<float>(12.0F));
    EXPECT_FALSE(target.getColor());
}

TEST(Properties, UnsetDiffersFromSetToNothing)
{
    RunProps unset;
    RunProps empty;
    empty.setFontName(std::string());
    EXPECT_NE(unset, empty);
    EXPECT_TRUE(isEmpty(unset));
    EXPECT_FALSE(isEmpty(empty));
}

TEST(Cell, HasRawBlocksWhereItHoldsTextOrSomethingBesideItsValue)
{
    const SharedCellText text = makePlainCellText("text");
    const SharedCellText beside = makePlainCellText("");
    Cell cell;
    EXPECT_EQ(cell.getRawBlocks(), nullptr);
    cell.setBlocksBesideValue(nullptr);
    cell.setNumber(1);
    EXPECT_EQ(cell.getRawBlocks(), nullptr);
    cell.setBlocksBesideValue(beside);
    EXPECT_EQ(cell.getRawBlocks(), &beside->getBlocks());
    cell.setText(text);
    EXPECT_EQ(cell.getRawBlocks(), &text->getBlocks());
    cell.setError(text);
    EXPECT_EQ(cell.getRawBlocks(), &text->getBlocks());
    cell.setEmpty();
    EXPECT_EQ(cell.getRawBlocks(), &beside->getBlocks());
    ASSERT_TRUE(cell.getTextBlocks());
    EXPECT_EQ(cell.getTextBlocks()->size(), 1U);
    cell.setBlocksBesideValue(nullptr);
    EXPECT_EQ(cell.getRawBlocks(), nullptr);
}

TEST(Cell, MergesAndBlocksBesideItsValueDoNotTouchEachOther)
{
    const SharedCellText beside = makePlainCellText("");
    Table table;
    table.getOrMakeCell(RowIndex(0), ColumnIndex(0)).setBlocksBesideValue(beside);
    EXPECT_TRUE(table.getMergedRanges().empty());
    table.setMergeProps(RowIndex(0), ColumnIndex(0), 0, 0);
    table.setMergeProps(RowIndex(0), ColumnIndex(0), 1, 1);
    EXPECT_EQ(table.getMergedRanges().size(), 1U);
    Cell* const cell = table.findCell(RowIndex(0), ColumnIndex(0));
    EXPECT_EQ(cell->getRawBlocks(), &beside->getBlocks());
    table.setMergeProps(RowIndex(0), ColumnIndex(0), 0, 0);
    EXPECT_TRUE(table.getMergedRanges().empty());
    EXPECT_EQ(cell->getRawBlocks(), &beside->getBlocks());
    table.setMergeProps(RowIndex(0), ColumnIndex(0), 1, 1);
    cell->setBlocksBesideValue(nullptr);
    EXPECT_EQ(table.getMergedRanges().size(), 1U);
}

} // namespace
} // namespace QV::DOM
