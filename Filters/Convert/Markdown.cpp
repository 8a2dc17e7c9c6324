#include <Filters/Convert/Markdown.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <ostream>
#include <vector>

#include <boost/algorithm/string/replace.hpp>
#include <boost/variant.hpp>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <Filters/Convert/MarkdownInline.h>
#include <Filters/Convert/MarkdownText.h>
#include <Filters/Convert/NoteNumbers.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Package/SeenText.h>

namespace QV::Filters {
namespace {

using MarkdownBlocks = std::vector<std::unique_ptr<DOM::Block>>;

constexpr unsigned long HeadingsMax = 6;
constexpr unsigned long OutlineLevelOfText = 9;
constexpr std::size_t OrderedNumberMax = 9; // digits
constexpr unsigned long GapMax = 64;        // cells that may be missing before one

/// Whether a label is what Markdown writes before an item by itself: "12." or "12)".
bool isOrderedMarker(const std::string& label)
{
    const std::size_t digits = label.find_first_not_of("0123456789");
    return digits != std::string::npos && digits > 0 && digits <= OrderedNumberMax &&
           digits + 1 == label.size() && (label[digits] == '.' || label[digits] == ')');
}

class MarkdownWriter
{
public:
    MarkdownWriter(const DOM::Document& document, const NoteNumbers& notes, const std::string& mediaFolder)
        : _document(document)
        , _formats(document)
        , _inline(_formats, notes, mediaFolder)
    {
        _labels.emplace_back(document);
    }

    void write(const DOM::Block& block, std::string& text)
    {
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(&block)) {
            writeParagraph(*paragraph, text);
        } else if (const auto* const table = dynamic_cast<const DOM::Table*>(&block)) {
            writeTable(*table, text);
        } else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(&block)) {
            write(contents->getBlocks(), text);
        }
    }

    void write(const MarkdownBlocks& blocks, std::string& text)
    {
        for (const auto& block : blocks)
            write(*block, text);
    }

    /// Blocks on one line whose lists count for themselves: those of a note, or of a text box in a cell.
    std::string writeStoryLine(const MarkdownBlocks& blocks)
    {
        _labels.emplace_back(_document);
        std::string line = writeLine(blocks, {});
        _labels.pop_back();
        return line;
    }

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
    std::string writeLine(const MarkdownBlocks& blocks, const CellScope& scope)
    {
        std::string line;
        for (const auto& block : blocks) {
            const std::string piece = writePiece(*block, scope);
            line += line.empty() || piece.empty() ? piece : "<br>" + piece;
        }
        return line;
    }

    boost::optional<unsigned long> findHeadingLevel(const DOM::Paragraph& paragraph)
    {
        const auto outline = _formats.getParaProps(paragraph).getOutlineLevel();
        if (outline && *outline < OutlineLevelOfText)
            return std::min(*outline + 1, HeadingsMax);
        const DOM::NamedTextStyle* const style =
            FilterUtils::getParent(_document.getStyles(), paragraph.getStyle());
        const auto* const name = style ? boost::get<DOM::PredefinedStyleName>(&style->getName()) : nullptr;
        return name && *name == DOM::PredefinedStyleName::Title ? boost::make_optional(1UL) : boost::none;
    }

    void writeParagraph(const DOM::Paragraph& paragraph, std::string& text)
    {
        if (!isInFinalView(paragraph) || isHidden(paragraph, _formats))
            return;
        std::vector<const DOM::Frame*> shapes;
        const auto heading = findHeadingLevel(paragraph);
        std::string line =
            _inline.write(paragraph, {}, heading ? MarkdownPlace::Heading : MarkdownPlace::Paragraph, shapes);
        const auto reference = _formats.getNumRef(paragraph);
        const std::string label = reference ? _labels.back().next(*reference) : std::string();
        if (heading && !line.empty()) {
            const std::string number = label.empty() ? label : escapeMarkdown(label) + " ";
            startBlock(text);
            text += std::string(*heading, '#') + " " +
                    escapeMarkdownHeadingEnd(number + escapeMarkdownLine(line)) + "\n";
        } else if (reference && !label.empty() && !line.empty()) {
            writeItem(*reference, label, line, text);
        } else if (!line.empty()) {
            startBlock(text);
            text += line + "\n";
        }
        for (const DOM::Frame* const shape : shapes)
            writeShape(*shape, text);
    }

    /// Items follow each other without an empty line; every other block ends the lists.
    void startBlock(std::string& text)
    {
        _openItems.clear();
        text += _isFirst ? "" : "\n";
        _isFirst = false;
    }

