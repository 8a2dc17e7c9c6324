#pragma once

/// @file
/// Footnotes, endnotes and comments as JSON.

#include <string>
#include <unordered_map>

#include <Utils/Public/UUID.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

class TextJsonState;

/// By which a note is known in the output.
struct NoteName
{
    const char* kind; ///< "footnote", "endnote" or "comment"
    std::string id;   ///< notes of each kind are counted from "1" on, in the order of the document
};

using NoteNames = std::unordered_map<UUID, NoteName>;

NoteNames makeNoteNames(const DOM::Document& document);

/// Writes an array with an object for each note: its "id" and "kind", the "author" of a comment, and the
/// "text" that a reader sees.
void writeNotesJson(TextJsonState& state);

} // namespace QV::Filters
