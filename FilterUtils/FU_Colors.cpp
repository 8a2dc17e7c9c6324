#include <FilterUtils/FU_Colors.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

#include <boost/utility/string_ref.hpp>
#include <fmt/format.h>

#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

#include <FilterUtils/FU_Errors.h>

namespace QV::FilterUtils {
namespace {

using Color = cinder::ColorAT<unsigned char>;

constexpr unsigned char Opaque = 255;
constexpr std::size_t MinSizeWithAlpha = 7;
constexpr std::size_t MaxChannels = 4;

struct Channels
{
    std::array<boost::string_ref, MaxChannels> texts;
    std::size_t count = 0; // of those that are kept
};

Channels splitChannels(boost::string_ref text)
{
    Channels channels;
    while (!text.empty() && channels.count < MaxChannels) {
        const std::size_t size = std::min(text.find(','), text.size());
        if (size != 0)
            channels.texts[channels.count++] = text.substr(0, size);
        text.remove_prefix(std::min(size + 1, text.size()));
    }
    return channels;
}

unsigned char getByte(unsigned long value, unsigned shift)
{
    return static_cast<unsigned char>(value >> shift & 0xFFU);
}

// What boost::lexical_cast<std::int64_t> accepts, without its exceptions; the low 8 bits of it.
boost::optional<unsigned char> parseChannel(boost::string_ref text)
{
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-'))
            return boost::none;
    }
    std::int64_t value = 0;
    const auto result = std::from_chars(text.begin(), text.end(), value);
    if (result.ec != std::errc() || result.ptr != text.end())
        return boost::none;
    return static_cast<unsigned char>(static_cast<std::uint64_t>(value) & 0xFFU);
}

bool equalsIgnoringCase(boost::string_ref text, boost::string_ref lowerCase)
{
    if (text.size() != lowerCase.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != lowerCase[i] && text[i] != lowerCase[i] - 'a' + 'A')
            return false;
    return true;
}

boost::optional<float> parseSpecialFloat(boost::string_ref text)
{
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    if (equalsIgnoringCase(text, "nan"))
        return std::numeric_limits<float>::quiet_NaN();
    if (!equalsIgnoringCase(text, "inf") && !equalsIgnoringCase(text, "infinity"))
        return boost::none;
    constexpr float infinity = std::numeric_limits<float>::infinity();
    return isNegative ? -infinity : infinity;
}

// What boost::lexical_cast<float> accepts: its special words, and the numbers that a float is large enough
// for.
boost::optional<float> parseFloat(boost::string_ref text)
{
    const auto number = OfficeUtils::stringToDouble(std::string(text.begin(), text.end()));
    if (!number)
        return parseSpecialFloat(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    float value = 0;
    const auto result = std::from_chars(text.begin(), text.end(), value); // rounded once, not through double
    if (result.ec == std::errc())
        return value;
    if (std::fabs(*number) > 1)
        return boost::none;
    return 0.0F;
}

// The low 8 bits of the whole part, however large it is.
unsigned char convertToAlpha(float opacity)
{
    const float value = 255.0F * opacity;
    if (std::isnan(value))
        return 0;
    if (std::isinf(value))
        return value > 0 ? Opaque : 0;
    const auto remainder = static_cast<int>(std::fmod(std::trunc(value), 256.0F));
    return static_cast<unsigned char>(remainder & 0xFF);
}

// No such text is hexadecimal, so that what is refused here is refused altogether.
boost::optional<Color> parseFunctionalColor(boost::string_ref text)
{
    const std::size_t open = text.find('(');
    const std::size_t close = text.find(')');
    if (open == boost::string_ref::npos || close == boost::string_ref::npos || open >= close)
        return boost::none;
    const Channels channels = splitChannels(text.substr(open + 1, close - open - 1));
    if (channels.count < 3)
        return boost::none;

    const auto red = parseChannel(channels.texts[0]);
    const auto green = parseChannel(channels.texts[1]);
    const auto blue = parseChannel(channels.texts[2]);
    if (!red || !green || !blue)
        return boost::none;
    if (!text.starts_with("rgba") || channels.count < MaxChannels)
        return Color(*red, *green, *blue, Opaque);
    const auto opacity = parseFloat(channels.texts[3]);
    if (!opacity)
        return boost::none;
    return Color(*red, *green, *blue, convertToAlpha(*opacity));
}

} // namespace

boost::optional<Color> convertToRGBAColor(OperationReport& report, const std::string& text, bool reportErrors)
{
    if (boost::string_ref(text).starts_with("rgb"))
        return parseFunctionalColor(text);

    const std::string digits = text.substr(!text.empty() && text[0] == '#' ? 1 : 0);
    std::size_t end = 0;
    const auto value = strToUlong(digits, &end, 16);
    if (!value)
        return boost::none;
    if (end != digits.size()) {
        if (reportErrors)
            report.emplace_back("Incorrect color value: {0}", text);
        return boost::none;
    }
    if (*value > std::numeric_limits<unsigned int>::max())
        return boost::none;
    if (digits.size() >= MinSizeWithAlpha)
        return Color(getByte(*value, 24), getByte(*value, 16), getByte(*value, 8), getByte(*value, 0));
    return Color(getByte(*value, 16), getByte(*value, 8), getByte(*value, 0), Opaque);
}

boost::optional<Color> convertToRGBAColor(OperationReport& report, const std::string& text)
{
    return convertToRGBAColor(report, text, true);
}

boost::optional<Color> convertToRGBColor(OperationReport& report, const std::string& text)
{
    std::size_t end = 0;
    const auto value = strToUlong(text, &end, 16);
    if (!value || end != text.size()) {
        report.emplace_back("Incorrect color: {0}", text);
        return boost::none;
    }
    const auto bits = numCast<unsigned int>(*value);
    return Color(getByte(bits, 16), getByte(bits, 8), getByte(bits, 0), Opaque);
}

std::string convertRGBColor(const Color& color)
{
    return fmt::format("{:02X}{:02X}{:02X}", color.r, color.g, color.b);
}

} // namespace QV::FilterUtils