    void writeItem(
        const DOM::NumberingRef& reference, const std::string& label, std::string line, std::string& text)
    {
        const unsigned long level = reference.getLevel().value_or(0);
        if (_openItems.empty())
            startBlock(text);
        while (!_openItems.empty() && _openItems.back().level >= level)
            _openItems.pop_back();
        const std::size_t indent = _openItems.empty() ? 0 : _openItems.back().indent;
        const DOM::NumberingLevel* const numbering = _formats.findLevel(reference);
        const auto& marker = numbering ? numbering->getListMarker() : nullptr;
        const bool isBullet = marker && (marker->getType() == DOM::NumListMarkerType::Bullet ||
                                            marker->getType() == DOM::NumListMarkerType::PictureBullet);
        std::string mark = "- ";
        if (isOrderedMarker(label))
            mark = label + " ";
        else if (!isBullet)
            line = escapeMarkdown(label) + " " + line;
        _openItems.push_back({level, indent + mark.size()});
        boost::replace_all(line, "\n", "\n" + std::string(_openItems.back().indent, ' '));
        text += std::string(indent, ' ') + mark + escapeMarkdownLine(line) + "\n";
    }

    void writeShape(const DOM::Frame& frame, std::string& text)
    {
        const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
        if (!shape)
            return;
        if (shape->getText()) {
            _labels.emplace_back(_document);
            write(shape->getText()->getBlocks(), text);
            _labels.pop_back();
        }
        for (const DOM::Frame& child : shape->getChildren())
            writeShape(child, text);
    }

    std::string writePiece(const DOM::Block& block, const CellScope& scope)
    {
        std::string piece;
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(&block)) {
            if (!isInFinalView(*paragraph) || isHidden(*paragraph, _formats, scope))
                return piece;
            std::vector<const DOM::Frame*> shapes;
            if (const auto reference = _formats.getNumRef(*paragraph))
                piece = escapeMarkdown(_labels.back().next(*reference));
            const std::string line = _inline.write(*paragraph, scope, MarkdownPlace::TableCell, shapes);
            piece += piece.empty() || line.empty() ? line : " " + line;
            for (const DOM::Frame* const shape : shapes)
                piece += writeShapeLine(*shape);
        } else if (const auto* const table = dynamic_cast<const DOM::Table*>(&block)) {
            for (const DOM::Cell& cell : table->getTableIterators())
                if (cell.getText())
                    piece += (piece.empty() ? "" : "<br>") +
                             writeLine(cell.getText()->getBlocks(), {&table->getStyle(), &cell.getStyle()});
        } else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(&block)) {
            piece = writeLine(contents->getBlocks(), scope);
        }
        return piece;
    }

    std::string writeShapeLine(const DOM::Frame& frame)
    {
        const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
        if (!shape)
            return {};
        std::string line = shape->getText() ? "<br>" + writeStoryLine(shape->getText()->getBlocks()) : "";
        for (const DOM::Frame& child : shape->getChildren())
            line += writeShapeLine(child);
        return line;
    }

    void writeTable(const DOM::Table& table, std::string& text)
    {
        std::vector<std::vector<std::string>> rows;
        RowIndex row(0);
        unsigned long column = 0; // after the last cell of the row
        const auto cells = table.getTableIterators();
        for (auto it = cells.begin(); it != cells.end(); ++it) {
            if (rows.empty() || it.getRowIndex() != row) {
                rows.emplace_back();
                column = 0;
            }
            row = it.getRowIndex();
            const unsigned long gap = it.getColIndex().get() - column;
            rows.back().insert(rows.back().end(), std::min(gap, GapMax), std::string());
            column = it.getColIndex().get() + 1;
            const DOM::CellText* const content = it->getText();
            rows.back().push_back(
                content ? writeLine(content->getBlocks(), {&table.getStyle(), &it->getStyle()}) : "");
        }
        writeRows(rows, text);
    }

    /// The first row is the table's head, since Markdown knows no table without one.
    void writeRows(std::vector<std::vector<std::string>>& rows, std::string& text)
    {
        if (rows.empty())
            return;
        startBlock(text);
        std::size_t columnsCount = 0;
        for (const auto& row : rows)
            columnsCount = std::max(columnsCount, row.size());
        rows.front().resize(columnsCount);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            text += '|';
            for (const std::string& cell : rows[i])
                text += " " + cell + " |";
            text += '\n';
            if (i != 0)
                continue;
            text += '|';
            for (std::size_t column = 0; column < columnsCount; ++column)
                text += " --- |";
            text += '\n';
        }
    }

    const DOM::Document& _document;
    EffectiveFormats _formats;
    std::vector<ListLabels> _labels; // of the stories that are open, from the outermost on
    MarkdownInline _inline;
    std::vector<OpenItem> _openItems;
    bool _isFirst = true;
};

} // namespace

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
