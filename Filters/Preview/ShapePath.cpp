#include <Filters/Preview/ShapePath.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <FilterUtils/FU_GeometryParserUtils.h>
#include <FilterUtils/FU_NumberText.h>
#include <Filters/Preview/GuideFormulas.h>
#include <Filters/Preview/PresetGeometries.h>

namespace QV::Filters {
namespace {

using OutlineKind = DOM::PathCommand::Kind;

constexpr double OutlinePi = 3.14159265358979323846;
constexpr double OutlineTurn = 21'600'000;
constexpr double OutlineEmuPerPoint = 12'700;
constexpr double OutlineReachMax = 1'000'000; // points; no page reaches further, and numbers stay short

// Radians. The rounded ends of about half a turn do not tell its centre well enough, and those of a full turn
// nothing; a little above a third of a turn, so that rounding does not make a fourth piece.
constexpr double OutlineArcMax = 2.1;

struct OutlinePoint
{
    double x = 0;
    double y = 0;
};

double boundOutlinePoints(double value)
{
    return std::isfinite(value) ? std::min(std::max(value, -OutlineReachMax), OutlineReachMax) : 0;
}

/// How many operands a command takes; none is read that has others.
std::size_t countOutlineOperands(OutlineKind kind)
{
    switch (kind) {
    case OutlineKind::MoveTo:
    case OutlineKind::LineTo:
        return 2;
    case OutlineKind::ArcTo:
    case OutlineKind::QuadTo:
        return 4;
    case OutlineKind::CubicTo:
        return 6;
    case OutlineKind::Close:
        break;
    }
    return 0;
}

/// The ellipse's parameter, in radians, at which a ray from its centre meets it; within a quarter of a turn
/// of the ray's angle, also beyond full turns. A flat ellipse is met nowhere but at its ends, which tells
/// nothing.
double makeEllipseParameter(double widthRadius, double heightRadius, double angle)
{
    const double radians = angle / OutlineTurn * 2 * OutlinePi;
    if (!(widthRadius > 0 && heightRadius > 0))
        return radians;
    const double parameter = std::atan2(widthRadius * std::sin(radians), heightRadius * std::cos(radians));
    return parameter + std::round((radians - parameter) / (2 * OutlinePi)) * 2 * OutlinePi;
}

class OutlineWriter
{
public:
    /// @param scaleX, scaleY from the path's coordinates to points
    OutlineWriter(const GuideFormulas& guides, double scaleX, double scaleY)
        : _guides(guides)
        , _scaleX(scaleX)
        , _scaleY(scaleY)
    {
    }

    void add(const DOM::PathCommand& command)
    {
        if (command.operands.size() != countOutlineOperands(command.kind))
            return;
        std::vector<double> operands;
        for (const std::string& operand : command.operands)
            operands.push_back(_guides.evaluate(operand));
        if (command.kind == OutlineKind::MoveTo)
            _begin = {operands[0], operands[1]};
        else if (_data.empty())
            appendPoints('M', {0, 0}); // the path begins at its origin
        if (command.kind == OutlineKind::Close)
            close();
        else if (command.kind == OutlineKind::ArcTo)
            appendArc(operands[0], operands[1], operands[2], operands[3]);
        else
            appendPoints(getLetter(command.kind), operands);
    }

    const std::string& getData() const { return _data; }

private:
    static char getLetter(OutlineKind kind)
    {
        return kind == OutlineKind::MoveTo   ? 'M'
               : kind == OutlineKind::LineTo ? 'L'
               : kind == OutlineKind::QuadTo ? 'Q'
                                             : 'C';
    }

    void close()
    {
        _data += 'Z';
        _current = _begin;
    }

    void appendPoints(char letter, const std::vector<double>& operands)
    {
        _data += letter;
        for (std::size_t i = 0; i + 1 < operands.size(); i += 2) {
            appendNumber(operands[i] * _scaleX, i == 0);
            appendNumber(operands[i + 1] * _scaleY, false);
            _current = {operands[i], operands[i + 1]};
        }
    }

