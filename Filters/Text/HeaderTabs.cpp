#include <Filters/Text/HeaderTabs.h>

#include <cstddef>
#include <memory>
#include <utility>

#include <boost/unordered_map.hpp>
#include <boost/unordered_set.hpp>

#include <DOM/Public/Document.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <FilterUtils/FU_HeadersFootersFactory.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Text/StyleParents.h>
#include <Filters/Text/TextContext.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

bool givesTabStops(const std::shared_ptr<const DOM::ParaProps>& props)
{
    return props && props->getTabStops() && !props->getTabStops()->empty();
}

/// Asks every chain once: a look for one style in the factory visits them all.
boost::unordered_set<UUID> findTabbedStyles(const FilterUtils::NamedStylesFactory& styles)
{
    boost::unordered_map<UUID, const DOM::NamedTextStyle*> byUuid;
    for (const DOM::NamedTextStyle& style : styles.getTextStyles())
        byUuid.emplace(style.getUUID(), &style);
    boost::unordered_set<UUID> tabbed;
    for (const auto& [uuid, style] : byUuid) {
        const DOM::NamedTextStyle* ancestor = style;
        for (std::size_t i = 0; ancestor && i <= MaxStyleChain; ++i) {
            if (givesTabStops(ancestor->getParaProps())) {
                tabbed.insert(uuid);
                break;
            }
            const auto parent = byUuid.find(ancestor->getParentUUID());
            ancestor = parent == byUuid.end() ? nullptr : parent->second;
        }
    }
    return tabbed;
}

std::size_t countTabRuns(const DOM::Paragraph& paragraph)
{
    std::size_t count = 0;
    for (const DOM::Run& run : paragraph.getRuns())
        count += dynamic_cast<const DOM::TabRun*>(&run) ? 1 : 0;
    return count;
}

} // namespace

void HeaderTabs::align(DOM::Block& block)
{
    constexpr std::size_t TabsBetweenThreeParts = 2;
    auto* const paragraph = dynamic_cast<DOM::Paragraph*>(&block);
    if (!paragraph || countTabRuns(*paragraph) != TabsBetweenThreeParts || hasTabStops(paragraph->getStyle()))
        return;
    if (FilterUtils::convertParagraphAlignment(*paragraph) != DOM::HeaderFooterAlignment::Left)
        return; // whose lines do not begin where stops count from
    DOM::SharedObjectFactory& shared = _context.run.getDocument().getSharedObjectFactory();
    paragraph->setSharedStyle(shared.getShared(makeAligned(paragraph->getStyle())));
}

bool HeaderTabs::hasTabStops(const DOM::ParagraphStyle& style)
{
    if (givesTabStops(style.getParaProps()))
        return true;
    const FilterUtils::NamedStylesFactory& styles = _context.styles.factory;
    if (givesTabStops(styles.getDefaultParaProps()))
        return true;
    if (!_context.tabbedStyles)
        _context.tabbedStyles = findTabbedStyles(styles);
    const DOM::ParagraphStyle& asking = style.getParentUUID() ? style : styles.getDefaultParagraphStyle();
    return _context.tabbedStyles->count(asking.getParentUUID()) != 0;
}

DOM::ParagraphStyle HeaderTabs::makeAligned(const DOM::ParagraphStyle& style) const
{
    DOM::ParaProps props;
    if (style.getParaProps())
        props = *style.getParaProps();
    const float right = FilterUtils::getJustifiedTabPosition(&_pair, props, false);
    if (!(right > 0))
        return style; // the margins leave no room
    props.setTabStops(std::make_shared<DOM::TabStops>(DOM::TabStops{
        {DOM::TabStop::Kind::Center, right / 2},
        {DOM::TabStop::Kind::Right,  right    }
    }));
    DOM::ParagraphStyle aligned = style;
    aligned.setParaProps(std::make_shared<DOM::ParaProps>(std::move(props)));
    return aligned;
}

} // namespace QV::Filters
