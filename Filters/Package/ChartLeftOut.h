#pragma once

/// @file
/// What of charts this version does not read, in words for a person.

namespace QV::Filters::ChartLeftOut {

constexpr const char* BubbleSizes = "sizes of bubbles in charts";
constexpr const char* ChartFormats = "axes, legends and formatting of charts";

} // namespace QV::Filters::ChartLeftOut
