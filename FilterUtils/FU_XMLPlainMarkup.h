#pragma once

/// @file
/// Tags and text as nearly every program writes them, read byte by byte. Private to the library.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace QV::FilterUtils {

enum class XMLMarkupKind
{
    Start,
    Empty,
    End,
    Other // a comment, a CDATA section, a processing instruction, or what is no markup at all
};

/// Finds the end of one piece of markup, in as many pieces as its bytes come in. Its inside is not looked at:
/// whoever parses it does that.
class XMLMarkupEnd
{
public:
    /// What follows is the "<" of the next piece.
    void begin() { *this = XMLMarkupEnd(); }

    /// Returns what follows the markup, or null where it goes on beyond @p end.
    const char* find(const char* begin, const char* end);

    /// Known once the end is found.
    XMLMarkupKind getKind() const;

private:
    enum class State
    {
        Open,
        Name,
        Bang,
        Dash,
        Tag,
        Text
    };

    bool takeFirst(char c);
    bool takeTerminator(char c);

    State _state = State::Open;
    XMLMarkupKind _kind = XMLMarkupKind::Start;
    char _quote = 0;
    char _last = 0;
    std::string_view _terminator;
    std::size_t _matched = 0;
};

/// A tag in ASCII names, with quoted values that stand right behind their "=".
struct XMLPlainTag
{
    struct Attribute
    {
        std::string_view name; // with its prefix
        std::size_t valueBegin;
        std::size_t valueLength;
    };

    XMLMarkupKind kind = XMLMarkupKind::Start;
    std::string_view name; // with its prefix
    std::vector<Attribute> attributes;
    std::u16string values; // of all attributes, normalised

    std::u16string_view getValue(const Attribute& attribute) const
    {
        return std::u16string_view(values).substr(attribute.valueBegin, attribute.valueLength);
    }
};

enum class XMLPlainness
{
    Plain,
    Unplain,   // legal or not, it is not for this reader
    Incomplete // cut off by the end of the bytes
};

/// Reads the tag that begins with the "<" at @p at, and moves @p at behind it where it is plain. Then the tag
/// is well-formed, but for attributes that are there twice and prefixes that are not declared: those, the
/// caller checks. Declarations of namespaces are not plain. The tag's views are into the bytes.
///
/// @param maximumAttributes a tag with more is not plain
XMLPlainness readPlainTag(const char*& at, const char* end, std::size_t maximumAttributes, XMLPlainTag& tag);

/// Appends character data of UTF-8 XML 1.0: references resolved, line ends and, in an attribute, blanks
/// normalised (XML 1.0, 2.11 and 3.3.3). False where the text is not well-formed.
bool appendPlainText(std::u16string& result, std::string_view text, bool isAttribute);

} // namespace QV::FilterUtils
