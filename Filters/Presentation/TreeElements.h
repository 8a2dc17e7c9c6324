#pragma once

/// @file
/// Elements of trees of shapes: those of slides in both dialects, and of the drawings that diagrams keep,
/// which are made alike.

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Frame.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeFill.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/GroupScale.h>
#include <Filters/Presentation/Placeholders.h>

namespace QV::Filters {

struct ShapeTreeScope;

/// The local name of an element of a tree, by its qualified name; empty for any other element.
FILTERS_API std::string findTreeElementName(const std::string& qualifiedName);

/// The first child of that local name, or the invalid view.
FILTERS_API FilterUtils::XMLElement findTreeElement(const FilterUtils::XMLElement& parent, const char* name);

/// The text of a relationship's id, such as that of r:id; empty for none.
FILTERS_API std::string readRelationshipId(const FilterUtils::XMLElement& element, const char* name);

/// What the groups around an object say of it.
struct TreeSurroundings
{
    boost::optional<GroupScale> scale;    ///< nothing where coordinates are those of the slide
    const DOM::ShapeFill* fill = nullptr; ///< null for none
    unsigned depth = 0;
};

/// What an object of a tree says, whatever it shows.
struct TreeObject
{
    FilterUtils::XMLElement element;
    FilterUtils::XMLElement names;       ///< "cNvPr"
    FilterUtils::XMLElement application; ///< "nvPr"
    FilterUtils::XMLElement shapeProps;  ///< "spPr" or "grpSpPr"; invalid where it has none
    boost::optional<DOM::Placeholder> placeholder;
    const PlaceholderSource* source = nullptr; ///< what a placeholder takes over; null for nothing
    boost::optional<DrawnTransform> transform; ///< on the slide; the box of children is in their coordinates
};

/// Reads what all objects have. A place that the object does not give is that of its source; a rotation
/// without a place goes before that of the source.
FILTERS_API TreeObject readTreeObject(const FilterUtils::XMLElement& element,
    const TreeSurroundings& surroundings, const ShapeTreeScope& scope);

/// A frame at the object's place, with its names and its link. It is empty.
FILTERS_API std::unique_ptr<DOM::Frame> makeTreeFrame(const TreeObject& object, const ShapeTreeScope& scope);

} // namespace QV::Filters
