#include <DOM/Public/CellStyle.h>

#include <boost/functional/hash.hpp>

namespace QV::DOM {
namespace {

template <typename T>
bool pointToEqual(const std::shared_ptr<const T>& a, const std::shared_ptr<const T>& b)
{
    return a == b || (a && b && *a == *b);
}

template <typename T>
void combinePointee(std::size_t& seed, const std::shared_ptr<const T>& pointer)
{
    boost::hash_combine(seed, pointer != nullptr);
    if (pointer)
        boost::hash_combine(seed, *pointer);
}

} // namespace

bool CellStyle::isEmpty() const
{
    return !_parentUUID && (!_cellProps || DOM::isEmpty(*_cellProps)) &&
           (!_runProps || DOM::isEmpty(*_runProps));
}

bool operator==(const CellStyle& a, const CellStyle& b)
{
    return a._parentUUID == b._parentUUID && pointToEqual(a._cellProps, b._cellProps) &&
           pointToEqual(a._runProps, b._runProps);
}

std::size_t hash_value(const CellStyle& style)
{
    std::size_t seed = 0;
    boost::hash_combine(seed, style._parentUUID);
    combinePointee(seed, style._cellProps);
    combinePointee(seed, style._runProps);
    return seed;
}

} // namespace QV::DOM
