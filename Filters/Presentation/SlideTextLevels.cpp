#include <Filters/Presentation/SlideTextLevels.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/ParaProps.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideBullets.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Filters/Presentation/SlideRunProps.h>
#include <Filters/Presentation/SlideText.h>
#include <Filters/Presentation/SlideTextValues.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr float SlideIndentMax = 4032; // ECMA-376 Part 1, 20.1.10.72 and 20.1.10.73
constexpr unsigned long SlideSpaceMax = 158'400;
constexpr float SlideSpaceShareMax = 132;
constexpr std::size_t SlideTabsMax = 1000;

constexpr SlideTextName<DOM::HorizontalAlignment> SlideAlignments[] = {
    {"l",        DOM::HorizontalAlignment::Left       },
    {"ctr",      DOM::HorizontalAlignment::Center     },
    {"r",        DOM::HorizontalAlignment::Right      },
    {"just",     DOM::HorizontalAlignment::Justify    },
    {"justLow",  DOM::HorizontalAlignment::Justify    },
    {"dist",     DOM::HorizontalAlignment::Distributed},
    {"thaiDist", DOM::HorizontalAlignment::Distributed},
};

constexpr SlideTextName<DOM::TabStop::Kind> SlideTabKinds[] = {
    {"l",   DOM::TabStop::Kind::Left   },
    {"ctr", DOM::TabStop::Kind::Center },
    {"r",   DOM::TabStop::Kind::Right  },
    {"dec", DOM::TabStop::Kind::Decimal},
};

/// Of an lnSpc, spcBef or spcAft element: one of both, or none.
struct SlideSpace
{
    boost::optional<float> points;
    boost::optional<float> share;
};

SlideSpace readSlideSpace(const XMLElement& element, OperationReport& report)
{
    SlideSpace space;
    forEachDrawingElement(
        element, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& child) {
            const SlideTextAttribute value(child, "val", report);
            if (name == "spcPts")
                space = {value.readPoints(0, SlideSpaceMax), boost::none};
            else if (name == "spcPct")
                space = {boost::none, value.readShare(0, SlideSpaceShareMax)};
        });
    return space;
}

boost::optional<DOM::LineSpacing> makeSlideLineSpacing(const SlideSpace& space)
{
    if (space.points)
        return DOM::LineSpacing(DOM::LineSpacing::Kind::Exact, *space.points);
    if (space.share)
        return DOM::LineSpacing(DOM::LineSpacing::Kind::Multiple, *space.share);
    return boost::none;
}

std::shared_ptr<const DOM::TabStops> readSlideTabs(const XMLElement& list, OperationReport& report)
{
    auto stops = std::make_shared<DOM::TabStops>();
    forEachDrawingElement(list, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& tab) {
        if (name != "tab" || stops->size() >= SlideTabsMax)
            return;
        const auto kind = SlideTextAttribute(tab, "algn", report).readName(SlideTabKinds);
        if (const auto position = SlideTextAttribute(tab, "pos", report).readLength(SlideIndentMax))
            stops->emplace_back(kind.value_or(DOM::TabStop::Kind::Left), *position);
    });
    std::stable_sort(stops->begin(), stops->end(),
        [](const DOM::TabStop& a, const DOM::TabStop& b) { return a.getPosition() < b.getPosition(); });
    return stops;
}

void readSlideParaAttributes(const XMLElement& element, OperationReport& report, DOM::ParaProps& props)
{
    const auto attribute = [&](const char* name) { return SlideTextAttribute(element, name, report); };
    props.setLeftIndent(attribute("marL").readLength(SlideIndentMax));
    props.setRightIndent(attribute("marR").readLength(SlideIndentMax));
    props.setFirstLineIndent(attribute("indent").readLength(SlideIndentMax));
    props.setAlignment(attribute("algn").readName(SlideAlignments));
    props.setRightToLeft(attribute("rtl").readFlag());
}

DOM::TextLevel readWholeLevel(
    const XMLElement& properties, const SlidePart& part, PresentationContext& context)
{
    DOM::TextLevel level = readTextLevelProps(properties, part, context);
    level.runProps =
        readSlideRunProps(findDrawingElement(properties, Vocabulary::Drawing, "defRPr"), part, context);
    return level;
}

} // namespace

DOM::TextLevel readTextLevelProps(
    const XMLElement& properties, const SlidePart& part, PresentationContext& context)
{
    DOM::TextLevel level;
    if (!properties.isValid())
        return level;
    OperationReport report;
    readSlideParaAttributes(properties, report, level.paraProps);
    forEachDrawingElement(
        properties, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& child) {
            if (name == "lnSpc") {
                level.paraProps.setLineSpacing(makeSlideLineSpacing(readSlideSpace(child, report)));
            } else if (name == "spcBef") {
                const SlideSpace space = readSlideSpace(child, report);
                level.paraProps.setSpaceBefore(space.points);
                level.spaceBeforeShare = space.share;
            } else if (name == "spcAft") {
                const SlideSpace space = readSlideSpace(child, report);
                level.paraProps.setSpaceAfter(space.points);
                level.spaceAfterShare = space.share;
            } else if (name == "tabLst") {
                level.paraProps.setTabStops(readSlideTabs(child, report));
            } else {
                if (name == "buBlip")
                    context.run.leaveOut(SlideLeftOut::PictureBullets);
                readTextBullet(name, child, part, report, level.bullet);
            }
        });
    takeSlideMessages(report, context);
    return level;
}

DOM::TextLevels readTextLevels(const XMLElement& styles, const SlidePart& part, PresentationContext& context)
{
    DOM::TextLevels levels;
    if (!styles.isValid())
        return levels;
    const XMLElement common = findDrawingElement(styles, Vocabulary::Drawing, "defPPr");
    if (common.isValid())
        levels.fill(readWholeLevel(common, part, context));
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const std::string name = "lvl" + std::to_string(i + 1) + "pPr";
        const XMLElement own = findDrawingElement(styles, Vocabulary::Drawing, name.c_str());
        if (own.isValid())
            DOM::overrideLevel(levels[i], readWholeLevel(own, part, context));
    }
    return levels;
}

} // namespace QV::Filters
