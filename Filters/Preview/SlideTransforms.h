#pragma once

/// @file
/// How frames stand on a slide, as transforms of SVG. All texts are values of the "transform" attribute, and
/// empty where nothing changes.

#include <string>

#include <boost/optional.hpp>

#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>
#include <Utils/Public/Size2D.h>

namespace QV::DOM {
class Frame;
}

namespace QV::Filters {

/// The box of a frame before it is turned; nothing where the frame has no place or no size, or one that is no
/// number. Sizes are zero or more.
FILTERS_API boost::optional<DrawnBox> findSlideBox(const DOM::Frame& frame);

/// Leads from the coordinates of the frame's box, whose top-left corner is 0, 0, to those of the slide:
/// "translate(10 20) rotate(30 50 25)". An object that is turned out of the plane is projected along the axis
/// towards the viewer.
FILTERS_API std::string makeFrameTransform(const DOM::Frame& frame, const DrawnBox& box);

/// Mirrors what is drawn in the frame's box: "translate(100 0) scale(-1 1)".
FILTERS_API std::string makeFlipTransform(const DOM::Frame& frame, const Size2D<float>& size);

/// Turns and mirrors the children of a group, whose coordinates are those of the slide, about its centre.
FILTERS_API std::string makeGroupTransform(const DOM::Frame& frame, const DrawnBox& box);

/// How text stands in the frame's box, which is never mirrored: a frame that is flipped from top to bottom
/// turns it by 180 degrees.
/// @param isMirrored whether the groups around the frame mirror it
FILTERS_API std::string makeUprightTransform(
    const DOM::Frame& frame, const Size2D<float>& size, bool isMirrored);

} // namespace QV::Filters
