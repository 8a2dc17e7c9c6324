#include <Filters/Preview/SlideFills.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include <boost/variant/apply_visitor.hpp>
#include <boost/variant/static_visitor.hpp>
#include <fmt/format.h>

#include <DOM/Public/GraphicalObject.h>
#include <FilterUtils/FU_Colors.h>
#include <Filters/Preview/SlideDefs.h>
#include <Filters/Preview/SlidePatterns.h>
#include <Filters/Preview/SvgNumbers.h>

namespace QV::Filters {
namespace {

constexpr std::size_t GradientStopsMax = 256;
constexpr double DegreesToRadians = 3.14159265358979323846 / 180;
constexpr float TileSide = 72; // points; what a tile is wide and high whose picture does not tell
constexpr float TileSideMin = 1;
constexpr float TileSideMax = 10'000;

double toFinite(double number, double fallback)
{
    return std::isfinite(number) ? std::clamp(number, -1000.0, 1000.0) : fallback;
}

std::string makeGradientStops(const DOM::GradientFill& gradient)
{
    std::string stops;
    const std::size_t count = std::min(gradient.stops.size(), GradientStopsMax);
    for (std::size_t i = 0; i < count; ++i)
        stops += fmt::format("<stop offset=\"{}\"{}/>", formatSvgNumber(gradient.stops[i].position),
            makeColorAttributes("stop-color", gradient.stops[i].color));
    return stops;
}

/// The line is as long as the box is in its direction, so that the outer colours are reached in the corners.
std::string makeLinearGradient(const DOM::GradientFill& gradient, const FillArea& area, SlideDefs& defs)
{
    double degrees = std::isfinite(gradient.angle) ? std::fmod(gradient.angle, 360.0F) : 0;
    if (!gradient.turnsWithShape && std::isfinite(area.rotation))
        degrees -= area.rotation;
    const double cosine = std::cos(degrees * DegreesToRadians);
    const double sine = std::sin(degrees * DegreesToRadians);
    const double width = area.size.getWidth();
    const double height = area.size.getHeight();
    // A box without a width or a height cannot be a unit.
    const bool isOfBox = gradient.isScaled && width > 0 && height > 0;
    const double boxWidth = isOfBox ? 1 : width;
    const double boxHeight = isOfBox ? 1 : height;
    const double half = (boxWidth * std::abs(cosine) + boxHeight * std::abs(sine)) / 2;
    const double x = boxWidth / 2;
    const double y = boxHeight / 2;
    return defs.add("linearGradient",
        fmt::format("{} x1=\"{}\" y1=\"{}\" x2=\"{}\" y2=\"{}\"",
            isOfBox ? "" : " gradientUnits=\"userSpaceOnUse\"", formatSvgNumber(x - cosine * half),
            formatSvgNumber(y - sine * half), formatSvgNumber(x + cosine * half),
            formatSvgNumber(y + sine * half)),
        makeGradientStops(gradient));
}

/// From a centre, where the first colour is, to the corner that is farthest. Rectangles and outlines become
/// ellipses.
std::string makeRadialGradient(const DOM::GradientFill& gradient, const FillArea& area, SlideDefs& defs)
{
    const bool isCircle = gradient.kind == DOM::GradientFill::Kind::Circle;
    const double width = isCircle ? area.size.getWidth() : 1;
    const double height = isCircle ? area.size.getHeight() : 1;
    const DOM::RelativeRect& centre = gradient.centre;
    const double x = toFinite((centre.left + 1 - centre.right) / 2, 0.5) * width;
    const double y = toFinite((centre.top + 1 - centre.bottom) / 2, 0.5) * height;
    const double radius =
        std::hypot(std::max(std::abs(x), std::abs(width - x)), std::max(std::abs(y), std::abs(height - y)));
    return defs.add("radialGradient",
        fmt::format("{} cx=\"{}\" cy=\"{}\" r=\"{}\"", isCircle ? " gradientUnits=\"userSpaceOnUse\"" : "",
            formatSvgNumber(x), formatSvgNumber(y), formatSvgNumber(radius)),
        makeGradientStops(gradient));
}

std::string makePatternDef(
    double x, double y, double width, double height, const std::string& content, SlideDefs& defs)
{
    return defs.add("pattern",
        fmt::format(" patternUnits=\"userSpaceOnUse\" x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\"",
            formatSvgNumber(x), formatSvgNumber(y), formatSvgNumber(width), formatSvgNumber(height)),
        content);
}

/// Greys become what lies between two colours (ECMA-376 Part 1, 20.1.8.23), and colours what their greys do.
std::string makeDuotone(const std::vector<DOM::Color>& colors, const std::string& picture, SlideDefs& defs)
{
    if (colors.size() != 2)
        return picture;
    const DOM::Color::RGBA& black = colors[0].getRGBA();
    const DOM::Color::RGBA& white = colors[1].getRGBA();
    const auto makeTable = [](const char* channel, unsigned char first, unsigned char last) {
        return fmt::format("<feFunc{} type=\"table\" tableValues=\"{} {}\"/>", channel,
            formatSvgNumber(first / 255.0), formatSvgNumber(last / 255.0));
    };
    const std::string grey = ".2126 .7152 .0722 0 0 ";
    const std::string id =
        defs.add("filter", " x=\"0\" y=\"0\" width=\"1\" height=\"1\" color-interpolation-filters=\"sRGB\"",
            "<feColorMatrix values=\"" + grey + grey + grey + "0 0 0 1 0\"/><feComponentTransfer>" +
                makeTable("R", black.r, white.r) + makeTable("G", black.g, white.g) +
                makeTable("B", black.b, white.b) + "</feComponentTransfer>");
    return fmt::format("<g filter=\"url(#{})\">{}</g>", id, picture);
}

/// The size of a tile, between what can be seen and what makes sense.
Size2D<float> makeTileSize(const DOM::PictureFill& fill, SlideDefs& defs)
{
    const auto natural = defs.findPictureSize(DOM::Picture(fill.mediaId, fill.mimeType));
    const auto scaleX = static_cast<float>(toFinite(std::abs(fill.tileScale.x), 1));
    const auto scaleY = static_cast<float>(toFinite(std::abs(fill.tileScale.y), 1));
    return Size2D<float>(
        std::clamp((natural ? natural->getWidth() : TileSide) * scaleX, TileSideMin, TileSideMax),
        std::clamp((natural ? natural->getHeight() : TileSide) * scaleY, TileSideMin, TileSideMax));
}

/// A picture in its place of the area, which is all of the one tile there is.
std::string makeStretchedPicture(const DOM::PictureFill& fill, const std::string& id, const FillArea& area)
{
    const double width = area.size.getWidth();
    const double height = area.size.getHeight();
    const double left = toFinite(fill.stretch.left, 0) * width;
    const double top = toFinite(fill.stretch.top, 0) * height;
    const double right = width - toFinite(fill.stretch.right, 0) * width;
    const double bottom = height - toFinite(fill.stretch.bottom, 0) * height;
    std::string picture = makePictureElement(id, fill.crop,
        Size2D<float>(static_cast<float>(std::max(right - left, 0.0)),
            static_cast<float>(std::max(bottom - top, 0.0))));
    if (left != 0 || top != 0)
        picture = fmt::format(
            "<g transform=\"translate({} {})\">{}</g>", formatSvgNumber(left), formatSvgNumber(top), picture);
    return picture;
}

std::string makePicturePattern(
    const DOM::PictureFill& fill, const std::string& id, const FillArea& area, SlideDefs& defs)
{
    DOM::PictureFill tile = fill;
    FillArea tileArea = area;
    double x = 0;
    double y = 0;
    if (fill.isTiled) {
        tile.stretch = {};
        x = toFinite(fill.tileOffset.x, 0);
        y = toFinite(fill.tileOffset.y, 0);
        tileArea.size = makeTileSize(fill, defs);
    }
    std::string picture = makeDuotone(fill.duotone, makeStretchedPicture(tile, id, tileArea), defs);
    if (std::isfinite(fill.opacity) && fill.opacity < 1)
        picture =
            fmt::format("<g opacity=\"{}\">{}</g>", formatSvgNumber(std::max(fill.opacity, 0.0F)), picture);
    return makePatternDef(x, y, tileArea.size.getWidth(), tileArea.size.getHeight(), picture, defs);
}

class PaintMaker final : public boost::static_visitor<std::string>
{
public:
    PaintMaker(const std::string& property, const FillArea& area, SlideDefs& defs)
        : _property(property)
        , _area(area)
        , _defs(defs)
    {
    }

