#pragma once

/// @file
/// Lines and shadows of shapes as attributes of SVG, each with a blank in front.

#include <string>

#include <DOM/Public/ShapeProps.h>
#include <Filters/Package/Export.h>
#include <Filters/Preview/SlideFills.h>

namespace QV::Filters {

class SlideDefs;

/// Whether the shape has a line at all.
FILTERS_API bool hasLine(const DOM::ShapeProps& props);

/// Colour, width, dashes, caps and joins: ` stroke="#000000" stroke-width="0.75" stroke-linejoin="round"`.
/// Nothing for no line.
FILTERS_API std::string makeStroke(const DOM::ShapeProps& props, const FillArea& area, SlideDefs& defs);

/// What stands at the ends of an open path: ` marker-end="url(#d1)"`. Nothing for no line.
FILTERS_API std::string makeLineEnds(const DOM::ShapeProps& props, SlideDefs& defs);

/// ` filter="url(#d1)"` where the shape casts a shadow that is seen around it; else nothing.
FILTERS_API std::string makeShadow(const DOM::ShapeProps& props, const FillArea& area, SlideDefs& defs);

} // namespace QV::Filters
