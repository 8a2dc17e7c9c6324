#pragma once

/// @file
/// The parser behind XMLStreamReader. Private to the library.

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <istream>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <xercesc/framework/MemoryManager.hpp>
#include <xercesc/sax/HandlerBase.hpp>

#include <FilterUtils/FU_XMLHardenedParser.h>
#include <FilterUtils/FU_XMLPlainMarkup.h>
#include <FilterUtils/FU_XMLPlainNames.h>
#include <FilterUtils/FU_XMLPlainReader.h>
#include <FilterUtils/FU_XMLReadOptions.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <FilterUtils/FU_XMLVocabulary.h>

namespace QV::FilterUtils {

/// Counts allocations, for the sake of a tag that does not end: Xerces compares each attribute with all
/// before it, tells nothing until the tag's end, and allocates for each.
class XMLAllocationCounter : public xercesc::MemoryManager
{
public:
    void* allocate(XMLSize_t size) override;
    void deallocate(void* memory) override;
    xercesc::MemoryManager* getExceptionMemoryManager() override;

    std::size_t getCount() const { return _count; }
    void reset() { _count = 0; }

private:
    std::size_t _count = 0;
};

/// Lets elements pass to a handler instead of building them; builds those alone that the handler wants as
/// trees.
class XMLStreamParser : public XMLHardenedParser
{
public:
    /// @param counter the memory manager; outlives the parser
    XMLStreamParser(const XMLReadOptions& options, const XMLVocabulary& vocabulary, XMLStreamHandler& handler,
        XMLAllocationCounter& counter);
    ~XMLStreamParser() override;

    /// Throws what the handler threw.
    XMLReadResult readStream(std::istream& stream);

    // What views of elements ask, while an event of theirs is under way.
    const XMLName& getName() const { return *_frames.back().name; }
    int getParentId() const;
    std::size_t getElementDepth() const { return getDepth(); }
    boost::optional<std::u16string_view> findNamespace(std::u16string_view prefix) const;
    boost::optional<std::u16string_view> findAttribute(int id) const;
    std::size_t getAttributeCount() const { return _attributeCount; }
    XMLStreamStart::Attribute getAttribute(std::size_t index) const;

    // What the reader of plain markup tells, and asks. The sizes are in bytes.
    XMLTaking takeStart(const XMLPlainTag& tag, std::size_t size);
    void takeEnd(std::size_t size);
    void takeText(const std::u16string& text, std::size_t size);
    void takeComment(std::size_t size)
    {
        countBytes(size);
        noteProgress();
    }
    void ignoreEvents() { _ignoresEvents = true; }
    std::size_t readWindow(std::istream& stream, char* buffer, std::size_t size)
    {
        return readBlock(stream, buffer, size);
    }
    using XMLHardenedParser::getProgress;
    using XMLHardenedParser::hasInputBreach;
    bool isPlainDocument() const;
    bool isInTree() const { return _treeDepth != 0; }
    std::size_t getTreeDepth() const { return _treeDepth; }
    std::pair<std::uint64_t, std::uint64_t> getParserPlace() const;

    void startDocument() override {}
    void endDocument() override { checkEnd(); }
    void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone,
        const XMLCh* actualEncoding) override;
    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, const XMLCh* prefix,
        const Attributes& attributes, XMLSize_t attributeCount, bool isEmpty, bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot,
        const XMLCh* prefix) override;
    void docCharacters(const XMLCh* text, XMLSize_t length, bool isCDATA) override;
    void docComment(const XMLCh* text) override;
    void docPI(const XMLCh* target, const XMLCh* data) override;

protected:
    std::size_t feed(std::istream& stream, char* buffer, std::size_t size) override;
    void declareNamespaces(const Attributes& attributes, std::size_t count) override;
    void forgetNamespaces() override;
    bool hasEndlessTag() const override;

private:
    class TreeOwner;

    struct Frame
    {
        const XMLName* name;
        std::size_t textBegin;
        bool gathersText;
    };

    struct Binding
    {
        std::size_t depth;
        std::u16string prefix;
        std::u16string uri;
    };

    // Names are told apart by how Xerces keeps them, and looked up in the vocabulary once each.
    using NameKey = std::pair<const xercesc::XMLElementDecl*, unsigned int>;
    using SpentName = std::pair<std::u16string, std::u16string>; // URI and local name
    struct CachedName
    {
        NameKey key;
        const XMLName* name;
    };

    template <typename Function>
    auto callHandler(const Function& function);

    const XMLName& resolveName(const xercesc::XMLElementDecl& declaration, unsigned int uriId);
    const XMLName& addName(const NameKey& key);
    void spendPlainName(XMLName& name);
    std::size_t getCost(const SpentName& name) const;
    void spendNames(std::size_t count, std::size_t characters);
    bool resolvePlainTag(const XMLPlainTag& tag);
    XMLStep offerElement(const XMLName& name, std::size_t attributeCount);
    void startTree();
    void countTreeNodes(std::size_t count);
    void endTree();
    void endEntered();
    void endUnbuilt();

    const XMLVocabulary& _vocabulary;
    XMLStreamHandler& _handler;
    XMLAllocationCounter& _counter;
    std::exception_ptr _handlerFailure;

    std::vector<Frame> _frames; // the elements that were entered, and the one that is skipped or built
    std::vector<Binding> _bindings;
    std::size_t _attributeCount = 0; // of the element that starts

    std::u16string _text;            // of the outermost element that gathers, so far
    std::size_t _gatheringCount = 0; // frames that gather

    std::size_t _skipDepth = 0; // of the element that is skipped; 0: none
    std::size_t _treeDepth = 0; // of the element that is built; 0: none
    std::size_t _treeNodes = 0;
    std::shared_ptr<TreeOwner> _treeOwner; // ready for the next tree, or null
    std::shared_ptr<xercesc::HandlerBase> _treeHandler;

    XMLPlainReader _plainReader;
    XMLPlainNames _plainNames;
    const XMLPlainTag* _plainTag = nullptr;       // of the element that starts, unless Xerces has read it
    std::vector<const XMLName*> _plainAttributes; // their names
    bool _isTreeAnnounced = false;                // the handler has been asked about the next start
    bool _ignoresEvents = false;
    bool _isVersion10 = true;

    std::map<SpentName, bool> _spentNames; // true: not by Xerces so far
    std::map<NameKey, XMLName> _names;
    std::array<CachedName, 256> _recentNames{};
    std::size_t _nameCount = 0; // of elements and namespaces
    std::size_t _nameCharacters = 0;
    std::size_t _knownUris = 0; // those of the scanner that are counted
};

} // namespace QV::FilterUtils
