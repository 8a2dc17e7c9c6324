#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/Block.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class Relationships;
class TextFormats;
struct TextContext;

/// What a story reader hands over.
struct StorySink
{
    /// The next block of the story; never null.
    std::function<void(std::unique_ptr<DOM::Block>)> takeBlock;
    /// The text of a "sectPr" element (see PropertyText) once the last block of its section was handed over.
    /// May be empty where a story has no sections.
    std::function<void(const std::string&)> takeSection;
};

/// Reads the blocks of the part that a document's text, or a header or a footer, stands in: paragraphs with
/// their runs, tables, tables of contents. The part comes in as a stream; blocks are handed over as they end.
///
/// Elements that are not known are passed over, and what stands inside of them is read. Alternate content is
/// resolved: the first choice whose namespaces are all understood, else the fallback. What comes before a
/// place where the part is malformed is read.
///
/// Reported, besides what is said of fields (see StoryFields) and of formats (see TextFormats):
///     - "Content in {} deeper than {} levels is left out": with the part, for tables and text boxes inside
///     of
///       50 others
///     - "Hyperlink has an unknown relationship {}": the text is read, and leads to the place inside that the
///       link names, or nowhere
///     - "Bookmark {} has a name of more than {} bytes": it is left out
///     - "Symbol {} is no character": it is left out
///
/// @param relationships of the part
/// @return false where the part is malformed, which is reported as readXmlStream does it
///
/// Throws PackageError as readXmlStream does.
FILTERS_API bool readStory(TextContext& context, TextFormats& formats, const std::string& part,
    const Relationships& relationships, const StorySink& sink);

/// A note as its part has it.
struct NoteStory
{
    std::string id;
    std::string type;   ///< empty for a note of the text; "separator" and the like otherwise
    std::string author; ///< of a comment
    std::vector<std::unique_ptr<DOM::Block>> blocks;
};

/// Reads the notes of a part of footnotes, endnotes or comments, in the order of the file.
FILTERS_API void readNotes(TextContext& context, TextFormats& formats, const std::string& part,
    const Relationships& relationships, const std::function<void(NoteStory)>& takeNote);

} // namespace QV::Filters
