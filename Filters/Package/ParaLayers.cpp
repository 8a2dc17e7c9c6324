#include <Filters/Package/ParaLayers.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Properties.h>

namespace QV::Filters {
namespace {

constexpr std::size_t TabStopsMax = 64;

DOM::TabStops::const_iterator getReadEnd(const DOM::TabStops& stops)
{
    return stops.begin() + static_cast<std::ptrdiff_t>(std::min(stops.size(), TabStopsMax));
}

std::shared_ptr<const DOM::TabStops> mergeTabStops(const DOM::TabStops& below, const DOM::TabStops& above)
{
    auto merged = std::make_shared<DOM::TabStops>();
    // Of two stops in one place, the first range's one is taken.
    std::set_union(above.begin(), getReadEnd(above), below.begin(), getReadEnd(below),
        std::back_inserter(*merged),
        [](const DOM::TabStop& a, const DOM::TabStop& b) { return a.getPosition() < b.getPosition(); });
    if (merged->size() > TabStopsMax)
        merged->erase(merged->begin() + static_cast<std::ptrdiff_t>(TabStopsMax), merged->end());
    return merged;
}

std::shared_ptr<const DOM::BordersProps> mergeParaBorders(
    const DOM::BordersProps& below, const DOM::BordersProps& above)
{
    auto merged = std::make_shared<DOM::BordersProps>(below);
    DOM::override(*merged, above);
    return merged;
}

bool isClearing(const DOM::TabStop& stop)
{
    return stop.getKind() == DOM::TabStop::Kind::Clear;
}

} // namespace

void layParaPropsOver(DOM::ParaProps& target, const DOM::ParaProps& source)
{
    const std::shared_ptr<const DOM::TabStops> stops = target.getTabStops();
    const std::shared_ptr<const DOM::BordersProps> borders = target.getBorders();
    DOM::override(target, source);
    if (stops && source.getTabStops())
        target.setTabStops(mergeTabStops(*stops, *source.getTabStops()));
    if (borders && source.getBorders())
        target.setBorders(mergeParaBorders(*borders, *source.getBorders()));
}

void layParaPropsOver(DOM::ParaProps& target, const std::shared_ptr<const DOM::ParaProps>& source)
{
    if (source)
        layParaPropsOver(target, *source);
}

void dropClearedTabStops(DOM::ParaProps& props)
{
    const std::shared_ptr<const DOM::TabStops> stops = props.getTabStops();
    if (!stops || std::none_of(stops->begin(), stops->end(), isClearing))
        return;
    auto kept = std::make_shared<DOM::TabStops>();
    std::remove_copy_if(stops->begin(), stops->end(), std::back_inserter(*kept), isClearing);
    props.setTabStops(kept->empty() ? nullptr : std::move(kept));
}

} // namespace QV::Filters
