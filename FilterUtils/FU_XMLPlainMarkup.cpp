#include <FilterUtils/FU_XMLPlainMarkup.h>

#include <array>
#include <cstdint>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <FilterUtils/FU_XMLText.h>

namespace QV::FilterUtils {
namespace {

// What a byte may be, as bits.
enum : std::uint8_t
{
    NameStart = 1, // of a name in ASCII, without ":"
    NamePart = 2,  // the same, inside
    Verbatim = 4   // stands for itself in text and in values
};

constexpr std::array<std::uint8_t, 256> makeByteTable()
{
    std::array<std::uint8_t, 256> table{};
    for (int c = 0x20; c < 0x80; ++c) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
        const bool isPart = isLetter || (c >= '0' && c <= '9') || c == '-' || c == '.';
        const bool isVerbatim = c != '<' && c != '&' && c != '>' && c != '"' && c != '\'';
        table[static_cast<std::size_t>(c)] = static_cast<std::uint8_t>(
            (isLetter ? NameStart : 0) | (isPart ? NamePart : 0) | (isVerbatim ? Verbatim : 0));
    }
    return table;
}

constexpr std::array<std::uint8_t, 256> Bytes = makeByteTable();

bool is(char c, std::uint8_t what)
{
    return (Bytes[static_cast<unsigned char>(c)] & what) != 0;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

void widen(std::u16string& result, const char* begin, const char* end)
{
    const std::size_t before = result.size();
    const auto count = static_cast<std::size_t>(end - begin);
    result.resize(before + count);
    for (std::size_t i = 0; i < count; ++i)
        result[before + i] = static_cast<unsigned char>(begin[i]);
}

// --- Tags

// PREFIX ":" LOCAL, or LOCAL. Null where there is no such name; the end of the bytes may cut it off.
const char* readName(const char* at, const char* end)
{
    for (int part = 0; part < 2; ++part) {
        if (at == end)
            return at;
        if (!is(*at, NameStart))
            return nullptr;
        while (at != end && is(*at, NamePart))
            ++at;
        if (at == end || *at != ':')
            return at;
        if (part == 0)
            ++at;
    }
    return nullptr;
}

// Behind the name and its "=". Appends the value, and moves behind the quote.
XMLPlainness readValue(const char*& at, const char* end, XMLPlainTag& tag)
{
    if (at == end)
        return XMLPlainness::Incomplete;
    const char quote = *at;
    if (quote != '"' && quote != '\'')
        return XMLPlainness::Unplain;
    const char* const begin = ++at;
    while (at != end && is(*at, Verbatim))
        ++at;
    const char* const verbatimEnd = at;
    while (at != end && *at != quote && *at != '<')
        ++at;
    if (at == end)
        return XMLPlainness::Incomplete;
    if (*at != quote)
        return XMLPlainness::Unplain;
    if (at == verbatimEnd)
        widen(tag.values, begin, at);
    else if (!appendPlainText(tag.values, {begin, static_cast<std::size_t>(at - begin)}, true))
        return XMLPlainness::Unplain;
    ++at;
    return XMLPlainness::Plain;
}

bool declaresNamespace(std::string_view name)
{
    return name.substr(0, 5) == "xmlns" && (name.size() == 5 || name[5] == ':');
}

XMLPlainness readAttribute(const char*& at, const char* end, XMLPlainTag& tag)
{
    const char* const begin = at;
    at = readName(at, end);
    if (!at)
        return XMLPlainness::Unplain;
    if (at == end)
        return XMLPlainness::Incomplete;
    const std::string_view name(begin, static_cast<std::size_t>(at - begin));
    if (*at != '=' || declaresNamespace(name))
        return XMLPlainness::Unplain;
    ++at;
    const std::size_t valueBegin = tag.values.size();
    const XMLPlainness plainness = readValue(at, end, tag);
    tag.attributes.push_back({name, valueBegin, tag.values.size() - valueBegin});
    return plainness;
}

XMLPlainness readAttributes(const char*& at, const char* end, std::size_t maximumAttributes, XMLPlainTag& tag)
{
    while (true) {
        const char* const begin = at;
        while (at != end && isBlank(*at))
            ++at;
        if (at == end)
            return XMLPlainness::Incomplete;
        if (*at == '>' || *at == '/') {
            tag.kind = *at == '/' ? XMLMarkupKind::Empty : XMLMarkupKind::Start;
            if (*at == '/' && ++at == end)
                return XMLPlainness::Incomplete;
            return *at++ == '>' ? XMLPlainness::Plain : XMLPlainness::Unplain;
        }
        if (at == begin || tag.attributes.size() == maximumAttributes)
            return XMLPlainness::Unplain;
        const XMLPlainness plainness = readAttribute(at, end, tag);
        if (plainness != XMLPlainness::Plain)
            return plainness;
    }
}

XMLPlainness readEndTag(const char*& at, const char* end)
{
    while (at != end && isBlank(*at))
        ++at;
    if (at == end)
        return XMLPlainness::Incomplete;
    return *at++ == '>' ? XMLPlainness::Plain : XMLPlainness::Unplain;
}

// --- Text

bool isXmlCharacter(std::uint32_t c)
{
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
           (c >= 0x10000 && c <= 0x10FFFF);
}

// Of "&#N;" what is between "#" and ";".
boost::optional<std::uint32_t> parseCharacterNumber(std::string_view text)
{
    const std::uint32_t base = text.substr(0, 1) == "x" ? 16 : 10;
    if (base == 16)
        text.remove_prefix(1);
    if (text.empty())
        return boost::none;
    std::uint32_t number = 0;
    for (const char c : text) {
        const char lower = static_cast<char>(c | 0x20);
        std::uint32_t digit = 16;
        if (c >= '0' && c <= '9')
            digit = static_cast<std::uint32_t>(c - '0');
        else if (lower >= 'a' && lower <= 'f')
            digit = static_cast<std::uint32_t>(lower - 'a' + 10);
        if (digit >= base)
            return boost::none;
        number = number * base + digit;
        if (number > 0x10FFFF)
            return boost::none;
    }
    return number;
}

bool appendNumbered(std::u16string& result, std::string_view text)
{
    const auto number = parseCharacterNumber(text);
    if (!number || !isXmlCharacter(*number))
        return false;
    if (*number < 0x10000) {
        result += static_cast<char16_t>(*number);
    } else {
        result += static_cast<char16_t>(0xD7C0 + (*number >> 10));
        result += static_cast<char16_t>(0xDC00 + (*number & 0x3FF));
    }
    return true;
}

// At the "&"; moves behind the ";".
bool appendReference(std::u16string& result, std::string_view& text)
{
    static constexpr struct
    {
        std::string_view name;
        char16_t character;
    } Predefined[] = {
        {"lt",   u'<' },
        {"gt",   u'>' },
        {"amp",  u'&' },
        {"quot", u'"' },
        {"apos", u'\''}
    };

    const std::size_t length = text.find(';');
    if (length == std::string_view::npos)
        return false;
    const std::string_view name = text.substr(1, length - 1);
    text.remove_prefix(length + 1);
    if (name.substr(0, 1) == "#")
        return appendNumbered(result, name.substr(1));
    for (const auto& entity : Predefined)
        if (entity.name == name) {
            result += entity.character;
            return true;
        }
    return false;
}

// At a byte beyond ASCII; moves behind the last such.
bool appendBeyondAscii(std::u16string& result, std::string_view& text)
{
    std::size_t length = 1;
    while (length < text.size() && static_cast<unsigned char>(text[length]) >= 0x80)
        ++length;
    const std::size_t before = result.size();
    result.resize(before + length);
    const char16_t* const end = writeUtf16(&result[before], boost::string_ref(text.data(), length));
    if (!end)
        return false;
    result.resize(static_cast<std::size_t>(end - result.data()));
    text.remove_prefix(length);
    for (std::size_t i = before; i < result.size(); ++i)
        if (result[i] >= 0xFFFE)
            return false;
    return true;
}

} // namespace

// --- XMLMarkupEnd

// The bytes that tell the kind; false once that is told.
bool XMLMarkupEnd::takeFirst(char c)
{
    switch (_state) {
    case State::Open:
        _state = State::Name;
        return true;
    case State::Name:
        if (c == '!') {
            _state = State::Bang;
            return true;
        }
        _state = State::Tag;
        if (c == '/') {
            _kind = XMLMarkupKind::End;
            return true;
        }
        if (c != '?')
            return false;
        _terminator = "?>";
        break;
    case State::Bang:
        if (c == '-') {
            _state = State::Dash;
            return true;
        }
        _terminator = c == '[' ? "]]>" : ">";
        if (c != '[') {
            _kind = XMLMarkupKind::Other;
            _state = State::Text;
            return false;
        }
        break;
    case State::Dash:
        _terminator = "-->";
        break;
    case State::Tag:
    case State::Text:
        return false;
    }
    _kind = XMLMarkupKind::Other;
    _state = State::Text;
    return true;
}

bool XMLMarkupEnd::takeTerminator(char c)
{
    // The first two characters of the long terminators are the same one.
    if (c == _terminator[_matched])
        ++_matched;
    else if (c != _terminator[0])
        _matched = 0;
    else if (_matched != 2)
        _matched = 1;
    return _matched == _terminator.size();
}

const char* XMLMarkupEnd::find(const char* begin, const char* end)
{
    for (const char* at = begin; at != end; ++at) {
        if (takeFirst(*at))
            continue;
        if (_state == State::Text) {
            if (takeTerminator(*at))
                return at + 1;
        } else if (_quote != 0) {
            if (*at == _quote)
                _quote = 0;
        } else if (*at == '>') {
            return at + 1;
        } else if (_kind == XMLMarkupKind::Start && (*at == '"' || *at == '\'')) {
            _quote = *at;
        }
        _last = *at;
    }
    return nullptr;
}

XMLMarkupKind XMLMarkupEnd::getKind() const
{
    return _kind == XMLMarkupKind::Start && _last == '/' ? XMLMarkupKind::Empty : _kind;
}

// --- Functions

XMLPlainness readPlainTag(const char*& at, const char* end, std::size_t maximumAttributes, XMLPlainTag& tag)
{
    tag.attributes.clear();
    tag.values.clear();
    const char* here = at + 1;
    const bool isEnd = here != end && *here == '/';
    if (isEnd)
        ++here;
    const char* const nameBegin = here;
    here = readName(here, end);
    if (!here)
        return XMLPlainness::Unplain;
    if (here == end)
        return XMLPlainness::Incomplete;
    tag.name = {nameBegin, static_cast<std::size_t>(here - nameBegin)};
    tag.kind = XMLMarkupKind::End;
    const XMLPlainness plainness =
        isEnd ? readEndTag(here, end) : readAttributes(here, end, maximumAttributes, tag);
    if (plainness == XMLPlainness::Plain)
        at = here;
    return plainness;
}

bool appendPlainText(std::u16string& result, std::string_view text, bool isAttribute)
{
    const std::string_view all = text;
    while (!text.empty()) {
        std::size_t length = 0;
        while (length < text.size() && is(text[length], Verbatim))
            ++length;
        widen(result, text.data(), text.data() + length);
        text.remove_prefix(length);
        if (text.empty())
            break;

        const char c = text.front();
        if (c == '&') {
            if (!appendReference(result, text))
                return false;
            continue;
        }
        if (static_cast<unsigned char>(c) >= 0x80) {
            if (!appendBeyondAscii(result, text))
                return false;
            continue;
        }
        const auto index = static_cast<std::size_t>(text.data() - all.data());
        const bool endsSection = c == '>' && index >= 2 && all[index - 1] == ']' && all[index - 2] == ']';
        if (c == '<' || (endsSection && !isAttribute) ||
            (static_cast<unsigned char>(c) < 0x20 && !isBlank(c)))
            return false;
        text.remove_prefix(c == '\r' && text.substr(1, 1) == "\n" ? 2 : 1);
        if (isBlank(c))
            result += isAttribute ? u' ' : c == '\t' ? u'\t' : u'\n';
        else
            result += static_cast<char16_t>(c);
    }
    return true;
}

} // namespace QV::FilterUtils