    std::string operator()(const DOM::NoFill&) const { return fmt::format(" {}=\"none\"", _property); }

    std::string operator()(const DOM::SolidFill& fill) const
    {
        return makeColorAttributes(_property, fill.color);
    }

    std::string operator()(const DOM::GradientFill& fill) const
    {
        if (fill.stops.empty())
            return (*this)(DOM::NoFill());
        return refer(fill.kind == DOM::GradientFill::Kind::Linear ? makeLinearGradient(fill, _area, _defs)
                                                                  : makeRadialGradient(fill, _area, _defs));
    }

    std::string operator()(const DOM::PictureFill& fill) const
    {
        if (!(_area.size.getWidth() > 0) || !(_area.size.getHeight() > 0))
            return (*this)(DOM::NoFill());
        const std::string id = _defs.addPicture(DOM::Picture(fill.mediaId, fill.mimeType));
        if (id.empty())
            return fmt::format(" {}=\"#EEEEEE\"", _property);
        return refer(makePicturePattern(fill, id, _area, _defs));
    }

    std::string operator()(const DOM::PatternFill& fill) const
    {
        const double side = getHatchSide(fill.preset);
        if (side == 0)
            return makeColorAttributes(_property, getMeanColor(fill));
        return refer(makePatternDef(0, 0, side, side, makeHatch(fill), _defs));
    }

private:
    std::string refer(const std::string& id) const { return fmt::format(" {}=\"url(#{})\"", _property, id); }

