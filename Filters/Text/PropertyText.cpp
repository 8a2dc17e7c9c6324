#include <Filters/Text/PropertyText.h>

#include <array>
#include <sstream>
#include <string_view>

#include <boost/locale/encoding_utf.hpp>
#include <boost/optional.hpp>

#include <Filters/Package/Namespaces.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using FilterUtils::XMLStep;
using FilterUtils::XMLStreamStart;

/// The two namespaces of a vocabulary.
class PropertyNamespaces
{
public:
    explicit PropertyNamespaces(Vocabulary vocabulary)
        : _uris{widen(getNamespace(vocabulary, Dialect::Transitional)),
              widen(getNamespace(vocabulary, Dialect::Strict))}
    {
    }

    bool has(std::u16string_view uri) const { return uri == _uris[0] || uri == _uris[1]; }

private:
    static std::u16string widen(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

    std::array<std::u16string, 2> _uris;
};

const PropertyNamespaces& getWordNamespaces()
{
    static const PropertyNamespaces namespaces(Vocabulary::WordProcessing);
    return namespaces;
}

/// The prefix of an attribute that is kept; null for any other.
const char* findAttributePrefix(std::u16string_view uri)
{
    static const PropertyNamespaces relationships(Vocabulary::Relationships);
    if (getWordNamespaces().has(uri))
        return "w:";
    return relationships.has(uri) ? "r:" : nullptr;
}

std::string convertPropertyText(std::u16string_view text)
{
    return boost::locale::conv::utf_to_utf<char>(text.data(), text.data() + text.size());
}

void appendEscapedValue(std::string& result, const std::string& value)
{
    for (const char c : value) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '"':
            result += "&quot;";
            break;
        case '\t':
            result += "&#9;";
            break;
        case '\n':
            result += "&#10;";
            break;
        case '\r':
            result += "&#13;";
            break;
        default:
            result += c;
        }
    }
}

} // namespace

void PropertyText::begin(const XMLStreamStart& element)
{
    _text.clear();
    _open.clear();
    _isTagOpen = false;
    writeStart(element);
}

XMLStep PropertyText::onStart(const XMLStreamStart& element)
{
    if (!getWordNamespaces().has(element.getNamespace()) || _text.size() >= BytesMax)
        return XMLStep::Skip;
    writeStart(element);
    return XMLStep::Enter;
}

void PropertyText::onEnd()
{
    if (_open.empty())
        return;
    if (_isTagOpen) {
        _text += "/>";
    } else {
        const std::string name = _text.substr(_open.back().nameBegin, _open.back().nameSize);
        _text += "</";
        _text += name;
        _text += '>';
    }
    _isTagOpen = false;
    _open.pop_back();
}

void PropertyText::writeStart(const XMLStreamStart& element)
{
    if (_isTagOpen)
        _text += '>';
    _text += '<';
    const std::string name = "w:" + convertPropertyText(element.getLocalName());
    _open.push_back({_text.size(), name.size()});
    _text += name;
    for (std::size_t i = 0; i < element.getAttributeCount(); ++i) {
        const XMLStreamStart::Attribute attribute = element.getAttribute(i);
        const char* const prefix = findAttributePrefix(attribute.uri);
        if (!prefix || attribute.value.size() + _text.size() >= BytesMax)
            continue;
        _text += ' ';
        _text += prefix;
        _text += convertPropertyText(attribute.localName);
        _text += "=\"";
        appendEscapedValue(_text, convertPropertyText(attribute.value));
        _text += '"';
    }
    _isTagOpen = true;
}

XMLElement parsePropertyText(const std::string& text)
{
    const std::size_t nameEnd = text.find_first_of(" />");
    if (nameEnd == std::string::npos)
        return {};
    const auto declare = [](const char* prefix, Vocabulary vocabulary) {
        return " xmlns:" + std::string(prefix) + "=\"" + getNamespace(vocabulary, Dialect::Transitional) +
               '"';
    };
    std::istringstream stream(text.substr(0, nameEnd) + declare("w", Vocabulary::WordProcessing) +
                              declare("r", Vocabulary::Relationships) + text.substr(nameEnd));
    return XMLElement::getRootElement(stream, boost::none);
}

} // namespace QV::Filters
