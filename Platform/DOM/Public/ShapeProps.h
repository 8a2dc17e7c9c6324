#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <tuple>
#include <utility>

#include <boost/optional.hpp>
#include <boost/variant.hpp>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeGeometry.h>
#include <DOM/Public/ValueStruct.h>

namespace QV::DOM {

/// The dashes of a shape's line (ECMA-376 Part 1, 20.1.10.49). Lengths are in widths of the line.
enum class LineDash : std::uint8_t
{
    Solid,
    Dot,              ///< dot 1, gap 3
    Dash,             ///< 4, 3
    LongDash,         ///< 8, 3
    DashDot,          ///< 4, 3, 1, 3
    LongDashDot,      ///< 8, 3, 1, 3
    LongDashDotDot,   ///< 8, 3, 1, 3, 1, 3
    SystemDash,       ///< 3, 1
    SystemDot,        ///< 1, 1
    SystemDashDot,    ///< 3, 1, 1, 1
    SystemDashDotDot, ///< 3, 1, 1, 1, 1, 1
};

enum class LineCap : std::uint8_t
{
    Flat,
    Round,
    Square,
};

enum class LineJoin : std::uint8_t
{
    Miter,
    Round,
    Bevel,
};

/// What stands at an end of a line.
struct LineEnd : ValueStruct<LineEnd>
{
    enum class Kind : std::uint8_t
    {
        None,
        Triangle,
        Stealth,
        Diamond,
        Oval,
        Arrow,
    };
    enum class Size : std::uint8_t
    {
        Small,
        Medium,
        Large,
    };

    Kind kind = Kind::None;
    Size width = Size::Medium;
    Size length = Size::Medium;

    auto tie() const { return std::tie(kind, width, length); }
};

struct ShapeShadow : ValueStruct<ShapeShadow>
{
    Color color;
    float blur = 0;      ///< the radius in points
    float distance = 0;  ///< in points
    float direction = 0; ///< in degrees clockwise, from the right on
    bool isInner = false;
    bool turnsWithShape = true;

    auto tie() const { return std::tie(color, blur, distance, direction, isInner, turnsWithShape); }
};

/// How text runs on a shape.
enum class TextDirection : std::uint8_t
{
    Horizontal,
    Clockwise,        ///< turned by 90 degrees
    CounterClockwise, ///< turned by 270 degrees
    Stacked,          ///< letters below one another
    EastAsian,        ///< from top to bottom, upright; lines from right to left
};

/// What happens where text does not fit on its shape.
struct TextFit : ValueStruct<TextFit>
{
    enum class Kind : std::uint8_t
    {
        Overflow,
        ShrinkText,
        GrowShape,
    };

    Kind kind = Kind::Overflow;
    float fontScale = 1;            ///< of shrunk text: how the sizes of its fonts are multiplied
    float lineSpacingReduction = 0; ///< of shrunk text: taken from a multiple line spacing, 0.1 from 1 is 0.9

    auto tie() const { return std::tie(kind, fontScale, lineSpacingReduction); }
};

/// How a shape looks, and how text stands on it. A property that is not set comes from the styles below.
/// Lengths are points.
class ShapeProps
{
public:
    const boost::optional<ShapeFill>& getFill() const { return _fill; }
    const boost::optional<ShapeFill>& getLineFill() const { return _lineFill; }
    const boost::optional<float>& getLineWidth() const { return _lineWidth; }
    const boost::optional<LineDash>& getLineDash() const { return _lineDash; }
    const boost::optional<LineCap>& getLineCap() const { return _lineCap; }
    const boost::optional<LineJoin>& getLineJoin() const { return _lineJoin; }
    const boost::optional<LineEnd>& getLineHead() const { return _lineHead; } ///< where the path begins
    const boost::optional<LineEnd>& getLineTail() const { return _lineTail; } ///< where it ends
    /// Null where nothing is said.
    const std::shared_ptr<const ShapeShadow>& getShadow() const { return _shadow; }
    /// Null where nothing is said.
    const std::shared_ptr<const ShapeGeometry>& getGeometry() const { return _geometry; }
    /// Between the text rectangle of the outline and the text.
    const boost::optional<float>& getTextLeftInset() const { return _textLeftInset; }
    const boost::optional<float>& getTextTopInset() const { return _textTopInset; }
    const boost::optional<float>& getTextRightInset() const { return _textRightInset; }
    const boost::optional<float>& getTextBottomInset() const { return _textBottomInset; }
    const boost::optional<VerticalAlignment>& getTextAlignment() const { return _textAlignment; }
    /// Whether the text as a whole stands in the middle between left and right.
    const boost::optional<bool>& getTextCentered() const { return _textCentered; }
    const boost::optional<bool>& getTextWrapping() const { return _textWrapping; }
    const boost::optional<TextDirection>& getTextDirection() const { return _textDirection; }
    const boost::optional<TextFit>& getTextFit() const { return _textFit; }
    /// From 1 on.
    const boost::optional<unsigned>& getTextColumns() const { return _textColumns; }

