#include <Filters/Convert/MarkdownWriter.h>

#include <algorithm>
#include <utility>

#include <boost/algorithm/string/replace.hpp>
#include <boost/variant.hpp>

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
#include <Filters/Convert/MarkdownText.h>
#include <Filters/Package/CoveredCells.h>
#include <Filters/Package/SeenText.h>

namespace QV::Filters {
namespace {

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

} // namespace

MarkdownWriter::MarkdownWriter(
    const DOM::Document& document, const NoteNumbers& notes, const std::string& mediaFolder)
    : _document(document)
    , _formats(document)
    , _inline(_formats, notes, mediaFolder)
{
    _labels.emplace_back(document);
}

void MarkdownWriter::write(const DOM::Block& block, std::string& text)
{
    if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(&block)) {
        writeParagraph(*paragraph, text);
    } else if (const auto* const table = dynamic_cast<const DOM::Table*>(&block)) {
        writeTable(*table, text);
    } else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(&block)) {
        write(contents->getBlocks(), text);
    }
}

void MarkdownWriter::write(const Blocks& blocks, std::string& text)
{
    for (const auto& block : blocks)
        write(*block, text);
}

std::string MarkdownWriter::writeStoryLine(const Blocks& blocks)
{
    _labels.emplace_back(_document);
    std::string line = writeLine(blocks, {});
    _labels.pop_back();
    return line;
}

void MarkdownWriter::writeStory(const Blocks& blocks, std::string& text)
{
    _openItems.clear();
    _labels.emplace_back(_document);
    write(blocks, text);
    _labels.pop_back();
    _openItems.clear();
}

void MarkdownWriter::writeQuote(const Blocks& blocks, std::string& text)
{
    std::string quoted;
    const bool isFirst = std::exchange(_isFirst, true);
    const bool followsList = std::exchange(_followsList, false);
    writeStory(blocks, quoted);
    _isFirst = isFirst;
    _followsList = followsList;
    if (quoted.empty())
        return;
    startBlock(text);
    for (std::size_t begin = 0; begin < quoted.size();) {
        const std::size_t end = quoted.find('\n', begin); // every line ends with one
        const std::string line = quoted.substr(begin, end - begin);
        text += (line.empty() ? ">" : "> " + line) + "\n";
        begin = end + 1;
    }
}

void MarkdownWriter::writePicture(const DOM::Frame& frame, std::string& text)
{
    startBlock(text);
    text += _inline.writePicture(frame, frame.getDescription()) + "\n";
}

void MarkdownWriter::writeHeading(unsigned long level, const std::string& line, std::string& text)
{
    startBlock(text);
    text += std::string(level, '#') + " " + escapeMarkdownHeadingEnd(line) + "\n";
}

std::string MarkdownWriter::writeHeadingLine(const Blocks& blocks)
{
    std::string line;
    std::vector<const DOM::Frame*> shapes; // headings have no room for them
    for (const auto& block : blocks) {
        const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(block.get());
        const std::string piece =
            paragraph ? _inline.write(*paragraph, {}, MarkdownPlace::Heading, shapes) : std::string();
        line += (line.empty() || piece.empty() ? "" : " ") + piece;
    }
    return escapeMarkdownLine(line);
}

std::string MarkdownWriter::writeLine(const Blocks& blocks, const CellScope& scope)
{
    std::string line;
    for (const auto& block : blocks) {
        const std::string piece = writePiece(*block, scope);
        line += line.empty() || piece.empty() ? piece : "<br>" + piece;
    }
    return line;
}

boost::optional<unsigned long> MarkdownWriter::findHeadingLevel(const DOM::Paragraph& paragraph)
{
    const auto outline = _formats.getParaProps(paragraph).getOutlineLevel();
    if (outline && *outline < OutlineLevelOfText)
        return std::min(*outline + 1, HeadingsMax);
    const DOM::NamedTextStyle* const style =
        FilterUtils::getParent(_document.getStyles(), paragraph.getStyle());
    const auto* const name = style ? boost::get<DOM::PredefinedStyleName>(&style->getName()) : nullptr;
    return name && *name == DOM::PredefinedStyleName::Title ? boost::make_optional(1UL) : boost::none;
}

void MarkdownWriter::writeParagraph(const DOM::Paragraph& paragraph, std::string& text)
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
        writeHeading(*heading, number + escapeMarkdownLine(line), text);
    } else if (reference && !label.empty() && !line.empty()) {
        writeItem(*reference, label, line, text);
    } else if (!line.empty()) {
        startBlock(text);
        text += line + "\n";
    }
    for (const DOM::Frame* const shape : shapes)
        writeShape(*shape, text);
}

void MarkdownWriter::startBlock(std::string& text)
{
    _openItems.clear();
    text += _isFirst ? "" : "\n";
    _isFirst = false;
    _followsList = false;
}

void MarkdownWriter::startList(std::string& text)
{
    const bool followsList = _followsList;
    startBlock(text);
    if (followsList)
        text += "<!-- -->\n\n"; // else both lists would be one, and count through
}

void MarkdownWriter::writeItem(
    const DOM::NumberingRef& reference, const std::string& label, std::string line, std::string& text)
{
    const unsigned long level = reference.getLevel().value_or(0);
    if (_openItems.empty())
        startList(text);
    _followsList = true;
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

void MarkdownWriter::writeShape(const DOM::Frame& frame, std::string& text)
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

std::string MarkdownWriter::writePiece(const DOM::Block& block, const CellScope& scope)
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

std::string MarkdownWriter::writeShapeLine(const DOM::Frame& frame)
{
    const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
    if (!shape)
        return {};
    std::string line = shape->getText() ? "<br>" + writeStoryLine(shape->getText()->getBlocks()) : "";
    for (const DOM::Frame& child : shape->getChildren())
        line += writeShapeLine(child);
    return line;
}

void MarkdownWriter::writeTable(const DOM::Table& table, std::string& text)
{
    std::vector<std::vector<std::string>> rows;
    RowIndex row(0);
    unsigned long column = 0; // after the last cell of the row
    CoveredCells covered;
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
        const bool isCovered = covered.isCovered(row.get(), column - 1);
        if (!isCovered)
            covered.add(row.get(), column - 1, it->getMergeProps());
        const DOM::CellText* const content = isCovered ? nullptr : it->getText();
        rows.back().push_back(
            content ? writeLine(content->getBlocks(), {&table.getStyle(), &it->getStyle()}) : "");
    }
    writeRows(rows, text);
}

void MarkdownWriter::writeRows(std::vector<std::vector<std::string>>& rows, std::string& text)
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

} // namespace QV::Filters
