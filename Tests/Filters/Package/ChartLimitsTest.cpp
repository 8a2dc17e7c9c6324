#include <Filters/Package/ChartReader.h>

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

TEST_F(ChartReading, ConstantCategoriesAreOfTheSeriesAlone)
{
    const std::string referring =
        "<c:ser><c:cat>" + makeTextReference("Sheet1!A1", makePoint("0", "a")) + "</c:cat></c:ser>";
    const std::string constant = "<c:ser><c:cat><c:strLit>" + makePoint("0", "x") + makePoint("1", "y") +
                                 "</c:strLit></c:cat></c:ser>";
    EXPECT_EQ(read(makeChartPart(makePlotArea("barChart", referring + constant))),
        R"({"kind":"chart","type":"bar","series":[{"categories":"Sheet1!A1"},)"
        R"({"literalCategories":["x","y"]}]})");
    EXPECT_EQ(read(makeChartPart(makePlotArea("barChart", constant + referring))),
        R"({"kind":"chart","type":"bar","series":[{"literalCategories":["x","y"]},)"
        R"({"categories":"Sheet1!A1"}]})");
}

std::string makeLevels(const std::string& levels)
{
    return "<c:cat><c:multiLvlStrRef><c:f>Sheet1!A1:B3</c:f><c:multiLvlStrCache>" + levels +
           "</c:multiLvlStrCache></c:multiLvlStrRef></c:cat>";
}

TEST_F(ChartReading, OuterCategoriesAreNotCopiedWithoutEnd)
{
    std::string points;
    for (int i = 0; i < 1000; ++i)
        points += makePoint("0", "p");
    const std::string outer = makePoint("0", std::string(1'000'000, 'o'));
    read(makeChartPart(makePlotArea("barChart",
        makeSeries("Sheet1!A1", makeLevels("<c:lvl>" + points + "</c:lvl><c:lvl>" + outer + "</c:lvl>")))));
    std::size_t bytes = 0;
    for (const auto& point : getChart().getLiveSeries()[0].getCategoryTexts())
        bytes += point.value.size();
    EXPECT_LE(bytes, 17U << 20);
    EXPECT_THAT(listMessages(), ElementsAre("Chart chart.xml has outer categories beyond 64 levels or "
                                            "16777216 bytes; they are left out"));
}

TEST_F(ChartReading, LevelsOfCategoriesEndSomewhere)
{
    std::string levels;
    for (int i = 0; i < 64; ++i)
        levels += "<c:lvl>" + makePoint("0", std::to_string(i)) + "</c:lvl>";
    read(makeChartPart(makePlotArea("barChart", makeSeries("Sheet1!A1", makeLevels(levels)))));
    EXPECT_THAT(listMessages(), IsEmpty());
    read(makeChartPart(makePlotArea("barChart", makeSeries("Sheet1!A1", makeLevels(levels + "<c:lvl/>")))));
    EXPECT_EQ(listMessages().size(), 1U);
}

TEST_F(ChartReading, LongReferencesAreNone)
{
    const std::string longest = "Sheet1!" + std::string(8190 - 7, 'A') + "1";
    read(makeChartPart(makePlotArea("barChart", makeSeries(longest + " "))));
    std::string list = "(";
    while (list.size() < 8192)
        list += "Sheet1!A1,";
    read(makeChartPart(makePlotArea("barChart", makeSeries(list + "Sheet1!A1)"))));
    ASSERT_EQ(listMessages().size(), 1U);
    EXPECT_THAT(
        listMessages()[0], testing::StartsWith("Chart chart.xml has an unreadable reference (Sheet1!A1"));
    EXPECT_LE(listMessages()[0].size(), 8300U);
}

TEST_F(ChartReading, SeriesEndSomewhere)
{
    std::string series;
    for (int i = 0; i < 10'001; ++i)
        series += "<c:ser/>";
    read(makeChartPart(makePlotArea("barChart", series)));
    EXPECT_EQ(getChart().getLiveSeries().size(), 10'000U);
    EXPECT_THAT(
        listMessages(), ElementsAre("Chart chart.xml has more than 10000 series; the rest is left out"));
}

} // namespace
} // namespace QV::Filters
