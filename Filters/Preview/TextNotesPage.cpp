#include <Filters/Preview/TextNotesPage.h>

#include <fmt/format.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/NumberedList.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Preview/HtmlText.h>
#include <Filters/Preview/TextPage.h>
#include <Filters/Preview/TextPageContext.h>

namespace QV::Filters {
namespace {

constexpr std::size_t NoteAuthorMax = 200; // bytes

std::string makeNoteLabel(DOM::Note::Kind kind, long number)
{
    switch (kind) {
    case DOM::Note::Kind::Footnote:
        break;
    case DOM::Note::Kind::Endnote:
        return formatListNumber(number, DOM::NumListMarkerType::LowerRoman);
    case DOM::Note::Kind::Comment:
        return fmt::format("[{}]", number);
    }
    return std::to_string(number);
}

const char* getNotesTitle(std::size_t kind)
{
    const std::array<const char*, NoteKindsCount> titles = {"Footnotes", "Endnotes", "Comments"};
    return titles[kind];
}

void writeNote(const TextNotes::Item& item, float width, TextPageContext& context, std::string& list)
{
    list += fmt::format(
        "<div class=\"item\" id=\"n{0}\"><a href=\"#r{0}\" aria-label=\"back to {1}\">{1}</a><div>",
        item.number, escapeHtml(item.label));
    const std::string& author = item.note->getAuthor();
    if (!author.empty() && author.size() <= NoteAuthorMax)
        list += fmt::format("<p class=\"author\">{}</p>", escapeHtml(author));
    ListLabels labels(context.document);
    writeTextBlocks(item.note->getText()->getBlocks(), {labels, width}, context, list);
    list += "</div></div>\n";
}

} // namespace

std::string TextNotes::makeReference(const DOM::Note& note)
{
    const auto added = _indices.emplace(&note, _items.size());
    if (added.second) {
        const long number = ++_counts[static_cast<std::size_t>(note.getKind())];
        _items.push_back({&note, makeNoteLabel(note.getKind(), number), _items.size() + 1});
    }
    const Item& item = _items[added.first->second];
    const std::string id = added.second ? fmt::format(" id=\"r{}\"", item.number) : std::string();
    return fmt::format("<sup><a{} href=\"#n{}\">{}</a></sup>", id, item.number, escapeHtml(item.label));
}

void writeNotes(float width, TextPageContext& context, std::string& page)
{
    std::array<std::string, NoteKindsCount> lists;
    // The text of a note can refer to further ones.
    for (std::size_t i = 0; i < context.notes.getItems().size(); ++i) {
        const TextNotes::Item item = context.notes.getItems()[i];
        std::string& list = lists[static_cast<std::size_t>(item.note->getKind())];
        std::size_t bytes = page.size();
        for (const std::string& other : lists)
            bytes += &other == &list ? 0 : other.size();
        const BytesElsewhere elsewhere(context, bytes);
        writeNote(item, width, context, list);
    }
    if (context.notes.getItems().empty())
        return;
    page += "<section class=\"page notes\" aria-label=\"Notes\">\n";
    for (std::size_t kind = 0; kind < NoteKindsCount; ++kind)
        if (!lists[kind].empty())
            page += fmt::format("<h2>{}</h2>\n{}", getNotesTitle(kind), lists[kind]);
    page += "</section>\n";
}

} // namespace QV::Filters
