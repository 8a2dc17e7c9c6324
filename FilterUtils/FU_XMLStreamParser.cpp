#include <FilterUtils/FU_XMLStreamParser.h>

#include <cstdint>

#include <fmt/format.h>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLText.h>

namespace QV::FilterUtils {
namespace {

// Xerces allocates up to a dozen times for an attribute; the rest is for what precedes a tag.
constexpr std::size_t AllocationsPerAttribute = 16;
constexpr std::size_t OtherAllocations = 1000;

// Names of attributes are short, and most differ in their first character: no call to a comparison of memory,
// which needs the length first, is worth its while.
bool equals(const XMLCh* text, const std::u16string& other)
{
    for (const char16_t expected : other) {
        if (*text != expected || *text == 0)
            return false;
        ++text;
    }
    return *text == 0;
}

} // namespace

// --- XMLAllocationCounter

void* XMLAllocationCounter::allocate(XMLSize_t size)
{
    ++_count;
    return xercesc::XMLPlatformUtils::fgMemoryManager->allocate(size);
}

void XMLAllocationCounter::deallocate(void* memory)
{
    xercesc::XMLPlatformUtils::fgMemoryManager->deallocate(memory);
}

xercesc::MemoryManager* XMLAllocationCounter::getExceptionMemoryManager()
{
    return xercesc::XMLPlatformUtils::fgMemoryManager;
}

// --- XMLStreamParser

// Owns the document of one tree, in the way that views expect of a parser.
class XMLStreamParser::TreeOwner : public xercesc::XercesDOMParser
{
public:
    void adopt(xercesc::DOMDocument* document) { setDocument(document); }
};

XMLStreamParser::XMLStreamParser(const XMLReadOptions& options, const XMLVocabulary& vocabulary,
    XMLStreamHandler& handler, XMLAllocationCounter& counter)
    : XMLHardenedParser(options, &counter)
    , _vocabulary(vocabulary)
    , _handler(handler)
    , _counter(counter)
    , _treeHandler(std::make_shared<XMLThrowingHandler>())
    , _plainReader(*this, getOptions())
    , _plainNames(vocabulary, [this](std::u16string_view prefix) { return findNamespace(prefix); })
{
    // Names of elements and well-formedness are all that matters here; this scanner checks both, and is the
    // fastest.
    useScanner(xercesc::XMLUni::fgWFXMLScanner);
    // Without a document type only the five predefined entities are left, and this scanner would count them
    // too.
    setSecurityManager(nullptr);
    // It is to ask for more only once it has dealt with what it has.
    setLowWaterMark(0);
    setErrorHandler(_treeHandler.get());
}

XMLStreamParser::~XMLStreamParser() = default;

XMLReadResult XMLStreamParser::readStream(std::istream& stream)
{
    _counter.reset();
    XMLReadResult result = read(stream);
    if (_handlerFailure)
        std::rethrow_exception(_handlerFailure);
    if (result.line != 0 && !isBreachPlaced())
        _plainReader.correctPlace(result);
    if (_ignoresEvents && result.outcome == XMLOutcome::WellFormed) {
        result.outcome = XMLOutcome::Malformed; // what was left to Xerces to complain of
        result.message = "the document is not well-formed";
    }
    return result;
}

template <typename Function>
auto XMLStreamParser::callHandler(const Function& function)
{
    // The handler's exception takes no part in the parser's own handling of exceptions.
    try {
        return function();
    } catch (...) {
        _handlerFailure = std::current_exception();
    }
    breach(XMLOutcome::Stopped, std::string());
}

int XMLStreamParser::getParentId() const
{
    return _frames.size() < 2 ? XMLVocabulary::Unknown : _frames[_frames.size() - 2].name->id;
}

boost::optional<std::u16string_view> XMLStreamParser::findNamespace(std::u16string_view prefix) const
{
    for (auto binding = _bindings.rbegin(); binding != _bindings.rend(); ++binding)
        if (binding->prefix == prefix)
            return boost::make_optional(!binding->uri.empty(), std::u16string_view(binding->uri));
    if (prefix == xercesc::XMLUni::fgXMLString)
        return view(xercesc::XMLUni::fgXMLURIName);
    return boost::none;
}

boost::optional<std::u16string_view> XMLStreamParser::findAttribute(int id) const
{
    if (_plainTag) {
        for (std::size_t i = 0; i < _attributeCount; ++i)
            if (_plainAttributes[i]->id == id && id != XMLVocabulary::Unknown)
                return _plainTag->getValue(_plainTag->attributes[i]);
        return boost::none;
    }
    const unsigned int noNamespace = getScanner()->getEmptyNamespaceId();
    for (const XMLVocabulary::Spelling& spelling : _vocabulary.getSpellings(id))
        for (std::size_t i = 0; i < _attributeCount; ++i) {
            const xercesc::XMLAttr& attribute = getElementAttribute(i);
            if (!equals(attribute.getName(), spelling.localName))
                continue;
            const unsigned int uriId = attribute.getURIId();
            if (uriId == noNamespace ? spelling.uri.empty()
                                     : view(getScanner()->getURIText(uriId)) == spelling.uri)
                return view(attribute.getValue());
        }
    return boost::none;
}

XMLStreamStart::Attribute XMLStreamParser::getAttribute(std::size_t index) const
{
    if (_plainTag)
        return {_plainAttributes[index]->uri, _plainAttributes[index]->localName,
            _plainTag->getValue(_plainTag->attributes[index])};
    const xercesc::XMLAttr& attribute = getElementAttribute(index);
    return {view(getScanner()->getURIText(attribute.getURIId())), view(attribute.getName()),
        view(attribute.getValue())};
}

const XMLName& XMLStreamParser::resolveName(const xercesc::XMLElementDecl& declaration, unsigned int uriId)
{
    const NameKey key(&declaration, uriId);
    const auto address = reinterpret_cast<std::uintptr_t>(&declaration);
    CachedName& cached = _recentNames[(address / alignof(std::max_align_t) + uriId) % _recentNames.size()];
    if (!cached.name || cached.key != key) {
        const auto found = _names.find(key);
        cached = {key, found == _names.end() ? &addName(key) : &found->second};
    }
    return *cached.name;
}

const XMLName& XMLStreamParser::addName(const NameKey& key)
{
    const std::u16string_view localName = view(key.first->getBaseName());
    const std::u16string_view uri = view(getScanner()->getURIText(key.second));
    SpentName name(uri, localName);
    const std::size_t cost = getCost(name);
    const auto [spent, isNew] = _spentNames.try_emplace(std::move(name), false);
    if (isNew || !spent->second)
        spendNames(1, cost);
    spent->second = false;
    const int id = _vocabulary.findId(uri, localName);
    return _names.emplace(key, XMLName{id, std::u16string(uri), std::u16string(localName), true})
        .first->second;
}

// In characters. The text of a namespace is kept with each of its names; once it counts by itself.
std::size_t XMLStreamParser::getCost(const SpentName& name) const
{
    const auto first = _spentNames.lower_bound(SpentName(name.first, std::u16string()));
    const bool isKnown = first != _spentNames.end() && first->first.first == name.first;
    return name.second.size() + (isKnown ? name.first.size() : 0);
}

void XMLStreamParser::spendPlainName(XMLName& name)
{
    if (std::exchange(name.isSpent, true))
        return;
    SpentName key(name.uri, name.localName);
    const std::size_t cost = getCost(key);
    if (_spentNames.try_emplace(std::move(key), true).second)
        spendNames(1, cost);
}

void XMLStreamParser::spendNames(std::size_t count, std::size_t characters)
{
    const XMLReadOptions& options = getOptions();
    _nameCount += count;
    _nameCharacters += characters;
    if (_nameCount > options.distinctNames)
        breach(XMLOutcome::NameLimit,
            fmt::format("the document has more than {} different names", options.distinctNames),
            options.distinctNames, _nameCount);
    if (_nameCharacters > options.distinctNameCharacters)
        breach(XMLOutcome::NameLimit,
            fmt::format("the document's different names have more than {} characters",
                options.distinctNameCharacters),
            options.distinctNameCharacters, _nameCharacters);
}

void XMLStreamParser::declareNamespaces(const Attributes& attributes, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const xercesc::XMLAttr& attribute = *attributes.elementAt(i);
        if (!isNamespaceDeclaration(attribute))
            continue;
        const bool isDefault = view(attribute.getPrefix()).empty();
        const std::u16string_view prefix = isDefault ? std::u16string_view() : view(attribute.getName());
        _bindings.push_back({getDepth(), std::u16string(prefix), std::u16string(view(attribute.getValue()))});
    }
    _plainNames.forgetNamespaces();
    // Xerces keeps the text of each different URI.
    const std::size_t known = getScanner()->getURIStringPool()->getStringCount();
    if (known > _knownUris)
        for (std::size_t id = _knownUris + 1; id <= known; ++id)
            spendNames(1, view(getScanner()->getURIText(static_cast<unsigned int>(id))).size());
    _knownUris = known;
}

