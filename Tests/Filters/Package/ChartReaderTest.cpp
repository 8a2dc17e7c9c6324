#include <Filters/Package/ChartReader.h>

#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/ChartBuilder.h>
#include <Tests/Support/ChartReadingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Tests::ChartReading;
using Tests::makeChartPart;
using Tests::makeNumberReference;
using Tests::makePlotArea;
using Tests::makePoint;
using Tests::makeSeries;
using Tests::makeTextReference;

TEST_F(ChartReading, GivesTitleNamesCategoriesAndValues)
{
    const std::string series =
        "<c:ser><c:idx val='0'/><c:tx>" + makeTextReference("Sheet1!$B$1", makePoint("0", "2025")) +
        "</c:tx><c:cat>" + makeTextReference("Sheet1!$A$2:$A$3", makePoint("0", "a") + makePoint("1", "b")) +
        "</c:cat><c:val>" +
        makeNumberReference("Sheet1!$B$2:$B$3", makePoint("0", "1.5") + makePoint("1", "2")) +
        "</c:val></c:ser>";
    const std::string expected =
        R"({"kind":"chart","type":"bar","title":"Sales","series":[{"name":"Sheet1!$B$1","nameText":"2025",)"
        R"("categories":"Sheet1!$A$2:$A$3","values":"Sheet1!$B$2:$B$3"}]})";
    for (const bool isStrict : {false, true}) {
        EXPECT_EQ(
            read(makeChartPart(Tests::TitleOfText + makePlotArea("barChart", series), isStrict)), expected);
        EXPECT_THAT(listMessages(), IsEmpty());
        const DOM::Series& read = getChart().getLiveSeries()[0];
        EXPECT_EQ(read.getNumbers(), (DOM::ChartNumbers{
                                         {0, 1.5},
                                         {1, 2  }
        }));
        EXPECT_EQ(read.getCategoryTexts(), (DOM::ChartTexts{
                                               {0, "a"},
                                               {1, "b"}
        }));
    }
    EXPECT_THAT(run->getLeftOut(), ElementsAre("axes, legends and formatting of charts"));
}

struct KindRow
{
    const char* element;
    const char* type;
};

void PrintTo(const KindRow& row, std::ostream* out)
{
    *out << row.element;
}

const KindRow KindRows[] = {
    {"areaChart",      "area"    },
    {"area3DChart",    "area"    },
    {"barChart",       "bar"     },
    {"bar3DChart",     "bar"     },
    {"bubbleChart",    "bubble"  },
    {"doughnutChart",  "doughnut"},
    {"line3DChart",    "line"    },
    {"lineChart",      "line"    },
    {"ofPieChart",     "pie"     },
    {"pie3DChart",     "pie"     },
    {"pieChart",       "pie"     },
    {"radarChart",     "radar"   },
    {"scatterChart",   "scatter" },
    {"stockChart",     "stock"   },
    {"surface3DChart", "surface" },
    {"surfaceChart",   "surface" },
};

class ChartKind : public ChartReading, public testing::WithParamInterface<KindRow>
{
};

TEST_P(ChartKind, IsKnown)
{
    EXPECT_EQ(read(makeChartPart(makePlotArea(GetParam().element, makeSeries("Sheet1!A1")))),
        std::string(R"({"kind":"chart","type":")") + GetParam().type +
            R"(","series":[{"values":"Sheet1!A1"}]})");
    const bool isBar = GetParam().type == std::string("bar");
    const bool isGrouped =
        isBar || GetParam().type == std::string("line") || GetParam().type == std::string("area");
    EXPECT_EQ(getChart().getBarDirection().has_value(), isBar);
    EXPECT_EQ(getChart().getGrouping().has_value(), isGrouped);
}

INSTANTIATE_TEST_SUITE_P(Rows, ChartKind, testing::ValuesIn(KindRows),
    [](const auto& row) { return std::string(row.param.element); });

