#include <DOM/Public/Shape.h>

#include <boost/variant.hpp>

#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeGeometry.h>
#include <DOM/Public/ShapeProps.h>

namespace QV::DOM {

Shape::Shape() = default;
Shape::~Shape() = default;

const ShapeStyle& Shape::getStyle() const
{
    return _style ? *_style : getEmptyShapeStyle();
}

template <typename Change>
void Shape::changeProps(Change change)
{
    const std::shared_ptr<const ShapeProps>& own = getStyle().getShapeProps();
    auto props = own ? std::make_shared<ShapeProps>(*own) : std::make_shared<ShapeProps>();
    change(*props);
    const boost::intrusive_ptr<ShapeStyle> style(new ShapeStyle(getStyle()));
    style->setShapeProps(std::move(props));
    _style = style;
}

const std::string& Shape::getPresetGeometry() const
{
    static const std::string none;
    const std::shared_ptr<const ShapeProps>& props = getStyle().getShapeProps();
    return props && props->getGeometry() ? props->getGeometry()->preset : none;
}

void Shape::setPresetGeometry(std::string name)
{
    const auto geometry = std::make_shared<ShapeGeometry>();
    geometry->preset = std::move(name);
    changeProps([&](ShapeProps& props) { props.setGeometry(geometry); });
}

boost::optional<Color> Shape::getFillColor() const
{
    const std::shared_ptr<const ShapeProps>& props = getStyle().getShapeProps();
    const auto* const fill = props && props->getFill() ? boost::get<SolidFill>(&*props->getFill()) : nullptr;
    return fill ? boost::make_optional(fill->color) : boost::none;
}

void Shape::setFillColor(const boost::optional<Color>& color)
{
    changeProps([&](ShapeProps& props) {
        props.setFill(color ? boost::make_optional(ShapeFill(SolidFill(*color))) : boost::none);
    });
}

} // namespace QV::DOM
