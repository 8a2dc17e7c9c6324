#include <FilterUtils/FU_ChartQueries.h>

#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/References.h>
#include <Formulas/Public/TableContext.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Tests::RecordedAssertions;

using Texts = std::vector<std::string>;
using SeriesList = std::vector<std::unique_ptr<DOM::Series>>;

Formulas::TableContext makeContext()
{
    Formulas::TableContext context;
    context.addTable(UUID(1, 1), "Sheet1");
    return context;
}

std::vector<DOM::Formula> makeFormulas(const Texts& texts)
{
    std::vector<DOM::Formula> formulas;
    for (const std::string& text : texts)
        formulas.push_back(Formulas::parseReference(text).value());
    return formulas;
}

Texts print(const std::vector<DOM::Formula>& formulas)
{
    Texts texts;
    for (const DOM::Formula& formula : formulas)
        texts.push_back(Formulas::toText(formula, makeContext()));
    return texts;
}

// A kind of series that only this test knows.
class MarkedSeries final : public DOM::Series
{
public:
    explicit MarkedSeries(int number)
        : mark(number)
    {
    }
    std::unique_ptr<DOM::Series> clone() const override
    {
        return std::unique_ptr<DOM::Series>(new MarkedSeries(*this));
    }

    const int mark;

private:
    MarkedSeries(const MarkedSeries&) = default;
};

std::unique_ptr<DOM::Series> makeSeries(int mark, const Texts& values)
{
    auto series = std::make_unique<MarkedSeries>(mark);
    series->setName(makeFormulas({"Sheet2!A1"})); // of no concern
    series->setNameText(std::string("Sales"));
    series->setNumbers({
        {0, 1.5}
    });
    series->setValues(makeFormulas(values));
    return series;
}

SeriesList filter(const SeriesList& series)
{
    return getValidChartSeries(ReadonlyVector<std::unique_ptr<DOM::Series>>(series), makeContext());
}

struct FormulasRow
{
    const char* name;
    Texts given;
    Texts valid;
};

void PrintTo(const FormulasRow& row, std::ostream* out)
{
    *out << row.name;
}

const FormulasRow FormulasRows[] = {
    {"None",       {},                                         {}                                        },
    {"OneValid",   {"Sheet1!A1"},                              {"Sheet1!A1"}                             },
    {"OneInvalid", {"Sheet2!A1"},                              {}                                        },
    {"AllInvalid", {"Sheet2!A1", "#REF!", "Rate", "A1"},       {}                                        },
    {"InOrder",    {"Sheet1!C3", "Sheet1!A1", "Sheet1!B2:B4"}, {"Sheet1!C3", "Sheet1!A1", "Sheet1!B2:B4"}},
    {"Twice",      {"Sheet1!A1", "Sheet1!A1"},                 {"Sheet1!A1", "Sheet1!A1"}                },
    {"First",      {"Sheet1!A1", "Sheet2!A1"},                 {"Sheet1!A1"}                             },
    {"Last",       {"[1]Sheet1!A1", "Sheet1!A1"},              {"Sheet1!A1"}                             },
    {"BetweenTwo", {"Sheet2!A1", "Sheet1!A1", "#REF!"},        {"Sheet1!A1"}                             },
};

class GetValidFormulaList : public testing::TestWithParam<FormulasRow>
{
};

TEST_P(GetValidFormulaList, KeepsRow)
{
    const std::vector<DOM::Formula> given = makeFormulas(GetParam().given);
    const std::vector<DOM::Formula> valid = getValidFormulaList(given, makeContext());
    EXPECT_THAT(print(valid), ElementsAreArray(GetParam().valid));
    EXPECT_TRUE(given == makeFormulas(GetParam().given)) << "what is given does not change";
}

INSTANTIATE_TEST_SUITE_P(Rows, GetValidFormulaList, testing::ValuesIn(FormulasRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GetValidChartSeries, FollowsTheListOfFormulas)
{
    for (const FormulasRow& row : FormulasRows) {
        SeriesList series;
        series.push_back(makeSeries(1, row.given));
        const SeriesList valid = filter(series);
        ASSERT_EQ(valid.size(), row.valid.empty() ? 0U : 1U) << row.name;
        for (const std::unique_ptr<DOM::Series>& one : valid)
            EXPECT_THAT(print(*one->getValues()), ElementsAreArray(row.valid)) << row.name;
    }
}

TEST(GetValidChartSeries, NoSeriesGiveNone)
{
    EXPECT_THAT(filter({}), IsEmpty());
}

TEST(GetValidChartSeries, DropsSeriesInOrderAndCopiesTheRest)
{
    SeriesList series;
    series.push_back(makeSeries(1, {"Sheet2!A1"}));
    series.push_back(makeSeries(2, {"Sheet1!A1:A3", "#REF!"}));
    series.push_back(makeSeries(3, {}));
    series.push_back(std::make_unique<MarkedSeries>(4)); // without values
    series.push_back(makeSeries(5, {"Sheet1!B1:B3"}));
    const SeriesList valid = filter(series);
    ASSERT_EQ(valid.size(), 2U);
    const auto& first = dynamic_cast<const MarkedSeries&>(*valid[0]);
    EXPECT_EQ(first.mark, 2);
    EXPECT_NE(valid[0], series[1]);
    EXPECT_THAT(print(*first.getValues()), ElementsAre("Sheet1!A1:A3"));
    EXPECT_THAT(print(*first.getName()), ElementsAre("Sheet2!A1"));
    EXPECT_EQ(*first.getNameText(), "Sales");
    EXPECT_EQ(first.getNumbers().size(), 1U);
    EXPECT_EQ(dynamic_cast<const MarkedSeries&>(*valid[1]).mark, 5);
}

TEST(GetValidChartSeries, LeavesTheGivenSeriesAlone)
{
    SeriesList series;
    series.push_back(makeSeries(1, {"Sheet1!A1", "Sheet2!A1"}));
    const SeriesList valid = filter(series);
    valid.at(0)->setValues({});
    valid.at(0)->getName().reset();
    EXPECT_THAT(print(*series[0]->getValues()), ElementsAre("Sheet1!A1", "Sheet2!A1"));
    EXPECT_TRUE(series[0]->getName());
}

TEST(GetValidChartSeries, TellsNullEntriesAndLeavesThemOut)
{
    SeriesList series;
    series.push_back(nullptr);
    series.push_back(makeSeries(1, {"Sheet1!A1"}));
    series.push_back(nullptr);
    const RecordedAssertions recorded;
    const SeriesList valid = filter(series);
    EXPECT_EQ(valid.size(), 1U);
    ASSERT_THAT(recorded.getExpressions(), ElementsAre("plainPtr", "plainPtr"));
    EXPECT_EQ(recorded.getFailures()[0].file, "Platform/Utils/Public/Ptr/PtrUtils.h");
}

} // namespace
} // namespace QV::FilterUtils