TEST_F(ChartReading, BarsHaveDirectionAndGrouping)
{
    read(makeChartPart(makePlotArea("barChart", "")));
    EXPECT_TRUE(getChart().getBarDirection() == DOM::BarDirection::Columns);
    EXPECT_TRUE(getChart().getGrouping() == DOM::ChartGrouping::Clustered);
    read(makeChartPart(makePlotArea("barChart", "<c:barDir val='bar'/><c:grouping val='percentStacked'/>")));
    EXPECT_TRUE(getChart().getBarDirection() == DOM::BarDirection::Bars);
    EXPECT_TRUE(getChart().getGrouping() == DOM::ChartGrouping::PercentStacked);
    EXPECT_THAT(listMessages(), IsEmpty());
    read(makeChartPart(makePlotArea("lineChart", "")));
    EXPECT_TRUE(getChart().getGrouping() == DOM::ChartGrouping::Standard);
    read(makeChartPart(makePlotArea("barChart", "<c:barDir val='up'/><c:grouping val='heap'/>")));
    EXPECT_TRUE(getChart().getBarDirection() == DOM::BarDirection::Columns);
    EXPECT_TRUE(getChart().getGrouping() == DOM::ChartGrouping::Clustered);
    EXPECT_THAT(listMessages(), ElementsAre("Chart chart.xml has an unknown direction up",
                                    "Chart chart.xml has an unknown grouping heap"));
}

TEST_F(ChartReading, ChartsOfOnePlotAreaComeInTheOrderOfDrawing)
{
    EXPECT_EQ(read(makeChartPart("<c:plotArea><c:lineChart>" + makeSeries("Sheet1!A1") +
                                 "</c:lineChart><c:barChart>" + makeSeries("Sheet1!B1") +
                                 "</c:barChart><c:barChart>" + makeSeries("Sheet1!C1") +
                                 "</c:barChart></c:plotArea>")),
        R"({"kind":"chart","type":"bar","series":[{"values":"Sheet1!B1"},{"values":"Sheet1!C1"},)"
        R"({"type":"line","values":"Sheet1!A1"}]})");
}

TEST_F(ChartReading, SeriesOfScatterChartsMayHaveCategoriesOfTheirOwn)
{
    const auto make = [](const std::string& x, const std::string& y) {
        return "<c:ser><c:xVal>" + makeNumberReference(x) + "</c:xVal><c:yVal>" + makeNumberReference(y) +
               "</c:yVal></c:ser>";
    };
    EXPECT_EQ(read(makeChartPart(makePlotArea("scatterChart", make("Sheet1!A1", "Sheet1!B1") +
                                                                  make("Sheet1!A1", "Sheet1!C1") +
                                                                  make("Sheet1!A9", "Sheet1!D1")))),
        R"({"kind":"chart","type":"scatter","series":[{"categories":"Sheet1!A1","values":"Sheet1!B1"},)"
        R"({"categories":"Sheet1!A1","values":"Sheet1!C1"},{"categories":"Sheet1!A9","values":"Sheet1!D1"}]})");
    EXPECT_FALSE(getChart().getLiveSeries()[1].getOwnCategories());
    EXPECT_TRUE(getChart().getLiveSeries()[2].getOwnCategories());
}

