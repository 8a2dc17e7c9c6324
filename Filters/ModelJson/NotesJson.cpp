#include <Filters/ModelJson/NotesJson.h>

#include <array>
#include <cstddef>
#include <limits>
#include <memory>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Note.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/TextJsonState.h>
#include <Filters/Package/SeenText.h>

namespace QV::Filters {
namespace {

const std::array<const char*, 3> NoteKindNames = {"footnote", "endnote", "comment"}; // as the enumerators

} // namespace

NoteNames makeNoteNames(const DOM::Document& document)
{
    NoteNames names;
    std::array<unsigned long, NoteKindNames.size()> counts = {};
    for (const std::unique_ptr<DOM::Note>& note : document.getNotes()) {
        const auto kind = static_cast<std::size_t>(note->getKind());
        names.emplace(note->getUUID(), NoteName{NoteKindNames[kind], std::to_string(++counts[kind])});
    }
    return names;
}

void writeNotesJson(TextJsonState& state)
{
    JsonWriter& json = state.getJson();
    json.beginArray();
    for (const std::unique_ptr<DOM::Note>& note : state.getDocument().getNotes()) {
        const NoteName* const name = state.findNoteName(note->getUUID());
        json.beginObject();
        if (name) {
            json.writeMember("id", name->id);
            json.writeMember("kind", name->kind);
        }
        if (!note->getAuthor().empty())
            json.writeMember("author", note->getAuthor());
        json.writeMember("text", getSeenText(note->getText()->getBlocks(), state.getFormats(),
                                     std::numeric_limits<std::size_t>::max()));
        json.endObject();
    }
    json.endArray();
}

} // namespace QV::Filters
