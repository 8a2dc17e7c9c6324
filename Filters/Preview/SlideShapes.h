#pragma once

#include <string>

#include <DOM/Public/ShapeProps.h>

namespace QV::DOM {
class Frame;
class ShapeStyle;
class Styles;
} // namespace QV::DOM

namespace QV::Filters {

struct SlidePageContext;

/// What a style sets, over what the named styles set that it derives from.
DOM::ShapeProps makeEffectiveProps(const DOM::Styles& styles, const DOM::ShapeStyle& style);

/// Appends a frame with all that is in it as elements of SVG, in the coordinates of the slide: its outline,
/// picture, chart, table or children, and its text. A hidden one is not there.
void writeSlideFrame(const DOM::Frame& frame, SlidePageContext& context, std::string& page);

} // namespace QV::Filters
