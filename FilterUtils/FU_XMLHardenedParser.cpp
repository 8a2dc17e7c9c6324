#include <FilterUtils/FU_XMLHardenedParser.h>

#include <algorithm>
#include <iterator>
#include <memory>

#include <fmt/format.h>
#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLErrorCodes.hpp>
#include <xercesc/internal/ReaderMgr.hpp>
#include <xercesc/internal/XMLReader.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/DTD/DTDEntityDecl.hpp>

#include <FilterUtils/FU_XMLText.h>

namespace QV::FilterUtils {
namespace {

// Blocks are small until the root is met, so that what precedes it can be bounded closely.
constexpr std::size_t FirstBlockBytes = 4 << 10;

std::string describeAttributeLimit(const XMLReadOptions& options)
{
    return fmt::format("an element has more than {} attributes", options.attributes);
}

// While it lives, the stream throws for nothing but a failure of its source.
class StreamExceptions
{
public:
    explicit StreamExceptions(std::istream& stream)
        : _stream(stream)
        , _before(stream.exceptions())
    {
        _stream.exceptions(_before & std::ios_base::badbit);
    }
    ~StreamExceptions()
    {
        // Setting the mask throws where the stream is in a state that it names.
        try {
            _stream.exceptions(_before);
        } catch (const std::ios_base::failure&) {
        }
    }

    StreamExceptions(const StreamExceptions&) = delete;
    StreamExceptions& operator=(const StreamExceptions&) = delete;

private:
    std::istream& _stream;
    std::ios_base::iostate _before;
};

} // namespace

// Hands the stream's bytes on as they are: the document tells its own encoding.
class XMLHardenedParser::InputBytes : public xercesc::BinInputStream
{
public:
    InputBytes(XMLHardenedParser& parser, std::istream& stream)
        : _parser(parser)
        , _stream(stream)
    {
    }

    XMLFilePos curPos() const override { return _parser._bytes; }
    XMLSize_t readBytes(XMLByte* buffer, XMLSize_t size) override
    {
        return _parser.pull(_stream, buffer, size);
    }
    const XMLCh* getContentType() const override { return nullptr; }

private:
    XMLHardenedParser& _parser;
    std::istream& _stream;
};

class XMLHardenedParser::Input : public xercesc::InputSource
{
public:
    Input(XMLHardenedParser& parser, std::istream& stream)
        : _parser(parser)
        , _stream(stream)
    {
    }

