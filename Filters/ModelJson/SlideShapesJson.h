#pragma once

namespace QV::DOM {
class Shape;
}

namespace QV::Filters {

class TextJsonState;

/// Writes an array with an object for each frame of a slide or group, from back to front: what it shows,
/// where it stands, how it looks, and its text.
void writeSlideShapesJson(const DOM::Shape& parent, TextJsonState& state);

} // namespace QV::Filters
