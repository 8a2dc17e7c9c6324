#include <Filters/Package/DrawingColors.h>

#include <algorithm>
#include <cmath>
#include <string>

#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_Errors.h>
#include <FilterUtils/FU_Lengths.h>
#include <Filters/Package/ColorTint.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/DrawingElements.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using RGBA = DOM::Color::RGBA;

XMLElement find(const XMLElement& parent, const char* name)
{
    return findDrawingElement(parent, Vocabulary::Drawing, name);
}

boost::optional<RGBA> readParts(const boost::optional<std::string>& text, OperationReport& report)
{
    if (!text)
        return boost::none;
    try {
        return FilterUtils::convertToRGBColor(report, *text);
    } catch (const BadNumCastError&) {
        report.emplace_back("Incorrect color: {0}", *text);
        return boost::none;
    }
}

boost::optional<double> readFraction(const XMLElement& color, const char* name, OperationReport& report)
{
    const auto text = find(color, name).getAttributeValue("val");
    return text ? FilterUtils::convertPercentage(report, *text) : boost::none;
}

/// Luminance that is scaled down, or moved towards white by what was scaled away, is a tint.
boost::optional<RGBA> change(const RGBA& base, const XMLElement& color, OperationReport& report)
{
    for (const char* const other :
        {"shade", "tint", "satMod", "satOff", "hueMod", "hueOff", "inv", "comp", "gray"})
        if (find(color, other).isValid())
            return boost::none;
    RGBA result = base;
    const auto scale = readFraction(color, "lumMod", report);
    const auto offset = readFraction(color, "lumOff", report);
    if (scale || offset) {
        const double rest = 1 - std::clamp(scale.value_or(1), 0.0, 1.0);
        const bool isLighter = offset.value_or(0) > 0;
        if (isLighter && std::fabs(*offset - rest) > 1e-9)
            return boost::none;
        result = applyTint(base, isLighter ? rest : -rest);
    }
    if (const auto alpha = readFraction(color, "alpha", report))
        result.a = static_cast<unsigned char>(std::lround(std::clamp(*alpha, 0.0, 1.0) * 255));
    return result;
}

} // namespace

boost::optional<DOM::Color> readDrawingColor(
    const XMLElement& element, const Colors& colors, OperationReport& report)
{
    const XMLElement parts = find(element, "srgbClr");
    const XMLElement system = find(element, "sysClr");
    const XMLElement scheme = find(element, "schemeClr");
    const XMLElement color = parts.isValid() ? parts : system.isValid() ? system : scheme;
    boost::optional<RGBA> base = readParts(parts.getAttributeValue("val"), report);
    if (!parts.isValid())
        base = readParts(system.getAttributeValue("lastClr"), report);
    if (color == scheme) {
        const auto name = scheme.getAttributeValue("val");
        base = name ? colors.findThemeColor(*name) : boost::none;
    }
    const auto changed = base ? change(*base, color, report) : boost::none;
    return changed ? boost::make_optional(DOM::Color(*changed)) : boost::none;
}

} // namespace QV::Filters
