#pragma once

/// @file
/// What a chart shows of its data without asking the cells: the copies that files keep, and constants.

#include <string>
#include <vector>

namespace QV::DOM {

/// One value of a row of values that may have gaps.
template <typename T>
struct ChartPoint
{
    unsigned long index; ///< in the row, from zero
    T value;

    friend bool operator==(const ChartPoint& a, const ChartPoint& b)
    {
        return a.index == b.index && a.value == b.value;
    }
    friend bool operator!=(const ChartPoint& a, const ChartPoint& b) { return !(a == b); }
};

/// In the order of the file.
using ChartNumbers = std::vector<ChartPoint<double>>;
using ChartTexts = std::vector<ChartPoint<std::string>>;

} // namespace QV::DOM
