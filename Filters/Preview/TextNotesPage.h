#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <DOM/Public/Note.h>

namespace QV::Filters {

struct TextPageContext;

constexpr std::size_t NoteKindsCount = 3;

/// The notes that a page refers to, numbered by kind as the page comes to them.
class TextNotes
{
public:
    struct Item
    {
        const DOM::Note* note;
        std::string label;  ///< "1" for a footnote, "i" for an endnote, "[1]" for a comment
        std::size_t number; ///< of the elements' ids: "n1" of the note, "r1" of the first reference to it
    };

    /// The element that refers to a note.
    std::string makeReference(const DOM::Note& note);

    /// In the order of the first references. Valid until the next reference.
    const std::vector<Item>& getItems() const { return _items; }

private:
    std::vector<Item> _items;
    std::unordered_map<const DOM::Note*, std::size_t> _indices; // into the items
    std::array<long, NoteKindsCount> _counts = {};              // by kind
};

/// Appends the notes that were referred to, kind by kind; nothing where there are none. Every note has its
/// element, since references link to it; its text is there as far as the page has room.
/// @param width of the texts' column, in points
void writeNotes(float width, TextPageContext& context, std::string& page);

} // namespace QV::Filters
