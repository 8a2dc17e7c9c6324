#include <FilterUtils/FU_XMLText.h>

#include <algorithm>
#include <cstddef>

namespace QV::FilterUtils {
namespace {

constexpr char32_t ReplacementCharacter = 0xFFFD;
constexpr char32_t LastCodePoint = 0x10FFFF;
constexpr char32_t NoCodePoint = 0xFFFFFFFF;

bool isAscii(char16_t unit)
{
    return unit < 0x80;
}

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void appendAscii(std::string& result, std::u16string_view text)
{
    const std::size_t sizeBefore = result.size();
    result.resize(sizeBefore + text.size());
    std::transform(text.begin(), text.end(), result.begin() + static_cast<std::ptrdiff_t>(sizeBefore),
        [](char16_t unit) { return static_cast<char>(unit); });
}

void appendCodePoint(std::string& result, char32_t character)
{
    const auto trailing = [character](int shift) {
        return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    };
    if (character < 0x80) {
        result += static_cast<char>(character);
    } else if (character < 0x800) {
        result += {static_cast<char>(0xC0U | (character >> 6)), trailing(0)};
    } else if (character < 0x10000) {
        result += {static_cast<char>(0xE0U | (character >> 12)), trailing(6), trailing(0)};
    } else {
        result += {static_cast<char>(0xF0U | (character >> 18)), trailing(12), trailing(6), trailing(0)};
    }
}

// Takes one character off the front of the text, which is not empty.
char32_t takeCodePoint(std::u16string_view& text)
{
    const char32_t unit = text.front();
    text.remove_prefix(1);
    if (!isHighSurrogate(unit))
        return isLowSurrogate(unit) ? ReplacementCharacter : unit;
    if (text.empty() || !isLowSurrogate(text.front()))
        return ReplacementCharacter;
    const char32_t low = text.front();
    text.remove_prefix(1);
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

// By first byte: how many bytes follow, the bits of the first that count, the least character of that length.
struct Utf8Form
{
    unsigned char mask;
    unsigned char mark;
    std::size_t trailing;
    char32_t least;
};

constexpr Utf8Form Utf8Forms[] = {
    {0x80, 0x00, 0, 0x0    },
    {0xE0, 0xC0, 1, 0x80   },
    {0xF0, 0xE0, 2, 0x800  },
    {0xF8, 0xF0, 3, 0x10000},
};

// Takes one character off the front of the text, which is not empty; or returns NoCodePoint.
char32_t takeCodePoint(boost::string_ref& text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const auto* const form = std::find_if(std::begin(Utf8Forms), std::end(Utf8Forms),
        [first](const Utf8Form& candidate) { return (first & candidate.mask) == candidate.mark; });
    if (form == std::end(Utf8Forms) || text.size() <= form->trailing)
        return NoCodePoint;
    char32_t character = first & static_cast<unsigned char>(~form->mask);
    for (std::size_t i = 1; i <= form->trailing; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return NoCodePoint;
        character = (character << 6) | (next & 0x3FU);
    }
    text.remove_prefix(form->trailing + 1);
    if (character < form->least || character > LastCodePoint || isHighSurrogate(character) ||
        isLowSurrogate(character))
        return NoCodePoint;
    return character;
}

} // namespace

void appendUtf8(std::string& result, std::u16string_view text)
{
    while (!text.empty()) {
        const auto asciiSize =
            static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isAscii) - text.begin());
        appendAscii(result, text.substr(0, asciiSize));
        text.remove_prefix(asciiSize);
        while (!text.empty() && !isAscii(text.front()))
            appendCodePoint(result, takeCodePoint(text));
    }
}

boost::optional<std::u16string> convertUtf8ToUtf16(boost::string_ref text)
{
    std::u16string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text);
        if (character == NoCodePoint)
            return boost::none;
        if (character < 0x10000) {
            result += static_cast<char16_t>(character);
        } else {
            result += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
            result += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
        }
    }
    return result;
}

} // namespace QV::FilterUtils
