#pragma once

#include <DOM/Public/Frame.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>
#include <Filters/Spreadsheet/DrawingObjects.h>

namespace QV::FilterUtils {
class AnchorsConverter;
}

namespace QV::Filters {

/// A frame for an object in an anchor. Of one that is turned by about a quarter, the part keeps the exchanged
/// box, and the frame has the one of the object itself; where that lies partly beyond the sheet's edge, its
/// anchor is an absolute one, since cells begin at the edge.
FILTERS_API DOM::Frame makeAnchoredFrame(
    const DrawnAnchor& anchor, const DrawnObject& object, FilterUtils::AnchorsConverter& converter);

/// A frame at a place of the sheet for a child of a group.
FILTERS_API DOM::Frame makePlacedFrame(const DrawnBox& box, const DrawnObject& object);

} // namespace QV::Filters
