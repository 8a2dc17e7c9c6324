#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <boost/variant.hpp>

#include <DOM/Public/Chart.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/GraphicalObject.h>

namespace QV::DOM {

/// What stands above a chart.
class DOM_API ChartTitle
{
public:
    /// A text, its paragraphs joined by "\n"; or formulas that refer to the cells which hold it.
    using Text = boost::variant<std::string, std::vector<Formula>>;

    /// Nothing where the title has no text of its own.
    const boost::optional<Text>& getText() const { return _text; }
    boost::optional<Text>& getText() { return _text; }
    void setText(boost::optional<Text> text) { _text = std::move(text); }

    /// What a title of formulas shows until the cells are asked.
    const boost::optional<std::string>& getCachedText() const { return _cachedText; }
    void setCachedText(boost::optional<std::string> text) { _cachedText = std::move(text); }

    /// The text as it is shown; nothing where none is known.
    boost::optional<std::string> getShownText() const;

private:
    boost::optional<Text> _text;
    boost::optional<std::string> _cachedText;
};

/// The part of a chart space with the charts, drawn over one another on common axes.
class DOM_API PlotArea
{
public:
    const std::vector<Chart>& getCharts() const { return _charts; }
    std::vector<Chart>& getCharts() { return _charts; }
    void appendChart(const Chart& chart) { _charts.push_back(chart); }

private:
    std::vector<Chart> _charts;
};

/// A chart as it lies on a sheet or slide: its title and its plot area. A copy shares nothing with its
/// original.
class DOM_API ChartSpace : public GraphicalObject
{
public:
    ChartSpace();
    ~ChartSpace() override;
    ChartSpace(const ChartSpace& other);
    ChartSpace& operator=(const ChartSpace&) = delete;

    /// Null where the chart has no title.
    const ChartTitle* getTitle() const { return _title.get(); }
    ChartTitle* getTitle() { return _title.get(); }
    void setTitle(std::unique_ptr<ChartTitle> title) { _title = std::move(title); }

    const PlotArea& getPlotArea() const { return _plotArea; }
    PlotArea& getPlotArea() { return _plotArea; }

private:
    std::unique_ptr<ChartTitle> _title;
    PlotArea _plotArea;
};

} // namespace QV::DOM
