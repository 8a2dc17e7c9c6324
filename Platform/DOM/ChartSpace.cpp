#include <DOM/Public/ChartSpace.h>

#include <boost/variant/get.hpp>

#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

boost::optional<std::string> ChartTitle::getShownText() const
{
    const std::string* const text = _text ? boost::get<std::string>(&*_text) : nullptr;
    return text ? *text : _cachedText;
}

ChartSpace::ChartSpace() = default;
ChartSpace::~ChartSpace() = default;

ChartSpace::ChartSpace(const ChartSpace& other)
    : _title(copyPtr(other._title))
    , _plotArea(other._plotArea)
{
}

} // namespace QV::DOM
