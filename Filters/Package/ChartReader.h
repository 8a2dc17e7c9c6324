#pragma once

#include <memory>
#include <string>

#include <DOM/Public/ChartSpace.h>
#include <Filters/Package/Export.h>
#include <Formulas/Public/FormulaText.h>

namespace QV::Formulas {
class TableContext;
}

namespace QV::Filters {

class FilterRun;
class Package;

/// Reads a chart part: its title, and the series of its charts with names, categories and values. Charts of
/// one plot area come in the order in which they are drawn: areas below bars, bars below lines.
///
/// A chart with one series and no title of its own has the name of the series for its title, unless the part
/// says that this title was deleted.
///
/// Messages, each with the part's name and what is wrong:
///     - "Chart {} has an unreadable reference {}": its text is kept
///     - "Chart {} has a bad number {}", "Chart {} has a point with a bad index {}": such points are kept out
///     - "Chart {} has an unknown direction {}", "Chart {} has an unknown grouping {}": the usual one stands
///     - "Chart {} loses series {}: its values are no cells of the workbook"
///     - "Chart {} loses some values of series {}: they are no cells of the workbook"
///     - "Part {} is no chart", and those of readXml: nothing is read
///
/// @param tables those of the workbook, all of them; null: no series is left out for what it refers to
/// @param documents that formulas refer to by their numbers
/// @return null where the part is no chart. Throws PackageError as readXml does.
FILTERS_API std::unique_ptr<DOM::ChartSpace> readChart(Package& package, const std::string& part,
    const Formulas::TableContext* tables, FilterRun& run, const Formulas::DocumentList& documents = {});

} // namespace QV::Filters
