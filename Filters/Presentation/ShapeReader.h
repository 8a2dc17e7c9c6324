#pragma once

/// @file
/// Single shapes and pictures of a tree.

#include <memory>

#include <boost/optional.hpp>

#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Presentation/TreeElements.h>

namespace QV::Filters {

struct ShapeTreeScope;

/// How text looks before a shape, or a cell of a table, says anything. The defaults of the presentation go
/// before the master's style for text that is none of a placeholder, and behind the style of placeholders.
FILTERS_API DOM::TextLevels makeBaseLevels(
    const boost::optional<DOM::Placeholder>& placeholder, const ShapeTreeScope& scope);

/// Reads a shape or a connector with its text: its properties lie over those that its style refers to, and
/// these over what a placeholder takes over. Adds a placeholder to the scope's placeholders, where that
/// gathers them.
FILTERS_API std::unique_ptr<DOM::Shape> readTreeShape(const TreeObject& object, DOM::Shape::Kind kind,
    const TreeSurroundings& surroundings, const ShapeTreeScope& scope);

/// Reads a picture; null where its file is not there, which is reported. Of sound and video, the picture that
/// stands for them is read.
FILTERS_API std::unique_ptr<DOM::Picture> readTreePicture(
    const TreeObject& object, const TreeSurroundings& surroundings, const ShapeTreeScope& scope);

/// The picture of a "pic" element; nothing where its file is not there, which is reported.
FILTERS_API boost::optional<DOM::PictureFill> readTreePictureFill(const FilterUtils::XMLElement& picture,
    const TreeSurroundings& surroundings, const ShapeTreeScope& scope);

/// Gives a shape a style with these properties, and none where there are none.
FILTERS_API void setTreeShapeProps(
    DOM::Shape& shape, const DOM::ShapeProps& props, const ShapeTreeScope& scope);

} // namespace QV::Filters
