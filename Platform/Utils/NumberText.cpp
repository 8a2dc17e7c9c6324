#include <Utils/Public/NumberText.h>

#include <charconv>
#include <system_error>

namespace QV {
namespace {

bool isBlank(char c)
{
    return c == ' ' || ('\t' <= c && c <= '\r');
}

bool isHexDigit(char c)
{
    return ('0' <= c && c <= '9') || ('a' <= c && c <= 'f') || ('A' <= c && c <= 'F');
}

bool isHexPrefix(const char* begin, const char* end)
{
    return end - begin > 2 && begin[0] == '0' && (begin[1] == 'x' || begin[1] == 'X') && isHexDigit(begin[2]);
}

} // namespace

boost::optional<unsigned long> strToUlong(const std::string& text, std::size_t* position, int base)
{
    if (base != 0 && (base < 2 || base > 36))
        return boost::none;
    const char* begin = text.data();
    const char* const end = begin + text.size();
    while (begin != end && isBlank(*begin))
        ++begin;
    const bool isNegative = begin != end && *begin == '-';
    if (begin != end && (*begin == '-' || *begin == '+'))
        ++begin;
    if ((base == 0 || base == 16) && isHexPrefix(begin, end)) {
        begin += 2;
        base = 16;
    }
    if (base == 0)
        base = begin != end && *begin == '0' ? 8 : 10;
    unsigned long value = 0;
    const auto result = std::from_chars(begin, end, value, base);
    if (result.ec != std::errc())
        return boost::none;
    if (position)
        *position = static_cast<std::size_t>(result.ptr - text.data());
    return isNegative ? 0 - value : value;
}

} // namespace QV
