#include <DOM/Public/ChartSpace.h>

#include <memory>

#include <boost/variant/get.hpp>

namespace QV::DOM {

boost::optional<std::string> ChartTitle::getShownText() const
{
    const std::string* const text = _text ? boost::get<std::string>(&*_text) : nullptr;
    return text ? *text : _cachedText;
}

ChartSpace::ChartSpace() = default;
ChartSpace::~ChartSpace() = default;

ChartSpace::ChartSpace(const ChartSpace& other)
    : _plotArea(other._plotArea)
{
    if (other._title)
        _title = std::make_unique<ChartTitle>(*other._title);
}

} // namespace QV::DOM