    /// ECMA-376 Part 1, 20.1.9.4: the ellipse goes through the current point at the start angle. Angles are
    /// those at which rays from the centre are seen.
    void appendArc(double width, double height, double start, double swing)
    {
        const double widthRadius = std::abs(width);
        const double heightRadius = std::abs(height);
        const double bounded = std::min(std::max(swing, -OutlineTurn), OutlineTurn);
        const double first = makeEllipseParameter(widthRadius, heightRadius, start);
        const double sweep = makeEllipseParameter(widthRadius, heightRadius, start + bounded) - first;
        const OutlinePoint centre{
            _current.x - widthRadius * std::cos(first), _current.y - heightRadius * std::sin(first)};
        const int count = static_cast<int>(std::ceil(std::abs(sweep) / OutlineArcMax));
        for (int piece = 1; piece <= count; ++piece) {
            const double parameter = first + sweep * piece / count;
            _current = {
                centre.x + widthRadius * std::cos(parameter), centre.y + heightRadius * std::sin(parameter)};
            appendArcPiece(widthRadius, heightRadius, sweep > 0);
        }
    }

    void appendArcPiece(double widthRadius, double heightRadius, bool isClockwise)
    {
        _data += 'A';
        appendNumber(widthRadius * _scaleX, true);
        appendNumber(heightRadius * _scaleY, false);
        _data += isClockwise ? " 0 0 1" : " 0 0 0";
        appendNumber(_current.x * _scaleX, false);
        appendNumber(_current.y * _scaleY, false);
    }

    void appendNumber(double points, bool isFirst)
    {
        if (!isFirst)
            _data += ' ';
        const double rounded = std::round(boundOutlinePoints(points) * 1000) / 1000;
        _data += FilterUtils::formatDoubleToString(rounded == 0 ? 0 : rounded, 3); // no "-0"
    }

    const GuideFormulas& _guides;
    double _scaleX;
    double _scaleY;
    OutlinePoint _begin;
    OutlinePoint _current;
    std::string _data;
};

/// In EMU; what is no size is 0.
double makeOutlineExtent(float points)
{
    return std::max(boundOutlinePoints(static_cast<double>(points)), 0.0) * OutlineEmuPerPoint;
}

double makeOutlineScale(double extent, double pathExtent)
{
    return (pathExtent > 0 ? extent / pathExtent : 1) / OutlineEmuPerPoint;
}

DrawnBox makeOutlineTextBox(const DOM::ShapeGeometry& geometry, const GuideFormulas& guides)
{
    const DOM::TextRectangle whole{{}, "l", "t", "r", "b"};
    const DOM::TextRectangle& rectangle = geometry.textRectangle.empty() ? whole : geometry.textRectangle[0];
    const auto locate = [&](const std::string& operand) {
        return static_cast<float>(boundOutlinePoints(guides.evaluate(operand) / OutlineEmuPerPoint));
    };
    const float left = locate(rectangle.left);
    const float top = locate(rectangle.top);
    DrawnBox box;
    box.offset = {left, top};
    box.extent = {
        std::max(locate(rectangle.right) - left, 0.0F), std::max(locate(rectangle.bottom) - top, 0.0F)};
    return box;
}

/// The geometry that has the paths: the preset's, where there is one.
const DOM::ShapeGeometry& findDrawnGeometry(const DOM::ShapeGeometry* geometry)
{
    static const std::string plainShape = "rect";
    if (geometry && geometry->preset.empty())
        return *geometry;
    const DOM::ShapeGeometry* const preset =
        geometry && FilterUtils::looksLikeOOXMLPresetType(geometry->preset)
            ? findPresetGeometry(FilterUtils::makePlainPresetType(geometry->preset))
            : nullptr;
    return preset ? *preset : *findPresetGeometry(plainShape);
}

} // namespace

DrawnOutline drawOutline(const DOM::ShapeGeometry* geometry, const Size2D<float>& size)
{
    const double width = makeOutlineExtent(size.getWidth());
    const double height = makeOutlineExtent(size.getHeight());
    const DOM::ShapeGeometry& drawn = findDrawnGeometry(geometry);
    GuideFormulas guides(width, height);
    for (const DOM::GeometryGuide& value : drawn.adjustValues)
        guides.addAdjustValue(value.name, value.formula);
    if (geometry && geometry != &drawn)
        for (const DOM::GeometryGuide& value : geometry->adjustValues)
            guides.addAdjustValue(value.name, value.formula);
    for (const DOM::GeometryGuide& guide : drawn.guides)
        guides.addGuide(guide.name, guide.formula);
    DrawnOutline outline;
    for (const DOM::GeometryPath& path : drawn.paths) {
        OutlineWriter writer(
            guides, makeOutlineScale(width, path.width), makeOutlineScale(height, path.height));
        for (const DOM::PathCommand& command : path.commands)
            writer.add(command);
        if (!writer.getData().empty())
            outline.paths.push_back({writer.getData(), path.filling, path.isStroked});
    }
    outline.textBox = makeOutlineTextBox(drawn, guides);
    return outline;
}

} // namespace QV::Filters
