#include <FilterUtils/FU_XMLElement.h>

#include <string_view>
#include <utility>

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include <FilterUtils/FU_XMLHardenedParser.h>
#include <FilterUtils/FU_XMLText.h>
#include <Utils/Public/Assertions.h>

namespace QV::FilterUtils {
namespace {

using xercesc::DOMNode;

std::u16string_view view(const XMLCh* text)
{
    return text ? std::u16string_view(text) : std::u16string_view();
}

std::string toUtf8(const XMLCh* text)
{
    std::string result;
    appendUtf8(result, view(text));
    return result;
}

// A name as callers write it, ready to be compared with names of the document.
class QualifiedName
{
public:
    explicit QualifiedName(const std::string& name)
    {
        if (name.find('\0') != std::string::npos)
            return;
        auto whole = convertUtf8ToUtf16(name);
        if (!whole)
            return;
        const auto colon = whole->rfind(u':');
        _isPossible = true;
        _hasNamespace = colon != std::u16string::npos;
        _local = _hasNamespace ? whole->substr(colon + 1) : std::move(*whole);
        if (_hasNamespace)
            _namespace = whole->substr(0, colon);
    }

    bool matches(const xercesc::DOMElement& element) const
    {
        return _isPossible && view(element.getLocalName()) == _local &&
               view(element.getNamespaceURI()) == _namespace;
    }

    const xercesc::DOMAttr* findAttribute(const xercesc::DOMElement& element) const
    {
        if (!_isPossible)
            return nullptr;
        return _hasNamespace ? element.getAttributeNodeNS(_namespace.c_str(), _local.c_str())
                             : element.getAttributeNode(_local.c_str());
    }

private:
    bool _isPossible = false; // as a name in a document
    bool _hasNamespace = false;
    std::u16string _namespace; // empty: none
    std::u16string _local;
};

bool hasText(DOMNode::NodeType type)
{
    return type == DOMNode::TEXT_NODE || type == DOMNode::CDATA_SECTION_NODE;
}

// The node that follows in document order, its children left out; null where none is left below the root.
const DOMNode* findNextOutside(const DOMNode* node, const DOMNode* root)
{
    while (node != root) {
        if (const DOMNode* const next = node->getNextSibling())
            return next;
        node = node->getParentNode();
    }
    return nullptr;
}

// DOMNode::getTextContent does the same, but each call of it takes memory that lives as long as the document.
std::string gatherText(const DOMNode& root)
{
    std::string result;
    const DOMNode* node = root.getFirstChild();
    while (node) {
        if (hasText(node->getNodeType()))
            appendUtf8(result, view(node->getNodeValue()));
        const DOMNode* const child = node->getFirstChild();
        node = child ? child : findNextOutside(node, &root);
    }
    return result;
}

} // namespace

const std::string XSDTrueValue = "1";
const std::string XSDFalseValue = "0";

XMLElement::XMLElement() = default;

XMLElement::XMLElement(std::shared_ptr<xercesc::XercesDOMParser> parser,
    std::shared_ptr<xercesc::HandlerBase> handler, const xercesc::DOMElement* element)
    : _parser(std::move(parser))
    , _handler(std::move(handler))
    , _element(element)
{
}

XMLElement XMLElement::getRootElement(std::istream& stream, boost::optional<std::string> rootName)
{
    return getRootElement(stream, std::move(rootName), XMLReadOptions());
}

XMLElement XMLElement::getRootElement(std::istream& stream, boost::optional<std::string> rootName,
    const XMLReadOptions& options, XMLReadResult* result)
{
    const auto parser =
        std::make_shared<XMLHardenedParser>(options, xercesc::XMLPlatformUtils::fgMemoryManager);
    const auto handler = std::make_shared<XMLThrowingHandler>();
    parser->setErrorHandler(handler.get());

    const XMLReadResult ending = parser->read(stream);
    if (result)
        *result = ending;
    if (ending.outcome != XMLOutcome::WellFormed || !parser->getDocument())
        return XMLElement();
    const xercesc::DOMElement* const root = parser->getDocument()->getDocumentElement();
    if (!root || (rootName && !QualifiedName(*rootName).matches(*root)))
        return XMLElement();
    return XMLElement(parser, handler, root);
}

XMLElement XMLElement::getElement(const std::string& name) const
{
    if (!_element)
        return XMLElement();
    const QualifiedName qualifiedName(name);
    for (const xercesc::DOMElement* child = _element->getFirstElementChild(); child;
         child = child->getNextElementSibling())
        if (qualifiedName.matches(*child))
            return XMLElement(_parser, _handler, child);
    return XMLElement();
}

void XMLElement::processElements(
    const std::string& name, const std::function<void(const XMLElement&)>& function) const
{
    if (!_element)
        return;
    const QualifiedName qualifiedName(name);
    for (const xercesc::DOMElement* child = _element->getFirstElementChild(); child;
         child = child->getNextElementSibling())
        if (qualifiedName.matches(*child))
            function(XMLElement(_parser, _handler, child));
}

boost::optional<std::string> XMLElement::getAttributeValue(const std::string& name) const
{
    if (!_element)
        return boost::none;
    const xercesc::DOMAttr* const attribute = QualifiedName(name).findAttribute(*_element);
    if (!attribute)
        return boost::none;
    return toUtf8(attribute->getValue());
}

boost::optional<std::string> XMLElement::getText() const
{
    if (!_element)
        return boost::none;
    const DOMNode* const child = _element->getFirstChild();
    if (!child)
        return std::string();
    if (hasText(child->getNodeType()) && !child->getNextSibling())
        return toUtf8(child->getNodeValue());
    return gatherText(*_element);
}

bool XMLElement::operator==(const XMLElement& other) const
{
    return _parser == other._parser && _handler == other._handler && _element == other._element;
}

bool XMLElement::operator!=(const XMLElement& other) const
{
    return !(*this == other);
}

std::string xercesStringToString(const XMLCh* text)
{
    QV_ASSERT(text);
    if (!text)
        return std::string();
    xercesc::MemoryManager* const manager = xercesc::XMLPlatformUtils::fgMemoryManager;
    char* transcoded = xercesc::XMLString::transcode(text, manager);
    const std::string result = transcoded ? transcoded : "";
    xercesc::XMLString::release(&transcoded, manager);
    return result;
}

} // namespace QV::FilterUtils