void XMLStreamParser::forgetNamespaces()
{
    while (!_bindings.empty() && _bindings.back().depth == getDepth())
        _bindings.pop_back();
    _plainNames.forgetNamespaces();
}

bool XMLStreamParser::hasEndlessTag() const
{
    return _counter.getCount() > OtherAllocations + AllocationsPerAttribute * getOptions().attributes;
}

void XMLStreamParser::XMLDecl(const XMLCh* version, const XMLCh* /*encoding*/, const XMLCh* /*standalone*/,
    const XMLCh* /*actualEncoding*/)
{
    _isVersion10 = view(version) == view(xercesc::XMLUni::fgVersion1_0);
}

// Asks the handler what it wants of the element, and does what can be done at once.
XMLStep XMLStreamParser::offerElement(const XMLName& name, std::size_t attributeCount)
{
    _frames.push_back({&name, _text.size(), false});
    _attributeCount = attributeCount;
    const XMLStep step = callHandler([this] { return _handler.onStart(XMLStreamStart(*this)); });
    switch (step) {
    case XMLStep::Enter:
    case XMLStep::Tree:
        break;
    case XMLStep::EnterText:
        _frames.back().gathersText = true;
        ++_gatheringCount;
        break;
    case XMLStep::Skip:
        _skipDepth = getDepth();
        break;
    case XMLStep::Stop:
        breach(XMLOutcome::Stopped, std::string());
    }
    return step;
}

