#pragma once

/// @file
/// All that a handler of XMLStreamReader can learn, as one text to compare.

#include <codecvt>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLReadOptions.h>
#include <FilterUtils/FU_XMLStreamReader.h>

namespace QV::Tests {

/// Decides by the first letter of a name: "s" is skipped, "t" taken as a tree, "q" stops, "n" is entered
/// without its text, and all others with it.
class XMLEventLog : public FilterUtils::XMLStreamHandler
{
public:
    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element) override
    {
        addElement('<', element);
        for (std::size_t i = 0; i < element.getAttributeCount(); ++i) {
            const auto attribute = element.getAttribute(i);
            (log += u' ').append(attribute.uri) += u'|';
            (log.append(attribute.localName) += u'=').append(attribute.value);
        }
        for (int id = -1; id < 4; ++id)
            if (const auto value = element.findAttribute(id))
                (log += static_cast<char16_t>(u'0' + id)).append(*value);
        for (const std::u16string_view prefix : {u"", u"p", u"xml"})
            log.append(element.findNamespace(prefix).value_or(u"-"));
        switch (element.getLocalName().front()) {
        case u's':
            return FilterUtils::XMLStep::Skip;
        case u't':
            return FilterUtils::XMLStep::Tree;
        case u'q':
            return FilterUtils::XMLStep::Stop;
        case u'n':
            return FilterUtils::XMLStep::Enter;
        default:
            return FilterUtils::XMLStep::EnterText;
        }
    }
    FilterUtils::XMLFlow onEnd(const FilterUtils::XMLStreamEnd& element) override
    {
        addElement('>', element);
        log.append(element.getText());
        return FilterUtils::XMLFlow::Continue;
    }
    FilterUtils::XMLFlow onTree(
        const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree) override
    {
        addElement('T', element);
        for (const char c : tree.getText().value_or("nothing"))
            log += static_cast<unsigned char>(c);
        return FilterUtils::XMLFlow::Continue;
    }

    std::u16string log;

private:
    void addElement(char kind, const FilterUtils::XMLStreamElement& element)
    {
        (log += u'\n') += static_cast<char16_t>(kind);
        (log.append(element.getNamespace()) += u'|').append(element.getLocalName());
        for (const std::size_t number : {static_cast<std::size_t>(element.getId() + 1),
                 static_cast<std::size_t>(element.getParentId() + 1), element.getDepth()})
            log += static_cast<char16_t>(u'0' + number);
    }
};

/// What became of one reading.
struct XMLReading
{
    std::u16string log;
    FilterUtils::XMLReadResult result;

    friend bool operator==(const XMLReading& a, const XMLReading& b)
    {
        return a.log == b.log && a.result.outcome == b.result.outcome && a.result.line == b.result.line &&
               a.result.column == b.result.column && a.result.message == b.result.message;
    }
};

inline XMLReading readWithLog(
    const std::string& xml, const FilterUtils::XMLReadOptions& options = FilterUtils::XMLReadOptions())
{
    static const FilterUtils::XMLVocabulary words(
        {
            {"x", {"urn:x", "urn:y"}}
    },
        {{0, "a"}, {1, "x:a"}, {2, "k"}, {3, "x:k"}});
    XMLEventLog handler;
    std::istringstream stream(xml);
    FilterUtils::XMLReadResult result = FilterUtils::XMLStreamReader(words, options).read(stream, handler);
    return {std::move(handler.log), std::move(result)};
}

/// The same document in UTF-16 with a byte order mark, which is never read by the short way; nothing where
/// @p xml is not UTF-8, or says in which encoding it is.
inline boost::optional<std::string> convertToUtf16(const std::string& xml)
{
    if (xml.compare(0, 5, "<?xml") == 0)
        return boost::none;
    try {
        std::wstring_convert<std::codecvt_utf8_utf16<char16_t>, char16_t> converter;
        std::string result = "\xFF\xFE";
        for (const char16_t unit : converter.from_bytes(xml)) {
            result += static_cast<char>(unit & 0xFF);
            result += static_cast<char>(unit >> 8);
        }
        return result;
    } catch (const std::range_error&) {
        return boost::none;
    }
}

} // namespace QV::Tests
