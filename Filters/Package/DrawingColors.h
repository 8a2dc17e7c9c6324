#pragma once

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Colors;

/// The colour of an element that holds one in the way of drawings, such as "solidFill": by its parts, as a
/// system colour, or by its place in the theme, with its luminance and opacity changed.
///
/// @return nothing where it is given in another way, is changed otherwise (such as by shades), or cannot be
///     read, which is reported
FILTERS_API boost::optional<DOM::Color> readDrawingColor(
    const FilterUtils::XMLElement& element, const Colors& colors, OperationReport& report);

} // namespace QV::Filters
