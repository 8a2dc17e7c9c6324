#include <DOM/Public/ChartSpace.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <DOM/Public/Table.h>
#include <Tests/Support/Printers.h> // prints optional values

namespace QV::DOM {
namespace {

Formula makeNumber(double value)
{
    return Formula(std::make_unique<FormulaSyntaxTree::Number>(value));
}

// A kind of series that only this test knows.
class MarkedSeries final : public Series
{
public:
    std::unique_ptr<Series> clone() const override
    {
        return std::unique_ptr<Series>(new MarkedSeries(*this));
    }

    MarkedSeries() = default;

private:
    MarkedSeries(const MarkedSeries&) = default;
};

ChartSpace makeChartSpace()
{
    ChartSpace space;
    auto title = std::make_unique<ChartTitle>();
    title->setText(ChartTitle::Text(std::vector<Formula>{makeNumber(1)}));
    title->setCachedText(std::string("Sales"));
    space.setTitle(std::move(title));
    Chart chart(ChartType::Bar);
    chart.setBarDirection(BarDirection::Columns);
    chart.setGrouping(ChartGrouping::Stacked);
    chart.setCategories({makeNumber(2)});
    auto series = std::make_unique<MarkedSeries>();
    series->setName({makeNumber(3)});
    series->setValues({makeNumber(4), makeNumber(5)});
    series->setNumbers({
        {0, 1.5}
    });
    chart.appendSeries(std::move(series));
    space.getPlotArea().appendChart(chart);
    return space;
}

TEST(ChartSpace, ACopySharesNothing)
{
    const ChartSpace original = makeChartSpace();
    ChartSpace copy(original);
    Chart& chart = copy.getPlotArea().getCharts().at(0);
    const Chart& old = original.getPlotArea().getCharts().at(0);
    EXPECT_NE(copy.getTitle(), original.getTitle());
    EXPECT_EQ(chart.getType(), ChartType::Bar);
    EXPECT_TRUE(chart.getBarDirection() == BarDirection::Columns);
    EXPECT_TRUE(chart.getGrouping() == ChartGrouping::Stacked);
    EXPECT_TRUE(chart.getCategories()->at(0) == old.getCategories()->at(0));
    ASSERT_EQ(chart.getLiveSeries().size(), 1U);
    Series& series = *chart.getLiveSeries()[0];
    EXPECT_NE(dynamic_cast<MarkedSeries*>(&series), nullptr) << "the copy of a series is of its kind";

    series.getName()->at(0) = makeNumber(30);
    series.setValues({});
    series.setNumbers({});
    boost::get<std::vector<Formula>>(*copy.getTitle()->getText()).at(0) = makeNumber(10);
    EXPECT_TRUE(old.getLiveSeries()[0].getName()->at(0) == makeNumber(3));
    EXPECT_EQ(old.getLiveSeries()[0].getValues()->size(), 2U);
    EXPECT_EQ(old.getLiveSeries()[0].getNumbers().size(), 1U);
    EXPECT_TRUE(boost::get<std::vector<Formula>>(*original.getTitle()->getText()).at(0) == makeNumber(1));
}

TEST(ChartSpace, MayBeWithoutAnything)
{
    const ChartSpace empty;
    const ChartSpace copy(empty);
    EXPECT_EQ(copy.getTitle(), nullptr);
    EXPECT_TRUE(copy.getPlotArea().getCharts().empty());
    EXPECT_FALSE(Series().getValues());
    EXPECT_FALSE(Series().getName());
    EXPECT_FALSE(Chart(ChartType::Pie).getCategories());
}

TEST(ChartTitle, ShowsItsTextOrWhatItsFormulasGave)
{
    ChartTitle title;
    EXPECT_FALSE(title.getShownText());
    title.setText(ChartTitle::Text(std::vector<Formula>{makeNumber(1)}));
    EXPECT_FALSE(title.getShownText());
    title.setCachedText(std::string("from a cell"));
    EXPECT_EQ(title.getShownText(), std::string("from a cell"));
    title.setText(ChartTitle::Text(std::string("own")));
    EXPECT_EQ(title.getShownText(), std::string("own"));
    static_assert(std::is_same_v<ChartTitle::Text, boost::variant<std::string, std::vector<Formula>>>);
}

TEST(PivotTable, LiesOnATable)
{
    Table table;
    PivotTable pivot("Totals");
    pivot.setLocation({RowIndex(4), ColumnIndex(1)});
    pivot.setSize({3, 2});
    const UUID uuid = pivot.getUUID();
    table.appendPivotTable(std::move(pivot));
    ASSERT_EQ(table.getPivotTables().size(), 1U);
    EXPECT_EQ(table.getPivotTables()[0].getName(), "Totals");
    EXPECT_EQ(table.getPivotTables()[0].getUUID(), uuid);
    EXPECT_EQ(table.getPivotTables()[0].getSize(), Size2D<int>(3, 2));
}

} // namespace
} // namespace QV::DOM
