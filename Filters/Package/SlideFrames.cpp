#include <Filters/Package/SlideFrames.h>

#include <string>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>

namespace QV::Filters {

// Groups lie in one another as deep as the importer lets them.
void forEachSeenFrame(const DOM::Shape& parent, const std::function<void(const DOM::Frame&)>& function)
{
    for (const DOM::Frame& child : parent.getChildren()) {
        if (child.isHidden())
            continue;
        const auto* const shape = dynamic_cast<const DOM::Shape*>(child.getGraphicalObject());
        if (shape && shape->getKind() == DOM::Shape::Kind::Group)
            forEachSeenFrame(*shape, function);
        else
            function(child);
    }
}

bool hasSeenText(const DOM::Shape& shape)
{
    return shape.getText() && shape.getText()->getPlainText().find_first_not_of(" \t\n") != std::string::npos;
}

const DOM::Shape* findSlideTitle(const DOM::Shape& slide)
{
    for (const DOM::Frame& child : slide.getChildren()) {
        const auto* const shape = dynamic_cast<const DOM::Shape*>(child.getGraphicalObject());
        if (!shape || !shape->getPlaceholder() || child.isHidden())
            continue;
        const std::string& type = shape->getPlaceholder()->type;
        if ((type == "title" || type == "ctrTitle") && hasSeenText(*shape))
            return shape;
    }
    return nullptr;
}

bool isBlankStyle(const DOM::NamedShapeStyle& style)
{
    return style.getName().empty() && style.getChildren().empty() && !style.getShapeProps() &&
           !style.getTitleLevels() && !style.getBodyLevels() && !style.getOtherLevels();
}

} // namespace QV::Filters
