#include <Filters/Convert/PlainText.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <boost/algorithm/string/trim.hpp>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <Filters/Convert/NoteNumbers.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Package/SeenText.h>

namespace QV::Filters {
namespace {

using PlainBlocks = std::vector<std::unique_ptr<DOM::Block>>;

/// Text on one line of a table's row.
std::string joinLines(std::string text)
{
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\t', ' ');
    return text;
}

/// Writes blocks as lines, the text boxes of a paragraph behind it.
class PlainTextWriter
{
public:
    PlainTextWriter(const DOM::Document& document, const NoteNumbers& notes)
        : _document(document)
        , _formats(document)
        , _notes(notes)
    {
        _labels.emplace_back(document);
    }

    void write(const DOM::Block& block, const CellScope& scope, std::string& text)
    {
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(&block))
            writeParagraph(*paragraph, scope, text);
        else if (const auto* const table = dynamic_cast<const DOM::Table*>(&block))
            writeTable(*table, text);
        else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(&block))
            write(contents->getBlocks(), scope, text);
    }

    void write(const PlainBlocks& blocks, const CellScope& scope, std::string& text)
    {
        for (const auto& block : blocks)
            write(*block, scope, text);
    }

    /// Blocks whose lists count for themselves: those of a text box, or of a note.
    void writeStory(const PlainBlocks& blocks, std::string& text)
    {
        _labels.emplace_back(_document);
        write(blocks, {}, text);
        _labels.pop_back();
    }

private:
    void writeParagraph(const DOM::Paragraph& paragraph, const CellScope& scope, std::string& text)
    {
        if (!isInFinalView(paragraph) || isHidden(paragraph, _formats, scope))
            return;
        if (const auto reference = _formats.getNumRef(paragraph)) {
            const std::string label = _labels.back().next(*reference);
            text += label.empty() ? label : label + ' ';
        }
        std::vector<const DOM::Frame*> frames;
        for (const DOM::Run& run : paragraph.getRuns())
            if (isInFinalView(run) && !isHiddenRun(paragraph, run, scope))
                writeRun(run, frames, text);
        text += '\n';
        for (const DOM::Frame* const frame : frames)
            writeFrame(*frame, text);
    }

    bool isHiddenRun(const DOM::Paragraph& paragraph, const DOM::Run& run, const CellScope& scope)
    {
        return _formats.getRunProps(paragraph, run.getStyle(), scope).getHidden().value_or(false);
    }

    void writeRun(const DOM::Run& run, std::vector<const DOM::Frame*>& frames, std::string& text) const
    {
        if (const auto* const anchor = dynamic_cast<const DOM::AnchorRun*>(&run)) {
            const unsigned long number = _notes.getNumber(anchor->getTargetUUID());
            text += number == 0 ? std::string() : "[" + std::to_string(number) + "]";
            return;
        }
        const auto* const drawing = dynamic_cast<const DOM::DrawingRun*>(&run);
        if (drawing && drawing->getFrame())
            frames.push_back(drawing->getFrame().get());
        text += getRunText(run);
    }

    void writeFrame(const DOM::Frame& frame, std::string& text)
    {
        const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
        if (!shape)
            return;
        if (shape->getText())
            writeStory(shape->getText()->getBlocks(), text);
        for (const DOM::Frame& child : shape->getChildren())
            writeFrame(child, text);
    }

    void writeTable(const DOM::Table& table, std::string& text)
    {
        const auto cells = table.getTableIterators();
        RowIndex row(0);
        bool isFirst = true;
        for (auto it = cells.begin(); it != cells.end(); ++it) {
            const DOM::CellText* const content = it->getText();
            if (!content)
                continue;
            if (!isFirst)
                text += it.getRowIndex() == row ? '\t' : '\n';
            isFirst = false;
            row = it.getRowIndex();
            std::string lines;
            write(content->getBlocks(), {&table.getStyle(), &it->getStyle()}, lines);
            text += joinLines(std::move(lines));
        }
        text += isFirst ? "" : "\n";
    }

    const DOM::Document& _document;
    EffectiveFormats _formats;
    std::vector<ListLabels> _labels; // of the stories that are open, from the outermost on
    const NoteNumbers& _notes;
};

} // namespace

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
