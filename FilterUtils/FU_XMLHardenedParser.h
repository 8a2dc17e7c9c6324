#pragma once

/// @file
/// The parser behind both XML readers. Private to the library.

#include <cstddef>
#include <cstdint>
#include <exception>
#include <istream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include <FilterUtils/FU_XMLReadOptions.h>

namespace QV::FilterUtils {

/// Errors end the parsing just as fatal errors do.
class XMLThrowingHandler : public xercesc::HandlerBase
{
public:
    void error(const xercesc::SAXParseException& exception) override { throw exception; }
};

/// A DOM parser for documents from strangers: it keeps the bounds of XMLReadOptions, opens nothing but the
/// stream that it reads, and turns every way to fail into an XMLReadResult. One reading for each parser.
class XMLHardenedParser : public xercesc::XercesDOMParser
{
public:
    XMLHardenedParser(const XMLReadOptions& options, xercesc::MemoryManager* manager);

    /// Reads the stream to its end, or to the first breach. What the stream throws passes through, once the
    /// parser is done with what came before it.
    XMLReadResult read(std::istream& stream);

    void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone,
        const XMLCh* actualEncoding) override;
    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, const XMLCh* prefix,
        const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount, bool isEmpty,
        bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot,
        const XMLCh* prefix) override;
    void endDocument() override;
    void docCharacters(const XMLCh* text, XMLSize_t length, bool isCDATA) override;
    void docComment(const XMLCh* text) override;
    void docPI(const XMLCh* target, const XMLCh* data) override;
    void startEntityReference(const xercesc::XMLEntityDecl& declaration) override;
    void doctypeDecl(const xercesc::DTDElementDecl& root, const XMLCh* publicId, const XMLCh* systemId,
        bool hasInternalSubset, bool hasExternalSubset) override;
    void endIntSubset() override;
    void entityDecl(
        const xercesc::DTDEntityDecl& declaration, bool isParameterEntity, bool isIgnored) override;
    void error(unsigned int code, const XMLCh* domain, xercesc::XMLErrorReporter::ErrTypes type,
        const XMLCh* text, const XMLCh* systemId, const XMLCh* publicId, XMLFileLoc line,
        XMLFileLoc column) override;
    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* resource) override;

protected:
    using Attributes = xercesc::RefVectorOf<xercesc::XMLAttr>;

    // A breach, on its way out of the parser.
    struct Breach
    {
        XMLReadResult result;
    };

    [[noreturn]] void breach(XMLOutcome outcome, const std::string& message, std::uint64_t limit = 0,
        std::uint64_t value = 0) const;

    // Keeps the bounds at the start of an element, which is inside the element from here on.
    void enterElement();
    void enterElement(const Attributes& attributes, std::size_t attributeCount);
    void leaveElement();

    // Keeps the document from ending before the stream does.
    void checkEnd() const;

    // Tells that the markup before has ended.
    void noteProgress() { ++_progress; }
    std::uint64_t getProgress() const { return _progress; }

    bool isNamespaceDeclaration(const xercesc::XMLAttr& attribute) const;

    // Of the element that was entered last, which has more than @p index.
    const xercesc::XMLAttr& getElementAttribute(std::size_t index) const { return *_attributes[index]; }

    // One element declares namespaces; the bounds of those in force are kept already.
    virtual void declareNamespaces(const Attributes& /*attributes*/, std::size_t /*count*/) {}
    virtual void forgetNamespaces() {}

    // The next bytes for the parser; 0 at the end. May throw what the stream throws, and breaches.
    virtual std::size_t feed(std::istream& stream, char* buffer, std::size_t size)
    {
        return readBlock(stream, buffer, size);
    }
    std::size_t readBlock(std::istream& stream, char* buffer, std::size_t size);

    // Bytes that the parser does not get to see count too.
    void countBytes(std::size_t count);
    bool isBreachPlaced() const { return _isBreachPlaced; }
    bool hasInputBreach() const { return _inputBreach.has_value(); }

    // Whether a tag under way has so many attributes already that reading on is no use. Asked at each block.
    virtual bool hasEndlessTag() const { return false; }

    const XMLReadOptions& getOptions() const { return _options; }
    std::size_t getDepth() const { return _depth; }

private:
    class Input;
    class InputBytes;

    struct Scope
    {
        std::size_t depth;
        std::size_t declarations;
    };

    XMLReadResult parseInput(std::istream& stream);
    std::size_t pull(std::istream& stream, XMLByte* buffer, std::size_t size);
    void checkInput(std::size_t blockSize);
    void checkInputLimit(XMLOutcome outcome, const char* what, std::uint64_t limit, std::uint64_t value);
    void checkEncoding() const;
    void checkAttributes(const Attributes& attributes, std::size_t count);
    void spendEntityCharacters(std::size_t count);
    bool isAtDoctype() const;
    XMLReadResult makeResult(
        XMLOutcome outcome, const std::string& message, std::uint64_t limit, std::uint64_t value) const;

    XMLReadOptions _options;
    xercesc::SecurityManager _security;
    std::exception_ptr _streamFailure;
    bool _isBreachPlaced = false;                 // the next one tells its place itself
    boost::optional<XMLReadResult> _inputBreach;  // found while bytes were handed on; the parser sees the end
    std::uint64_t _bytes = 0;                     // handed to the parser
    std::uint64_t _progress = 0;                  // counts events
    std::uint64_t _progressBefore = 0;            // at the last block
    std::uint64_t _markupBytes = 0;               // handed to the parser since an event came
    boost::optional<std::uint64_t> _doctypeBegin; // in bytes, while a document type is read
    bool _hasRoot = false;                        // its start was met
    std::size_t _depth = 0;
    std::size_t _namespaces = 0;                      // the sum of _scopes
    std::vector<Scope> _scopes;                       // elements that declare namespaces, the innermost last
    std::vector<const xercesc::XMLAttr*> _attributes; // of the last element, which may have fewer
    std::size_t _entityCharacters = 0;
    XMLOutcome _errorOutcome = XMLOutcome::Malformed; // of the error that is under way
};

} // namespace QV::FilterUtils
