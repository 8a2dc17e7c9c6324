#pragma once

namespace QV::DOM {
class Frame;
}

namespace QV::Filters {

class TextJsonState;

/// Writes an object with what a frame in a text shows: its "kind" ("picture", "shape", "group" or "other"),
/// its "name", its "width" and "height" in points, the "media" of a picture, the "text" on a shape and the
/// "blocks" that it consists of, and the "children" of a group.
void writeTextFrameJson(const DOM::Frame& frame, TextJsonState& state);

} // namespace QV::Filters
