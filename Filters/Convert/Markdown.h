#pragma once

#include <iosfwd>
#include <string>

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

/// Writes a text document as Markdown (CommonMark, with the tables, struck text and footnotes that are common
/// beside it): headings, lists, emphasis, links, tables, pictures and notes. Text is escaped, so that it
/// reads as it stands; links lead to http, https and mailto alone.
///
/// @param mediaFolder the folder of the pictures as links name it; where it is empty, the name of a picture
///     stands in its place
FILTERS_API void writeMarkdown(
    const DOM::Document& document, const std::string& mediaFolder, std::ostream& out);

} // namespace QV::Filters
