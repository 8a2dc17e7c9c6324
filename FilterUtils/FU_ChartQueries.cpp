#include <FilterUtils/FU_ChartQueries.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include <Formulas/Public/ValidRange.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::FilterUtils {

std::vector<DOM::Formula> getValidFormulaList(
    const std::vector<DOM::Formula>& formulas, const Formulas::TableContext& context)
{
    std::vector<DOM::Formula> valid;
    std::copy_if(formulas.begin(), formulas.end(), std::back_inserter(valid),
        [&](const DOM::Formula& formula) { return Formulas::isValidRange(formula, context); });
    return valid;
}

std::vector<std::unique_ptr<DOM::Series>> getValidChartSeries(
    const ReadonlyVector<std::unique_ptr<DOM::Series>>& series, const Formulas::TableContext& context)
{
    std::vector<std::unique_ptr<DOM::Series>> valid;
    for (const std::unique_ptr<DOM::Series>& item : series.getItems()) { // the view's own walk throws at null
        const DOM::Series* const one = checkPtr(item.get());
        if (!one || !one->getValues())
            continue;
        std::vector<DOM::Formula> values = getValidFormulaList(*one->getValues(), context);
        if (values.empty())
            continue;
        std::unique_ptr<DOM::Series> copy = one->clone();
        copy->setValues(std::move(values));
        valid.push_back(std::move(copy));
    }
    return valid;
}

} // namespace QV::FilterUtils
