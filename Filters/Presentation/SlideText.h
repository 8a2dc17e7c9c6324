#pragma once

/// @file
/// Text on shapes, in cells of slides and in notes.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/CellText.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

struct PresentationContext;
struct SlidePart;

/// What the text of one shape takes over.
struct SlideTextScope
{
    PresentationContext& context;
    const SlidePart& part;
    DOM::TextLevels levels; ///< all layers below the text's own list style together
};

/// Reads list levels: an element with lvl1pPr to lvl9pPr, such as a:lstStyle, p:bodyStyle or
/// p:defaultTextStyle. What defPPr says holds for all levels, below what they say. An invalid view sets
/// nothing.
FILTERS_API DOM::TextLevels readTextLevels(
    const FilterUtils::XMLElement& styles, const SlidePart& part, PresentationContext& context);

/// Lays what a bodyPr element says over @p props: insets, alignment, wrapping, direction, fit, columns. What
/// it does not say stays unset; a renderer takes 7.2 points for the insets at the sides, 3.6 for the others.
FILTERS_API void readTextBodyProps(
    const FilterUtils::XMLElement& bodyProperties, DOM::ShapeProps& props, OperationReport& report);

/// Reads the paragraphs of a txBody element: effective paragraph and run properties are set directly;
/// bulleted and numbered paragraphs refer to lists that are added to the context's, on their level, and
/// numbers go on as PresentationML counts them: within one text, as long as paragraphs of a level have the
/// same scheme and start and no paragraph of an outer level, or without a number on that level, lies between
/// them. Fields are their last text, a slide number included; line breaks are break runs; links are those
/// that the part's relationships name. Paragraphs without text have no marker, and numbers go on behind them
/// as if they were not there. Of formulas, the text is kept. Messages, besides those of the values:
///     - "List level {} of a slide's text is none": the nearest one stands
///     - "Text on a slide is cut after {} paragraphs"
///     - "Text of the presentation is cut after {} paragraphs"
///     - "Hyperlink of more than {} bytes is left out"
///
/// @return null for an invalid view; a paragraph for each a:p, also for empty ones
FILTERS_API DOM::SharedCellText readSlideText(
    const FilterUtils::XMLElement& textBody, const SlideTextScope& scope);

/// Where a click on an element with a:hlinkClick leads: a URL, "#" with the name of a slide's part for
/// another slide; nothing for none, and for jumps such as to the next slide. Reported:
///     - "Hyperlink has an unknown relationship {}"
FILTERS_API boost::optional<std::string> readClickTarget(
    const FilterUtils::XMLElement& properties, const SlidePart& part, PresentationContext& context);

} // namespace QV::Filters