    xercesc::BinInputStream* makeStream() const override
    {
        return new InputBytes(_parser, _stream); // the caller adopts it
    }

private:
    XMLHardenedParser& _parser;
    std::istream& _stream;
};

XMLHardenedParser::XMLHardenedParser(const XMLReadOptions& options, xercesc::MemoryManager* manager)
    : xercesc::XercesDOMParser(nullptr, manager, nullptr)
    , _options(options)
{
    setValidationScheme(Val_Never);
    setLoadExternalDTD(false);
    setDoNamespaces(true);
    setDoSchema(false);
    setLoadSchema(false);
    setDisableDefaultEntityResolution(true);
    setCreateEntityReferenceNodes(false);
    _security.setEntityExpansionLimit(_options.entityExpansions);
    setSecurityManager(&_security);
}

XMLReadResult XMLHardenedParser::read(std::istream& stream)
{
    // A scanner that was chosen after construction has them set here.
    getScanner()->setEntityHandler(this);
    getScanner()->setDisallowDTD(_options.doctypes == XMLDoctypes::Refused);

    XMLReadResult result = parseInput(stream);
    if (_streamFailure)
        std::rethrow_exception(_streamFailure);
    if (_inputBreach) {
        if (!_isBreachPlaced) {
            _inputBreach->line = result.line;
            _inputBreach->column = result.column;
        }
        return *_inputBreach;
    }
    if (result.outcome == XMLOutcome::Malformed && stream.fail() && !stream.eof()) {
        result.outcome = XMLOutcome::Unreadable;
        result.message = "the stream failed";
    }
    return result;
}

XMLReadResult XMLHardenedParser::parseInput(std::istream& stream)
{
    try {
        parse(Input(*this, stream));
        return {};
    } catch (const xercesc::SAXParseException& exception) {
        XMLReadResult result;
        result.outcome = _errorOutcome;
        result.line = exception.getLineNumber();
        result.column = exception.getColumnNumber();
        result.message = toUtf8(exception.getMessage());
        if (_errorOutcome == XMLOutcome::EntityLimit) {
            result.limit = _options.entityExpansions;
            result.value = result.limit + 1;
        } else if (_errorOutcome == XMLOutcome::DoctypeRefused) {
            result.message = "the document has a document type declaration";
        }
        return result;
    } catch (const Breach& breach) {
        return breach.result;
    }
}

// Never throws into the parser, which is not made for it here: a failure and a breach end the input instead,
// and read() tells them afterwards.
std::size_t XMLHardenedParser::pull(std::istream& stream, XMLByte* buffer, std::size_t size)
{
    if (_streamFailure || _inputBreach)
        return 0;
    std::size_t count = 0;
    try {
        count = feed(stream, reinterpret_cast<char*>(buffer), size);
    } catch (const Breach& breach) {
        _inputBreach = breach.result;
        _isBreachPlaced = true;
        return 0;
    } catch (...) {
        _streamFailure = std::current_exception();
        return 0;
    }
    checkInput(count);
    return _inputBreach ? 0 : count;
}

std::size_t XMLHardenedParser::readBlock(std::istream& stream, char* buffer, std::size_t size)
{
    const StreamExceptions exceptions(stream);
    if (!stream.good())
        return 0;
    const std::size_t wanted = _hasRoot ? size : std::min(size, FirstBlockBytes);
    stream.read(buffer, static_cast<std::streamsize>(wanted));
    if (stream.eof())
        stream.clear(stream.rdstate() & ~std::ios_base::failbit);
    return stream.fail() ? 0 : static_cast<std::size_t>(stream.gcount());
}

void XMLHardenedParser::checkInput(std::size_t blockSize)
{
    _markupBytes = _progress == _progressBefore ? _markupBytes + blockSize : blockSize;
    _progressBefore = _progress;
    countBytes(blockSize);
    checkInputLimit(XMLOutcome::MarkupLimit, "a tag, comment or section", _options.markupBytes, _markupBytes);
    if (hasEndlessTag() && !_inputBreach)
        _inputBreach = makeResult(XMLOutcome::AttributeLimit, describeAttributeLimit(_options),
            _options.attributes, _options.attributes + 1);
    if (_doctypeBegin)
        checkInputLimit(XMLOutcome::DoctypeLimit, "the document type declaration", _options.doctypeBytes,
            _bytes - *_doctypeBegin);
}

void XMLHardenedParser::countBytes(std::size_t count)
{
    _bytes += count;
    checkInputLimit(XMLOutcome::InputLimit, "the document", _options.inputBytes, _bytes);
}

void XMLHardenedParser::checkInputLimit(
    XMLOutcome outcome, const char* what, std::uint64_t limit, std::uint64_t value)
{
    if (value > limit && !_inputBreach)
        _inputBreach = XMLReadResult{
            outcome, 0, 0, limit, value, fmt::format("{} is longer than {} bytes", what, limit)};
}

XMLReadResult XMLHardenedParser::makeResult(
    XMLOutcome outcome, const std::string& message, std::uint64_t limit, std::uint64_t value) const
{
    const xercesc::Locator& locator = *getScanner()->getLocator();
    return {outcome, locator.getLineNumber(), locator.getColumnNumber(), limit, value, message};
}

void XMLHardenedParser::breach(
    XMLOutcome outcome, const std::string& message, std::uint64_t limit, std::uint64_t value) const
{
    throw Breach{makeResult(outcome, message, limit, value)};
}

void XMLHardenedParser::enterElement()
{
    noteProgress();
    if (!_hasRoot) {
        checkEncoding();
        _hasRoot = true;
    }
    if (_depth >= _options.depth)
        breach(XMLOutcome::DepthLimit,
            fmt::format("elements are nested deeper than {} levels", _options.depth), _options.depth,
            _depth + 1);
    ++_depth;
}

void XMLHardenedParser::enterElement(const Attributes& attributes, std::size_t attributeCount)
{
    enterElement();
    if (attributeCount > 0)
        checkAttributes(attributes, attributeCount);
}

void XMLHardenedParser::leaveElement()
{
    noteProgress();
    if (!_scopes.empty() && _scopes.back().depth == _depth) {
        _namespaces -= _scopes.back().declarations;
        _scopes.pop_back();
        forgetNamespaces();
    }
    --_depth;
}

void XMLHardenedParser::checkEncoding() const
{
    if (_options.encodings == XMLEncodings::Any)
        return;
    const std::string encoding = toUtf8(getScanner()->getReaderMgr()->getCurrentEncodingStr());
    for (const char* const accepted : {"UTF-8", "UTF8", "UTF-16", "UTF16"})
        if (encoding.compare(0, std::char_traits<char>::length(accepted), accepted) == 0)
            return;
    const bool acceptsLatin1 = _options.encodings == XMLEncodings::Utf8Utf16AndLatin1;
    if (acceptsLatin1 && (encoding == "ISO-8859-1" || encoding == "US-ASCII"))
        return;
    breach(XMLOutcome::EncodingRefused, fmt::format("the document is in {}, and not in UTF-8{}", encoding,
                                            acceptsLatin1 ? ", UTF-16 or ISO-8859-1" : " or UTF-16"));
}

bool XMLHardenedParser::isNamespaceDeclaration(const xercesc::XMLAttr& attribute) const
{
    // Scanners differ over the namespace of the default namespace's declaration.
    return attribute.getURIId() == getScanner()->getXMLNSNamespaceId() ||
           (*attribute.getName() == u'x' && (!attribute.getPrefix() || *attribute.getPrefix() == 0) &&
               xercesc::XMLString::equals(attribute.getName(), xercesc::XMLUni::fgXMLNSString));
}

void XMLHardenedParser::checkAttributes(const Attributes& attributes, std::size_t count)
{
    if (count > _options.attributes)
        breach(XMLOutcome::AttributeLimit, describeAttributeLimit(_options), _options.attributes, count);
    if (_attributes.size() < count)
        _attributes.resize(count);
    std::size_t declarations = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const xercesc::XMLAttr& attribute = *attributes.elementAt(i);
        _attributes[i] = &attribute;
        if (isNamespaceDeclaration(attribute))
            ++declarations;
        if (!attribute.getSpecified())
            spendEntityCharacters(xercesc::XMLString::stringLen(attribute.getQName()) +
                                  xercesc::XMLString::stringLen(attribute.getValue()));
    }
    if (declarations == 0)
        return;
    _namespaces += declarations;
    if (_namespaces > _options.namespaces)
        breach(XMLOutcome::NamespaceLimit,
            fmt::format("more than {} namespace declarations are in force", _options.namespaces),
            _options.namespaces, _namespaces);
    _scopes.push_back({_depth, declarations});
    declareNamespaces(attributes, count);
}

