#include <Filters/Preview/TextTabs.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <Filters/Package/SeenText.h>

namespace QV::Filters {
namespace {

constexpr float TabbedCharacterWidth = 0.5F; // of the font's size, about
constexpr float TabbedFontSize = 10;         // points
constexpr std::size_t TabbedLineMax = 1000;  // characters; longer text does not fit into one line

bool isPartingStop(const DOM::TabStop& stop)
{
    return (stop.getKind() == DOM::TabStop::Kind::Center || stop.getKind() == DOM::TabStop::Kind::Right) &&
           std::isfinite(stop.getPosition());
}

bool canBeParted(const DOM::ParaProps& props)
{
    if (!props.getTabStops() ||
        std::none_of(props.getTabStops()->begin(), props.getTabStops()->end(), isPartingStop))
        return false;
    const auto alignment = props.getAlignment().value_or(DOM::HorizontalAlignment::General);
    return alignment == DOM::HorizontalAlignment::General || alignment == DOM::HorizontalAlignment::Left ||
           alignment == DOM::HorizontalAlignment::Justify;
}

std::size_t countTabbedCharacters(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// The first stop beyond @p position; null for none.
const DOM::TabStop* findNextStop(const DOM::TabStops& stops, float position)
{
    const auto next = std::find_if(stops.begin(), stops.end(), [position](const DOM::TabStop& stop) {
        return stop.getKind() != DOM::TabStop::Kind::Bar && stop.getKind() != DOM::TabStop::Kind::Clear &&
               stop.getPosition() > position;
    });
    return next != stops.end() ? &*next : nullptr;
}

} // namespace

TabsPlan planTabs(const DOM::Paragraph& paragraph, const DOM::ParaProps& props, const CellScope& scope,
    EffectiveFormats& formats)
{
    if (!canBeParted(props))
        return {};
    TabsPlan plan;
    float position = props.getLeftIndent().value_or(0);
    std::size_t characters = 0;
    for (const DOM::Run& run : paragraph.getRuns()) {
        if (!isInFinalView(run))
            continue;
        const DOM::RunProps& font = formats.getRunProps(paragraph, run.getStyle(), scope);
        if (font.getHidden().value_or(false))
            continue;
        if (dynamic_cast<const DOM::TabRun*>(&run)) {
            const DOM::TabStop* const stop = findNextStop(*props.getTabStops(), position);
            if (!stop)
                continue;
            position = stop->getPosition();
            const bool isCenter = stop->getKind() == DOM::TabStop::Kind::Center && plan.splits.empty();
            const bool isRight = stop->getKind() == DOM::TabStop::Kind::Right && !plan.hasRight();
            plan.hasCenter = plan.hasCenter || isCenter;
            if (isCenter || isRight)
                plan.splits.push_back(&run);
            continue;
        }
        const std::string text = getRunText(run);
        if (text.find('\n') != std::string::npos)
            return {};
        const std::size_t count = countTabbedCharacters(text);
        characters += count;
        if (characters > TabbedLineMax)
            return {};
        // A piece in the middle takes half of its width to the right, one at the right none.
        if (plan.splits.empty())
            position += static_cast<float>(count) * TabbedCharacterWidth *
                        font.getFontSize().value_or(TabbedFontSize);
    }
    return plan;
}

} // namespace QV::Filters
