#include <DOM/Public/Document.h>

namespace QV::DOM {

Document::Document() = default;
Document::~Document() = default;

void Document::addNumberedList(std::shared_ptr<const NumberedList> list)
{
    const UUID uuid = list->getUUID();
    _numberedLists[uuid] = std::move(list);
}

void Document::appendNote(std::unique_ptr<Note> note)
{
    _notesByUUID.emplace(note->getUUID(), note.get());
    _notes.push_back(std::move(note));
}

const Note* Document::findNote(const UUID& uuid) const
{
    const auto found = _notesByUUID.find(uuid);
    return found == _notesByUUID.end() ? nullptr : found->second;
}

} // namespace QV::DOM
