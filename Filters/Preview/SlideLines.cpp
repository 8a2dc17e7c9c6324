#include <Filters/Preview/SlideLines.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include <boost/optional.hpp>
#include <boost/variant/get.hpp>
#include <fmt/format.h>

#include <Filters/Preview/SlideDefs.h>
#include <Filters/Preview/SvgNumbers.h>

namespace QV::Filters {
namespace {

constexpr float SlideLineWidth = 0.75F;    // points, where nothing is said
constexpr float SlideLineWidthMin = 0.25F; // of a line of no width, which is the thinnest that can be seen
constexpr float SlideLineWidthMax = 1584;
constexpr float LineEndWidthMin = 2;   // points; ends of thinner lines are as large as those of this one
constexpr float ShadowLengthMax = 500; // points
constexpr double ShadowDegrees = 3.14159265358979323846 / 180;

struct DashPattern
{
    DOM::LineDash dash;
    float lengths[6]; // in widths of the line; 0 from the end on
};

constexpr DashPattern DashPatterns[] = {
    {DOM::LineDash::Dot,              {1, 3, 0, 0, 0, 0}},
    {DOM::LineDash::Dash,             {4, 3, 0, 0, 0, 0}},
    {DOM::LineDash::LongDash,         {8, 3, 0, 0, 0, 0}},
    {DOM::LineDash::DashDot,          {4, 3, 1, 3, 0, 0}},
    {DOM::LineDash::LongDashDot,      {8, 3, 1, 3, 0, 0}},
    {DOM::LineDash::LongDashDotDot,   {8, 3, 1, 3, 1, 3}},
    {DOM::LineDash::SystemDash,       {3, 1, 0, 0, 0, 0}},
    {DOM::LineDash::SystemDot,        {1, 1, 0, 0, 0, 0}},
    {DOM::LineDash::SystemDashDot,    {3, 1, 1, 1, 0, 0}},
    {DOM::LineDash::SystemDashDotDot, {3, 1, 1, 1, 1, 1}},
};

float getLineWidth(const DOM::ShapeProps& props)
{
    const float width = props.getLineWidth().value_or(SlideLineWidth);
    return std::isfinite(width) ? std::clamp(width, SlideLineWidthMin, SlideLineWidthMax) : SlideLineWidth;
}

std::string makeDashes(DOM::LineDash dash, float width)
{
    const auto* const pattern = std::find_if(std::begin(DashPatterns), std::end(DashPatterns),
        [dash](const DashPattern& row) { return row.dash == dash; });
    if (pattern == std::end(DashPatterns))
        return {};
    std::string lengths;
    for (const float length : pattern->lengths)
        if (length > 0)
            lengths += (lengths.empty() ? "" : " ") + formatSvgNumber(length * width);
    return fmt::format(" stroke-dasharray=\"{}\"", lengths);
}

std::string makeCapAndJoin(const DOM::ShapeProps& props)
{
    std::string attributes;
    switch (props.getLineCap().value_or(DOM::LineCap::Flat)) {
    case DOM::LineCap::Flat:
        break;
    case DOM::LineCap::Round:
        attributes += " stroke-linecap=\"round\"";
        break;
    case DOM::LineCap::Square:
        attributes += " stroke-linecap=\"square\"";
        break;
    }
    switch (props.getLineJoin().value_or(DOM::LineJoin::Round)) {
    case DOM::LineJoin::Miter:
        break;
    case DOM::LineJoin::Round:
        return attributes + " stroke-linejoin=\"round\"";
    case DOM::LineJoin::Bevel:
        return attributes + " stroke-linejoin=\"bevel\"";
    }
    return attributes;
}

float getEndFactor(DOM::LineEnd::Size size)
{
    switch (size) {
    case DOM::LineEnd::Size::Small:
        return 2;
    case DOM::LineEnd::Size::Medium:
        break;
    case DOM::LineEnd::Size::Large:
        return 5;
    }
    return 3;
}

/// An end in a box of ten by ten, which points to the right.
/// @param reference receives where in the box the line ends
std::string makeEndDrawing(DOM::LineEnd::Kind kind, const DOM::Color& color, int& reference)
{
    const std::string fill = makeColorAttributes("fill", color);
    reference = 8;
    switch (kind) {
    case DOM::LineEnd::Kind::None:
        break;
    case DOM::LineEnd::Kind::Triangle:
        return fmt::format("<path d=\"M0 0L10 5L0 10Z\"{}/>", fill);
    case DOM::LineEnd::Kind::Stealth:
        return fmt::format("<path d=\"M0 0L10 5L0 10L3 5Z\"{}/>", fill);
    case DOM::LineEnd::Kind::Diamond:
        reference = 5;
        return fmt::format("<path d=\"M0 5L5 0L10 5L5 10Z\"{}/>", fill);
    case DOM::LineEnd::Kind::Oval:
        reference = 5;
        return fmt::format("<circle cx=\"5\" cy=\"5\" r=\"5\"{}/>", fill);
    case DOM::LineEnd::Kind::Arrow:
        return fmt::format("<path d=\"M1 1L9 5L1 9\" fill=\"none\"{} stroke-width=\"2\"/>",
            makeColorAttributes("stroke", color));
    }
    return {};
}

std::string makeLineEnd(const char* property, const boost::optional<DOM::LineEnd>& end, float lineWidth,
    const DOM::Color& color, SlideDefs& defs)
{
    if (!end || end->kind == DOM::LineEnd::Kind::None)
        return {};
    int reference = 0;
    const std::string drawing = makeEndDrawing(end->kind, color, reference);
    const float unit = std::max(lineWidth, LineEndWidthMin);
    const std::string id = defs.add("marker",
        fmt::format(" viewBox=\"0 0 10 10\" refX=\"{}\" refY=\"5\" markerUnits=\"userSpaceOnUse\" "
                    "markerWidth=\"{}\" markerHeight=\"{}\" orient=\"auto-start-reverse\" "
                    "preserveAspectRatio=\"none\"",
            reference, formatSvgNumber(getEndFactor(end->length) * unit),
            formatSvgNumber(getEndFactor(end->width) * unit)),
        drawing);
    return fmt::format(" {}=\"url(#{})\"", property, id);
}

double limitShadowLength(float length)
{
    return std::isfinite(length) ? std::clamp(length, 0.0F, ShadowLengthMax) : 0.0F;
}

} // namespace

bool hasLine(const DOM::ShapeProps& props)
{
    return props.getLineFill() && !boost::get<DOM::NoFill>(&*props.getLineFill());
}

std::string makeStroke(const DOM::ShapeProps& props, const FillArea& area, SlideDefs& defs)
{
    if (!hasLine(props))
        return {};
    const float width = getLineWidth(props);
    return makePaint("stroke", *props.getLineFill(), area, defs) +
           fmt::format(" stroke-width=\"{}\"", formatSvgNumber(width)) +
           makeDashes(props.getLineDash().value_or(DOM::LineDash::Solid), width) + makeCapAndJoin(props);
}

std::string makeLineEnds(const DOM::ShapeProps& props, SlideDefs& defs)
{
    if (!hasLine(props))
        return {};
    const auto color = findMainColor(*props.getLineFill());
    if (!color)
        return {};
    const float width = getLineWidth(props);
    return makeLineEnd("marker-start", props.getLineHead(), width, *color, defs) +
           makeLineEnd("marker-end", props.getLineTail(), width, *color, defs);
}

std::string makeShadow(const DOM::ShapeProps& props, const FillArea& area, SlideDefs& defs)
{
    const DOM::ShapeShadow* const shadow = props.getShadow().get();
    if (!shadow || shadow->isInner || shadow->color.getRGBA().a == 0)
        return {};
    const double blur = limitShadowLength(shadow->blur);
    const double distance = limitShadowLength(shadow->distance);
    double degrees = std::isfinite(shadow->direction) ? shadow->direction : 0;
    if (!shadow->turnsWithShape && std::isfinite(area.rotation))
        degrees -= area.rotation;
    // The box of a line has no height, and cannot be the filter's unit; outlines such as those of callouts
    // reach beyond it.
    const double beyond = std::max(area.size.getWidth(), area.size.getHeight());
    const double margin = 2 * blur + distance + getLineWidth(props) + beyond;
    const std::string id = defs.add("filter",
        fmt::format(" filterUnits=\"userSpaceOnUse\" x=\"{0}\" y=\"{0}\" width=\"{1}\" height=\"{2}\"",
            formatSvgNumber(-margin), formatSvgNumber(area.size.getWidth() + 2 * margin),
            formatSvgNumber(area.size.getHeight() + 2 * margin)),
        fmt::format("<feDropShadow dx=\"{}\" dy=\"{}\" stdDeviation=\"{}\"{}/>",
            formatSvgNumber(std::cos(degrees * ShadowDegrees) * distance),
            formatSvgNumber(std::sin(degrees * ShadowDegrees) * distance), formatSvgNumber(blur / 2),
            makeColorAttributes("flood-color", shadow->color)));
    return fmt::format(" filter=\"url(#{})\"", id);
}

} // namespace QV::Filters