void XMLHardenedParser::spendEntityCharacters(std::size_t count)
{
    _entityCharacters += count;
    if (_entityCharacters > _options.entityCharacters)
        breach(XMLOutcome::EntityLimit,
            fmt::format("entities and default attributes amount to more than {} characters",
                _options.entityCharacters),
            _options.entityCharacters, _entityCharacters);
}

void XMLHardenedParser::checkEnd() const
{
    // The scanner takes a zero after the root for the end of the document.
    xercesc::XMLReader* const reader =
        const_cast<xercesc::ReaderMgr*>(getScanner()->getReaderMgr())->getCurrentReader();
    XMLCh next = 0;
    if (reader && reader->peekNextChar(next))
        breach(XMLOutcome::Malformed, "a zero character follows the root");
}

void XMLHardenedParser::endDocument()
{
    checkEnd();
    XercesDOMParser::endDocument();
}

void XMLHardenedParser::XMLDecl(
    const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone, const XMLCh* actualEncoding)
{
    // A version 1.x is read as 1.0 (XML 1.0, 2.8); the scanner does so, but a DOM throws over the number.
    const bool isVersion11 = xercesc::XMLString::equals(version, xercesc::XMLUni::fgVersion1_1);
    XercesDOMParser::XMLDecl(
        isVersion11 ? version : xercesc::XMLUni::fgVersion1_0, encoding, standalone, actualEncoding);
}