    void setFill(boost::optional<ShapeFill> fill) { _fill = std::move(fill); }
    void setLineFill(boost::optional<ShapeFill> fill) { _lineFill = std::move(fill); }
    void setLineWidth(const boost::optional<float>& points) { _lineWidth = points; }
    void setLineDash(const boost::optional<LineDash>& dash) { _lineDash = dash; }
    void setLineCap(const boost::optional<LineCap>& cap) { _lineCap = cap; }
    void setLineJoin(const boost::optional<LineJoin>& join) { _lineJoin = join; }
    void setLineHead(const boost::optional<LineEnd>& end) { _lineHead = end; }
    void setLineTail(const boost::optional<LineEnd>& end) { _lineTail = end; }
    void setShadow(std::shared_ptr<const ShapeShadow> shadow) { _shadow = std::move(shadow); }
    void setGeometry(std::shared_ptr<const ShapeGeometry> geometry) { _geometry = std::move(geometry); }
    void setTextLeftInset(const boost::optional<float>& points) { _textLeftInset = points; }
    void setTextTopInset(const boost::optional<float>& points) { _textTopInset = points; }
    void setTextRightInset(const boost::optional<float>& points) { _textRightInset = points; }
    void setTextBottomInset(const boost::optional<float>& points) { _textBottomInset = points; }
    void setTextAlignment(const boost::optional<VerticalAlignment>& alignment) { _textAlignment = alignment; }
    void setTextCentered(const boost::optional<bool>& isCentered) { _textCentered = isCentered; }
    void setTextWrapping(const boost::optional<bool>& wraps) { _textWrapping = wraps; }
    void setTextDirection(const boost::optional<TextDirection>& direction) { _textDirection = direction; }
    void setTextFit(const boost::optional<TextFit>& fit) { _textFit = fit; }
    void setTextColumns(const boost::optional<unsigned>& count) { _textColumns = count; }

    static constexpr auto getFields()
    {
        return std::make_tuple(&ShapeProps::_fill, &ShapeProps::_lineFill, &ShapeProps::_lineWidth,
            &ShapeProps::_lineDash, &ShapeProps::_lineCap, &ShapeProps::_lineJoin, &ShapeProps::_lineHead,
            &ShapeProps::_lineTail, &ShapeProps::_shadow, &ShapeProps::_geometry, &ShapeProps::_textLeftInset,
            &ShapeProps::_textTopInset, &ShapeProps::_textRightInset, &ShapeProps::_textBottomInset,
            &ShapeProps::_textAlignment, &ShapeProps::_textCentered, &ShapeProps::_textWrapping,
            &ShapeProps::_textDirection, &ShapeProps::_textFit, &ShapeProps::_textColumns);
    }

    friend bool operator==(const ShapeProps& a, const ShapeProps& b) { return areEqual(a, b); }
    friend bool operator!=(const ShapeProps& a, const ShapeProps& b) { return !(a == b); }
    friend std::size_t hash_value(const ShapeProps& props) { return hashProps(props); }

private:
    boost::optional<ShapeFill> _fill;
    boost::optional<ShapeFill> _lineFill;
    boost::optional<float> _lineWidth;
    boost::optional<LineDash> _lineDash;
    boost::optional<LineCap> _lineCap;
    boost::optional<LineJoin> _lineJoin;
    boost::optional<LineEnd> _lineHead;
    boost::optional<LineEnd> _lineTail;
    std::shared_ptr<const ShapeShadow> _shadow;
    std::shared_ptr<const ShapeGeometry> _geometry;
    boost::optional<float> _textLeftInset;
    boost::optional<float> _textTopInset;
    boost::optional<float> _textRightInset;
    boost::optional<float> _textBottomInset;
    boost::optional<VerticalAlignment> _textAlignment;
    boost::optional<bool> _textCentered;
    boost::optional<bool> _textWrapping;
    boost::optional<TextDirection> _textDirection;
    boost::optional<TextFit> _textFit;
    boost::optional<unsigned> _textColumns;
};

} // namespace QV::DOM
