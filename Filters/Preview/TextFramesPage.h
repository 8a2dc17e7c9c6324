#pragma once

#include <string>

namespace QV::DOM {
class Frame;
class Shape;
} // namespace QV::DOM

namespace QV::Filters {

struct TextPageContext;
struct TextPlace;

/// Appends what a frame in a run shows, at its size: pictures and charts in the line, or beside the lines
/// where the frame is anchored on the page, on the side that it is nearer to. What is beyond the limits is
/// counted.
/// @param boxes receives the elements of shapes instead of @p page
void writeTextFrame(const DOM::Frame& frame, const TextPlace& place, TextPageContext& context,
    std::string& page, std::string& boxes);

/// Appends a shape that is a block by itself, as a box with its text.
void writeTextShape(
    const DOM::Shape& shape, const TextPlace& place, TextPageContext& context, std::string& page);

} // namespace QV::Filters
