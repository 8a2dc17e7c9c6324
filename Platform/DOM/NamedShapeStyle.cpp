#include <DOM/Public/NamedShapeStyle.h>

#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/Styles.h>

namespace QV::DOM {

NamedShapeStyle::NamedShapeStyle() = default;
NamedShapeStyle::~NamedShapeStyle() = default;
NamedShapeStyle::NamedShapeStyle(NamedShapeStyle&& other) noexcept = default;
NamedShapeStyle& NamedShapeStyle::operator=(NamedShapeStyle&& other) noexcept = default;

const NamedShapeStyle* getParent(const Styles& styles, const ShapeStyle& style)
{
    return styles.getShapeStyles().find(style.getParentUUID());
}

const NamedShapeStyle* getParent(const Styles& styles, const NamedShapeStyle& style)
{
    return styles.getShapeStyles().find(style.getParentUUID());
}

} // namespace QV::DOM
