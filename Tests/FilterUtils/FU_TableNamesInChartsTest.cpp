#include <FilterUtils/FU_TableNamesInFormulas.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <boost/variant/get.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Table.h>
#include <Tests/Support/FormulaNodes.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

using namespace Tests; // the builders of trees
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Resolver = std::function<const UUID*(const std::string&)>;
using Texts = std::vector<std::string>;

// Callers elsewhere were built with these types.
static_assert(std::is_same_v<decltype(replaceTableNamesWithUUIDsForCharts), void(Resolver, DOM::Document&)>);

const UUID Known(1, 1);

/// Knows every name but "unknown", and keeps the names that it was asked about.
Resolver makeResolver(Texts& asked)
{
    return [&asked](const std::string& name) {
        asked.push_back(name);
        return name == "unknown" ? nullptr : &Known;
    };
}

std::vector<DOM::Formula> makeFormulas(const Texts& names)
{
    std::vector<DOM::Formula> formulas;
    for (const std::string& name : names)
        formulas.emplace_back(makeCellNode(name));
    return formulas;
}

/// The names of tables in cells; "#" for an identifier.
Texts printNames(const boost::optional<std::vector<DOM::Formula>>& formulas)
{
    Texts names;
    for (const DOM::Formula& formula : formulas.value_or(std::vector<DOM::Formula>())) {
        const auto& cell = dynamic_cast<const Tree::CellAddress&>(formula.getSyntaxTree());
        const auto* const name = boost::get<std::string>(&cell.getTableAddress());
        names.push_back(name ? *name : "#");
    }
    return names;
}

/// All that a chart can say, with names that begin with @p prefix.
std::unique_ptr<DOM::ChartSpace> makeChartSpace(const std::string& prefix)
{
    auto space = std::make_unique<DOM::ChartSpace>();
    auto title = std::make_unique<DOM::ChartTitle>();
    title->setText(DOM::ChartTitle::Text(makeFormulas({prefix + "title1", prefix + "title2"})));
    space->setTitle(std::move(title));
    for (const std::string part : {"A", "B"}) {
        DOM::Chart chart(DOM::ChartType::Line);
        chart.setCategories(makeFormulas({prefix + part + "categories"}));
        for (const std::string number : {"1", "2"}) {
            auto series = std::make_unique<DOM::Series>();
            series->setName(makeFormulas({prefix + part + "name" + number}));
            series->setValues(makeFormulas({prefix + part + "values" + number, "unknown"}));
            chart.appendSeries(std::move(series));
        }
        space->getPlotArea().appendChart(chart);
    }
    return space;
}

Texts listNames(const DOM::ChartSpace& space)
{
    Texts all;
    const auto append = [&](const Texts& names) { all.insert(all.end(), names.begin(), names.end()); };
    if (space.getTitle() && space.getTitle()->getText())
        append(printNames(boost::get<std::vector<DOM::Formula>>(*space.getTitle()->getText())));
    for (const DOM::Chart& chart : space.getPlotArea().getCharts()) {
        append(printNames(chart.getCategories()));
        for (const DOM::Series& series : chart.getLiveSeries()) {
            append(printNames(series.getName()));
            append(printNames(series.getValues()));
            append(printNames(series.getOwnCategories()));
        }
    }
    return all;
}

DOM::Frame& appendFrame(DOM::Table& table, std::unique_ptr<DOM::GraphicalObject> object)
{
    auto frame = std::make_unique<DOM::Frame>();
    frame->setGraphicalObject(std::move(object));
    table.appendFrame(std::move(frame));
    return *table.getFrames().back();
}

template <typename TableType = DOM::Table>
TableType& appendTable(DOM::Document& document)
{
    auto table = std::make_unique<TableType>();
    TableType& appended = *table;
    document.getBlocks().append(std::move(table));
    return appended;
}

const DOM::ChartSpace& getChart(const DOM::Frame& frame)
{
    return dynamic_cast<const DOM::ChartSpace&>(*frame.getGraphicalObject());
}

class OtherTable final : public DOM::Table
{
};

class OtherChartSpace final : public DOM::ChartSpace
{
public:
    explicit OtherChartSpace(const DOM::ChartSpace& space)
        : DOM::ChartSpace(space)
    {
    }
};

class ReplaceTableNamesForCharts : public testing::Test
{
protected:
    void replace() { replaceTableNamesWithUUIDsForCharts(makeResolver(asked), document); }

