#include <DOM/Public/CellStyle.h>

#include <boost/functional/hash.hpp>

#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

bool CellStyle::isEmpty() const
{
    return !_parentUUID && (!_cellProps || DOM::isEmpty(*_cellProps)) &&
           (!_paraProps || DOM::isEmpty(*_paraProps)) && (!_runProps || DOM::isEmpty(*_runProps));
}

bool operator==(const CellStyle& a, const CellStyle& b)
{
    return a._parentUUID == b._parentUUID && pointeesEqual(a._cellProps, b._cellProps) &&
           pointeesEqual(a._paraProps, b._paraProps) && pointeesEqual(a._runProps, b._runProps);
}

std::size_t hash_value(const CellStyle& style)
{
    std::size_t seed = 0;
    boost::hash_combine(seed, style._parentUUID);
    boost::hash_combine(seed, hashPointee(style._cellProps));
    boost::hash_combine(seed, hashPointee(style._paraProps));
    boost::hash_combine(seed, hashPointee(style._runProps));
    return seed;
}

} // namespace QV::DOM
