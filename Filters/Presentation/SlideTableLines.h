#pragma once

/// @file
/// Lines and fills of cells: what drawings have, as tables of the model keep it.

#include <memory>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/ShapeFill.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The one colour that comes nearest to a fill: of a gradient, the first. Transparent for no fill; nothing
/// for a picture.
FILTERS_API boost::optional<DOM::Color> findTableColor(const DOM::ShapeFill& fill);

/// Reads a line element, such as "lnL" or "ln". Null where it says nothing of what the line is filled with,
/// and for the invalid view; no fill is no line, said explicitly.
FILTERS_API std::shared_ptr<const DOM::LineProps> readTableLine(
    const FilterUtils::XMLElement& line, const DrawingScope& scope);

} // namespace QV::Filters
