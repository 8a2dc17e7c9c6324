#pragma once

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/Series.h>
#include <Utils/Public/ReadonlyVector.h>

namespace QV::DOM {

enum class ChartType
{
    Bar,
    Line,
    Pie,
    Area,
    Scatter,
    Doughnut,
    Radar,
    Bubble,
    Surface,
    Stock,
};

enum class BarDirection
{
    Bars, ///< from left to right
    Columns,
};

/// How the series of a chart share an axis.
enum class ChartGrouping
{
    Clustered, ///< side by side
    Standard,  ///< each on its own, one behind the other
    Stacked,
    PercentStacked,
};

/// Series drawn in one way over one set of categories. A copy has series of its own.
class DOM_API Chart
{
public:
    using SeriesList = std::vector<std::unique_ptr<Series>>;

    explicit Chart(ChartType type);
    ~Chart();
    Chart(const Chart& other);
    Chart& operator=(const Chart&) = delete;

    ChartType getType() const { return _type; }
    /// Set for bar charts alone.
    const boost::optional<BarDirection>& getBarDirection() const { return _barDirection; }
    void setBarDirection(const boost::optional<BarDirection>& direction) { _barDirection = direction; }
    /// Set for bar, line and area charts alone.
    const boost::optional<ChartGrouping>& getGrouping() const { return _grouping; }
    void setGrouping(const boost::optional<ChartGrouping>& grouping) { _grouping = grouping; }

    /// What stands along the axis (the x values of scatter and bubble charts); present only if set.
    const Series::Formulas& getCategories() const { return _categories; }
    Series::Formulas& getCategories() { return _categories; }
    void setCategories(std::vector<Formula> formulas) { _categories = std::move(formulas); }

    /// In the order in which they are drawn.
    ReadonlyVector<std::unique_ptr<Series>> getLiveSeries() const
    {
        return ReadonlyVector<std::unique_ptr<Series>>(_series);
    }
    SeriesList& getLiveSeries() { return _series; }
    void setSeries(SeriesList series) { _series = std::move(series); }
    /// @param series not null
    void appendSeries(std::unique_ptr<Series> series) { _series.push_back(std::move(series)); }

private:
    ChartType _type;
    boost::optional<BarDirection> _barDirection;
    boost::optional<ChartGrouping> _grouping;
    Series::Formulas _categories;
    SeriesList _series; // no null entries
};

} // namespace QV::DOM
