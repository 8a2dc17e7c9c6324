#include <Filters/Convert/NoteNumbers.h>

#include <DOM/Public/Document.h>

namespace QV::Filters {

NoteNumbers::NoteNumbers(const DOM::Document& document)
{
    for (const auto& note : document.getNotes()) {
        if (note->getKind() == DOM::Note::Kind::Comment)
            continue;
        _notes.push_back(note.get());
        _numbers.emplace(note->getUUID(), _notes.size());
    }
}

unsigned long NoteNumbers::getNumber(const UUID& uuid) const
{
    const auto found = _numbers.find(uuid);
    return found == _numbers.end() ? 0 : found->second;
}

} // namespace QV::Filters
