#include <Filters/Text/VmlPlaces.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

#include <FilterUtils/FU_Lengths.h>
#include <Filters/Text/DrawnItems.h>
#include <Utils/Public/Size2D.h>

namespace QV::Filters {
namespace {

using Origin = DOM::AbsoluteAnchor::Origin;

constexpr double VmlRotationUnits = 60000; // of a degree in a transform
constexpr int VmlFullTurn = 21600000;

struct VmlOriginName
{
    const char* name;
    Origin origin;
};

// What is not of the page itself counts from the nearest edge that the model knows.
constexpr VmlOriginName VmlOrigins[] = {
    {"page",               Origin::Page  },
    {"margin",             Origin::Margin},
    {"left-margin-area",   Origin::Page  },
    {"top-margin-area",    Origin::Page  },
    {"inner-margin-area",  Origin::Page  },
    {"right-margin-area",  Origin::Margin},
    {"bottom-margin-area", Origin::Margin},
    {"outer-margin-area",  Origin::Margin},
};

Origin findVmlOrigin(const VmlStyle& style, const char* property, Origin ofText)
{
    const auto name = findVmlProperty(style, property);
    for (const VmlOriginName& known : VmlOrigins)
        if (name == std::string(known.name))
            return known.origin;
    return ofText; // "text", "char", "line", and what is usual
}

/// In what boxes are in.
boost::optional<float> readVmlExtent(const boost::optional<std::string>& text, float pointsPerUnit,
    const VmlUnits& units, FilterUtils::LengthType type, OperationReport& report)
{
    const auto length = text ? readVmlLength(*text, type, report) : boost::none;
    if (!length)
        return boost::none;
    if (length->isUnitless)
        return units.areOfGroup ? length->value : length->value * pointsPerUnit;
    return units.areOfGroup ? length->value / pointsPerUnit : length->value;
}

float readVmlOffset(const VmlStyle& style, std::initializer_list<const char*> properties, float pointsPerUnit,
    const VmlUnits& units, OperationReport& report)
{
    float offset = 0;
    for (const char* const property : properties)
        offset += readVmlExtent(
            findVmlProperty(style, property), pointsPerUnit, units, FilterUtils::anyLength, report)
                      .value_or(0);
    return offset;
}

/// Where a shape is aligned, it begins where it counts from, since nothing here knows the page.
bool isVmlAligned(const VmlStyle& style, const char* property)
{
    const auto alignment = findVmlProperty(style, property);
    return alignment && *alignment != "absolute";
}

} // namespace

cinder::Vec2<float> readVmlCorner(const VmlStyle& style, const VmlUnits& units, OperationReport& report)
{
    const float left = readVmlOffset(style, {"left", "margin-left"}, units.pointsX, units, report);
    return {left, readVmlOffset(style, {"top", "margin-top"}, units.pointsY, units, report)};
}

boost::optional<DrawnBox> readVmlBox(const VmlStyle& style, const VmlUnits& units, OperationReport& report)
{
    const auto read = [&](const char* property, float pointsPerUnit) {
        return readVmlExtent(
            findVmlProperty(style, property), pointsPerUnit, units, FilterUtils::nonNegativeLength, report);
    };
    const auto width = read("width", units.pointsX);
    const auto height = read("height", units.pointsY);
    if (!width || !height)
        return boost::none;
    return DrawnBox{
        readVmlCorner(style, units, report), {std::max(*width, 0.0F), std::max(*height, 0.0F)}
    };
}

DrawnTransform readVmlLine(
    const std::string& from, const std::string& to, const VmlUnits& units, OperationReport& report)
{
    const auto read = [&](const std::string& point) -> cinder::Vec2<float> {
        const auto parts = splitVmlPair(point);
        const auto x = readVmlExtent(parts.first, units.pointsX, units, FilterUtils::anyLength, report);
        const auto y = readVmlExtent(parts.second, units.pointsY, units, FilterUtils::anyLength, report);
        return {x.value_or(0), y.value_or(0)};
    };
    const cinder::Vec2<float> begin = read(from);
    const cinder::Vec2<float> end = read(to);
    DrawnTransform transform;
    transform.box = DrawnBox{
        {std::min(begin.x, end.x), std::min(begin.y, end.y)},
        {std::fabs(end.x - begin.x),          std::fabs(end.y - begin.y)               }
    };
    transform.isFlippedHorizontally = end.x < begin.x;
    transform.isFlippedVertically = end.y < begin.y;
    return transform;
}

DOM::Anchor readVmlAnchor(const VmlStyle& style, OperationReport& report)
{
    if (findVmlProperty(style, "position") != std::string("absolute"))
        return DOM::TextAnchor();
    cinder::Vec2<float> corner = readVmlCorner(style, VmlUnits(), report);
    if (isVmlAligned(style, "mso-position-horizontal"))
        corner.x = 0;
    if (isVmlAligned(style, "mso-position-vertical"))
        corner.y = 0;
    DOM::AbsoluteAnchor anchor({keepDrawnInReach(corner.x), keepDrawnInReach(corner.y)});
    anchor.setOrigins(findVmlOrigin(style, "mso-position-horizontal-relative", Origin::Column),
        findVmlOrigin(style, "mso-position-vertical-relative", Origin::Paragraph));
    return anchor;
}

void readVmlTurn(const VmlStyle& style, DrawnTransform& transform, OperationReport& report)
{
    if (const auto text = findVmlProperty(style, "rotation"))
        if (const auto degrees = readVmlRotation(*text, report))
            transform.rotation = static_cast<int>(std::lround(*degrees * VmlRotationUnits)) % VmlFullTurn;
    const std::string flip = findVmlProperty(style, "flip").value_or(std::string());
    const bool hasX = flip.find('x') != std::string::npos;
    const bool hasY = flip.find('y') != std::string::npos;
    transform.isFlippedHorizontally = transform.isFlippedHorizontally != hasX;
    transform.isFlippedVertically = transform.isFlippedVertically != hasY;
}

bool isVmlHidden(const VmlStyle& style)
{
    return findVmlProperty(style, "visibility") == std::string("hidden");
}

} // namespace QV::Filters