TEST_F(ChartReading, ConstantsAreKept)
{
    EXPECT_EQ(read(makeChartPart(makePlotArea("pieChart",
                  "<c:ser><c:tx><c:v>Share</c:v></c:tx><c:cat><c:strLit>" + makePoint("0", "a") +
                      makePoint("2", "c") + "</c:strLit></c:cat><c:val><c:numLit>" + makePoint("0", "1") +
                      makePoint("2", "-2.5e3") + "</c:numLit></c:val></c:ser>"))),
        R"({"kind":"chart","type":"pie","title":"Share","series":[{"nameText":"Share",)"
        R"("literalCategories":["a","c"],"literalValues":[1.0,-2500.0]}]})");
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ChartReading, CategoriesOfSeveralLevelsAreJoined)
{
    const std::string levels = "<c:lvl>" + makePoint("1", "Q2") + makePoint("0", "Q1") +
                               makePoint("2", "Q1") + "</c:lvl><c:lvl>" + makePoint("0", "2024") +
                               makePoint("2", "2025") + "</c:lvl><c:lvl>" + makePoint("1", "AD") + "</c:lvl>";
    read(makeChartPart(makePlotArea("barChart",
        makeSeries("Sheet1!C1:C3", "<c:cat><c:multiLvlStrRef><c:f>Sheet1!A1:B3</c:f><c:multiLvlStrCache>" +
                                       levels + "</c:multiLvlStrCache></c:multiLvlStrRef></c:cat>"))));
    EXPECT_EQ(getChart().getLiveSeries()[0].getCategoryTexts(),
        (DOM::ChartTexts{
            {0, "2024 Q1"   },
            {1, "AD 2024 Q2"},
            {2, "AD 2025 Q1"}
    }));
}

struct ReferenceRow
{
    const char* name;
    const char* values;
    const char* printed; // null: the series is lost
    const char* message; // null: none
};

void PrintTo(const ReferenceRow& row, std::ostream* out)
{
    *out << row.values;
}

const char* const Lost = "Chart chart.xml loses series N: its values are no cells of the workbook";
const char* const PartlyLost =
    "Chart chart.xml loses some values of series N: they are no cells of the workbook";

const ReferenceRow ReferenceRows[] = {
    {"Plain",         "Sheet1!A1",                   "Sheet1!A1",             nullptr                                                    },
    {"Blanks",        "\n  Sheet1!A1 \t",            "Sheet1!A1",             nullptr                                                    },
    {"List",          "(Sheet1!A1,Sheet1!B2)",       "(Sheet1!A1,Sheet1!B2)", nullptr                                                    },
    {"UnknownTable",  "Sheet9!A1",                   nullptr,                 Lost                                                       },
    {"LostCells",     "Sheet1!#REF!",                nullptr,                 Lost                                                       },
    {"OtherDocument", "[1]Sheet1!A1",                nullptr,                 Lost                                                       },
    {"Name",          "Sheet1!Rate",                 nullptr,                 Lost                                                       },
    {"NoTable",       "A1",                          nullptr,                 Lost                                                       },
    {"PartOfList",    "(Sheet1!A1,#REF!,Sheet1!B2)", "(Sheet1!A1,Sheet1!B2)", PartlyLost                                                 },
    {"OneOfList",     "(Sheet9!A1,Sheet1!B2)",       "Sheet1!B2",             PartlyLost                                                 },
    {"Function",      "SUM(Sheet1!A1)",              nullptr,                 Lost                                                       },
    {"Unreadable",    "SUM(Sheet1!A1",               "",                      "Chart chart.xml has an unreadable reference SUM(Sheet1!A1"},
    {"Empty",         "",                            "",                      nullptr                                                    },
};

class ChartReferences : public ChartReading, public testing::WithParamInterface<ReferenceRow>
{
};

