#include <DOM/Public/SharedObjectFactory.h>

namespace QV::DOM {

template <typename T>
boost::intrusive_ptr<const T> SharedObjectFactory::getFrom(Pool<T>& pool, const T& value)
{
    return *pool.insert(boost::intrusive_ptr<const T>(new T(value))).first;
}

SharedCellStyle SharedObjectFactory::getShared(const CellStyle& style)
{
    return getFrom(_cellStyles, style);
}

SharedRunStyle SharedObjectFactory::getShared(const RunStyle& style)
{
    return getFrom(_runStyles, style);
}

SharedParagraphStyle SharedObjectFactory::getShared(const ParagraphStyle& style)
{
    return getFrom(_paragraphStyles, style);
}

SharedShapeStyle SharedObjectFactory::getShared(const ShapeStyle& style)
{
    return getFrom(_shapeStyles, style);
}

} // namespace QV::DOM
