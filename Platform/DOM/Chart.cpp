#include <DOM/Public/Chart.h>

#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

Chart::Chart(ChartType type)
    : _type(type)
{
}

Chart::~Chart() = default;

Chart::Chart(const Chart& other)
    : _type(other._type)
    , _barDirection(other._barDirection)
    , _grouping(other._grouping)
    , _categories(other._categories)
{
    _series.reserve(other._series.size());
    for (const std::unique_ptr<Series>& series : other._series)
        _series.push_back(clonePtr(series));
}

} // namespace QV::DOM
