#include <Filters/Convert/Markdown.h>

#include <cstddef>
#include <ostream>
#include <string>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <Filters/Convert/MarkdownText.h>
#include <Filters/Convert/MarkdownWriter.h>
#include <Filters/Convert/NoteNumbers.h>

namespace QV::Filters {

void writeMarkdown(const DOM::Document& document, const std::string& mediaFolder, std::ostream& out)
{
    const NoteNumbers notes(document);
    MarkdownWriter writer(document, notes, mediaFolder);
    std::string text;
    for (const DOM::Block& block : document.getBlocks()) {
        text.clear();
        writer.write(block, text);
        out << text;
    }
    for (std::size_t i = 0; i < notes.getNotes().size(); ++i)
        out << "\n[^" << i + 1
            << "]: " << escapeMarkdownLine(writer.writeStoryLine(notes.getNotes()[i]->getText()->getBlocks()))
            << '\n';
    out << writer.getLinkDefinitions();
}

} // namespace QV::Filters
