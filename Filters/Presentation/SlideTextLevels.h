#pragma once

/// @file
/// The properties of one list level of slides' text.

#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_XMLElement.h>

namespace QV::Filters {

struct PresentationContext;
struct SlidePart;

/// What an element such as a:lvl1pPr, a:defPPr or a:pPr says of its paragraphs and their markers: all but how
/// their runs look. An invalid view sets nothing.
DOM::TextLevel readTextLevelProps(
    const FilterUtils::XMLElement& properties, const SlidePart& part, PresentationContext& context);

} // namespace QV::Filters