TEST_P(ChartReferences, KeepRow)
{
    const ReferenceRow& row = GetParam();
    const std::string json =
        read(makeChartPart(makePlotArea("barChart", makeSeries(row.values, "<c:tx><c:v>N</c:v></c:tx>")) +
                           "<c:autoTitleDeleted val='1'/>"));
    const std::string values =
        row.printed && *row.printed ? std::string(",\"values\":\"") + row.printed + "\"" : "";
    EXPECT_EQ(json, R"({"kind":"chart","type":"bar","series":[)" +
                        (row.printed ? R"({"nameText":"N")" + values + "}" : std::string()) + "]}");
    if (row.message)
        EXPECT_THAT(listMessages(), ElementsAre(row.message));
    else
        EXPECT_THAT(listMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ChartReferences, testing::ValuesIn(ReferenceRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ChartReading, WithoutTablesNoSeriesIsLost)
{
    EXPECT_THAT(read(makeChartPart(makePlotArea("barChart", makeSeries("[1]Else!A1"))), nullptr),
        HasSubstr(R"("values":"[1]Else!A1")"));
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ChartReading, SeriesWithoutANameAreToldByTheirNumber)
{
    read(makeChartPart(makePlotArea("barChart", makeSeries("Sheet1!A1") + makeSeries("Else!A1"))));
    EXPECT_THAT(listMessages(),
        ElementsAre("Chart chart.xml loses series #2: its values are no cells of the workbook"));
}

TEST_F(ChartReading, BadPointsAreKeptOut)
{
    const std::string points = makePoint("0", "1") + makePoint("1", "#N/A") + makePoint("2", "one") +
                               makePoint("3", "1e999") + makePoint("-1", "2") + makePoint("x", "2") +
                               "<c:pt><c:v>2</c:v></c:pt>" + makePoint("1048575", "3") +
                               makePoint("1048576", "4") + makePoint("4", "") + makePoint("5", " 5 ");
    read(makeChartPart(makePlotArea(
        "barChart", "<c:ser><c:val>" + makeNumberReference("Sheet1!A1:A9", points) + "</c:val></c:ser>")));
    EXPECT_EQ(getChart().getLiveSeries()[0].getNumbers(), (DOM::ChartNumbers{
                                                              {0,       1},
                                                              {1048575, 3},
                                                              {5,       5}
    }));
    EXPECT_THAT(listMessages(),
        ElementsAre("Chart chart.xml has a point with a bad index -1",
            "Chart chart.xml has a point with a bad index x", "Chart chart.xml has a point with a bad index ",
            "Chart chart.xml has a point with a bad index 1048576", "Chart chart.xml has a bad number one",
            "Chart chart.xml has a bad number 1e999"));
}

TEST_F(ChartReading, MessagesOfOneKindAreCounted)
{
    std::string points;
    for (int i = 0; i < 1003; ++i)
        points += makePoint("0", "bad");
    read(makeChartPart(makePlotArea(
        "barChart", "<c:ser><c:val>" + makeNumberReference("Sheet1!A1:A9", points) + "</c:val></c:ser>")));
    const std::vector<std::string> messages = listMessages();
    ASSERT_EQ(messages.size(), 1001U);
    EXPECT_EQ(messages.back(), "3 more times: Chart {} has a bad number {}");
}

TEST_F(ChartReading, OtherPartsAreNoCharts)
{
    EXPECT_EQ(read("<root/>"), "null");
    EXPECT_THAT(listMessages(), ElementsAre("Part chart.xml is no chart"));
    EXPECT_EQ(read("<chartSpace><chart/></chartSpace>"), "null");
    EXPECT_THAT(listMessages(), ElementsAre("Part chart.xml is no chart"));
    EXPECT_EQ(read("<c:chartSpace"), "null");
    EXPECT_THAT(listMessages(), ElementsAre(HasSubstr("Part chart.xml is not well-formed XML")));
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
}

TEST_F(ChartReading, AChartMayBeEmpty)
{
    EXPECT_EQ(read(makeChartPart("")), R"({"kind":"chart","series":[]})");
    EXPECT_EQ(read(makeChartPart(makePlotArea("pieChart", "<c:ser/>"))),
        R"({"kind":"chart","type":"pie","series":[{}]})");
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ChartReading, SizesOfBubblesAreLeftOut)
{
    read(makeChartPart(makePlotArea("bubbleChart", "<c:ser><c:bubbleSize/></c:ser>")));
    EXPECT_THAT(run->getLeftOut(),
        ElementsAre("sizes of bubbles in charts", "axes, legends and formatting of charts"));
}

} // namespace
} // namespace QV::Filters
