#pragma once

#include <DOM/Public/Frame.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>
#include <Filters/Spreadsheet/DrawingObjects.h>

namespace QV::FilterUtils {
class AnchorsConverter;
}

namespace QV::Filters {

/// Whether an object that is turned so far has the box that it would have after a quarter turn, with width
/// and height exchanged: from 45 to below 135 degrees, and from 225 to below 315.
/// @param rotation in 60,000ths of a degree, from 0 to below a full turn
FILTERS_API bool isQuarterTurned(int rotation);

/// A frame for an object in an anchor. Of one that is turned by about a quarter, the part keeps the exchanged
/// box, and the frame has the one of the object itself; where that lies partly beyond the sheet's edge, its
/// anchor is an absolute one, since cells begin at the edge.
FILTERS_API DOM::Frame makeAnchoredFrame(
    const DrawnAnchor& anchor, const DrawnObject& object, FilterUtils::AnchorsConverter& converter);

/// From the coordinates of a group's children to those of the sheet.
class FILTERS_API GroupScale
{
public:
    /// @param group where the group is on the sheet
    /// @param children the same in the coordinates of its children
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

/// A frame at a place of the sheet for a child of a group.
FILTERS_API DOM::Frame makePlacedFrame(const DrawnBox& box, const DrawnObject& object);

} // namespace QV::Filters
