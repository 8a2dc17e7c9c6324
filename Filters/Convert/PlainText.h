#pragma once

#include <iosfwd>

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

/// Writes what a reader sees of a text document as UTF-8: a line for each paragraph, in front of which stand
/// the label of an item; the cells of a table's row are separated by tabs, and their paragraphs by blanks;
/// tables of contents as they last were; then the notes, each behind its number in brackets.
FILTERS_API void writePlainText(const DOM::Document& document, std::ostream& out);

} // namespace QV::Filters
