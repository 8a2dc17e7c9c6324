#pragma once

/// @file
/// Outlines of shapes (ECMA-376 Part 1, 20.1.9): known by name, or drawn by paths whose coordinates come from
/// formulas.
///
/// Coordinates and operands are texts: a number, "$adj1" for the adjust value adj1, "?x1" for the guide x1,
/// or a name that every shape has, such as "w", "hc" or "cd4". Angles are 60,000ths of a degree, clockwise.

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include <DOM/Public/ValueStruct.h>

namespace QV::DOM {

/// A name for what a formula gives, such as "*/ w $adj1 100000".
struct GeometryGuide : ValueStruct<GeometryGuide>
{
    std::string name; ///< without a mark
    std::string formula;

    auto tie() const { return std::tie(name, formula); }
};

struct PathCommand : ValueStruct<PathCommand>
{
    enum class Kind : std::uint8_t
    {
        MoveTo,  ///< x, y
        LineTo,  ///< x, y
        ArcTo,   ///< width radius, height radius, start angle, swing angle
        QuadTo,  ///< x, y of the control point and the end
        CubicTo, ///< x, y of two control points and the end
        Close,   ///< nothing
    };

    Kind kind = Kind::MoveTo;
    std::vector<std::string> operands; ///< as many as the kind takes

    auto tie() const { return std::tie(kind, operands); }
};

struct GeometryPath : ValueStruct<GeometryPath>
{
    /// How a path is filled: as the shape is, or lighter or darker than that.
    enum class Filling : std::uint8_t
    {
        Normal,
        None,
        Lighten,
        LightenLess,
        Darken,
        DarkenLess,
    };

    double width = 0;  ///< of the path's coordinates; 0 for those of the shape itself, in EMU
    double height = 0; ///< the same
    Filling filling = Filling::Normal;
    bool isStroked = true;
    std::vector<PathCommand> commands;

    auto tie() const { return std::tie(width, height, filling, isStroked, commands); }
};

/// Where connectors end at the shape.
struct ConnectionSite : ValueStruct<ConnectionSite>
{
    std::string x;
    std::string y;
    std::string angle;

    auto tie() const { return std::tie(x, y, angle); }
};

/// Where the text stands; by its edges.
struct TextRectangle : ValueStruct<TextRectangle>
{
    std::string left;
    std::string top;
    std::string right;
    std::string bottom;

    auto tie() const { return std::tie(left, top, right, bottom); }
};

/// The outline of a shape. One with a preset has adjust values alone.
struct ShapeGeometry : ValueStruct<ShapeGeometry>
{
    std::string preset; ///< marked with the family of formats that it comes from: "ooxml-rect"; may be empty
    std::vector<GeometryGuide> adjustValues; ///< those that differ from the preset's, or all of a custom one
    std::vector<GeometryGuide> guides;       ///< each may refer to those before it
    std::vector<ConnectionSite> connectionSites;
    std::vector<TextRectangle> textRectangle; ///< one or none
    std::vector<GeometryPath> paths;

    auto tie() const { return std::tie(preset, adjustValues, guides, connectionSites, textRectangle, paths); }
};

} // namespace QV::DOM