void XMLStreamParser::startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId,
    const XMLCh* prefix, const Attributes& attributes, XMLSize_t attributeCount, bool isEmpty, bool isRoot)
{
    if (_ignoresEvents)
        return;
    _counter.reset();
    const bool isAnnounced = std::exchange(_isTreeAnnounced, false);
    if (isAnnounced)
        noteProgress();
    else
        enterElement(attributes, attributeCount);
    if (_treeDepth != 0) {
        countTreeNodes(1 + attributeCount);
        XercesDOMParser::startElement(
            declaration, uriId, prefix, attributes, attributeCount, isEmpty, isRoot);
        return;
    }
    if (_skipDepth == 0 &&
        (isAnnounced || offerElement(resolveName(declaration, uriId), attributeCount) == XMLStep::Tree)) {
        startTree();
        countTreeNodes(1 + attributeCount);
        XercesDOMParser::startElement(declaration, uriId, prefix, attributes, attributeCount, isEmpty, true);
        return;
    }
    if (isEmpty)
        endElement(declaration, uriId, isRoot, prefix);
}

void XMLStreamParser::endElement(
    const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot, const XMLCh* prefix)
{
    if (_ignoresEvents)
        return;
    if (_treeDepth == 0) {
        endUnbuilt();
        return;
    }
    XercesDOMParser::endElement(declaration, uriId, isRoot, prefix);
    if (getDepth() == _treeDepth)
        endTree();
    leaveElement();
}

