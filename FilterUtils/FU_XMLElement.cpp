#include <FilterUtils/FU_XMLElement.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include <boost/container/small_vector.hpp>
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

bool equals(const XMLCh* text, const char16_t* other)
{
    if (!text)
        return *other == 0;
    for (; *text == *other; ++text, ++other)
        if (*text == 0)
            return true;
    return false;
}

// A name as callers write it, ready to be compared with names of the document.
class QualifiedName
{
public:
    explicit QualifiedName(const std::string& name)
        : _units(name.size() + 2, u'\0')
        , _local(_units.data())
    {
        // Text of a document has no zeros, so what follows one in a name cannot be compared.
        const char16_t* const end = name.find('\0') == std::string::npos ? writeUtf16(_local, name) : nullptr;
        if (!end)
            return;
        _isPossible = true;
        const auto colon = std::find(std::make_reverse_iterator(end),
            std::make_reverse_iterator(const_cast<const char16_t*>(_local)), u':');
        _hasNamespace = colon.base() != _local;
        if (!_hasNamespace)
            return;
        _local += colon.base() - _local;
        _local[-1] = 0;
    }

    QualifiedName(const QualifiedName&) = delete;
    QualifiedName& operator=(const QualifiedName&) = delete;

    bool matches(const xercesc::DOMElement& element) const
    {
        return _isPossible && equals(element.getLocalName(), _local) &&
               equals(element.getNamespaceURI(), getNamespace());
    }

    const xercesc::DOMAttr* findAttribute(const xercesc::DOMElement& element) const
    {
        if (!_isPossible)
            return nullptr;
        return _hasNamespace ? element.getAttributeNodeNS(getNamespace(), _local)
                             : element.getAttributeNode(_local);
    }

private:
    const char16_t* getNamespace() const { return _hasNamespace ? _units.data() : u""; }

    bool _isPossible = false; // as a name in a document
    bool _hasNamespace = false;
    boost::container::small_vector<char16_t, 128>
        _units;       // namespace, zero, local name, zero; or without the first two
    char16_t* _local; // in _units
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

// As QualifiedName takes it apart.
std::string makeQualifiedName(const xercesc::DOMElement& element)
{
    std::string name;
    const XMLCh* const uri = element.getNamespaceURI();
    if (uri && *uri) {
        appendUtf8(name, view(uri));
        name += ':';
    }
    appendUtf8(name, view(element.getLocalName()));
    return name;
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

void XMLElement::processAllElements(
    const std::function<void(const std::string& name, const XMLElement& element)>& function) const
{
    if (!_element)
        return;
    for (const xercesc::DOMElement* child = _element->getFirstElementChild(); child;
         child = child->getNextElementSibling())
        function(makeQualifiedName(*child), XMLElement(_parser, _handler, child));
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
