#pragma once

/// @file
/// Outlines of shapes as paths of SVG.

#include <string>
#include <vector>

#include <DOM/Public/ShapeGeometry.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>
#include <Utils/Public/Size2D.h>

namespace QV::Filters {

struct DrawnPath
{
    std::string data; ///< of the "d" attribute, in points from the shape's top-left corner
    DOM::GeometryPath::Filling filling = DOM::GeometryPath::Filling::Normal;
    bool isStroked = true;
};

struct DrawnOutline
{
    std::vector<DrawnPath> paths; ///< from back to front
    DrawnBox textBox;             ///< in points from the shape's top-left corner
};

/// Draws an outline at a size in points. A preset that is not known, and an outline that is null, is a
/// rectangle; arcs are elliptic arcs; numbers are finite, and have at most three decimals.
FILTERS_API DrawnOutline drawOutline(const DOM::ShapeGeometry* geometry, const Size2D<float>& size);

} // namespace QV::Filters
