#pragma once

#include <string>

#include <Filters/Package/DrawnTransform.h>
#include <Utils/Public/Size2D.h>

namespace QV::DOM {
class CellText;
class ShapeProps;
class Table;
} // namespace QV::DOM

namespace QV::Filters {

struct SlidePageContext;

/// Appends the text of a shape as HTML in a box of its size, without the insets: aligned, turned, shrunk and
/// in columns as the shape says. What does not fit is seen beyond the box. Nothing for a text without
/// characters.
/// @param box the text rectangle of the outline, in the coordinates of the shape
void writeSlideText(const DOM::CellText& text, const DOM::ShapeProps& props, const DrawnBox& box,
    unsigned depth, SlidePageContext& context, std::string& page);

/// Appends a table as HTML; its rows may become higher than they say.
void writeSlideTable(const DOM::Table& table, const Size2D<float>& size, unsigned depth,
    SlidePageContext& context, std::string& page);

} // namespace QV::Filters
