#include <Filters/Package/ChartReader.h>

#include <ostream>
#include <string>
#include <vector>

#include <boost/variant/get.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/ChartBuilder.h>
#include <Tests/Support/ChartReadingFixture.h>

namespace QV::Filters {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using Tests::ChartReading;
using Tests::makeChartPart;
using Tests::makePlotArea;
using Tests::makePoint;
using Tests::makeSeries;
using Tests::makeTextReference;
using Tests::TitleOfText;

struct TitleRow
{
    const char* name;
    std::string title; // the elements before the plot area
    const char* shown; // null: no title, or none with a text
    bool hasTitle;
};

void PrintTo(const TitleRow& row, std::ostream* out)
{
    *out << row.title;
}

const std::string Deleted = "<c:autoTitleDeleted val='1'/>";

std::string makeRich(const std::string& paragraphs)
{
    return "<c:title><c:tx><c:rich>" + paragraphs + "</c:rich></c:tx></c:title>";
}

const TitleRow TitleRows[] = {
    {"Text",           TitleOfText,                                                                      "Sales",       true                                                                                             },
    {"TextAndDeleted", TitleOfText + Deleted,                                                            "Sales",       true                                                                                             },
    {"EmptyText",      makeRich("<a:p/>"),                                                               "",            true                                                                                             },
    {"Paragraphs",     makeRich("<a:p><a:r><a:t>a</a:t></a:r></a:p><a:p><a:r><a:t>b</a:t></a:r></a:p>"), "a\nb",
     true                                                                                                                                                                                                                },
    {"RunsAndBreaks",
     makeRich("<a:p>\n <a:r><a:t>a </a:t></a:r>\n "
                 "<a:br/><a:fld><a:t>b</a:t></a:fld><a:r><a:t>c</a:t></a:r></a:p>"),
     "a \nbc",                                                                                                          true                                                                                             },
    {"Reference",
     "<c:title><c:tx>" + makeTextReference("Sheet1!A1",                                                  makePoint("0", "x")) + "</c:tx></c:title>",                                                                       "x",
     true},
    {"None",             "",                                                                                             "First",                                                                                                     true                                                                                                                                                                                       },
    {"NoneNotDeleted",            "<c:autoTitleDeleted val='0'/>",                                                                                            "First",true},
    {"NoneFalse",            "<c:autoTitleDeleted val='false'/>",                                                                                            "First",                                                                                                          true                                                                                                                                                                                                                                                                                                       },
    {"Bare",            "<c:title/>",                                                                                            "First",true},
    {"NoneDeleted",            Deleted,                                                                                            nullptr,                                                                                                   false                                                                                                                                                                                                                                                                                                                                                                                                                    },
    {"NoneDeletedBare",           "<c:autoTitleDeleted/>",                                                                                           nullptr,false},
    {"BareDeleted",           "<c:title/>" + Deleted,                                                                                           nullptr,                                                                                                       true                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                      },
    {"TitlesOfAxes",            "<c:plotArea><c:valAx>" + TitleOfText + "</c:valAx></c:plotArea>" + Deleted,                                                                                            nullptr,
     false},
};

class ChartTitleRows : public ChartReading, public testing::WithParamInterface<TitleRow>
{
};

TEST_P(ChartTitleRows, KeepRow)
{
    const std::string name = "<c:tx>" + makeTextReference("Sheet1!B1", makePoint("0", "First")) + "</c:tx>";
    const std::string plot = GetParam().title.find("plotArea") == std::string::npos
                                 ? makePlotArea("lineChart", makeSeries("Sheet1!B2", name))
                                 : "";
    read(makeChartPart(GetParam().title + plot));
    ASSERT_EQ(chart->getTitle() != nullptr, GetParam().hasTitle);
    const auto shown = chart->getTitle() ? chart->getTitle()->getShownText() : boost::none;
    EXPECT_EQ(shown.has_value(), GetParam().shown != nullptr);
    EXPECT_EQ(shown.value_or("none"), GetParam().shown ? GetParam().shown : "none");
    EXPECT_THAT(listMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ChartTitleRows, testing::ValuesIn(TitleRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ChartReading, TheNameOfOneSeriesIsNoTitleOfSeveral)
{
    const std::string name = "<c:tx><c:v>First</c:v></c:tx>";
    read(makeChartPart(makePlotArea("lineChart", makeSeries("Sheet1!A1", name) + makeSeries("Sheet1!B1"))));
    EXPECT_EQ(chart->getTitle(), nullptr);
    read(makeChartPart(makePlotArea("lineChart", makeSeries("Sheet1!A1", name) + makeSeries("Lost!B1"))));
    EXPECT_EQ(chart->getTitle(), nullptr) << "one of two that are left is not the only one of the file";
    read(makeChartPart(makePlotArea("lineChart", makeSeries("Lost!A1", name))));
    EXPECT_EQ(chart->getTitle(), nullptr) << "nothing is left to be named";
}

TEST_F(ChartReading, TitlesAndNamesReferToCells)
{
    EXPECT_THAT(read(makeChartPart("<c:title><c:tx>" + makeTextReference("'My sheet'!$A$1", "") +
                                   "</c:tx></c:title>" + makePlotArea("lineChart", ""))),
        HasSubstr(R"("titleReference":"'Mysheet'!$A$1")"));
    ASSERT_TRUE(chart->getTitle()->getText());
    EXPECT_EQ(boost::get<std::vector<DOM::Formula>>(*chart->getTitle()->getText()).size(), 1U);
}

} // namespace
} // namespace QV::Filters
