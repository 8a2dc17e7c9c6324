#pragma once

/// @file
/// Where drawn objects stand.

#include <boost/optional.hpp>

#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::Filters {

/// A box in points.
struct DrawnBox
{
    cinder::Vec2<float> offset;
    Size2D<float> extent;
};

/// How an object stands in its anchor or group.
struct DrawnTransform
{
    boost::optional<DrawnBox> box;      ///< in the coordinates of the group, or of the sheet
    boost::optional<DrawnBox> childBox; ///< of a group: what its box is in the coordinates of its children
    int rotation = 0;                   ///< in 60,000ths of a degree clockwise, from 0 to below 21,600,000
    bool isFlippedHorizontally = false;
    bool isFlippedVertically = false;
};

} // namespace QV::Filters