void XMLHardenedParser::startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId,
    const XMLCh* prefix, const Attributes& attributes, XMLSize_t attributeCount, bool isEmpty, bool isRoot)
{
    enterElement(attributes, attributeCount);
    XercesDOMParser::startElement(declaration, uriId, prefix, attributes, attributeCount, isEmpty, isRoot);
}

void XMLHardenedParser::endElement(
    const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot, const XMLCh* prefix)
{
    leaveElement();
    XercesDOMParser::endElement(declaration, uriId, isRoot, prefix);
}

void XMLHardenedParser::docCharacters(const XMLCh* text, XMLSize_t length, bool isCDATA)
{
    noteProgress();
    XercesDOMParser::docCharacters(text, length, isCDATA);
}

void XMLHardenedParser::docComment(const XMLCh* text)
{
    noteProgress();
    XercesDOMParser::docComment(text);
}

void XMLHardenedParser::docPI(const XMLCh* target, const XMLCh* data)
{
    noteProgress();
    XercesDOMParser::docPI(target, data);
}

void XMLHardenedParser::startEntityReference(const xercesc::XMLEntityDecl& declaration)
{
    noteProgress();
    spendEntityCharacters(declaration.getValueLen());
    XercesDOMParser::startEntityReference(declaration);
}

void XMLHardenedParser::doctypeDecl(const xercesc::DTDElementDecl& root, const XMLCh* publicId,
    const XMLCh* systemId, bool hasInternalSubset, bool hasExternalSubset)
{
    _doctypeBegin = _bytes;
    XercesDOMParser::doctypeDecl(root, publicId, systemId, hasInternalSubset, hasExternalSubset);
}

void XMLHardenedParser::endIntSubset()
{
    _doctypeBegin = boost::none;
    XercesDOMParser::endIntSubset();
}

void XMLHardenedParser::entityDecl(
    const xercesc::DTDEntityDecl& declaration, bool isParameterEntity, bool isIgnored)
{
    // References to these inside a document type multiply, and no event tells of them.
    if (isParameterEntity)
        breach(XMLOutcome::EntityLimit, "the document declares a parameter entity");
    XercesDOMParser::entityDecl(declaration, isParameterEntity, isIgnored);
}

bool XMLHardenedParser::isAtDoctype() const
{
    // The scanner has just passed "<!DOCTYPE", or it is at a character that cannot stand before the root; a
    // blank can, so after one complaint of this kind it tells a document type. Peeking consumes nothing.
    const XMLCh next = const_cast<xercesc::ReaderMgr*>(getScanner()->getReaderMgr())->peekNextChar();
    return next == u' ' || next == u'\t' || next == u'\n' || next == u'\r';
}

void XMLHardenedParser::error(unsigned int code, const XMLCh* domain,
    xercesc::XMLErrorReporter::ErrTypes type, const XMLCh* text, const XMLCh* systemId, const XMLCh* publicId,
    XMLFileLoc line, XMLFileLoc column)
{
    if (code == xercesc::XMLErrs::EntityExpansionLimitExceeded)
        _errorOutcome = XMLOutcome::EntityLimit;
    else if (code == xercesc::XMLErrs::InvalidDocumentStructure && getScanner()->getDisallowDTD() &&
             isAtDoctype())
        _errorOutcome = XMLOutcome::DoctypeRefused;
    XercesDOMParser::error(code, domain, type, text, systemId, publicId, line, column);
}

xercesc::InputSource* XMLHardenedParser::resolveEntity(xercesc::XMLResourceIdentifier* /*resource*/)
{
    breach(XMLOutcome::EntityLimit, "the document refers to an external entity");
}

} // namespace QV::FilterUtils
