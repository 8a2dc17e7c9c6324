#include <Filters/Package/DrawingColors.h>

#include <string>

#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_Errors.h>
#include <Filters/Package/ColorModifiers.h>
#include <Filters/Package/ColorNames.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingValues.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using ColorSharesOpt = boost::optional<ColorShares>;

constexpr double DegreesPerTurn = 360;
constexpr const char* UnknownColorName = "Unknown color name {}";
constexpr const char* PlaceholderName = "phClr";

// The names that a mapping has, and what they usually are (ECMA-376 Part 1, 19.3.1.6).
struct MappedName
{
    const char* name;
    const char* themeName;
};
constexpr MappedName MappedNames[] = {
    {"bg1",      "lt1"     },
    {"tx1",      "dk1"     },
    {"bg2",      "lt2"     },
    {"tx2",      "dk2"     },
    {"accent1",  "accent1" },
    {"accent2",  "accent2" },
    {"accent3",  "accent3" },
    {"accent4",  "accent4" },
    {"accent5",  "accent5" },
    {"accent6",  "accent6" },
    {"hlink",    "hlink"   },
    {"folHlink", "folHlink"},
};

/// The share of an attribute; 0 where there is none.
double readColorPart(const XMLElement& color, const char* name, OperationReport& report)
{
    return readShare(color.getAttributeValue(name), report).value_or(0);
}

ColorSharesOpt readHexadecimal(const boost::optional<std::string>& text, OperationReport& report)
{
    if (!text)
        return boost::none;
    try {
        const auto rgba = FilterUtils::convertToRGBColor(report, *text);
        return rgba ? boost::make_optional(makeShares(*rgba)) : boost::none;
    } catch (const BadNumCastError&) {
        report.emplace_back("Incorrect color: {0}", *text);
        return boost::none;
    }
}

ColorSharesOpt takeNamed(
    const boost::optional<DOM::Color::RGBA>& color, const std::string& name, OperationReport& report)
{
    if (color)
        return makeShares(*color);
    report.emplace_back(UnknownColorName, name);
    return boost::none;
}

ColorSharesOpt readHexadecimalColor(const XMLElement& color, const ColorScheme&, OperationReport& report)
{
    return readHexadecimal(color.getAttributeValue("val"), report);
}

ColorSharesOpt readLinearColor(const XMLElement& color, const ColorScheme&, OperationReport& report)
{
    const double red = readColorPart(color, "r", report);
    const double green = readColorPart(color, "g", report);
    return makeSharesFromLinear(red, green, readColorPart(color, "b", report));
}

ColorSharesOpt readHslColor(const XMLElement& color, const ColorScheme&, OperationReport& report)
{
    const double hue = readAngle(color.getAttributeValue("hue"), report).value_or(0) / DegreesPerTurn;
    const double saturation = readColorPart(color, "sat", report);
    return makeSharesFromHsl(hue, saturation, readColorPart(color, "lum", report));
}

ColorSharesOpt readPresetColor(const XMLElement& color, const ColorScheme&, OperationReport& report)
{
    const auto name = color.getAttributeValue("val");
    return name ? takeNamed(findPresetColor(*name), *name, report) : boost::none;
}

/// What the system had last, or usually has.
ColorSharesOpt readSystemColor(const XMLElement& color, const ColorScheme&, OperationReport& report)
{
    if (const auto last = readHexadecimal(color.getAttributeValue("lastClr"), report))
        return last;
    const auto name = color.getAttributeValue("val");
    return name ? takeNamed(findSystemColor(*name), *name, report) : boost::none;
}

ColorSharesOpt readSchemeColor(const XMLElement& color, const ColorScheme& scheme, OperationReport& report)
{
    const auto name = color.getAttributeValue("val");
    if (!name)
        return boost::none;
    const auto rgba = scheme.findColor(*name);
    if (!rgba && *name == PlaceholderName)
        return boost::none;
    return takeNamed(rgba, *name, report);
}

struct ColorForm
{
    const char* name;
    ColorSharesOpt (*read)(const XMLElement& color, const ColorScheme& scheme, OperationReport& report);
};
constexpr ColorForm ColorForms[] = {
    {"srgbClr",   readHexadecimalColor},
    {"scrgbClr",  readLinearColor     },
    {"hslClr",    readHslColor        },
    {"prstClr",   readPresetColor     },
    {"sysClr",    readSystemColor     },
    {"schemeClr", readSchemeColor     },
};

/// One that cannot be read changes nothing.
void applyModifierElement(
    const std::string& name, const XMLElement& modifier, ColorShares& color, OperationReport& report)
{
    const auto kind = findModifierValue(name);
    if (!kind)
        return;
    boost::optional<double> value = 0;
    if (*kind == ModifierValue::Share)
        value = readShare(modifier.getAttributeValue("val"), report);
    else if (*kind == ModifierValue::Angle)
        value = readAngle(modifier.getAttributeValue("val"), report);
    if (value)
        applyColorModifier(name, *kind == ModifierValue::Angle ? *value / DegreesPerTurn : *value, color);
}

boost::optional<DOM::Color> readColorForm(
    const ColorForm& form, const XMLElement& color, const ColorScheme& scheme, OperationReport& report)
{
    ColorSharesOpt shares = form.read(color, scheme, report);
    if (!shares)
        return boost::none;
    forEachDrawingElement(
        color, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& modifier) {
            applyModifierElement(name, modifier, *shares, report);
        });
    return DOM::Color(roundShares(*shares));
}

} // namespace

ColorScheme::ColorScheme(const Colors& theme)
    : _theme(&theme)
{
    for (const MappedName& mapped : MappedNames)
        _mapping.emplace(mapped.name, mapped.themeName);
}

void ColorScheme::readMapping(const XMLElement& mapping)
{
    for (const MappedName& mapped : MappedNames) {
        const auto themeName = mapping.getAttributeValue(mapped.name);
        if (themeName && _theme->findThemeColor(*themeName)) // to what no theme has counts as none
            _mapping[mapped.name] = *themeName;
    }
}

ColorScheme ColorScheme::withPlaceholderColor(const boost::optional<DOM::Color>& color) const
{
    ColorScheme scheme = *this;
    scheme._placeholderColor = color;
    return scheme;
}

boost::optional<DOM::Color::RGBA> ColorScheme::findColor(const std::string& name) const
{
    if (name == PlaceholderName)
        return _placeholderColor ? boost::make_optional(_placeholderColor->getRGBA()) : boost::none;
    const auto mapped = _mapping.find(name);
    return _theme->findThemeColor(mapped != _mapping.end() ? mapped->second : name);
}

boost::optional<DOM::Color> readDrawingColor(
    const XMLElement& element, const ColorScheme& scheme, OperationReport& report)
{
    for (const ColorForm& form : ColorForms) {
        const XMLElement color = findDrawingElement(element, Vocabulary::Drawing, form.name);
        if (color.isValid())
            return readColorForm(form, color, scheme, report);
    }
    return boost::none;
}

boost::optional<DOM::Color> readDrawingColor(
    const XMLElement& element, const Colors& colors, OperationReport& report)
{
    return readDrawingColor(element, ColorScheme(colors), report);
}

boost::optional<DOM::Color> readColorElement(
    const std::string& name, const XMLElement& color, const ColorScheme& scheme, OperationReport& report)
{
    for (const ColorForm& form : ColorForms)
        if (name == form.name)
            return readColorForm(form, color, scheme, report);
    return boost::none;
}

} // namespace QV::Filters
