#include <Filters/Convert/MarkdownText.h>

#include <cstddef>

#include <boost/algorithm/string/trim.hpp>
#include <fmt/format.h>

namespace QV::Filters {
namespace {

constexpr const char* MeaningfulAnywhere = "\\`*_[]<>|~&";
constexpr std::size_t OrderedDigitsMax = 9; // CommonMark 0.30, 5.2: longer numbers begin no list

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

} // namespace

std::string escapeMarkdown(const std::string& text)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c == '\n' || c == '\t' || c == '\r')
            result += ' ';
        else if (isControl(c))
            result += "\xEF\xBF\xBD";
        else {
            if (std::string(MeaningfulAnywhere).find(c) != std::string::npos)
                result += '\\';
            result += c;
        }
    }
    return result;
}

std::string escapeMarkdownLine(const std::string& line)
{
    std::string result = boost::algorithm::trim_left_copy_if(line, [](char c) { return c == ' '; });
    if (result.empty())
        return result;
    if (std::string("#+-=:").find(result.front()) != std::string::npos)
        return "\\" + result;
    const std::size_t digits = result.find_first_not_of("0123456789");
    if (digits != std::string::npos && digits > 0 && digits <= OrderedDigitsMax &&
        (result[digits] == '.' || result[digits] == ')'))
        result.insert(digits, 1, '\\');
    return result;
}

std::string escapeMarkdownHeadingEnd(const std::string& heading)
{
    const std::size_t last = heading.find_last_not_of('#');
    std::string result = heading;
    if (last != std::string::npos && last + 1 < heading.size() && heading[last] == ' ')
        result.insert(last + 1, 1, '\\');
    return result;
}

std::string quoteMarkdownTarget(const std::string& target)
{
    std::string result = "<";
    for (const char c : target)
        if (c == '<' || c == '>' || c == '\\' || c == ' ' || c == '|' || c == '`' || isControl(c))
            result += fmt::format("%{:02X}", static_cast<unsigned char>(c));
        else
            result += c;
    return result + ">";
}

} // namespace QV::Filters