    Texts asked;
    DOM::Document document;
};

TEST_F(ReplaceTableNamesForCharts, ReachesEveryFormulaInOrder)
{
    DOM::Frame& frame = appendFrame(appendTable(document), makeChartSpace(""));
    replace();
    EXPECT_THAT(asked,
        ElementsAre("title1", "title2", "Acategories", "Aname1", "Avalues1", "unknown", "Aname2", "Avalues2",
            "unknown", "Bcategories", "Bname1", "Bvalues1", "unknown", "Bname2", "Bvalues2", "unknown"));
    EXPECT_THAT(listNames(getChart(frame)), ElementsAre("#", "#", "#", "#", "#", "unknown", "#", "#",
                                                "unknown", "#", "#", "#", "unknown", "#", "#", "unknown"));
}

TEST_F(ReplaceTableNamesForCharts, ReachesCategoriesOfSeriesToo)
{
    auto space = makeChartSpace("");
    space->getPlotArea().getCharts()[1].getLiveSeries()[1]->setOwnCategories(makeFormulas({"own"}));
    DOM::Frame& frame = appendFrame(appendTable(document), std::move(space));
    replace();
    EXPECT_EQ(asked.back(), "own");
    EXPECT_EQ(listNames(getChart(frame)).back(), "#");
}

TEST_F(ReplaceTableNamesForCharts, ChartsAreReplacedByCopiesAndNeverChanged)
{
    DOM::Frame& frame = appendFrame(appendTable(document), makeChartSpace(""));
    const DOM::Frame sharing = frame;
    const Texts before = listNames(getChart(frame));
    replace();
    EXPECT_NE(frame.getGraphicalObject(), sharing.getGraphicalObject());
    EXPECT_THAT(listNames(getChart(sharing)), ElementsAreArray(before));
}

TEST_F(ReplaceTableNamesForCharts, AChartWithNothingToReplaceIsACopyToo)
{
    auto unknown = std::make_unique<DOM::ChartSpace>();
    unknown->getPlotArea().appendChart(DOM::Chart(DOM::ChartType::Pie));
    unknown->getPlotArea().getCharts()[0].setCategories(makeFormulas({"unknown", ""}));
    DOM::Table& table = appendTable(document);
    DOM::Frame& none = appendFrame(table, std::make_unique<DOM::ChartSpace>());
    DOM::Frame& onlyUnknown = appendFrame(table, std::move(unknown));
    const DOM::Frame oldNone = none;
    const DOM::Frame oldUnknown = onlyUnknown;
    replace();
    EXPECT_NE(none.getGraphicalObject(), oldNone.getGraphicalObject());
    EXPECT_NE(onlyUnknown.getGraphicalObject(), oldUnknown.getGraphicalObject());
    EXPECT_THAT(asked, ElementsAre("unknown"));
    EXPECT_THAT(listNames(getChart(onlyUnknown)), ElementsAre("unknown", ""));
}

TEST_F(ReplaceTableNamesForCharts, EachPartMayBeMissing)
{
    DOM::Table& table = appendTable(document);
    auto textTitle = makeChartSpace("a");
    textTitle->getTitle()->setText(DOM::ChartTitle::Text(std::string("title")));
    DOM::Frame& text = appendFrame(table, std::move(textTitle));
    auto emptyTitle = makeChartSpace("b");
    emptyTitle->getTitle()->setText(boost::none);
    appendFrame(table, std::move(emptyTitle));
    auto noTitle = makeChartSpace("c");
    noTitle->setTitle(nullptr);
    for (DOM::Chart& chart : noTitle->getPlotArea().getCharts()) {
        chart.getCategories().reset();
        chart.getLiveSeries()[0]->getName().reset();
        chart.getLiveSeries()[1]->getValues().reset();
    }
    appendFrame(table, std::move(noTitle));
    replace();
    EXPECT_THAT(Texts(asked.begin(), asked.begin() + 2), ElementsAre("aAcategories", "aAname1"));
    EXPECT_THAT(Texts(asked.begin() + 14, asked.begin() + 16), ElementsAre("bAcategories", "bAname1"));
    EXPECT_THAT(Texts(asked.begin() + 28, asked.end()),
        ElementsAre("cAvalues1", "unknown", "cAname2", "cBvalues1", "unknown", "cBname2"));
    EXPECT_EQ(boost::get<std::string>(*getChart(text).getTitle()->getText()), "title");
}

