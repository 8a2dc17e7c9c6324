#pragma once

#include <cstddef>
#include <string>

namespace QV::DOM {
class Shape;
}

namespace QV::Filters {

struct SlidePageContext;

/// Appends a slide as a section: its number, its picture with what its layout and its master show below it,
/// and the speaker's notes.
/// @param number from 1 on; the section's id is "slide1"
void writeSlide(const DOM::Shape& slide, std::size_t number, SlidePageContext& context, std::string& page);

} // namespace QV::Filters
