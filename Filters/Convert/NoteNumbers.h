#pragma once

#include <map>
#include <vector>

#include <DOM/Public/Note.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

/// The footnotes and endnotes of a document, numbered through in the order of the text. Comments are no part
/// of what is converted.
class NoteNumbers
{
public:
    explicit NoteNumbers(const DOM::Document& document);

    /// From 1 on; 0 for what is no such note.
    unsigned long getNumber(const UUID& uuid) const;
    /// By number, from 1 on.
    const std::vector<const DOM::Note*>& getNotes() const { return _notes; }

private:
    std::vector<const DOM::Note*> _notes; // no null entries
    std::map<UUID, unsigned long> _numbers;
};

} // namespace QV::Filters
