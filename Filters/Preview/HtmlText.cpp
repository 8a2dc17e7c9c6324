#include <Filters/Preview/HtmlText.h>

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

#include <FilterUtils/FU_Text.h>

namespace QV::Filters {
namespace {

constexpr const char* Replacement = "\xEF\xBF\xBD";

/// The length of the well-formed UTF-8 sequence at @p begin (Unicode 15, table 3-7); 0 where there is none.
std::size_t getSequenceLength(const std::string& text, std::size_t begin)
{
    const auto at = [&](std::size_t i) {
        return begin + i < text.size() ? static_cast<unsigned char>(text[begin + i]) : 0U;
    };
    const auto isTail = [&](std::size_t i) { return (at(i) & 0xC0U) == 0x80U; };
    const unsigned first = at(0);
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return isTail(1) ? 2 : 0;
    if ((first & 0xF0U) == 0xE0U) {
        const bool isOverlong = first == 0xE0 && at(1) < 0xA0;
        const bool isSurrogate = first == 0xED && at(1) >= 0xA0;
        return isTail(1) && isTail(2) && !isOverlong && !isSurrogate ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool isOverlong = first == 0xF0 && at(1) < 0x90;
        const bool isTooHigh = first == 0xF4 && at(1) >= 0x90;
        return isTail(1) && isTail(2) && isTail(3) && !isOverlong && !isTooHigh ? 4 : 0;
    }
    return 0;
}

const char* findReference(char c)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    default:
        return nullptr;
    }
}

bool isForbiddenControl(char c)
{
    const auto code = static_cast<unsigned char>(c);
    return (code < 0x20 && c != '\t' && c != '\n') || code == 0x7F;
}

} // namespace

std::string escapeHtml(const std::string& text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = getSequenceLength(text, i);
        if (text[i] == '\r')
            result += i + 1 < text.size() && text[i + 1] != '\n' ? "\n" : "";
        else if (length == 0 || isForbiddenControl(text[i]))
            result += Replacement;
        else if (const char* const reference = findReference(text[i]))
            result += reference;
        else
            result.append(text, i, length);
        i += std::max<std::size_t>(length, 1);
    }
    return result;
}

std::string quoteCss(const std::string& text)
{
    std::string result = "\"";
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        // What could end the string, the rule or the style element is written as its code.
        if (code < 0x20 || code == 0x7F || c == '"' || c == '\\' || c == '<' || c == '>' || c == '&' ||
            c == '\'')
            result += fmt::format("\\{:x} ", code);
        else
            result += c;
    }
    return result + '"';
}

std::string makePageHead(const std::string& title)
{
    return fmt::format("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\">\n"
                       "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
                       "style-src 'unsafe-inline'; img-src data:\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width\">\n"
                       "<meta name=\"generator\" content=\"{}\">\n<title>{}</title>\n<style>",
        escapeHtml(FilterUtils::getApplicationFullNameAndVersion("Filters")), escapeHtml(title));
}

} // namespace QV::Filters
