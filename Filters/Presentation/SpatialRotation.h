#pragma once

#include <array>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// How an object is turned out of the plane by the camera that looks at it: the a:rot of its a:scene3d
/// (ECMA-376 Part 1, 20.1.5.11), together with its rotation in the plane; as DOM::Frame keeps it.
///
/// The object is first turned in the plane, then by its longitude, its latitude and its revolution. A
/// positive longitude brings the right side towards the viewer, a positive latitude the top. A revolution
/// turns counterclockwise: alone, one of 30 degrees is the same as a rotation in the plane by -30.
///
/// @param shapeProps "spPr" or "grpSpPr"
/// @param rotation in the plane, in degrees clockwise
/// @return nothing where the camera turns nothing. Views that are only named are left out by name. Reported:
///     - "Camera angle {} is none": 0 stands
FILTERS_API boost::optional<std::array<float, 3>> readSpatialRotation(
    const FilterUtils::XMLElement& shapeProps, float rotation, FilterRun& run);

} // namespace QV::Filters
