#include <Filters/Preview/TextPageCss.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

#include <fmt/format.h>

#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/Properties.h>
#include <FilterUtils/FU_Colors.h>
#include <Filters/Preview/CellLook.h>

namespace QV::Filters {
namespace {

constexpr float PagePointsMax = 10'000;
constexpr float PageFontSizeMax = 1638;      // more than this no writer lets anybody have
constexpr std::size_t PageFontNameMax = 200; // bytes
constexpr float PageLineWidthMax = 100;      // points
constexpr float PaperSideMin = 36;           // points
constexpr float PaperTextMin = 36;           // points
constexpr float SingleLineHeight = 1.2F;     // of the fonts' sizes, where lines are single
constexpr float LineMultipleMax = 132;       // the most lines that a line may be high

bool isPointsNumber(const boost::optional<float>& points)
{
    return points && std::isfinite(*points);
}

std::string makeLengthCss(const char* property, const boost::optional<float>& points)
{
    return isPointsNumber(points) ? fmt::format("{}:{};", property, makePointsCss(*points)) : std::string();
}

const char* getTextAlignmentCss(DOM::HorizontalAlignment alignment)
{
    switch (alignment) {
    case DOM::HorizontalAlignment::Left:
        return "text-align:left;";
    case DOM::HorizontalAlignment::Center:
    case DOM::HorizontalAlignment::CenterContinuous:
        return "text-align:center;";
    case DOM::HorizontalAlignment::Right:
        return "text-align:right;";
    case DOM::HorizontalAlignment::Justify:
    case DOM::HorizontalAlignment::Distributed:
        return "text-align:justify;";
    case DOM::HorizontalAlignment::General:
    case DOM::HorizontalAlignment::Fill:
        break;
    }
    return "";
}

std::string makeLineSpacingCss(const DOM::LineSpacing& spacing)
{
    if (!std::isfinite(spacing.getValue()) || spacing.getValue() <= 0)
        return {};
    switch (spacing.getKind()) {
    case DOM::LineSpacing::Kind::Multiple: {
        const float height = std::min(spacing.getValue(), LineMultipleMax) * SingleLineHeight;
        return fmt::format("line-height:{:.4g};", height);
    }
    case DOM::LineSpacing::Kind::AtLeast:
        return fmt::format("line-height:max({},{}em);", makePointsCss(spacing.getValue()), SingleLineHeight);
    case DOM::LineSpacing::Kind::Exact:
        return fmt::format("line-height:{};", makePointsCss(spacing.getValue()));
    }
    return {};
}

/// A width that a page can hold.
float getDrawnWidth(const DOM::LineProps& line)
{
    return std::isfinite(line.getWidth()) ? std::clamp(line.getWidth(), 0.0F, PageLineWidthMax) : 0.0F;
}

std::string makeTextLineCss(const char* side, const DOM::LineProps* line)
{
    if (!line)
        return {};
    DOM::LineProps drawn = *line;
    drawn.setWidth(getDrawnWidth(*line));
    return makeLineCss(side, &drawn);
}

std::string makeDiagonalLine(const DOM::LineProps* line, const char* begin, const char* end)
{
    if (!line || line->getStyle() == DOM::LineStyle::None)
        return {};
    const std::string color =
        line->getColor() ? FilterUtils::convertRGBColor(line->getColor()->getRGBA()) : "000000";
    return fmt::format(R"(<line x1="0" y1="{}" x2="100%" y2="{}" stroke="#{}" stroke-width="{}"/>)", begin,
        end, color, makePointsCss(getDrawnWidth(*line)));
}

/// Space inside of a box that goes on is no gap in its borders.
std::string makeSpaceCss(const char* side, const boost::optional<float>& points, const ParagraphJoin& join)
{
    if (join.hasNoSpace || !isPointsNumber(points) || *points < 0)
        return {};
    return makeLengthCss(
        fmt::format("{}-{}", join.sharesBorders ? "padding" : "margin", side).c_str(), points);
}

std::string makeParagraphBordersCss(
    const DOM::BordersProps& borders, const ParagraphJoin& toPrevious, const ParagraphJoin& toNext)
{
    std::string css = makeTextLineCss("left", borders.getLeft().get());
    css += makeTextLineCss("right", borders.getRight().get());
    css += makeTextLineCss(
        "top", toPrevious.sharesBorders ? borders.getHorizontal().get() : borders.getTop().get());
    if (!toNext.sharesBorders)
        css += makeTextLineCss("bottom", borders.getBottom().get());
    return css;
}

const char* getLetterCaseCss(DOM::LetterCase letterCase)
{
    switch (letterCase) {
    case DOM::LetterCase::AsWritten:
        break;
    case DOM::LetterCase::Capitals:
        return "text-transform:uppercase;font-variant:normal;";
    case DOM::LetterCase::SmallCapitals:
        return "text-transform:none;font-variant:small-caps;";
    }
    return "text-transform:none;font-variant:normal;";
}

const char* getUnderlineCss(DOM::Underline underline)
{
    switch (underline) {
    case DOM::Underline::None:
    case DOM::Underline::Single:
    case DOM::Underline::Words:
    case DOM::Underline::Thick:
        break;
    case DOM::Underline::Double:
        return " double";
    case DOM::Underline::Dotted:
        return " dotted";
    case DOM::Underline::Dashed:
    case DOM::Underline::DashDot:
    case DOM::Underline::DashDotDot:
        return " dashed";
    case DOM::Underline::Wave:
        return " wavy";
    }
    return "";
}

/// The lines below and through a run. They are no inherited property: a run inside cannot take them away.
std::string makeDecorationCss(const DOM::RunProps& props)
{
    const DOM::Underline underline = props.getUnderline().value_or(DOM::Underline::None);
    std::string lines;
    if (underline != DOM::Underline::None)
        lines += " underline";
    if (props.getStrikethrough().value_or(false))
        lines += " line-through";
    if (lines.empty())
        return {};
    std::string css = fmt::format("text-decoration:{}{};", lines.substr(1), getUnderlineCss(underline));
    if (underline == DOM::Underline::Thick)
        css += "text-decoration-thickness:1.5pt;";
    return css;
}

/// What can be written of a font.
DOM::RunProps makeSafeFont(const DOM::RunProps& props)
{
    DOM::RunProps safe = props;
    const auto& size = props.getFontSize();
    if (size && (!std::isfinite(*size) || *size <= 0))
        safe.setFontSize(boost::none);
    else if (size)
        safe.setFontSize(std::min(*size, PageFontSizeMax));
    const auto& name = props.getFontName();
    if (name && (name->empty() || name->size() > PageFontNameMax))
        safe.setFontName(boost::none);
    return safe;
}

/// The margins of two opposite edges, which leave room for a text.
void setPaperMargins(float size, float& begin, float& end)
{
    if (size - begin - end >= PaperTextMin)
        return;
    begin = std::min(begin, size / 10);
    end = std::min(end, size / 10);
}

/// A negative margin is one that a header cannot widen.
void readPaperLength(float& target, const boost::optional<float>& points)
{
    if (isPointsNumber(points))
        target = std::min(std::abs(*points), PagePointsMax);
}

void readPaperSide(float& target, const boost::optional<float>& points)
{
    if (isPointsNumber(points) && *points >= PaperSideMin)
        target = std::min(*points, PagePointsMax);
}

} // namespace

std::string makePointsCss(float points)
{
    if (!std::isfinite(points))
        return "0pt";
    const double rounded =
        std::round(static_cast<double>(std::clamp(points, -PagePointsMax, PagePointsMax)) * 100) / 100;
    return fmt::format("{:g}pt", rounded == 0 ? 0 : rounded);
}

std::string makeParagraphCss(
    const DOM::ParaProps& props, const ParagraphJoin& toPrevious, const ParagraphJoin& toNext)
{
    std::string css;
    if (props.getAlignment())
        css += getTextAlignmentCss(*props.getAlignment());
    css += makeLengthCss("margin-left", props.getLeftIndent());
    css += makeLengthCss("margin-right", props.getRightIndent());
    css += makeLengthCss("text-indent", props.getFirstLineIndent());
    css += makeSpaceCss("top", props.getSpaceBefore(), toPrevious);
    css += makeSpaceCss("bottom", props.getSpaceAfter(), toNext);
    if (props.getLineSpacing())
        css += makeLineSpacingCss(*props.getLineSpacing());
    if (props.getBorders())
        css += makeParagraphBordersCss(*props.getBorders(), toPrevious, toNext);
    const auto& shading = props.getBackgroundColor();
    if (shading && shading->getRGBA().a != 0)
        css += fmt::format("background:#{};", FilterUtils::convertRGBColor(shading->getRGBA()));
    return css;
}

std::string makeInheritedCss(const DOM::RunProps& props)
{
    std::string css = makeFontCss(makeSafeFont(props));
    if (props.getLetterCase())
        css += getLetterCaseCss(*props.getLetterCase());
    return css;
}

std::string makeRunCss(const DOM::RunProps& props, const DOM::RunProps& inherited)
{
    DOM::RunProps own = props;
    exclude(own, inherited);
    std::string css = makeInheritedCss(own) + makeDecorationCss(props);
    const auto& background = props.getBackgroundColor();
    if (background && background->getRGBA().a != 0)
        css += fmt::format("background:#{};", FilterUtils::convertRGBColor(background->getRGBA()));
    return css;
}

std::string makeBordersCss(const DOM::BordersProps* borders)
{
    if (!borders)
        return {};
    return makeTextLineCss("left", borders->getLeft().get()) +
           makeTextLineCss("top", borders->getTop().get()) +
           makeTextLineCss("right", borders->getRight().get()) +
           makeTextLineCss("bottom", borders->getBottom().get());
}

std::string makeTextCellCss(const DOM::CellProps& props)
{
    std::string css;
    const auto& fill = props.getBackgroundColor();
    if (fill && fill->getRGBA().a != 0)
        css += fmt::format("background:#{};", FilterUtils::convertRGBColor(fill->getRGBA()));
    switch (props.getVerticalAlignment().value_or(DOM::VerticalAlignment::Top)) {
    case DOM::VerticalAlignment::Center:
        return css + "vertical-align:middle;";
    case DOM::VerticalAlignment::Bottom:
        return css + "vertical-align:bottom;";
    case DOM::VerticalAlignment::Top:
    case DOM::VerticalAlignment::Justify:
    case DOM::VerticalAlignment::Distributed:
        break;
    }
    return css; // all other cells have their text at the top
}

std::string makeDiagonalLines(const DOM::CellProps& props)
{
    const std::string lines = makeDiagonalLine(props.getDiagonalUp().get(), "100%", "0") +
                              makeDiagonalLine(props.getDiagonalDown().get(), "0", "100%");
    return lines.empty() ? lines : "<svg aria-hidden=\"true\">" + lines + "</svg>";
}

PaperSize makePaperSize(const DOM::PageProps* props)
{
    PaperSize paper;
    if (!props)
        return paper;
    readPaperSide(paper.width, props->getWidth());
    readPaperSide(paper.height, props->getHeight());
    if (const DOM::Insets* const margins = props->getMargins().get()) {
        readPaperLength(paper.left, margins->getLeft());
        readPaperLength(paper.top, margins->getTop());
        readPaperLength(paper.right, margins->getRight());
        readPaperLength(paper.bottom, margins->getBottom());
    }
    readPaperLength(paper.header, props->getHeaderDistance());
    readPaperLength(paper.footer, props->getFooterDistance());
    setPaperMargins(paper.width, paper.left, paper.right);
    setPaperMargins(paper.height, paper.top, paper.bottom);
    paper.header = std::min(paper.header, paper.height / 2);
    paper.footer = std::min(paper.footer, paper.height / 2);
    return paper;
}

} // namespace QV::Filters
