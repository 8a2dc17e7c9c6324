#include <Filters/Package/ChartReader.h>

#include <cstddef>
#include <utility>
#include <vector>

#include <FilterUtils/FU_ChartQueries.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/ChartLeftOut.h>
#include <Filters/Package/ChartReport.h>
#include <Filters/Package/ChartSeriesReader.h>
#include <Filters/Package/ChartTitleText.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>
#include <Formulas/Public/TableContext.h> // getValidChartSeries takes one
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/ReadonlyVector.h>

namespace QV::Filters {
namespace {

constexpr unsigned SeriesMax = 10'000; // of one part; applications have 255

using DOM::ChartGrouping;
using DOM::ChartType;
using FilterUtils::XMLElement;

// In the order in which they are drawn.
const std::pair<const char*, ChartType> ChartTypes[] = {
    {"areaChart",      ChartType::Area    },
    {"area3DChart",    ChartType::Area    },
    {"surfaceChart",   ChartType::Surface },
    {"surface3DChart", ChartType::Surface },
    {"barChart",       ChartType::Bar     },
    {"bar3DChart",     ChartType::Bar     },
    {"pieChart",       ChartType::Pie     },
    {"pie3DChart",     ChartType::Pie     },
    {"ofPieChart",     ChartType::Pie     },
    {"doughnutChart",  ChartType::Doughnut},
    {"lineChart",      ChartType::Line    },
    {"line3DChart",    ChartType::Line    },
    {"stockChart",     ChartType::Stock   },
    {"radarChart",     ChartType::Radar   },
    {"scatterChart",   ChartType::Scatter },
    {"bubbleChart",    ChartType::Bubble  },
};

const std::pair<const char*, DOM::BarDirection> BarDirections[] = {
    {"col", DOM::BarDirection::Columns},
    {"bar", DOM::BarDirection::Bars   },
};

const std::pair<const char*, ChartGrouping> Groupings[] = {
    {"clustered",      ChartGrouping::Clustered     },
    {"standard",       ChartGrouping::Standard      },
    {"stacked",        ChartGrouping::Stacked       },
    {"percentStacked", ChartGrouping::PercentStacked},
};

/// The value that an element's "val" names; @p usual where there is no such element or attribute, or the name
/// is not known.
template <typename Value, std::size_t Size>
Value readChoice(const XMLElement& element, const std::pair<const char*, Value> (&choices)[Size], Value usual,
    const char* pattern, ChartReport& report)
{
    const auto text = element.getAttributeValue("val");
    if (!text)
        return usual;
    for (const auto& choice : choices)
        if (*text == choice.first)
            return choice.second;
    report.add(pattern, *text);
    return usual;
}

/// An element that says yes by being there, unless its "val" says otherwise.
bool isOn(const XMLElement& element)
{
    const std::string value = element.getAttributeValue("val").value_or(FilterUtils::XSDTrueValue);
    return element.isValid() && value != FilterUtils::XSDFalseValue && value != "false";
}

class ChartReader
{
public:
    ChartReader(Package& package, const std::string& part, const Formulas::TableContext* tables,
        const Names& names, const Formulas::DocumentList& documents, FilterRun& run)
        : _package(package)
        , _part(part)
        , _tables(tables)
        , _names(names)
        , _run(run)
        , _report(part, run.getReport())
        , _seriesReader(_names, documents, _report)
    {
    }

    std::unique_ptr<DOM::ChartSpace> read(const XMLElement& chart)
    {
        auto space = std::make_unique<DOM::ChartSpace>();
        const XMLElement plotArea = getChild(chart, "plotArea");
        for (const auto& type : ChartTypes)
            plotArea.processElements(_names(Vocabulary::Chart, type.first), [&](const XMLElement& element) {
                space->getPlotArea().appendChart(readOneChart(element, type.second));
            });
        space->setTitle(readTitle(chart, space->getPlotArea()));
        _run.leaveOut(ChartLeftOut::ChartFormats);
        return space;
    }

private:
    XMLElement getChild(const XMLElement& parent, const char* name) const
    {
        return _seriesReader.getChild(parent, name);
    }

    DOM::Chart readOneChart(const XMLElement& element, ChartType type)
    {
        DOM::Chart chart(type);
        if (type == ChartType::Bar)
            chart.setBarDirection(readChoice(getChild(element, "barDir"), BarDirections,
                DOM::BarDirection::Columns, "Chart {} has an unknown direction {}", _report));
        if (type == ChartType::Bar || type == ChartType::Line || type == ChartType::Area)
            chart.setGrouping(readChoice(getChild(element, "grouping"), Groupings,
                type == ChartType::Bar ? ChartGrouping::Clustered : ChartGrouping::Standard,
                "Chart {} has an unknown grouping {}", _report));
        element.processElements(
            _names(Vocabulary::Chart, "ser"), [&](const XMLElement& series) { addSeries(series, chart); });
        return chart;
    }

