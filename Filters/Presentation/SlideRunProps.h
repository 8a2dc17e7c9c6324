#pragma once

/// @file
/// How runs of slides' text look.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_XMLElement.h>

namespace QV::Filters {

struct PresentationContext;
struct SlidePart;

/// What an a:rPr, a:endParaRPr or a:defRPr element says: all of it is set directly. A gradient counts by its
/// first colour, a pattern by its foreground; no fill is a colour without opacity, but where the outline of
/// the letters has a colour, this one is taken. The text of a link has the theme's colour for links, unless
/// the link says that it has the text's, and is underlined. An invalid view sets nothing.
DOM::RunProps readSlideRunProps(
    const FilterUtils::XMLElement& properties, const SlidePart& part, PresentationContext& context);

/// @p text with the signs that a symbol font shows for its characters, where @p properties name one (a:sym),
/// and the text besides blanks is one character beyond ASCII, or all in the private use area. Other text
/// often keeps such a font from a sign before it, and is shown as it is.
std::string showSlideSymbols(const FilterUtils::XMLElement& properties, const std::string& text);

} // namespace QV::Filters
