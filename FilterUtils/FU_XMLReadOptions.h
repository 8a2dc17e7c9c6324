#pragma once

/// @file
/// What both XML readers accept, what they refuse, and how they say why.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace QV::FilterUtils {

/// Whether a document may have a document type declaration.
enum class XMLDoctypes
{
    Accepted,
    Refused
};

/// Which character encodings a document may be in; the encoding in use counts, declared or sensed.
enum class XMLEncodings
{
    Any,
    Utf8AndUtf16,
    Utf8Utf16AndLatin1 // ISO-8859-1 and its part US-ASCII, which some writers of packages use against the
                       // rule
};

/// The bounds of one reading. The defaults are far beyond what office documents hold, and keep the time and
/// the memory that a hostile document can take in proportion to its size. A breach makes the document
/// unreadable as a whole, like malformed XML.
///
/// No option lets a reader open anything but the stream: an external entity that is referred to, and a
/// parameter entity that is declared, are breaches; an external document type is passed over.
struct XMLReadOptions
{
    XMLDoctypes doctypes = XMLDoctypes::Accepted; // XMLStreamReader refuses them always
    XMLEncodings encodings = XMLEncodings::Any;

    std::uint64_t inputBytes = std::numeric_limits<std::uint64_t>::max(); // of the stream
    std::size_t markupBytes = 64 << 20;       // of one tag, comment, CDATA section or the like
    std::size_t depth = 1000;                 // nested elements; the root is the first
    std::size_t attributes = 1000;            // of one element, namespace declarations included
    std::size_t namespaces = 1000;            // namespace declarations in force at one place
    std::size_t doctypeBytes = 16 << 10;      // of a document type declaration, give or take a block of 4 KiB
    std::size_t entityExpansions = 1000;      // references to entities that the document declares
    std::size_t entityCharacters = 1'000'000; // from entities and from default attributes, in all

    // XMLStreamReader alone:
    std::size_t distinctNames = 10'000;             // different element names and namespaces
    std::size_t distinctNameCharacters = 1'000'000; // of those, in all; a name counts with its namespace
    std::size_t textCharacters = 16 << 20;          // gathered at once, in UTF-16 units
    std::size_t subtreeNodes = 1'000'000;           // elements, attributes and pieces of text of one sub-tree
};

/// How a reading ended.
enum class XMLOutcome
{
    WellFormed,
    Stopped,         // by the handler; what follows was not looked at
    Malformed,       // not well-formed XML, or not in the encoding that it claims
    Unreadable,      // the stream failed before the document ended
    DoctypeRefused,  // see XMLReadOptions::doctypes
    EncodingRefused, // see XMLReadOptions::encodings
    InputLimit,      // see the bound of that name; so below
    MarkupLimit,
    DepthLimit,
    AttributeLimit,
    NamespaceLimit,
    DoctypeLimit,
    EntityLimit, // expansions or characters, an external or a parameter entity
    NameLimit,
    TextLimit,
    SubtreeLimit,
};

/// How and where a reading ended.
struct XMLReadResult
{
    XMLOutcome outcome = XMLOutcome::WellFormed;
    std::uint64_t line = 0;   // one-based; 0 where the document was read to its end
    std::uint64_t column = 0; // likewise
    std::uint64_t limit = 0;  // the bound that was broken, for the outcomes that end in Limit; otherwise 0
    std::uint64_t value = 0;  // what was met instead; at least so much, where counting stopped there
    std::string message;      // one English clause for a person; empty for WellFormed and Stopped
};

} // namespace QV::FilterUtils
