#include <Filters/Preview/SlideTextBox.h>

#include <algorithm>
#include <cmath>

#include <boost/optional.hpp>
#include <fmt/format.h>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Preview/SlidePageContext.h>
#include <Filters/Preview/SvgNumbers.h>
#include <Filters/Preview/TextPage.h>
#include <Filters/Preview/TextTablePage.h>
#include <cinder/Vector.h>

namespace QV::Filters {
namespace {

constexpr float SideInset = 7.2F; // points, at the left and at the right
constexpr float EdgeInset = 3.6F; // points, at the top and at the bottom
constexpr float InsetMax = 10'000;
constexpr float FontScaleMin = 0.1F;
constexpr float SpacingReductionMax = 0.9F;
constexpr unsigned TextColumnsMax = 16;
constexpr double UnitsPerPixel = 0.75; // points of a slide in a pixel of CSS

float getInset(const boost::optional<float>& points, float fallback)
{
    return points && std::isfinite(*points) ? std::clamp(*points, -InsetMax, InsetMax) : fallback;
}

DrawnBox takeInsets(const DrawnBox& box, const DOM::ShapeProps& props)
{
    const float left = getInset(props.getTextLeftInset(), SideInset);
    const float top = getInset(props.getTextTopInset(), EdgeInset);
    const float right = getInset(props.getTextRightInset(), SideInset);
    const float bottom = getInset(props.getTextBottomInset(), EdgeInset);
    const float width = box.extent.getWidth() - left - right;
    const float height = box.extent.getHeight() - top - bottom;
    DrawnBox inner; // insets that meet do so in their middle
    inner.offset =
        box.offset + cinder::Vec2<float>(left + std::min(width, 0.0F) / 2, top + std::min(height, 0.0F) / 2);
    inner.extent = Size2D<float>(std::max(width, 0.0F), std::max(height, 0.0F));
    return inner;
}

/// A box of HTML: where it stands, how it is turned, and how large it is before that.
struct HtmlBox
{
    std::string transform;
    Size2D<float> size;
};

HtmlBox makeHtmlBox(const DrawnBox& box, DOM::TextDirection direction)
{
    const double x = box.offset.x;
    const double y = box.offset.y;
    const Size2D<float> turned(box.extent.getHeight(), box.extent.getWidth());
    if (direction == DOM::TextDirection::Clockwise)
        return {fmt::format("translate({} {}) rotate(90)", formatSvgNumber(x + box.extent.getWidth()),
                    formatSvgNumber(y)),
            turned};
    if (direction == DOM::TextDirection::CounterClockwise)
        return {fmt::format("translate({} {}) rotate(-90)", formatSvgNumber(x),
                    formatSvgNumber(y + box.extent.getHeight())),
            turned};
    return {fmt::format("translate({} {})", formatSvgNumber(x), formatSvgNumber(y)), box.extent};
}

/// Begins an element whose points are those of the slide, times @p scale.
std::string makeForeignObject(const std::string& transform, const Size2D<float>& size, double scale)
{
    const double factor = UnitsPerPixel * scale;
    return fmt::format("<foreignObject transform=\"{}{}scale({})\" width=\"{}\" height=\"{}\">", transform,
        transform.empty() ? "" : " ", formatSvgNumber(factor), formatSvgNumber(size.getWidth() / factor),
        formatSvgNumber(size.getHeight() / factor));
}

/// An outline without room for text breaks no lines: each letter would have its own.
std::string makeTextClasses(const DOM::ShapeProps& props, float outlineWidth)
{
    std::string classes = "text";
    switch (props.getTextAlignment().value_or(DOM::VerticalAlignment::Top)) {
    case DOM::VerticalAlignment::Center:
        classes += " middle";
        break;
    case DOM::VerticalAlignment::Bottom:
        classes += " bottom";
        break;
    case DOM::VerticalAlignment::Top:
    case DOM::VerticalAlignment::Justify:
    case DOM::VerticalAlignment::Distributed:
        break;
    }
    if (!props.getTextWrapping().value_or(true) || outlineWidth <= 0)
        classes += " unwrapped";
    else if (props.getTextCentered().value_or(false))
        classes += " centred";
    const auto direction = props.getTextDirection().value_or(DOM::TextDirection::Horizontal);
    if (direction == DOM::TextDirection::Stacked)
        classes += " stacked";
    else if (direction == DOM::TextDirection::EastAsian)
        classes += " upright";
    return classes;
}

std::string makeColumnsStyle(const DOM::ShapeProps& props)
{
    const unsigned columns = std::min(props.getTextColumns().value_or(1), TextColumnsMax);
    return columns > 1 ? fmt::format(" style=\"columns:{};height:100%\"", columns) : std::string();
}

} // namespace

void writeSlideText(const DOM::CellText& text, const DOM::ShapeProps& props, const DrawnBox& box,
    unsigned depth, SlidePageContext& context, std::string& page)
{
    if (text.getPlainText().empty())
        return;
    DOM::TextFit fit = props.getTextFit().value_or(DOM::TextFit());
    if (fit.kind != DOM::TextFit::Kind::ShrinkText)
        fit = {};
    const float scale = std::isfinite(fit.fontScale) ? std::clamp(fit.fontScale, FontScaleMin, 1.0F) : 1.0F;
    const HtmlBox html = makeHtmlBox(
        takeInsets(box, props), props.getTextDirection().value_or(DOM::TextDirection::Horizontal));
    page += makeForeignObject(html.transform, html.size, scale);
    page += fmt::format("<div class=\"{}\"><div{}>\n", makeTextClasses(props, box.extent.getWidth()),
        makeColumnsStyle(props));
    ListLabels labels(context.document);
    TextPlace place{labels, html.size.getWidth() / scale, {}, depth};
    place.isOnSlide = true;
    if (std::isfinite(fit.lineSpacingReduction))
        place.lineSpacingReduction = std::clamp(fit.lineSpacingReduction, 0.0F, SpacingReductionMax);
    writeTextBlocks(text.getBlocks(), place, context.text, page);
    page += "</div></div></foreignObject>\n";
}

void writeSlideTable(const DOM::Table& table, const Size2D<float>& size, unsigned depth,
    SlidePageContext& context, std::string& page)
{
    page += makeForeignObject({}, size, 1) + "<div class=\"text\">\n";
    ListLabels labels(context.document);
    TextPlace place{labels, size.getWidth(), {}, depth};
    place.isOnSlide = true;
    writeTextTable(table, place, context.text, page);
    page += "</div></foreignObject>\n";
}

} // namespace QV::Filters
