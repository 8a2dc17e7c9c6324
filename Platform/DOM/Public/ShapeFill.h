#pragma once

/// @file
/// What fills an area: of a shape, of a line, of a slide.

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include <boost/variant.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/ValueStruct.h>
#include <cinder/Vector.h>

namespace QV::DOM {

/// Distances from the edges of a rectangle, inwards, as shares of its width and height: 0.1 is a tenth.
/// Negative ones lead outwards.
struct RelativeRect : ValueStruct<RelativeRect>
{
    float left = 0;
    float top = 0;
    float right = 0;
    float bottom = 0;

    auto tie() const { return std::tie(left, top, right, bottom); }
};

/// Nothing: what lies below is seen. Said explicitly, it takes away a fill from a layer below.
struct NoFill : ValueStruct<NoFill>
{
    auto tie() const { return std::tuple<>(); }
};

struct SolidFill : ValueStruct<SolidFill>
{
    SolidFill() = default;
    explicit SolidFill(const Color& fillColor)
        : color(fillColor)
    {
    }

    Color color;

    auto tie() const { return std::tie(color); }
};

/// Colours that go over into one another.
// NOLINTNEXTLINE(clang-analyzer-core.uninitialized.Assign): the analyzer does not see what an optional holds
struct GradientFill : ValueStruct<GradientFill>
{
    enum class Kind : std::uint8_t
    {
        Linear,    ///< along a line
        Circle,    ///< from a centre
        Rectangle, ///< from a centre, in rectangles
        Shape,     ///< from a centre, along the outline
    };

    struct Stop : ValueStruct<Stop>
    {
        float position = 0; ///< from 0 to 1
        Color color;

        auto tie() const { return std::tie(position, color); }
    };

    Kind kind = Kind::Linear;
    std::vector<Stop> stops; ///< by ascending positions, of other kinds from the centre outwards; not empty
    float angle = 0;         ///< of a linear one: the direction in degrees clockwise, from left to right on
    bool isScaled = false;   ///< whether the direction is that in a square stretched to the shape
    RelativeRect centre;     ///< of the other kinds: where the first colour is
    bool turnsWithShape = true;

    auto tie() const { return std::tie(kind, stops, angle, isScaled, centre, turnsWithShape); }
};

/// A picture of the media storage.
// NOLINTNEXTLINE(clang-analyzer-core.uninitialized.Assign): the analyzer does not see what an optional holds
struct PictureFill : ValueStruct<PictureFill>
{
    std::string mediaId;
    std::string mimeType;       ///< may be empty where it is not known
    RelativeRect crop;          ///< what of the picture is not shown
    float opacity = 1;          ///< from 0 to 1
    std::vector<Color> duotone; ///< what black and white become, and greys between them; two or none
    bool isTiled = false;       ///< repeated in its own size; else stretched to the area
    RelativeRect stretch;       ///< of a stretched one: the part of the area that it fills
    cinder::Vec2<float> tileScale = {1, 1};
    cinder::Vec2<float> tileOffset; ///< in points

    auto tie() const
    {
        return std::tie(mediaId, mimeType, crop, opacity, duotone, isTiled, stretch, tileScale.x, tileScale.y,
            tileOffset.x, tileOffset.y);
    }
};

/// A pattern of two colours.
struct PatternFill : ValueStruct<PatternFill>
{
    std::string preset; ///< as DrawingML names it: "pct20", "dkUpDiag" (ECMA-376 Part 1, 20.1.10.51)
    Color foreground;
    Color background = Color(Color::RGBA(255, 255, 255, 255));

    auto tie() const { return std::tie(preset, foreground, background); }
};

using ShapeFill = boost::variant<NoFill, SolidFill, GradientFill, PictureFill, PatternFill>;

} // namespace QV::DOM
