#include <Utils/MIMESniffers.h>

#include <cstddef>
#include <string>

namespace QV::MIMESniffers {
namespace {

// The ASCII letters of a text in UTF-16; every other character becomes "?". A text that is not UTF-16 is
// given back without its byte order mark.
std::string makeNarrow(boost::string_ref head)
{
    const bool isLittle = head.starts_with("\xff\xfe") || head.starts_with(boost::string_ref("<\0", 2));
    const bool isBig = head.starts_with("\xfe\xff") || head.starts_with(boost::string_ref("\0<", 2));
    if (head.starts_with("\xef\xbb\xbf"))
        head.remove_prefix(3);
    if (!isLittle && !isBig)
        return std::string(head.data(), head.size());
    std::string narrow;
    narrow.reserve(head.size() / 2);
    for (std::size_t i = readByte(head, 0) >= 0xfe ? 2 : 0; i + 1 < head.size(); i += 2) {
        const char high = head[isBig ? i : i + 1];
        const char low = head[isBig ? i + 1 : i];
        narrow += high == 0 ? low : '?';
    }
    return narrow;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

void skipBlanks(boost::string_ref& text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
}

// Goes behind the next `end`; to the end of the text where there is none.
void skipPast(boost::string_ref& text, boost::string_ref end)
{
    const std::size_t position = text.find(end);
    text.remove_prefix(position == boost::string_ref::npos ? text.size() : position + end.size());
}

// A document type declaration, with the declarations that it may hold in brackets.
void skipDoctype(boost::string_ref& text)
{
    const std::size_t position = text.find_first_of("[>");
    text.remove_prefix(position == boost::string_ref::npos ? text.size() : position);
    if (text.starts_with("["))
        skipPast(text, "]");
    skipPast(text, ">");
}

// What may stand before the root element (XML 1.0, section 2.8).
void skipPrologue(boost::string_ref& text)
{
    for (;;) {
        skipBlanks(text);
        if (text.starts_with("<?"))
            skipPast(text, "?>");
        else if (text.starts_with("<!--"))
            skipPast(text, "-->");
        else if (text.starts_with("<!DOCTYPE"))
            skipDoctype(text);
        else
            return;
    }
}

} // namespace

const char* sniffSVG(boost::string_ref head)
{
    const std::string narrow = makeNarrow(head);
    boost::string_ref text(narrow);
    skipPrologue(text);
    for (const boost::string_ref start : {"<svg", "<svg:svg"}) {
        const char next = text.starts_with(start) && text.size() > start.size() ? text[start.size()] : '\0';
        if (isBlank(next) || next == '>' || next == '/')
            return "image/svg+xml";
    }
    return nullptr;
}

} // namespace QV::MIMESniffers
