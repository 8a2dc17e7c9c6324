#pragma once

/// @file
/// Patterns of two colours (ECMA-376 Part 1, 20.1.10.51): those of lines are drawn, all others become the one
/// colour that they look like from afar.

#include <string>

#include <DOM/Public/Color.h>
#include <DOM/Public/ShapeFill.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// How wide and high a tile of lines is, in points; 0 for a pattern that is not drawn.
FILTERS_API double getHatchSide(const std::string& preset);

/// The elements of one tile of lines; empty for a pattern that is not drawn.
FILTERS_API std::string makeHatch(const DOM::PatternFill& fill);

/// Both colours, mixed by the share that each has of the area.
FILTERS_API DOM::Color getMeanColor(const DOM::PatternFill& fill);

} // namespace QV::Filters
