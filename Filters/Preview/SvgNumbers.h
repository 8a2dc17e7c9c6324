#pragma once

#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// A number as attributes of SVG take it: at most three decimals, without zeros at their end, and at most
/// 1,000,000 either way. "0" for what is no number.
///
///     formatSvgNumber(12.5);        // "12.5"
///     formatSvgNumber(-0.0001);     // "0"
FILTERS_API std::string formatSvgNumber(double number);

/// The same with as many decimals as the entries of a matrix need: six.
FILTERS_API std::string formatSvgShare(double number);

} // namespace QV::Filters
