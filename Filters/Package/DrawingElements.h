#pragma once

/// @file
/// Values of drawings: places, sizes and transforms, from elements in either dialect.

#include <functional>
#include <string>

#include <Utils/Public/Size2D.h>
#include <boost/optional.hpp>

#include <DOM/Public/TableOffset.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/Namespaces.h>
#include <cinder/Vector.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// The first child of that name in either dialect, or the invalid view.
FILTERS_API FilterUtils::XMLElement findDrawingElement(
    const FilterUtils::XMLElement& parent, Vocabulary vocabulary, const char* name);

/// Calls @p function for each child of that vocabulary in either dialect, in document order, with its local
/// name.
FILTERS_API void forEachDrawingElement(const FilterUtils::XMLElement& parent, Vocabulary vocabulary,
    const std::function<void(const std::string& name, const FilterUtils::XMLElement& child)>& function);

/// How many elements there are with all below; counted as far as one more than @p max.
FILTERS_API unsigned countDrawingElements(const FilterUtils::XMLElement& element, unsigned max);

/// Reads a coordinate: a whole number of EMU, or a length with its unit.
///
/// @return points; nothing after one message, where the text is neither, or beyond the coordinates of
///     drawings, 27,273,042,329,600 EMU either way
FILTERS_API boost::optional<float> readCoordinate(const std::string& text, OperationReport& report);

/// Reads the point of an element with x and y; what is not there or cannot be read is 0.
FILTERS_API cinder::Vec2<float> readPoint(const FilterUtils::XMLElement& element, OperationReport& report);

/// Reads the size of an element with cx and cy; what is not there, cannot be read or is negative is 0.
FILTERS_API Size2D<float> readSize(const FilterUtils::XMLElement& element, OperationReport& report);

/// Reads the cell of an anchor, "from" or "to". A row or column that is no number or beyond the sheet is
/// reported, and becomes the nearest one that there is.
FILTERS_API DOM::TableOffset readMarker(const FilterUtils::XMLElement& element, OperationReport& report);

/// Reads an "xfrm" element; the invalid view has no box.
FILTERS_API DrawnTransform readTransform(const FilterUtils::XMLElement& element, OperationReport& report);

} // namespace QV::Filters
