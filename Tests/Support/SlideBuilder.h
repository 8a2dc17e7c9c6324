#pragma once

/// @file
/// Presentations of the model for tests, shape by shape.

#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/Styles.h>

namespace QV::Tests {

/// Appends a slide with nothing on it.
inline DOM::Shape& appendSlide(
    DOM::Document& document, std::shared_ptr<const DOM::SlideProps> props = nullptr)
{
    auto slide = std::make_unique<DOM::Shape>();
    slide->setKind(DOM::Shape::Kind::Slide);
    slide->setSlideProps(std::move(props));
    DOM::Shape& reference = *slide;
    document.getBlocks().append(std::move(slide));
    return reference;
}

/// Makes the style the parent of the slide's.
inline void setLayout(DOM::Shape& slide, const UUID& layout)
{
    auto* const style = new DOM::ShapeStyle(slide.getStyle());
    style->setParentUUID(layout);
    slide.setSharedStyle(DOM::SharedShapeStyle(style));
}

/// @return the identifier of the style that was added
inline UUID addShapeStyle(DOM::Document& document, const std::string& name, const UUID& parent = UUID())
{
    DOM::NamedShapeStyle style;
    style.setName(name);
    style.setParentUUID(parent);
    return document.getStyles().getShapeStyles().insert(std::move(style)).getUUID();
}

/// Appends a frame that shows @p object to a slide or group.
inline DOM::Frame& appendFrame(DOM::Shape& parent, std::unique_ptr<DOM::GraphicalObject> object)
{
    auto frame = std::make_unique<DOM::Frame>();
    frame->setGraphicalObject(std::move(object));
    DOM::Frame& reference = *frame;
    parent.appendChild(std::move(frame));
    return reference;
}

inline std::unique_ptr<DOM::Shape> makeShape(DOM::SharedCellText text, const char* placeholder = nullptr)
{
    auto shape = std::make_unique<DOM::Shape>();
    shape->setText(std::move(text));
    if (placeholder) {
        DOM::Placeholder room;
        room.type = placeholder;
        shape->setPlaceholder(room);
    }
    return shape;
}

/// Gives the shape a style of its own with these properties.
inline void setShapeProps(DOM::Shape& shape, const DOM::ShapeProps& props)
{
    auto* const style = new DOM::ShapeStyle(shape.getStyle());
    style->setShapeProps(std::make_shared<const DOM::ShapeProps>(props));
    shape.setSharedStyle(DOM::SharedShapeStyle(style));
}

} // namespace QV::Tests
