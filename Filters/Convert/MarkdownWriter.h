#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Block.h>
#include <Filters/Convert/MarkdownInline.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/ListLabels.h>

namespace QV::DOM {
class Document;
class Frame;
class NumberingRef;
class Paragraph;
class Table;
} // namespace QV::DOM

namespace QV::Filters {

class NoteNumbers;

/// Writes blocks as Markdown, an empty line between two, but for items of a list.
class MarkdownWriter
{
public:
    using Blocks = std::vector<std::unique_ptr<DOM::Block>>;

    /// @param document,notes outlive the writer
    MarkdownWriter(const DOM::Document& document, const NoteNumbers& notes, const std::string& mediaFolder);

    /// Appends a block to @p text.
    void write(const DOM::Block& block, std::string& text);
    void write(const Blocks& blocks, std::string& text);

    /// Blocks on one line whose lists count for themselves: those of a note, or of a text box in a cell.
    std::string writeStoryLine(const Blocks& blocks);

    /// Appends blocks whose lists are apart from those before and behind them: those of a shape on a slide.
    void writeStory(const Blocks& blocks, std::string& text);
    /// The same as a quote; nothing where they show nothing.
    void writeQuote(const Blocks& blocks, std::string& text);
    void writeTable(const DOM::Table& table, std::string& text);
    /// Appends a paragraph with the picture that the frame shows.
    void writePicture(const DOM::Frame& frame, std::string& text);
    /// @param line as writeHeadingLine gives it, or through escapeMarkdown
    void writeHeading(unsigned long level, const std::string& line, std::string& text);
    /// The paragraphs on one line, as a heading shows them.
    std::string writeHeadingLine(const Blocks& blocks);

    /// What belongs at the end of the text.
    const std::string& getLinkDefinitions() const { return _inline.getLinkDefinitions(); }

private:
    /// An item whose list is open: items of deeper levels stand below its text.
    struct OpenItem
    {
        unsigned long level;
        std::size_t indent; // of its text
    };

    /// Blocks on one line, such as those of a cell.
    std::string writeLine(const Blocks& blocks, const CellScope& scope);
    boost::optional<unsigned long> findHeadingLevel(const DOM::Paragraph& paragraph);
    void writeParagraph(const DOM::Paragraph& paragraph, std::string& text);
    /// Items follow each other without an empty line; every other block ends the lists.
    void startBlock(std::string& text);
    void startList(std::string& text);
    void writeItem(
        const DOM::NumberingRef& reference, const std::string& label, std::string line, std::string& text);
    void writeShape(const DOM::Frame& frame, std::string& text);
    std::string writePiece(const DOM::Block& block, const CellScope& scope);
    std::string writeShapeLine(const DOM::Frame& frame);
    /// The first row is the table's head, since Markdown knows no table without one.
    void writeRows(std::vector<std::vector<std::string>>& rows, std::string& text);

    const DOM::Document& _document;
    EffectiveFormats _formats;
    std::vector<ListLabels> _labels; // of the stories that are open, from the outermost on
    MarkdownInline _inline;
    std::vector<OpenItem> _openItems;
    bool _isFirst = true;
    bool _followsList = false; // whether the last block was an item
};

} // namespace QV::Filters