TEST_F(ReplaceTableNamesForCharts, GoesThroughTablesAndFramesInOrder)
{
    DOM::Table& first = appendTable(document);
    document.getBlocks().append(std::make_unique<DOM::Paragraph>());
    DOM::Table& second = appendTable(document);
    appendFrame(second, makeChartSpace("c"));
    appendFrame(first, makeChartSpace("a"));
    appendFrame(first, nullptr);
    appendFrame(first, makeChartSpace("b"));
    replace();
    ASSERT_EQ(asked.size(), 48U);
    EXPECT_EQ(asked[0], "atitle1");
    EXPECT_EQ(asked[16], "btitle1");
    EXPECT_EQ(asked[32], "ctitle1");
}

TEST_F(ReplaceTableNamesForCharts, LeavesOtherObjectsAlone)
{
    DOM::Table& table = appendTable(document);
    DOM::Frame& picture = appendFrame(table, std::make_unique<DOM::Picture>("id1.png", "image/png"));
    DOM::Frame& derived = appendFrame(table, std::make_unique<OtherChartSpace>(*makeChartSpace("")));
    DOM::Frame& elsewhere = appendFrame(appendTable<OtherTable>(document), makeChartSpace(""));
    DOM::Frame& empty = appendFrame(table, nullptr);
    const DOM::Frame before[] = {picture, derived, elsewhere, empty};
    replace();
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_TRUE(picture == before[0] && derived == before[1] && elsewhere == before[2] && empty == before[3]);
}

TEST_F(ReplaceTableNamesForCharts, RemovedTablesAreSkipped)
{
    auto table = std::make_unique<DOM::Table>();
    appendFrame(*table, makeChartSpace("gone"));
    document.getBlocks().remove(document.getBlocks().append(std::move(table)));
    replace();
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(ReplaceTableNamesForCharts, ANullFrameIsToldAndLeftOut)
{
    DOM::Table& table = appendTable(document);
    table.appendFrame(nullptr);
    appendFrame(table, makeChartSpace(""));
    const RecordedAssertions recorded;
    replace();
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("plainPtr"));
    EXPECT_EQ(asked.size(), 16U);
}

TEST_F(ReplaceTableNamesForCharts, WhatTheResolverThrowsLeavesTheFrameItsChart)
{
    DOM::Table& table = appendTable(document);
    DOM::Frame* frames[] = {&appendFrame(table, makeChartSpace("a")),
        &appendFrame(table, makeChartSpace("b")), &appendFrame(table, makeChartSpace("c"))};
    const DOM::Frame before[] = {*frames[0], *frames[1], *frames[2]};
    const Texts names = listNames(getChart(*frames[1]));
    const Resolver resolver = [](const std::string& name) -> const UUID* {
        if (name == "bBvalues2")
            throw std::range_error(name);
        return &Known;
    };
    EXPECT_THROW(replaceTableNamesWithUUIDsForCharts(resolver, document), std::range_error);
    EXPECT_NE(frames[0]->getGraphicalObject(), before[0].getGraphicalObject());
    EXPECT_EQ(frames[1]->getGraphicalObject(), before[1].getGraphicalObject());
    EXPECT_EQ(frames[2]->getGraphicalObject(), before[2].getGraphicalObject());
    EXPECT_THAT(listNames(getChart(*frames[1])), ElementsAreArray(names));
}

TEST_F(ReplaceTableNamesForCharts, AnEmptyResolverThrowsAtTheFirstName)
{
    DOM::Table& table = appendTable(document);
    DOM::Frame& nameless = appendFrame(table, std::make_unique<DOM::ChartSpace>());
    const DOM::Frame before = nameless;
    EXPECT_NO_THROW(replaceTableNamesWithUUIDsForCharts(Resolver(), document));
    EXPECT_NE(nameless.getGraphicalObject(), before.getGraphicalObject());
    DOM::Frame& named = appendFrame(table, makeChartSpace(""));
    const DOM::Frame old = named;
    EXPECT_THROW(replaceTableNamesWithUUIDsForCharts(Resolver(), document), std::bad_function_call);
    EXPECT_EQ(named.getGraphicalObject(), old.getGraphicalObject());
}

} // namespace
} // namespace QV::FilterUtils
