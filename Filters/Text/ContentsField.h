#pragma once

/// @file
/// Instructions of fields: their words, and what tables of contents and links say with them.

#include <cstddef>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/TableOfContents.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class TextFormats;
struct TextContext;

/// The words of a field's instruction: separated by blanks; quotes hold words together, a backslash before a
/// quote or a backslash keeps it. A quote begins a word of its own.
///
///     splitFieldInstruction(R"( TOC \o "1-3" \h )");    // "TOC", "\o", "1-3", "\h"
FILTERS_API std::vector<std::string> splitFieldInstruction(const std::string& instruction);

/// The name of the field that an instruction begins with, in capitals: "TOC".
FILTERS_API std::string getFieldName(const std::string& instruction);

/// The words from the number @p first on, with blanks between; empty where there are fewer.
FILTERS_API std::string joinFieldWords(const std::string& instruction, std::size_t first);

/// Where the instruction of a HYPERLINK field leads; nothing for another field, or one without a target.
struct FieldLink
{
    std::string url;    ///< empty for a place in the document
    std::string anchor; ///< without "#"
};
FILTERS_API boost::optional<FieldLink> readFieldLink(const std::string& instruction);

/// The character of a SYMBOL field as UTF-8 (ECMA-376 Part 1, 17.16.5.61); empty for another field, and where
/// it names none.
FILTERS_API std::string readFieldSymbol(const std::string& instruction);

/// Fills the information of a table of contents from its field's instruction (ECMA-376 Part 1, 17.16.5.68):
/// the switches o (levels of built-in headings), t (styles with levels), u (outline levels), h (links), n
/// (levels without page numbers) and z. Levels are 1 to 9. Without o, t and u it lists headings 1 to 9; but
/// with a, c or f, which list captions and marked entries, level 1 alone and no headings. Styles that t names
/// and the document does not have are reported: "Table of contents lists style {}, which is not there".
FILTERS_API void fillContentsInfo(const std::string& instruction, TextContext& context, TextFormats& formats,
    DOM::TableOfContentsInfo& info);

} // namespace QV::Filters
