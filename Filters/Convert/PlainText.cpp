#include <Filters/Convert/PlainText.h>

#include <cstddef>
#include <ostream>
#include <string>

#include <boost/algorithm/string/trim.hpp>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <Filters/Convert/NoteNumbers.h>
#include <Filters/Convert/PlainTextWriter.h>

namespace QV::Filters {

void writePlainText(const DOM::Document& document, std::ostream& out)
{
    const NoteNumbers notes(document);
    PlainTextWriter writer(document, notes);
    std::string text;
    for (const DOM::Block& block : document.getBlocks()) {
        text.clear();
        writer.write(block, {}, text);
        out << text;
    }
    for (std::size_t i = 0; i < notes.getNotes().size(); ++i) {
        text.clear();
        writer.writeStory(notes.getNotes()[i]->getText()->getBlocks(), text);
        boost::algorithm::trim_left_if(text, [](char c) { return c == ' '; });
        out << (i == 0 ? "\n[" : "[") << i + 1 << "] " << text;
    }
}

} // namespace QV::Filters
