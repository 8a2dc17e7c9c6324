#pragma once

/// @file
/// What of a chart can be shown in a document: formulas and series that refer to cells which exist.

#include <memory>
#include <vector>

#include <DOM/Public/Formula.h>
#include <DOM/Public/Series.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/ReadonlyVector.h>

namespace QV::Formulas {
class TableContext;
}

namespace QV::FilterUtils {

/// Copies of those @p formulas that refer to existing cells of the document (see Formulas::isValidRange), in
/// their order.
FILTERUTILS_API std::vector<DOM::Formula> getValidFormulaList(
    const std::vector<DOM::Formula>& formulas, const Formulas::TableContext& context);

/// Copies of those @p series whose values refer to existing cells, in their order, each with the valid
/// formulas of its values alone. Series without values are left out. @p series are not changed.
///
///     chart.setSeries(getValidChartSeries(ReadonlyVector<std::unique_ptr<DOM::Series>>(series), context));
///
/// A null entry asserts "plainPtr"; it is left out where the handler returns.
FILTERUTILS_API std::vector<std::unique_ptr<DOM::Series>> getValidChartSeries(
    const ReadonlyVector<std::unique_ptr<DOM::Series>>& series, const Formulas::TableContext& context);

} // namespace QV::FilterUtils
