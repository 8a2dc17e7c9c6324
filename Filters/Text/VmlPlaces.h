#pragma once

/// @file
/// Where VML shapes stand, by their styles.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Anchors.h>
#include <FilterUtils/FU_Lengths.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>
#include <Filters/Text/VmlValues.h>
#include <cinder/Vector.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// What the numbers without a unit count in, and what the box of a shape does.
struct VmlUnits
{
    float pointsX = VmlPointsPerPixel; ///< of one unit
    float pointsY = VmlPointsPerPixel;
    bool areOfGroup = false; ///< boxes are in the units of a group; else in points
};

/// The box that a style gives: its corner from "left" and "margin-left" and the like, 0 where there are none.
///
/// @return nothing where it has no width or no height
FILTERS_API boost::optional<DrawnBox> readVmlBox(
    const VmlStyle& style, const VmlUnits& units, OperationReport& report);

/// The corner alone.
FILTERS_API cinder::Vec2<float> readVmlCorner(
    const VmlStyle& style, const VmlUnits& units, OperationReport& report);

/// The box of a line from one point to another, each of them two lengths with a comma between.
FILTERS_API DrawnTransform readVmlLine(
    const std::string& from, const std::string& to, const VmlUnits& units, OperationReport& report);

/// How a style anchors an outermost shape: in the text, unless its position is absolute.
FILTERS_API DOM::Anchor readVmlAnchor(const VmlStyle& style, OperationReport& report);

/// Adds the turn and the flips of a style.
FILTERS_API void readVmlTurn(const VmlStyle& style, DrawnTransform& transform, OperationReport& report);

/// Whether a style hides its shape.
FILTERS_API bool isVmlHidden(const VmlStyle& style);

} // namespace QV::Filters
