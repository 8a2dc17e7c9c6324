#include <DOM/Public/ShapeStyle.h>

#include <boost/functional/hash.hpp>

#include <DOM/Public/SharedObjectFactory.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

bool ShapeStyle::isEmpty() const
{
    return !_parentUUID && (!_shapeProps || DOM::isEmpty(*_shapeProps));
}

bool operator==(const ShapeStyle& a, const ShapeStyle& b)
{
    return a._parentUUID == b._parentUUID && pointeesEqual(a._shapeProps, b._shapeProps);
}

std::size_t hash_value(const ShapeStyle& style)
{
    std::size_t seed = 0;
    boost::hash_combine(seed, style._parentUUID);
    boost::hash_combine(seed, hashPointee(style._shapeProps));
    return seed;
}

const ShapeStyle& getEmptyShapeStyle()
{
    static const ShapeStyle empty;
    return empty;
}

void setToSharedStyle(SharedObjectFactory& factory, SharedShapeStyle& style, const ParentUUID& attribute)
{
    ShapeStyle changed = style ? *style : getEmptyShapeStyle();
    changed.set(attribute);
    style = factory.getShared(changed);
}

} // namespace QV::DOM
