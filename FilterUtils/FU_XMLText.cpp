#include <FilterUtils/FU_XMLText.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

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

// Moves the ASCII at the front of the text to the result. By way of a small block: most texts are short, and
// making room in the result before its bytes are known would fill it twice.
void takeAscii(std::string& result, std::u16string_view& text)
{
    std::array<char, 64> block;
    std::size_t size = 0;
    do {
        const std::size_t wanted = std::min(text.size(), block.size());
        for (size = 0; size < wanted && isAscii(text[size]); ++size)
            block[size] = static_cast<char>(text[size]);
        result.append(block.data(), size);
        text.remove_prefix(size);
    } while (size == block.size());
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

// By first byte: which of its bits say so, how many bytes follow, the least character that needs them.
struct Utf8Form
{
    unsigned char mask;
    unsigned char mark;
    std::size_t trailing;
    char32_t least;
};

constexpr Utf8Form Utf8Forms[] = {
    {0xE0, 0xC0, 1, 0x80   },
    {0xF0, 0xE0, 2, 0x800  },
    {0xF8, 0xF0, 3, 0x10000},
};

// Takes one character that is not ASCII off the front of the text; or returns NoCodePoint.
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

// Moves the ASCII at the front of the text to the result, eight at a time as long as there are so many.
char16_t* takeAscii(char16_t* result, boost::string_ref& text)
{
    constexpr std::uint64_t NotAscii = 0x8080808080808080;
    const char* begin = text.data();
    const char* const end = begin + text.size();
    std::uint64_t block = 0;
    for (; end - begin >= 8; begin += 8, result += 8) {
        std::memcpy(&block, begin, 8);
        if (block & NotAscii)
            break;
        for (int i = 0; i < 8; ++i)
            result[i] = static_cast<unsigned char>(begin[i]);
    }
    for (; begin != end && static_cast<unsigned char>(*begin) < 0x80; ++begin)
        *result++ = static_cast<unsigned char>(*begin);
    text = boost::string_ref(begin, static_cast<std::size_t>(end - begin));
    return result;
}

} // namespace

void appendUtf8(std::string& result, std::u16string_view text)
{
    while (!text.empty()) {
        takeAscii(result, text);
        while (!text.empty() && !isAscii(text.front()))
            appendCodePoint(result, takeCodePoint(text));
    }
}

char16_t* writeUtf16(char16_t* result, boost::string_ref text)
{
    while (!text.empty()) {
        result = takeAscii(result, text);
        if (text.empty())
            break;
        const char32_t character = takeCodePoint(text);
        if (character == NoCodePoint)
            return nullptr;
        if (character < 0x10000) {
            *result++ = static_cast<char16_t>(character);
        } else {
            *result++ = static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
            *result++ = static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
        }
    }
    return result;
}

boost::optional<std::u16string> convertUtf8ToUtf16(boost::string_ref text)
{
    std::u16string result(text.size(), u'\0');
    const char16_t* const end = writeUtf16(result.data(), text);
    if (!end)
        return boost::none;
    result.resize(static_cast<std::size_t>(end - result.data()));
    return result;
}

} // namespace QV::FilterUtils
