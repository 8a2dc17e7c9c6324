#include <Filters/Spreadsheet/FormulaNames.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Tests/Support/FormulaNodes.h>

namespace QV::Filters {
namespace {

using namespace Tests; // the builders of trees
using testing::ElementsAre;
using testing::IsEmpty;

class ResolveFormulaNames : public testing::Test
{
protected:
    DOM::Table& appendTable(const std::string& name)
    {
        auto table = std::make_unique<DOM::Table>();
        table->setName(name);
        DOM::Table& appended = *table;
        run.getDocument().getBlocks().append(std::move(table));
        return appended;
    }

    static DOM::Cell& setFormula(DOM::Table& table, unsigned long row, unsigned long column, ExprPtr root)
    {
        DOM::Cell& cell = table.getOrMakeCell(RowIndex(row), ColumnIndex(column));
        cell.setNumber(7);
        cell.setFormula(DOM::Formula(std::move(root)));
        return cell;
    }

    static const Tree::Expr& getTree(const DOM::Table& table, unsigned long row, unsigned long column)
    {
        return table.findCell(RowIndex(row), ColumnIndex(column))->getFormula()->getSyntaxTree();
    }

    FilterRun run;
};

TEST_F(ResolveFormulaNames, NamesOfAnyCaseBecomeTheIdentifiersOfTheirTables)
{
    DOM::Table& first = appendTable("First");
    DOM::Table& second = appendTable("Second");
    setFormula(first, 0, 0, makeCellNode(std::string("SECOND")));
    setFormula(first, 5, 2, makeRangeNode(std::string("first"), std::string("Second")));
    setFormula(second, 1000, 100, makeLabelNode(std::string("First")));
    setFormula(second, 1000, 101, makeCellNode(std::string("Third")));
    setFormula(second, 1001, 0, makeCellNode(std::string()));
    second.getOrMakeCell(RowIndex(2000), ColumnIndex(0)).setNumber(1);
    resolveFormulaNames(run);
    EXPECT_TRUE(getTree(first, 0, 0) == *makeCellNode(second.getUUID()));
    EXPECT_TRUE(getTree(first, 5, 2) == *makeRangeNode(first.getUUID(), second.getUUID()));
    EXPECT_TRUE(getTree(second, 1000, 100) == *makeLabelNode(first.getUUID()));
    EXPECT_TRUE(getTree(second, 1000, 101) == *makeCellNode(std::string("Third")));
    EXPECT_TRUE(getTree(second, 1001, 0) == *makeCellNode(std::string()));
    EXPECT_EQ(first.findCell(RowIndex(0), ColumnIndex(0))->getNumber(), 7);
    EXPECT_THAT(run.getLinks(), IsEmpty());
}

TEST_F(ResolveFormulaNames, ChartsOfAnyTableAreReached)
{
    DOM::Table& first = appendTable("First");
    DOM::Table& second = appendTable("Second");
    DOM::Chart chart(DOM::ChartType::Pie);
    chart.setCategories({DOM::Formula(makeCellNode(std::string("second")))});
    auto space = std::make_unique<DOM::ChartSpace>();
    space->getPlotArea().appendChart(chart);
    auto frame = std::make_unique<DOM::Frame>();
    frame->setGraphicalObject(std::move(space));
    first.appendFrame(std::move(frame));
    resolveFormulaNames(run);
    const auto* const object = first.getFrames()[0]->getGraphicalObject();
    const DOM::Chart& resolved = dynamic_cast<const DOM::ChartSpace&>(*object).getPlotArea().getCharts()[0];
    EXPECT_TRUE(resolved.getCategories()->at(0).getSyntaxTree() == *makeCellNode(second.getUUID()));
}

TEST_F(ResolveFormulaNames, DocumentsThatCellsReferToAreLinks)
{
    DOM::Table& table = appendTable("First");
    run.addLink("b.xlsx");
    setFormula(table, 0, 0, makeCellNode(std::string("Sheet1"), "c.xlsx"));
    setFormula(table, 1, 0, makeCellNode(std::string("Sheet1"), "b.xlsx"));
    setFormula(table, 2, 0, makeLabelNode(std::string(), "a.xlsx"));
    setFormula(table, 3, 0, makeCellNode(std::string("Sheet1"), "c.xlsx"));
    resolveFormulaNames(run);
    EXPECT_THAT(run.getLinks(), ElementsAre("b.xlsx", "a.xlsx", "c.xlsx"));
}

TEST_F(ResolveFormulaNames, ADocumentWithoutTablesStaysOne)
{
    resolveFormulaNames(run);
    EXPECT_EQ(run.getDocument().getBlocks().getLiveCount(), 0U);
    EXPECT_THAT(run.getLinks(), IsEmpty());
}

} // namespace
} // namespace QV::Filters
