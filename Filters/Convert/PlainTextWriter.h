#pragma once

#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/Block.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/ListLabels.h>

namespace QV::DOM {
class Document;
class Frame;
class Paragraph;
class Run;
class Table;
} // namespace QV::DOM

namespace QV::Filters {

class NoteNumbers;

/// Writes blocks as lines: paragraphs with the labels of items in front, rows of tables with tabs between
/// their cells, the text boxes of a paragraph behind it.
class PlainTextWriter
{
public:
    using Blocks = std::vector<std::unique_ptr<DOM::Block>>;

    /// @param document,notes outlive the writer
    PlainTextWriter(const DOM::Document& document, const NoteNumbers& notes);

    /// Appends a block to @p text.
    void write(const DOM::Block& block, const CellScope& scope, std::string& text);
    void write(const Blocks& blocks, const CellScope& scope, std::string& text);

    /// Appends blocks whose lists count for themselves: those of a text box, or of a note.
    void writeStory(const Blocks& blocks, std::string& text);

    void writeTable(const DOM::Table& table, std::string& text);

private:
    void writeParagraph(const DOM::Paragraph& paragraph, const CellScope& scope, std::string& text);
    bool isHiddenRun(const DOM::Paragraph& paragraph, const DOM::Run& run, const CellScope& scope);
    void writeRun(const DOM::Run& run, std::vector<const DOM::Frame*>& frames, std::string& text) const;
    void writeFrame(const DOM::Frame& frame, std::string& text);

    const DOM::Document& _document;
    EffectiveFormats _formats;
    std::vector<ListLabels> _labels; // of the stories that are open, from the outermost on
    const NoteNumbers& _notes;
};

} // namespace QV::Filters
