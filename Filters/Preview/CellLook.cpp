#include <Filters/Preview/CellLook.h>

#include <algorithm>
#include <vector>

#include <fmt/format.h>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Styles.h>
#include <FilterUtils/FU_Colors.h>
#include <Filters/Preview/HtmlText.h>

namespace QV::Filters {
namespace {

constexpr int ChainMax = 100; // no real chain of styles is near it, and none of a file's may loop

const char* getAlignmentCss(DOM::HorizontalAlignment alignment)
{
    using Alignment = DOM::HorizontalAlignment;
    switch (alignment) {
    case Alignment::Left:
        return "text-align:left;";
    case Alignment::Center:
    case Alignment::CenterContinuous:
        return "text-align:center;";
    case Alignment::Right:
        return "text-align:right;";
    case Alignment::Justify:
    case Alignment::Distributed:
        return "text-align:justify;";
    case Alignment::General:
    case Alignment::Fill:
        break;
    }
    return "";
}

const char* getAlignmentCss(DOM::VerticalAlignment alignment)
{
    switch (alignment) {
    case DOM::VerticalAlignment::Top:
    case DOM::VerticalAlignment::Justify:
        return "justify-content:flex-start;";
    case DOM::VerticalAlignment::Center:
    case DOM::VerticalAlignment::Distributed:
        return "justify-content:center;";
    case DOM::VerticalAlignment::Bottom:
        break;
    }
    return ""; // as all cells are
}

const char* getLineCss(DOM::LineStyle style)
{
    switch (style) {
    case DOM::LineStyle::Double:
        return "double";
    case DOM::LineStyle::Hair:
    case DOM::LineStyle::Dotted:
        return "dotted";
    case DOM::LineStyle::Dashed:
    case DOM::LineStyle::DashDot:
    case DOM::LineStyle::DashDotDot:
    case DOM::LineStyle::SlantDashDot:
        return "dashed";
    case DOM::LineStyle::None:
    case DOM::LineStyle::Solid:
        break;
    }
    return "solid";
}

std::string makeColorCss(const DOM::Color& color)
{
    return "#" + FilterUtils::convertRGBColor(color.getRGBA());
}

std::string makeDiagonal(const DOM::LineProps* line, const char* begin, const char* end)
{
    if (!line || line->getStyle() == DOM::LineStyle::None)
        return {};
    return fmt::format("<line x1=\"0\" y1=\"{}\" x2=\"100%\" y2=\"{}\" stroke=\"{}\" stroke-width=\"{}pt\"/>",
        begin, end, line->getColor() ? makeColorCss(*line->getColor()) : "#000000", line->getWidth());
}

std::string makeDiagonals(const DOM::CellProps& cell)
{
    const std::string lines = makeDiagonal(cell.getDiagonalUp().get(), "100%", "0") +
                              makeDiagonal(cell.getDiagonalDown().get(), "0", "100%");
    return lines.empty() ? lines : "<svg aria-hidden=\"true\">" + lines + "</svg>";
}

} // namespace

std::string makeFontCss(const DOM::RunProps& props)
{
    std::string css;
    if (props.getBold())
        css += *props.getBold() ? "font-weight:bold;" : "font-weight:normal;";
    if (props.getItalic())
        css += *props.getItalic() ? "font-style:italic;" : "font-style:normal;";
    if (props.getFontSize())
        css += fmt::format("font-size:{}pt;", *props.getFontSize());
    if (props.getFontName())
        css += fmt::format("font-family:{},sans-serif;", quoteCss(*props.getFontName()));
    if (props.getColor())
        css += fmt::format("color:{};", makeColorCss(*props.getColor()));
    return css;
}

std::string makeLineCss(const char* side, const DOM::LineProps* line)
{
    if (!line || line->getStyle() == DOM::LineStyle::None)
        return {};
    // Whole pixels of a page: 1, 2 and 3 for the usual widths; two lines and a gap need three.
    int pixels = std::max(1, static_cast<int>(line->getWidth() * 96 / 72));
    if (line->getStyle() == DOM::LineStyle::Double)
        pixels = std::max(pixels, 3);
    return fmt::format("border-{}:{}px {} {};", side, pixels, getLineCss(line->getStyle()),
        line->getColor() ? makeColorCss(*line->getColor()) : "#000000");
}

const DOM::LineProps* chooseLine(const DOM::LineProps* first, const DOM::LineProps* second)
{
    const auto getWidth = [](const DOM::LineProps* line) {
        return line && line->getStyle() != DOM::LineStyle::None ? line->getWidth() : 0.0F;
    };
    return getWidth(second) >= getWidth(first) ? second : first;
}

CellLooks::CellLooks(const DOM::Styles& styles)
    : _styles(styles)
{
}

const CellLooks::Look& CellLooks::getLook(const DOM::CellStyle& style)
{
    const auto known = _looks.find(&style);
    return known != _looks.end() ? known->second : _looks.emplace(&style, makeLook(style)).first->second;
}

CellLooks::Look CellLooks::makeLook(const DOM::CellStyle& style) const
{
    std::vector<const DOM::NamedTableStyle*> chain;
    for (UUID parent = style.getParentUUID(); parent && chain.size() < ChainMax;) {
        const auto named = _styles.getTableStyles().find(parent);
        if (named == _styles.getTableStyles().end())
            break;
        chain.push_back(&named->second);
        parent = named->second.getParentUUID();
    }
    DOM::CellProps cell;
    DOM::RunProps run;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        if ((*it)->getCellProps())
            override(cell, *(*it)->getCellProps());
        if ((*it)->getRunProps())
            override(run, *(*it)->getRunProps());
    }
    if (style.getCellProps())
        override(cell, *style.getCellProps());
    if (style.getRunProps())
        override(run, *style.getRunProps());

    Look look;
    const auto& fill = cell.getBackgroundColor();
    if (fill && fill->getRGBA().a != 0)
        look.css += fmt::format("background:{};box-shadow:none;", makeColorCss(*fill));
    look.css += makeFontCss(run);
    if (style.getParaProps() && style.getParaProps()->getAlignment()) {
        const char* const css = getAlignmentCss(*style.getParaProps()->getAlignment());
        look.isAligned = *css != '\0';
        look.css += css;
    }
    if (cell.getVerticalAlignment())
        look.css += getAlignmentCss(*cell.getVerticalAlignment());
    look.wrapsText = cell.getTextWrapping().value_or(false);
    if (look.wrapsText)
        look.css += "white-space:pre-wrap;overflow-wrap:break-word;";
    look.diagonals = makeDiagonals(cell);
    return look;
}

} // namespace QV::Filters
