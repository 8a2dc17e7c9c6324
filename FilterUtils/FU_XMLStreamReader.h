#pragma once

/// @file
/// XML as a stream of elements, for parts that are too big for a tree.

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>

#include <boost/optional.hpp>

#include <FilterUtils/FU_Export.h>
#include <FilterUtils/FU_XMLReadOptions.h>
#include <FilterUtils/FU_XMLVocabulary.h>

namespace QV::FilterUtils {

class XMLElement;
class XMLStreamParser;

/// What a handler wants of an element that starts.
enum class XMLStep
{
    Enter,     // its children and its end
    EnterText, // the same, and its text with its end
    Skip,      // nothing of it, not even its end
    Tree,      // the whole element at once, as an XMLElement
    Stop,      // nothing more: the reading ends
};

/// Whether a reading goes on.
enum class XMLFlow
{
    Continue,
    Stop
};

/// An element of the stream. Valid during the call that it is handed to, as are all views of text it gives.
class FILTERUTILS_API XMLStreamElement
{
public:
    XMLStreamElement(const XMLStreamElement&) = delete;
    XMLStreamElement& operator=(const XMLStreamElement&) = delete;

    /// The number of the element's name in the vocabulary, or XMLVocabulary::Unknown.
    int getId() const { return _id; }

    /// The same of its parent; Unknown for the root.
    int getParentId() const { return _parentId; }

    /// 1 for the root, 2 for its children.
    std::size_t getDepth() const { return _depth; }

    std::u16string_view getLocalName() const;

    /// The URI, empty where there is none.
    std::u16string_view getNamespace() const;

    /// The URI that the prefix stands for here ("": the default namespace), or nothing where it is
    /// undeclared.
    boost::optional<std::u16string_view> findNamespace(std::u16string_view prefix) const;

protected:
    explicit XMLStreamElement(const XMLStreamParser& parser);
    ~XMLStreamElement() = default;

    const XMLStreamParser& getParser() const { return _parser; }

private:
    friend class XMLStreamParser;

    const XMLStreamParser& _parser;
    int _id;
    int _parentId;
    std::size_t _depth;
};

/// An element that starts, with its attributes.
class FILTERUTILS_API XMLStreamStart : public XMLStreamElement
{
public:
    struct Attribute
    {
        std::u16string_view uri;
        std::u16string_view localName;
        std::u16string_view value;
    };

    /// The value of the attribute with that number in the vocabulary, or nothing. Costs a comparison with
    /// each attribute, and no memory.
    boost::optional<std::u16string_view> findAttribute(int id) const;

    /// The same as UTF-8.
    boost::optional<std::string> findAttributeText(int id) const;

    /// All attributes in document order, declarations of namespaces included.
    std::size_t getAttributeCount() const;

    /// @param index below getAttributeCount()
    Attribute getAttribute(std::size_t index) const;

private:
    friend class XMLStreamParser;
    using XMLStreamElement::XMLStreamElement;
};

/// An element that ends, with its text.
class FILTERUTILS_API XMLStreamEnd : public XMLStreamElement
{
public:
    /// All text inside the element, that of its descendants included, comments, processing instructions and
    /// what was skipped or taken as a tree left out. Empty, unless the element was entered with EnterText.
    std::u16string_view getText() const { return _text; }

    /// Appends the same as UTF-8.
    void appendText(std::string& result) const;

private:
    friend class XMLStreamParser;
    XMLStreamEnd(const XMLStreamParser& parser, std::u16string_view text);

    std::u16string_view _text;
};

/// Receives the elements of a stream, in document order. What a handler throws ends the reading, and reaches
/// the caller of the reader unchanged.
class FILTERUTILS_API XMLStreamHandler
{
public:
    virtual ~XMLStreamHandler();

    /// An element starts.
    virtual XMLStep onStart(const XMLStreamStart& element) = 0;

    /// An element ends that was entered.
    virtual XMLFlow onEnd(const XMLStreamEnd& element);

    /// An element has ended that was wanted as a tree. The handler may keep the view.
    virtual XMLFlow onTree(const XMLStreamElement& element, const XMLElement& tree);
};

/// Reads XML in one pass and in constant memory, many times faster than a tree is built.
///
///     struct CellCounter : XMLStreamHandler
///     {
///         XMLStep onStart(const XMLStreamStart& element) override
///         {
///             count += element.getId() == Cell;
///             return element.getId() == Cell ? XMLStep::Skip : XMLStep::Enter;
///         }
///         std::size_t count = 0;
///     };
///
///     CellCounter counter;
///     const XMLReadResult result = XMLStreamReader(SheetWords).read(stream, counter);
///
/// The same rules hold as for XMLElement, and a document type declaration is always refused. Xerces is
/// initialised by the application. A reader may be used any number of times, by one thread at a time.
class FILTERUTILS_API XMLStreamReader
{
public:
    /// @param vocabulary outlives the reader
    explicit XMLStreamReader(
        const XMLVocabulary& vocabulary, const XMLReadOptions& options = XMLReadOptions());

    /// Reads to the end of the document, to the first error, or until the handler wants no more. What was
    /// handed out before an error was found is taken back by nobody: look at the result.
    ///
    /// What the stream or the handler throws passes through; nothing else is thrown over bad XML.
    XMLReadResult read(std::istream& stream, XMLStreamHandler& handler) const;

private:
    const XMLVocabulary& _vocabulary;
    XMLReadOptions _options;
};

} // namespace QV::FilterUtils
