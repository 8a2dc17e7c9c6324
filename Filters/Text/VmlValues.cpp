#include <Filters/Text/VmlValues.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_Text.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Unit.h>

namespace QV::Filters {
namespace {

constexpr double VmlFractionParts = 65536;    // what "f" and "fd" count in
constexpr double VmlUnitlessMax = 4294967296; // coordinates are numbers of 32 bits
constexpr float VmlLengthMax = 1e6F;          // points
constexpr const char* VmlBlanks = " \t\r\n\f";

struct VmlColorName
{
    const char* name;
    const char* color;
};

// HTML 4.01, 6.5
constexpr VmlColorName VmlColorNames[] = {
    {"aqua",    "00FFFF"},
    {"black",   "000000"},
    {"blue",    "0000FF"},
    {"fuchsia", "FF00FF"},
    {"gray",    "808080"},
    {"green",   "008000"},
    {"lime",    "00FF00"},
    {"maroon",  "800000"},
    {"navy",    "000080"},
    {"olive",   "808000"},
    {"purple",  "800080"},
    {"red",     "FF0000"},
    {"silver",  "C0C0C0"},
    {"teal",    "008080"},
    {"white",   "FFFFFF"},
    {"yellow",  "FFFF00"},
};

std::string trimVmlText(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(VmlBlanks);
    if (begin == std::string::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(VmlBlanks) + 1 - begin);
}

std::string makeVmlLowerCase(std::string text)
{
    for (char& character : text)
        if ('A' <= character && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return text;
}

std::string normalizeVmlText(const std::string& text)
{
    return makeVmlLowerCase(trimVmlText(text));
}

/// Takes @p suffix off the end of @p text, if it is there.
bool cutVmlSuffix(std::string& text, const std::string& suffix)
{
    if (text.size() < suffix.size() || text.compare(text.size() - suffix.size(), suffix.size(), suffix) != 0)
        return false;
    text.resize(text.size() - suffix.size());
    return true;
}

/// Whether a length depends on what is around it.
bool isVmlLengthOpen(const std::string& text)
{
    if (text == "auto" || text == "inherit")
        return true;
    std::string rest = text;
    return cutVmlSuffix(rest, "%") || cutVmlSuffix(rest, "em") || cutVmlSuffix(rest, "ex");
}

/// The text of a colour alone, as the converter takes it.
std::string cutVmlColor(const std::string& text)
{
    const std::string color = normalizeVmlText(text);
    if (color.compare(0, 3, "rgb") != 0)
        return color.substr(0, color.find_first_of(VmlBlanks));
    std::string function = color.substr(0, color.find(')'));
    if (function.size() < color.size())
        function += ')';
    const auto isBlank = [](char character) {
        return std::string(VmlBlanks).find(character) != std::string::npos;
    };
    function.erase(std::remove_if(function.begin(), function.end(), isBlank), function.end());
    return function;
}

std::string expandVmlColor(const std::string& color)
{
    for (const VmlColorName& known : VmlColorNames)
        if (color == known.name)
            return known.color;
    if (color.size() != 4 || color.front() != '#')
        return color;
    std::string digits = "#";
    for (const char digit : color.substr(1))
        digits.append(2, digit);
    return digits;
}

} // namespace

VmlStyle readVmlStyle(const std::string& text)
{
    VmlStyle style;
    for (const auto& pair : FilterUtils::parseKeyValueString(text, ";", ":"))
        style.emplace(normalizeVmlText(pair.first), trimVmlText(pair.second));
    return style;
}

boost::optional<std::string> findVmlProperty(const VmlStyle& style, const std::string& name)
{
    const auto found = style.find(name);
    if (found == style.end())
        return boost::none;
    return found->second;
}

boost::optional<VmlLength> readVmlLength(
    const std::string& text, FilterUtils::LengthType type, OperationReport& report)
{
    std::string length = normalizeVmlText(text);
    if (length.empty() || isVmlLengthOpen(length))
        return boost::none;
    if (const auto number = OfficeUtils::stringToDouble(length))
        return VmlLength{static_cast<float>(std::clamp(*number, -VmlUnitlessMax, VmlUnitlessMax)), true};
    const bool isInPixels = cutVmlSuffix(length, "px");
    if (isInPixels)
        length += "pt";
    const UnitOpt points = FilterUtils::convertLength(report, length, boost::none, type);
    if (!points)
        return boost::none;
    return VmlLength{
        std::clamp(isInPixels ? *points * VmlPointsPerPixel : *points, -VmlLengthMax, VmlLengthMax), false};
}

boost::optional<double> readVmlRotation(const std::string& text, OperationReport& report)
{
    std::string angle = normalizeVmlText(text);
    const bool isInParts = cutVmlSuffix(angle, "fd");
    if (!isInParts)
        cutVmlSuffix(angle, "deg");
    const auto number = OfficeUtils::stringToDouble(angle);
    if (!number || !std::isfinite(*number)) {
        report.emplace_back("Drawing rotation {} is none", text);
        return boost::none;
    }
    const double degrees = std::fmod(isInParts ? *number / VmlFractionParts : *number, 360.0);
    const double positive = degrees < 0 ? degrees + 360 : degrees;
    return positive < 360 ? positive : 0; // a tiny angle below zero is lost in the sum
}

boost::optional<DOM::Color> readVmlColor(const std::string& text, OperationReport& report)
{
    const std::string color = cutVmlColor(text);
    if (color.empty() || color == "none")
        return boost::none;
    if (const auto rgba = FilterUtils::convertToRGBAColor(report, expandVmlColor(color), false))
        return DOM::Color(*rgba);
    report.emplace_back("Incorrect color value: {0}", text);
    return boost::none;
}

boost::optional<double> readVmlFraction(const std::string& text, OperationReport& report)
{
    std::string fraction = normalizeVmlText(text);
    if (fraction.find('%') != std::string::npos) {
        const auto part = FilterUtils::convertPercentage(report, fraction);
        return part ? boost::make_optional(std::clamp(*part, 0.0, 1.0)) : boost::none;
    }
    const bool isInParts = cutVmlSuffix(fraction, "f");
    const auto number = OfficeUtils::stringToDouble(fraction);
    if (!number) {
        report.emplace_back("Can't parse percentage value {0}", text);
        return boost::none;
    }
    return std::clamp(isInParts ? *number / VmlFractionParts : *number, 0.0, 1.0);
}

std::pair<std::string, std::string> splitVmlPair(const std::string& text)
{
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos)
        return {trimVmlText(text), std::string()};
    return {trimVmlText(text.substr(0, comma)), trimVmlText(text.substr(comma + 1))};
}

cinder::Vec2<float> readVmlPair(const std::string& text, const cinder::Vec2<float>& usual)
{
    const auto read = [](const std::string& number, float otherwise) {
        const auto value = OfficeUtils::stringToDouble(number);
        return value ? static_cast<float>(std::clamp(*value, -VmlUnitlessMax, VmlUnitlessMax)) : otherwise;
    };
    const auto parts = splitVmlPair(text);
    return {read(parts.first, usual.x), read(parts.second, usual.y)};
}

bool isVmlFalse(const std::string& text)
{
    const std::string value = normalizeVmlText(text);
    return value == "f" || value == "false" || value == "0" || value == "no" || value == "off";
}

} // namespace QV::Filters
