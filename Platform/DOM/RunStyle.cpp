#include <DOM/Public/RunStyle.h>

#include <boost/functional/hash.hpp>

namespace QV::DOM {

bool RunStyle::isEmpty() const
{
    return !_parentUUID && (!_runProps || DOM::isEmpty(*_runProps));
}

bool operator==(const RunStyle& a, const RunStyle& b)
{
    return a._parentUUID == b._parentUUID &&
           (a._runProps == b._runProps || (a._runProps && b._runProps && *a._runProps == *b._runProps));
}

std::size_t hash_value(const RunStyle& style)
{
    std::size_t seed = 0;
    boost::hash_combine(seed, style._parentUUID);
    boost::hash_combine(seed, style._runProps != nullptr);
    if (style._runProps)
        boost::hash_combine(seed, *style._runProps);
    return seed;
}

} // namespace QV::DOM