// An element ends that is not part of a tree.
void XMLStreamParser::endUnbuilt()
{
    if (_skipDepth == 0) {
        endEntered();
    } else if (getDepth() == _skipDepth) {
        _skipDepth = 0;
        _frames.pop_back();
    }
    leaveElement();
}

void XMLStreamParser::endEntered()
{
    const Frame frame = _frames.back();
    const std::u16string_view text =
        frame.gathersText ? std::u16string_view(_text).substr(frame.textBegin) : std::u16string_view();
    const XMLFlow flow = callHandler([this, text] { return _handler.onEnd(XMLStreamEnd(*this, text)); });
    if (frame.gathersText && --_gatheringCount == 0)
        _text.clear();
    _frames.pop_back();
    if (flow == XMLFlow::Stop)
        breach(XMLOutcome::Stopped, std::string());
}

void XMLStreamParser::startTree()
{
    _treeDepth = getDepth();
    _treeNodes = 0;
    // A document never gives memory back before it dies, so each tree has one of its own; it may outlive the
    // parser, and so takes its memory from elsewhere.
    xercesc::DOMDocument* const document = xercesc::DOMImplementation::getImplementation()->createDocument(
        xercesc::XMLPlatformUtils::fgMemoryManager);
    document->setStrictErrorChecking(false);
    setDocument(document);
    fCurrentParent = document;
    fCurrentNode = document;
}

void XMLStreamParser::countTreeNodes(std::size_t count)
{
    _treeNodes += count;
    if (_treeNodes > getOptions().subtreeNodes)
        breach(XMLOutcome::SubtreeLimit,
            fmt::format("an element has more than {} nodes", getOptions().subtreeNodes),
            getOptions().subtreeNodes, _treeNodes);
}

void XMLStreamParser::endTree()
{
    if (!_treeOwner)
        _treeOwner = std::make_shared<TreeOwner>();
    const std::shared_ptr<TreeOwner> owner = std::move(_treeOwner);
    xercesc::DOMDocument* const document = getDocument();
    owner->adopt(document);
    setDocument(nullptr);
    reset();
    _treeDepth = 0;

    const XMLFlow flow = callHandler([this, &owner, document] {
        return _handler.onTree(
            XMLStreamElement(*this), XMLElement(owner, _treeHandler, document->getDocumentElement()));
    });
    _frames.pop_back();
    if (owner.use_count() == 1) {
        owner->resetDocumentPool();
        _treeOwner = owner;
    }
    if (flow == XMLFlow::Stop)
        breach(XMLOutcome::Stopped, std::string());
}

void XMLStreamParser::docCharacters(const XMLCh* text, XMLSize_t length, bool isCDATA)
{
    if (_ignoresEvents)
        return;
    if (_treeDepth != 0) {
        countTreeNodes(1);
        XMLHardenedParser::docCharacters(text, length, isCDATA);
        return;
    }
    noteProgress();
    if (_gatheringCount == 0 || _skipDepth != 0)
        return;
    if (length > getOptions().textCharacters - _text.size())
        breach(XMLOutcome::TextLimit,
            fmt::format("a text has more than {} characters", getOptions().textCharacters),
            getOptions().textCharacters, _text.size() + length);
    _text.append(text, length);
}

bool XMLStreamParser::isPlainDocument() const
{
    return _isVersion10 && view(getScanner()->getReaderMgr()->getCurrentEncodingStr()) == u"UTF-8";
}

std::pair<std::uint64_t, std::uint64_t> XMLStreamParser::getParserPlace() const
{
    const xercesc::Locator& locator = *getScanner()->getLocator();
    return {locator.getLineNumber(), locator.getColumnNumber()};
}

} // namespace QV::FilterUtils
