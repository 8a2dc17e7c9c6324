#pragma once

#include <cstddef>
#include <cstdint>

#include <boost/functional/hash.hpp>
#include <boost/optional.hpp>

#include <DOM/Public/Color.h>

namespace QV::DOM {

/// How a line is drawn, apart from its width. With the three widths of LineWidths.h these tell apart every
/// kind of line that spreadsheets have: "thin", "medium" and "thick" are solid lines of three widths,
/// "mediumDashed" is a dashed one of medium width, and so on.
enum class LineStyle : std::uint8_t
{
    None, ///< no line, said explicitly: it takes away a line from a layer below
    Solid,
    Double,
    Hair, ///< the finest pattern of dots
    Dotted,
    Dashed,
    DashDot,
    DashDotDot,
    SlantDashDot,
};

/// A line: of a border, or across a cell.
class LineProps
{
public:
    LineProps() = default;
    /// @param width in points
    /// @param color nothing for the automatic one, which the reader's surroundings give
    LineProps(LineStyle style, float width, const boost::optional<Color>& color = boost::none)
        : _style(style)
        , _width(width)
        , _color(color)
    {
    }

    LineStyle getStyle() const { return _style; }
    /// In points.
    float getWidth() const { return _width; }
    const boost::optional<Color>& getColor() const { return _color; }

    void setStyle(LineStyle style) { _style = style; }
    void setWidth(float points) { _width = points; }
    void setColor(const boost::optional<Color>& color) { _color = color; }

    friend bool operator==(const LineProps& a, const LineProps& b)
    {
        return a._style == b._style && a._width == b._width && a._color == b._color;
    }
    friend bool operator!=(const LineProps& a, const LineProps& b) { return !(a == b); }
    friend std::size_t hash_value(const LineProps& line)
    {
        std::size_t seed = boost::hash<float>()(line._width);
        boost::hash_combine(seed, line._style);
        boost::hash_combine(seed, line._color.has_value());
        if (line._color)
            boost::hash_combine(seed, *line._color);
        return seed;
    }

private:
    LineStyle _style = LineStyle::None;
    float _width = 0;
    boost::optional<Color> _color;
};

} // namespace QV::DOM
