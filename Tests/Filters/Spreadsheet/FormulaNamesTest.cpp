#include <Filters/Spreadsheet/FormulaNames.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <boost/variant/get.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Chart.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/DefinedName.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Series.h>
#include <DOM/Public/Table.h>
#include <Filters/ModelJson/SpreadsheetJson.h>
#include <Filters/Package/FilterRun.h>
#include <Tests/Support/FormulaNodes.h>

namespace QV::Filters {
namespace {

using namespace Tests; // the builders of trees
using testing::ElementsAre;
using testing::HasSubstr;
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

    void addName(const std::string& name, ExprPtr root)
    {
        run.getDocument().addDefinedName(DOM::DefinedName(name, DOM::Formula(std::move(root))));
    }

    const Tree::Expr& getName(const std::string& name) const
    {
        for (const DOM::DefinedName& entry : run.getDocument().getDefinedNames())
            if (entry.getName() == name)
                return entry.getFormula().getSyntaxTree();
        throw std::invalid_argument(name);
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

TEST_F(ResolveFormulaNames, NumbersOfDocumentsAreNoLinks)
{
    constexpr unsigned long MessagesMax = 1000;
    DOM::Table& table = appendTable("First");
    run.addLink("1");
    for (unsigned long i = 0; i <= MessagesMax + 1; ++i)
        setFormula(table, i, 0, makeCellNode(std::string("Sheet1"), std::to_string(i)));
    setFormula(table, MessagesMax + 2, 0, makeCellNode(std::string("Sheet1"), "1.5"));
    resolveFormulaNames(run);
    EXPECT_THAT(run.getLinks(), ElementsAre("1", "1.5")) << "a document may well be called 1";
    ASSERT_EQ(run.getReport().getMessages().size(), MessagesMax + 1);
    EXPECT_EQ(run.getReport().getMessages()[0].toString(),
        "Formulas refer to document 0, whose address is not known");
    EXPECT_EQ(run.getReport().getMessages()[1].toString(),
        "Formulas refer to document 10, whose address is not known");
    EXPECT_EQ(run.getReport().getMessages().back().toString(),
        "1 more times: Formulas refer to document {}, whose address is not known");
}

TEST_F(ResolveFormulaNames, ManyDocumentsAreNotedSoon)
{
    constexpr unsigned long Count = 50000; // too many to search all of them for each
    DOM::Table& table = appendTable("First");
    for (unsigned long i = 0; i < Count; ++i)
        setFormula(table, i, 0, makeCellNode(std::string("Sheet1"), std::to_string(i) + ".xlsx"));
    resolveFormulaNames(run);
    EXPECT_EQ(run.getLinks().size(), Count);
}

TEST_F(ResolveFormulaNames, TablesOfOtherDocumentsKeepTheirNames)
{
    DOM::Table& first = appendTable("First");
    setFormula(first, 0, 0, makeCellNode(std::string("FIRST"), "b.xlsx"));
    setFormula(first, 1, 0, makeRangeNode(std::string("first"), std::string("First"), "b.xlsx"));
    setFormula(first, 2, 0, makeLabelNode(std::string("First"), "1"));
    setFormula(first, 3, 0,
        putBelow(std::make_unique<Tree::BinaryOp<Tree::Add>>(), makeCellNode(std::string("First"), "b.xlsx"),
            makeCellNode(std::string("First"))));
    addName("Outside", makeCellNode(std::string("First"), "c.xlsx"));
    resolveFormulaNames(run);
    EXPECT_TRUE(getTree(first, 0, 0) == *makeCellNode(std::string("FIRST"), "b.xlsx"));
    EXPECT_TRUE(getTree(first, 1, 0) == *makeRangeNode(std::string("first"), std::string("First"), "b.xlsx"));
    EXPECT_TRUE(getTree(first, 2, 0) == *makeLabelNode(std::string("First"), "1"));
    EXPECT_TRUE(*getTree(first, 3, 0).getChildren()[0] == *makeCellNode(std::string("First"), "b.xlsx"));
    EXPECT_TRUE(*getTree(first, 3, 0).getChildren()[1] == *makeCellNode(first.getUUID()));
    EXPECT_TRUE(getName("Outside") == *makeCellNode(std::string("First"), "c.xlsx"));
}

TEST_F(ResolveFormulaNames, TablesOfOtherDocumentsKeepTheirNamesInCharts)
{
    DOM::Table& first = appendTable("First");
    const auto makeFormulas = [](const std::string& name) {
        return std::vector<DOM::Formula>{DOM::Formula(makeCellNode(name, "b.xlsx")),
            DOM::Formula(makeCellNode(std::string("first"))), DOM::Formula(makeLabelNode(name, "c.xlsx"))};
    };
    auto series = std::make_unique<DOM::Series>();
    series->setName(makeFormulas("First"));
    series->setValues(makeFormulas("FIRST"));
    series->setOwnCategories(makeFormulas("first"));
    DOM::Chart chart(DOM::ChartType::Pie);
    chart.setCategories(makeFormulas("fIRST"));
    chart.appendSeries(std::move(series));
    auto title = std::make_unique<DOM::ChartTitle>();
    title->setText(DOM::ChartTitle::Text(makeFormulas("firsT")));
    auto space = std::make_unique<DOM::ChartSpace>();
    space->setTitle(std::move(title));
    space->getPlotArea().appendChart(chart);
    auto frame = std::make_unique<DOM::Frame>();
    frame->setGraphicalObject(std::move(space));
    first.appendFrame(std::move(frame));
    resolveFormulaNames(run);

    const auto expect = [&](const std::vector<DOM::Formula>& formulas, const std::string& name) {
        ASSERT_EQ(formulas.size(), 3U);
        EXPECT_TRUE(formulas[0].getSyntaxTree() == *makeCellNode(name, "b.xlsx")) << name;
        EXPECT_TRUE(formulas[1].getSyntaxTree() == *makeCellNode(first.getUUID())) << name;
        EXPECT_TRUE(formulas[2].getSyntaxTree() == *makeLabelNode(name, "c.xlsx")) << name;
    };
    const auto& resolved = dynamic_cast<const DOM::ChartSpace&>(*first.getFrames()[0]->getGraphicalObject());
    const DOM::Chart& only = resolved.getPlotArea().getCharts()[0];
    expect(*only.getLiveSeries()[0].getName(), "First");
    expect(*only.getLiveSeries()[0].getValues(), "FIRST");
    expect(*only.getLiveSeries()[0].getOwnCategories(), "first");
    expect(*only.getCategories(), "fIRST");
    expect(boost::get<std::vector<DOM::Formula>>(*resolved.getTitle()->getText()), "firsT");
}

TEST_F(ResolveFormulaNames, DefinedNamesFollowNewNamesOfTheirTables)
{
    DOM::Table& first = appendTable("First");
    addName("Here", makeCellNode(std::string("FIRST")));
    addName("There", makeCellNode(std::string("Second")));
    run.getDocument().addDefinedName(DOM::DefinedName("Kept", DOM::Formula::makeUnread("First!F(1)(2)")));
    resolveFormulaNames(run);
    EXPECT_TRUE(getName("Here") == *makeCellNode(first.getUUID()));
    EXPECT_TRUE(getName("There") == *makeCellNode(std::string("Second")));

    first.setName("New name");
    std::ostringstream out;
    writeSpreadsheetJson(run, out);
    EXPECT_THAT(out.str(), HasSubstr("\"'New name'!A1\""));
    EXPECT_THAT(out.str(), HasSubstr("\"Second!A1\""));
    EXPECT_THAT(out.str(), HasSubstr("\"First!F(1)(2)\""));
}

TEST_F(ResolveFormulaNames, ADocumentWithoutTablesStaysOne)
{
    resolveFormulaNames(run);
    EXPECT_EQ(run.getDocument().getBlocks().getLiveCount(), 0U);
    EXPECT_THAT(run.getLinks(), IsEmpty());
}

} // namespace
} // namespace QV::Filters
