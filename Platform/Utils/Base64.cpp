#include <Utils/Public/Base64.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace QV {
namespace {

constexpr const char* Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t NoDigit = 0xff;

constexpr std::array<std::uint8_t, 256> makeDigitValues()
{
    std::array<std::uint8_t, 256> values{};
    for (std::uint8_t& value : values)
        value = NoDigit;
    for (std::uint8_t i = 0; i < 64; ++i)
        values[static_cast<unsigned char>(Alphabet[i])] = i;
    return values;
}

constexpr std::array<std::uint8_t, 256> DigitValues = makeDigitValues();

// The bits of the first digitsCount characters, moved up as if four digits stood there.
std::uint32_t readGroup(const char* digits, std::size_t digitsCount)
{
    std::uint32_t group = 0;
    std::uint8_t seen = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::uint8_t value = i < digitsCount ? DigitValues[static_cast<unsigned char>(digits[i])] : 0;
        seen = static_cast<std::uint8_t>(seen | value);
        group = group << 6 | value;
    }
    if (seen > 63)
        throw std::invalid_argument("base64: a character outside the alphabet");
    return group;
}

std::size_t countPadding(boost::string_ref text)
{
    if (text.empty() || text.back() != '=')
        return 0;
    return text[text.size() - 2] == '=' ? 2 : 1;
}

} // namespace

std::string base64Decode(boost::string_ref text)
{
    if (text.size() % 4 != 0)
        throw std::invalid_argument("base64: the length is not a multiple of four");
    const std::size_t padding = countPadding(text);
    std::string bytes(text.size() / 4 * 3 - padding, '\0');
    std::size_t position = 0;
    for (std::size_t begin = 0; begin < text.size(); begin += 4) {
        const bool isLast = begin + 4 == text.size();
        const std::uint32_t group = readGroup(text.data() + begin, isLast ? 4 - padding : 4);
        const std::size_t bytesCount = isLast ? 3 - padding : 3;
        for (std::size_t i = 0; i < bytesCount; ++i)
            bytes[position++] = static_cast<char>(group >> (16 - 8 * i) & 0xff);
        if (bytesCount < 3 && (group & (0xffffffU >> (8 * bytesCount))) != 0)
            throw std::invalid_argument("base64: bits are left over before the padding");
    }
    return bytes;
}

std::string base64Encode(boost::string_ref bytes)
{
    std::string text((bytes.size() + 2) / 3 * 4, '=');
    std::size_t position = 0;
    for (std::size_t begin = 0; begin < bytes.size(); begin += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - begin);
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8 | (i < count ? static_cast<unsigned char>(bytes[begin + i]) : 0U);
        for (std::size_t i = 0; i <= count; ++i)
            text[position + i] = Alphabet[group >> (18 - 6 * i) & 63];
        position += 4;
    }
    return text;
}

} // namespace QV