    void addSeries(const XMLElement& element, DOM::Chart& chart)
    {
        if (++_seriesCount > SeriesMax) {
            if (_seriesCount == SeriesMax + 1)
                _report.add(
                    "Chart {} has more than {} series; the rest is left out", std::to_string(SeriesMax));
            return;
        }
        if (getChild(element, "bubbleSize").isValid())
            _run.leaveOut(ChartLeftOut::BubbleSizes);
        ReadSeries read = _seriesReader.read(element);
        auto series = keepValid(std::move(read.series));
        if (!series)
            return;
        if (read.categories && !chart.getCategories())
            chart.setCategories(std::move(*read.categories));
        else if (read.categories && *read.categories != *chart.getCategories())
            series->setOwnCategories(std::move(*read.categories));
        else if (!read.categories && !series->getCategoryTexts().empty())
            series->setOwnCategories({}); // constants
        chart.appendSeries(std::move(series));
    }

    /// Series of constants refer to nothing, and are valid anywhere.
    std::unique_ptr<DOM::Series> keepValid(std::unique_ptr<DOM::Series> series)
    {
        if (!_tables || !series->getValues())
            return series;
        const std::size_t valuesCount = series->getValues()->size();
        const std::string name = series->getNameText().value_or('#' + std::to_string(_seriesCount));
        std::vector<std::unique_ptr<DOM::Series>> given;
        given.push_back(std::move(series));
        auto valid =
            FilterUtils::getValidChartSeries(ReadonlyVector<std::unique_ptr<DOM::Series>>(given), *_tables);
        if (valid.empty()) {
            _report.add("Chart {} loses series {}: its values are no cells of the workbook", name);
            return nullptr;
        }
        if (valid.front()->getValues()->size() < valuesCount)
            _report.add("Chart {} loses some values of series {}: they are no cells of the workbook", name);
        return std::move(valid.front());
    }

    std::unique_ptr<DOM::ChartTitle> readTitle(const XMLElement& chart, const DOM::PlotArea& plotArea)
    {
        const XMLElement element = getChild(chart, "title");
        auto title = std::make_unique<DOM::ChartTitle>();
        const XMLElement text = getChild(element, "tx");
        const XMLElement reference = getChild(text, "strRef");
        if (getChild(text, "rich").isValid()) {
            if (auto rich = readRichTitle(_package, _part, _run.getReport()))
                title->setText(DOM::ChartTitle::Text(std::move(*rich)));
        } else if (reference.isValid()) {
            if (auto formulas = _seriesReader.readFormulas(reference))
                title->setText(DOM::ChartTitle::Text(std::move(*formulas)));
            title->setCachedText(_seriesReader.readCachedText(reference));
        } else if (!isOn(getChild(chart, "autoTitleDeleted")) && _seriesCount == 1) {
            takeNameOfOnlySeries(plotArea, *title);
        }
        const bool isShown = element.isValid() || title->getText() || title->getCachedText();
        return isShown ? std::move(title) : nullptr;
    }

    static void takeNameOfOnlySeries(const DOM::PlotArea& plotArea, DOM::ChartTitle& title)
    {
        for (const DOM::Chart& chart : plotArea.getCharts()) {
            for (const DOM::Series& series : chart.getLiveSeries()) {
                if (series.getName())
                    title.setText(DOM::ChartTitle::Text(*series.getName()));
                else if (series.getNameText())
                    title.setText(DOM::ChartTitle::Text(*series.getNameText()));
                if (series.getName())
                    title.setCachedText(series.getNameText());
            }
        }
    }

    Package& _package;
    const std::string& _part;
    const Formulas::TableContext* _tables;
    const Names _names;
    FilterRun& _run;
    ChartReport _report;
    ChartSeriesReader _seriesReader;
    unsigned long _seriesCount = 0; // those that are left out included
};

} // namespace

std::unique_ptr<DOM::ChartSpace> readChart(Package& package, const std::string& part,
    const Formulas::TableContext* tables, FilterRun& run, const Formulas::DocumentList& documents)
{
    const XMLElement root = readXml(package, part, run.getReport());
    if (!root.isValid())
        return nullptr;
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict}) {
        const Names names(dialect);
        const XMLElement chart = root.getElement(names(Vocabulary::Chart, "chart"));
        if (chart.isValid())
            return ChartReader(package, part, tables, names, documents, run).read(chart);
    }
    run.getReport().emplace_back("Part {} is no chart", part);
    return nullptr;
}

} // namespace QV::Filters
