#pragma once

/// @file
/// What stands on a slide, and what slides are made after.

#include <functional>

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Frame;
class NamedShapeStyle;
class Shape;
} // namespace QV::DOM

namespace QV::Filters {

/// Calls @p function for each frame of a slide or group that readers see, from back to front, the children of
/// groups in the place of these.
FILTERS_API void forEachSeenFrame(
    const DOM::Shape& parent, const std::function<void(const DOM::Frame&)>& function);

/// Whether the shape has text other than blanks.
FILTERS_API bool hasSeenText(const DOM::Shape& shape);

/// The first placeholder of a slide that is for its title, and has text. Null for none.
FILTERS_API const DOM::Shape* findSlideTitle(const DOM::Shape& slide);

/// Whether a master or layout only stands in for one that the file does not have: it has no name, and nothing
/// on it.
FILTERS_API bool isBlankStyle(const DOM::NamedShapeStyle& style);

} // namespace QV::Filters
