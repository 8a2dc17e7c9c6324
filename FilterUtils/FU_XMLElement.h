#pragma once

/// @file
/// XML as a tree: elements found by qualified name, attributes and text as UTF-8.

#include <functional>
#include <istream>
#include <memory>
#include <string>

#include <boost/optional.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/XercesDefs.hpp>

#include <FilterUtils/FU_Export.h>
#include <FilterUtils/FU_XMLReadOptions.h>

namespace QV::FilterUtils {

/// xsd:boolean in the canonical form that writers use: "1" and "0".
FILTERUTILS_API extern const std::string XSDTrueValue;
FILTERUTILS_API extern const std::string XSDFalseValue;

/// A view of one element of a parsed document, or the invalid view that a search returns in vain.
///
///     const std::string Main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
///     const XMLElement styles = XMLElement::getRootElement(stream, Main + ":styleSheet");
///     styles.getElement(Main + ":fonts").processElements(Main + ":font", [&](const XMLElement& font) {
///         size = font.getElement(Main + ":sz").getAttributeValue("val");
///     });
///
/// A name is NAME or URI ":" NAME, split at the last ":". The URI is a namespace, not a prefix; a NAME alone
/// is in no namespace. Names compare exactly; a name that is not UTF-8 matches nothing.
///
/// Every view keeps the whole document alive. A tree takes some 40 bytes for each byte of XML: read big parts
/// through XMLStreamReader. The application initialises Xerces (XMLPlatformUtils::Initialize) before any
/// reading, and keeps it so while views live.
///
/// Views never change. Views of one document belong to one thread at a time.
class FILTERUTILS_API XMLElement
{
public:
    /// The invalid view.
    XMLElement();

    /// A view of @p element, which @p parser owns; @p handler is the parser's error handler.
    XMLElement(std::shared_ptr<xercesc::XercesDOMParser> parser,
        std::shared_ptr<xercesc::HandlerBase> handler, const xercesc::DOMElement* element);

    /// Parses @p stream to its end, and returns the root; or the invalid view, where the XML is malformed or
    /// breaks a bound of XMLReadOptions, or the root is not named @p rootName (none: any name).
    ///
    /// What the stream itself throws passes through; nothing else is thrown over bad XML.
    static XMLElement getRootElement(std::istream& stream, boost::optional<std::string> rootName);

    /// The same with bounds of the caller's.
    ///
    /// @param result where not null, receives how the reading ended; a root of another name is WellFormed
    static XMLElement getRootElement(std::istream& stream, boost::optional<std::string> rootName,
        const XMLReadOptions& options, XMLReadResult* result = nullptr);

    /// The first child element of that name, or the invalid view.
    XMLElement getElement(const std::string& name) const;

    /// Calls @p function for each child element of that name, in document order.
    ///
    /// Throws std::bad_function_call on the first match where @p function is empty.
    void processElements(
        const std::string& name, const std::function<void(const XMLElement&)>& function) const;

    /// Calls @p function for each child element in document order, with its name as getElement takes it.
    ///
    /// Throws std::bad_function_call on the first child where @p function is empty.
    void processAllElements(
        const std::function<void(const std::string& name, const XMLElement& element)>& function) const;

    /// The value of the attribute of that name; or nothing, where the element has none or the view is
    /// invalid.
    boost::optional<std::string> getAttributeValue(const std::string& name) const;

    /// All text inside the element, that of its descendants included, comments and processing instructions
    /// left out; empty where there is none. Nothing for the invalid view.
    boost::optional<std::string> getText() const;

    bool isValid() const { return _element != nullptr; }

    /// Whether both view the same element of the same reading.
    bool operator==(const XMLElement& other) const;
    bool operator!=(const XMLElement& other) const;

private:
    std::shared_ptr<xercesc::XercesDOMParser> _parser; // owns the document
    std::shared_ptr<xercesc::HandlerBase> _handler;    // the parser refers to it
    const xercesc::DOMElement* _element = nullptr;
};

/// The text in the platform's narrow encoding, by Xerces' own transcoder.
///
/// @param text zero-terminated, not null
FILTERUTILS_API std::string xercesStringToString(const XMLCh* text);

} // namespace QV::FilterUtils
