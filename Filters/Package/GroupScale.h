#pragma once

#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Whether an object that is turned so far has the box that it would have after a quarter turn, with width
/// and height exchanged: from 45 to below 135 degrees, and from 225 to below 315.
/// @param rotation in 60,000ths of a degree, from 0 to below a full turn
FILTERS_API bool isQuarterTurned(int rotation);

/// From the coordinates of a group's children to those of the sheet or slide.
///
/// A child that is turned by about a quarter (see isQuarterTurned) is stretched along the sides that show:
/// its width as the group's height is, and its height as the group's width.
class FILTERS_API GroupScale
{
public:
    /// @param group where the group is on the sheet
    /// @param children the same in the coordinates of its children; a side of 0 does not scale
    GroupScale(const DrawnBox& group, const DrawnBox& children);

    /// Coordinates that leave those of drawings end there.
    DrawnBox apply(const DrawnBox& box, int rotation) const;

private:
    DrawnBox scale(const DrawnBox& box) const;

    DrawnBox _group;
    DrawnBox _children;
    float _scaleX;
    float _scaleY;
};

} // namespace QV::Filters