    const std::string& _property;
    const FillArea& _area;
    SlideDefs& _defs;
};

class MainColorFinder final : public boost::static_visitor<boost::optional<DOM::Color>>
{
public:
    boost::optional<DOM::Color> operator()(const DOM::NoFill&) const { return boost::none; }
    boost::optional<DOM::Color> operator()(const DOM::SolidFill& fill) const { return fill.color; }
    boost::optional<DOM::Color> operator()(const DOM::GradientFill& fill) const
    {
        return fill.stops.empty() ? boost::optional<DOM::Color>() : fill.stops.front().color;
    }
    boost::optional<DOM::Color> operator()(const DOM::PictureFill&) const
    {
        return DOM::Color(DOM::Color::RGBA(238, 238, 238, 255));
    }
    boost::optional<DOM::Color> operator()(const DOM::PatternFill& fill) const { return fill.foreground; }
};

/// The part of the picture that is seen; the whole one where the crop leaves nothing.
DOM::RelativeRect makeSafeCrop(const DOM::RelativeRect& crop)
{
    const double width = 1.0 - crop.left - crop.right;
    const double height = 1.0 - crop.top - crop.bottom;
    const bool isSafe = width > 0.0001 && width < 1000 && height > 0.0001 && height < 1000 &&
                        std::abs(crop.left) < 1000 && std::abs(crop.top) < 1000;
    return isSafe ? crop : DOM::RelativeRect();
}

} // namespace

std::string makeColorAttributes(const std::string& property, const DOM::Color& color)
{
    std::string attributes =
        fmt::format(" {}=\"#{}\"", property, FilterUtils::convertRGBColor(color.getRGBA()));
    if (color.getRGBA().a != 255)
        attributes += fmt::format(" {}-opacity=\"{}\"", property.substr(0, property.find('-')),
            formatSvgNumber(color.getRGBA().a / 255.0));
    return attributes;
}

std::string makePaint(
    const std::string& property, const DOM::ShapeFill& fill, const FillArea& area, SlideDefs& defs)
{
    return boost::apply_visitor(PaintMaker(property, area, defs), fill);
}

boost::optional<DOM::Color> findMainColor(const DOM::ShapeFill& fill)
{
    return boost::apply_visitor(MainColorFinder(), fill);
}

std::string makePictureElement(
    const std::string& id, const DOM::RelativeRect& crop, const Size2D<float>& size)
{
    const std::string width = formatSvgNumber(size.getWidth());
    const std::string height = formatSvgNumber(size.getHeight());
    const DOM::RelativeRect safe = makeSafeCrop(crop);
    if (safe == DOM::RelativeRect())
        return fmt::format("<use href=\"#{}\" width=\"{}\" height=\"{}\"/>", id, width, height);
    return fmt::format("<svg width=\"{}\" height=\"{}\" viewBox=\"{} {} {} {}\" preserveAspectRatio=\"none\">"
                       "<use href=\"#{}\" width=\"1\" height=\"1\"/></svg>",
        width, height, formatSvgShare(safe.left), formatSvgShare(safe.top),
        formatSvgShare(1.0 - safe.left - safe.right), formatSvgShare(1.0 - safe.top - safe.bottom), id);
}

} // namespace QV::Filters
