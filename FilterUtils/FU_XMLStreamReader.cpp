#include <FilterUtils/FU_XMLStreamReader.h>

#include <FilterUtils/FU_XMLStreamParser.h>
#include <FilterUtils/FU_XMLText.h>

namespace QV::FilterUtils {

// --- XMLStreamElement

XMLStreamElement::XMLStreamElement(const XMLStreamParser& parser)
    : _parser(parser)
    , _id(parser.getName().id)
    , _parentId(parser.getParentId())
    , _depth(parser.getElementDepth())
{
}

std::u16string_view XMLStreamElement::getLocalName() const
{
    return _parser.getName().localName;
}

std::u16string_view XMLStreamElement::getNamespace() const
{
    return _parser.getName().uri;
}

boost::optional<std::u16string_view> XMLStreamElement::findNamespace(std::u16string_view prefix) const
{
    return _parser.findNamespace(prefix);
}

// --- XMLStreamStart

boost::optional<std::u16string_view> XMLStreamStart::findAttribute(int id) const
{
    return getParser().findAttribute(id);
}

boost::optional<std::string> XMLStreamStart::findAttributeText(int id) const
{
    const auto value = findAttribute(id);
    if (!value)
        return boost::none;
    std::string text;
    appendUtf8(text, *value);
    return text;
}

std::size_t XMLStreamStart::getAttributeCount() const
{
    return getParser().getAttributeCount();
}

XMLStreamStart::Attribute XMLStreamStart::getAttribute(std::size_t index) const
{
    return getParser().getAttribute(index);
}

// --- XMLStreamEnd

XMLStreamEnd::XMLStreamEnd(const XMLStreamParser& parser, std::u16string_view text)
    : XMLStreamElement(parser)
    , _text(text)
{
}

void XMLStreamEnd::appendText(std::string& result) const
{
    appendUtf8(result, _text);
}

// --- XMLStreamHandler

XMLStreamHandler::~XMLStreamHandler() = default;

XMLFlow XMLStreamHandler::onEnd(const XMLStreamEnd& /*element*/)
{
    return XMLFlow::Continue;
}

XMLFlow XMLStreamHandler::onTree(const XMLStreamElement& /*element*/, const XMLElement& /*tree*/)
{
    return XMLFlow::Continue;
}

// --- XMLStreamReader

XMLStreamReader::XMLStreamReader(const XMLVocabulary& vocabulary, const XMLReadOptions& options)
    : _vocabulary(vocabulary)
    , _options(options)
{
    _options.doctypes = XMLDoctypes::Refused;
}

XMLReadResult XMLStreamReader::read(std::istream& stream, XMLStreamHandler& handler) const
{
    XMLAllocationCounter counter;
    XMLStreamParser parser(_options, _vocabulary, handler, counter);
    return parser.readStream(stream);
}

} // namespace QV::FilterUtils
