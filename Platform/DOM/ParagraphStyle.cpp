#include <DOM/Public/ParagraphStyle.h>

#include <boost/functional/hash.hpp>

#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

bool ParagraphStyle::isEmpty() const
{
    return !_parentUUID && !_trackedParent && (!_paraProps || DOM::isEmpty(*_paraProps)) &&
           (!_runProps || DOM::isEmpty(*_runProps));
}

bool operator==(const ParagraphStyle& a, const ParagraphStyle& b)
{
    return a._parentUUID == b._parentUUID && a._trackedParent == b._trackedParent &&
           pointeesEqual(a._paraProps, b._paraProps) && pointeesEqual(a._runProps, b._runProps);
}

std::size_t hash_value(const ParagraphStyle& style)
{
    std::size_t seed = 0;
    boost::hash_combine(seed, style._parentUUID);
    boost::hash_combine(seed, style._trackedParent.value_or(UUID()));
    boost::hash_combine(seed, hashPointee(style._paraProps));
    boost::hash_combine(seed, hashPointee(style._runProps));
    return seed;
}

} // namespace QV::DOM
