#pragma once

/// @file
/// Presentations as text.

#include <iosfwd>
#include <string>

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

/// Writes what stands on the slides as UTF-8, slide by slide, a blank line between two: a line for each
/// paragraph, the shapes from back to front, labels of items in front, cells of a row separated by tabs; then
/// the speaker's notes behind "Notes:". Text of masters and layouts is not there; hidden slides are.
FILTERS_API void writeSlidesPlainText(const DOM::Document& document, std::ostream& out);

/// The same as Markdown (CommonMark, with tables): each slide begins with a heading of level 2, its title, or
/// "Slide 3" where it has none; bulleted and numbered paragraphs are lists, tables are tables, pictures are
/// pictures with their descriptions, notes are quotes. Text is escaped, so that it reads as it stands; links
/// lead to http, https and mailto alone.
///
/// @param mediaFolder the folder of the pictures as links name it; where it is empty, the name of a picture
///     stands in its place
FILTERS_API void writeSlidesMarkdown(
    const DOM::Document& document, const std::string& mediaFolder, std::ostream& out);

} // namespace QV::Filters
