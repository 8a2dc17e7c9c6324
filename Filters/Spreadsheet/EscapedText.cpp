#include <Filters/Spreadsheet/EscapedText.h>

#include <cstddef>

#include <boost/optional.hpp>

namespace QV::Filters {
namespace {

constexpr std::size_t EscapeSize = 7; // "_x000D_"

boost::optional<char32_t> readEscape(const std::string& text, std::size_t begin)
{
    if (text.size() - begin < EscapeSize || text[begin] != '_' || text[begin + 1] != 'x' ||
        text[begin + 6] != '_')
        return boost::none;
    char32_t unit = 0;
    for (std::size_t i = begin + 2; i < begin + 6; ++i) {
        const char c = text[i];
        unsigned digit = 0;
        if (c >= '0' && c <= '9')
            digit = static_cast<unsigned>(c - '0');
        else if (c >= 'A' && c <= 'F')
            digit = static_cast<unsigned>(c - 'A') + 10;
        else if (c >= 'a' && c <= 'f')
            digit = static_cast<unsigned>(c - 'a') + 10;
        else
            return boost::none;
        unit = unit * 16 + digit;
    }
    return unit;
}

void appendUtf8(std::string& text, char32_t c)
{
    const auto append = [&text](
                            char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (c < 0x80) {
        append(c);
    } else if (c < 0x800) {
        append(0xC0U | c >> 6U);
        append(0x80U | (c & 0x3FU));
    } else if (c < 0x10000) {
        append(0xE0U | c >> 12U);
        append(0x80U | (c >> 6U & 0x3FU));
        append(0x80U | (c & 0x3FU));
    } else {
        append(0xF0U | c >> 18U);
        append(0x80U | (c >> 12U & 0x3FU));
        append(0x80U | (c >> 6U & 0x3FU));
        append(0x80U | (c & 0x3FU));
    }
}

bool isSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDFFF;
}

} // namespace

void unescapeText(std::string& text)
{
    std::size_t begin = text.find("_x");
    if (begin == std::string::npos)
        return;
    std::string plain(text, 0, begin);
    while (begin < text.size()) {
        const auto unit = readEscape(text, begin);
        if (!unit) {
            plain += text[begin++];
            continue;
        }
        if (!isSurrogate(*unit)) {
            appendUtf8(plain, *unit);
            begin += EscapeSize;
            continue;
        }
        const auto low = *unit < 0xDC00 ? readEscape(text, begin + EscapeSize) : boost::none;
        if (low && *low >= 0xDC00 && *low <= 0xDFFF) {
            appendUtf8(plain, 0x10000 + ((*unit - 0xD800) << 10U) + (*low - 0xDC00));
            begin += 2 * EscapeSize;
        } else {
            plain.append(text, begin, EscapeSize);
            begin += EscapeSize;
        }
    }
    text = std::move(plain);
}

bool isTooLongForCell(const std::string& text)
{
    constexpr std::size_t LengthMax = 32767;
    if (text.size() <= LengthMax)
        return false;
    std::size_t length = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        length += (byte & 0xC0U) == 0x80 ? 0
                  : byte >= 0xF0         ? 2
                                         : 1; // four bytes of UTF-8 are a surrogate pair
    }
    return length > LengthMax;
}

} // namespace QV::Filters
