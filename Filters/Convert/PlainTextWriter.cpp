#include <Filters/Convert/PlainTextWriter.h>

#include <algorithm>
#include <utility>

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
#include <Filters/Package/CoveredCells.h>
#include <Filters/Package/SeenText.h>

namespace QV::Filters {
namespace {

/// Text on one line of a table's row.
std::string joinLines(std::string text)
{
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\t', ' ');
    return text;
}

} // namespace

PlainTextWriter::PlainTextWriter(const DOM::Document& document, const NoteNumbers& notes)
    : _document(document)
    , _formats(document)
    , _notes(notes)
{
    _labels.emplace_back(document);
}

void PlainTextWriter::write(const DOM::Block& block, const CellScope& scope, std::string& text)
{
    if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(&block))
        writeParagraph(*paragraph, scope, text);
    else if (const auto* const table = dynamic_cast<const DOM::Table*>(&block))
        writeTable(*table, text);
    else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(&block))
        write(contents->getBlocks(), scope, text);
}

void PlainTextWriter::write(const Blocks& blocks, const CellScope& scope, std::string& text)
{
    for (const auto& block : blocks)
        write(*block, scope, text);
}

void PlainTextWriter::writeStory(const Blocks& blocks, std::string& text)
{
    _labels.emplace_back(_document);
    write(blocks, {}, text);
    _labels.pop_back();
}

void PlainTextWriter::writeParagraph(
    const DOM::Paragraph& paragraph, const CellScope& scope, std::string& text)
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

bool PlainTextWriter::isHiddenRun(
    const DOM::Paragraph& paragraph, const DOM::Run& run, const CellScope& scope)
{
    return _formats.getRunProps(paragraph, run.getStyle(), scope).getHidden().value_or(false);
}

void PlainTextWriter::writeRun(
    const DOM::Run& run, std::vector<const DOM::Frame*>& frames, std::string& text) const
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

void PlainTextWriter::writeFrame(const DOM::Frame& frame, std::string& text)
{
    const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
    if (!shape)
        return;
    if (shape->getText())
        writeStory(shape->getText()->getBlocks(), text);
    for (const DOM::Frame& child : shape->getChildren())
        writeFrame(child, text);
}

void PlainTextWriter::writeTable(const DOM::Table& table, std::string& text)
{
    CoveredCells covered;
    const auto cells = table.getTableIterators();
    RowIndex row(0);
    bool isFirst = true;
    for (auto it = cells.begin(); it != cells.end(); ++it) {
        if (covered.isCovered(it.getRowIndex().get(), it.getColIndex().get()))
            continue;
        covered.add(it.getRowIndex().get(), it.getColIndex().get(), it->getMergeProps());
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

} // namespace QV::Filters
