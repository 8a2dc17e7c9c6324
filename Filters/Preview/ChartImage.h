#pragma once

#include <string>

namespace QV::DOM {
class ChartSpace;
}

namespace QV::Filters {

/// What lies behind a chart.
enum class ChartGround
{
    Box, ///< a white one with a thin line around it
    None,
};

/// A sketch of a chart as an SVG element of that size in points: its title, its series as bars, lines, areas,
/// slices or points over common axes, and a legend. Kinds that it does not know are drawn as lines. Drawn
/// from the data that the chart keeps; without any, only the title is there.
std::string makeChartImage(
    const DOM::ChartSpace& chart, float width, float height, ChartGround ground = ChartGround::Box);

} // namespace QV::Filters
