#pragma once

/// @file
/// The tree of shapes of a slide, layout or master.

#include <functional>
#include <memory>
#include <vector>

#include <DOM/Public/Frame.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Presentation/Placeholders.h>

namespace QV::Filters {

struct PresentationContext;
struct SlidePart;

/// The text styles of a master; those that it does not have set nothing.
struct MasterTextStyles
{
    DOM::TextLevels defaults; ///< what the presentation says of all text, in the master's colours and fonts
    DOM::TextLevels title;
    DOM::TextLevels body;
    DOM::TextLevels other;
};

/// What the shapes of one part take over, and from where.
struct ShapeTreeScope
{
    PresentationContext& context;
    const SlidePart& part;
    const MasterTextStyles& textStyles; ///< of the master
    /// Finds what a placeholder takes over; null where it takes over nothing.
    std::function<const PlaceholderSource*(const DOM::Placeholder&)> findSource;
    /// Receives the placeholders of the part; null for those of slides.
    PlaceholderSources* placeholders = nullptr;
};

/// Reads the frames of a p:spTree element, from back to front: shapes, pictures, connectors, groups with
/// their children, tables, charts, and objects of other programs by the picture that the file keeps of them.
/// Extents and anchors are the effective ones, in points on the slide, also of the children of groups; what
/// says nothing of its place, and takes none over, has none and no size: it lies at 0, 0.
///
/// Choices between alternatives (mc:AlternateContent) are made, in their place among the others.
FILTERS_API std::vector<std::unique_ptr<DOM::Frame>> readShapeTree(
    const FilterUtils::XMLElement& tree, const ShapeTreeScope& scope);

} // namespace QV::Filters
