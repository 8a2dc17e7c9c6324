#pragma once

#include <set>
#include <string>

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Table;
}

namespace QV::Formulas {
class TableContext;
}

namespace QV::Filters {

class FilterRun;
class Package;

/// Brings the charts of drawings onto the sheets, once all sheets are known. Each chart part is read once: of
/// several drawings that show it, the first has it.
class FILTERS_API DrawingCharts
{
public:
    /// @param tables outlives this object
    DrawingCharts(Package& package, const Formulas::TableContext& tables, FilterRun& run)
        : _package(package)
        , _tables(tables)
        , _run(run)
    {
    }

    /// Gives the table a frame for each chart of a drawing part, in the order of the part's relationships.
    /// Notes diagrams and charts of newer kinds as left out.
    void read(const std::string& drawingPart, DOM::Table& table);

private:
    void showChart(const std::string& part, DOM::Table& table);

    Package& _package;
    const Formulas::TableContext& _tables;
    FilterRun& _run;
    std::set<std::string> _read; // the chart parts so far
};

} // namespace QV::Filters
