#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/ChartData.h>
#include <DOM/Public/Series.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/Namespaces.h>
#include <Formulas/Public/FormulaText.h>

namespace QV::Filters {

class ChartReport;

/// One series of a chart part, and the categories that it brings along.
struct ReadSeries
{
    std::unique_ptr<DOM::Series> series;
    DOM::Series::Formulas categories; ///< not set where they are constants
};

/// Reads what charts say of their data: references to cells, and the copies of the cells that the part keeps.
/// One part, one thread.
class FILTERS_API ChartSeriesReader
{
public:
    /// @param documents that formulas refer to by their numbers
    ChartSeriesReader(const Names& names, const Formulas::DocumentList& documents, ChartReport& report)
        : _names(names)
        , _documents(documents)
        , _report(report)
    {
    }

    /// @param series a c:ser element
    ReadSeries read(const FilterUtils::XMLElement& series);

    /// The formulas of the c:f of an element such as c:strRef: one, or those of a list. Not set where there
    /// is none; one that cannot be read is reported, and kept as text.
    DOM::Series::Formulas readFormulas(const FilterUtils::XMLElement& reference);

    /// The texts that an element such as c:strRef keeps, joined by a blank; nothing where it keeps none.
    boost::optional<std::string> readCachedText(const FilterUtils::XMLElement& reference);

    /// The child of that name in the vocabulary of charts.
    FilterUtils::XMLElement getChild(const FilterUtils::XMLElement& parent, const char* name) const;

private:
    struct Source;

    Source findSource(const FilterUtils::XMLElement& parent) const;
    void readName(const FilterUtils::XMLElement& name, DOM::Series& series);
    DOM::ChartTexts readTexts(const FilterUtils::XMLElement& cache);
    DOM::ChartTexts readLevels(const FilterUtils::XMLElement& cache);
    DOM::ChartNumbers readNumbers(const FilterUtils::XMLElement& cache);

    const Names& _names;
    const Formulas::DocumentList& _documents;
    ChartReport& _report;
};

} // namespace QV::Filters
