#include <Beginning.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <fmt/format.h>

#include <DOM/Public/Adapter/ResolvedCellStyle.h>
#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/CellDisplays.h>
#include <Filters/Package/PackageError.h>
#include <OfficeUtils/Public/CellFormatter.h>

namespace QV::Tool {
namespace {

constexpr std::size_t RowsMax = 4;
constexpr std::size_t ColumnsMax = 6;
constexpr std::size_t CharactersMax = 20;

struct Shown
{
    std::string text;
    std::size_t width; // in characters
    bool isNumber;
};

using Row = std::map<unsigned long, Shown>; // by column

std::string showCell(const DOM::Cell& cell, const DOM::CellFormat* format, Filters::CellDisplays& displays)
{
    switch (cell.getKind()) {
    case DOM::Cell::Kind::Empty:
        break;
    case DOM::Cell::Kind::Number:
        return displays.displayNumber(cell.getNumber(), format).text;
    case DOM::Cell::Kind::Boolean:
        return OfficeUtils::formatBoolean(cell.getBoolean());
    case DOM::Cell::Kind::Text: {
        const std::string text = cell.getText()->getPlainText();
        const auto displayed = displays.displayText(text, format);
        return displayed ? displayed->text : text;
    }
    case DOM::Cell::Kind::Error:
        return cell.getText()->getPlainText();
    }
    return {};
}

/// As much of a text as a column has room for.
Shown cut(const std::string& text, bool isNumber)
{
    const auto isFirstByte = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    std::string shown = Filters::makePrintable(text.substr(0, text.find('\n')));
    auto width = static_cast<std::size_t>(std::count_if(shown.begin(), shown.end(), isFirstByte));
    if (width > CharactersMax) {
        std::size_t end = 0;
        for (width = 0; width < CharactersMax - 1 || !isFirstByte(shown[end]); ++end)
            width += isFirstByte(shown[end]) ? 1 : 0;
        shown = shown.substr(0, end) + "\xE2\x80\xA6"; // an ellipsis
        width = CharactersMax;
    }
    return {std::move(shown), width, isNumber};
}

/// The first rows that show something, and of each its first columns.
std::vector<Row> findRows(const DOM::Table& table, const DOM::Styles& styles, Filters::CellDisplays& displays)
{
    std::vector<Row> rows;
    boost::optional<RowIndex> index; // of the last of them
    const auto cells = Adapter::getCellIterators(table);
    for (auto it = cells.begin(); it != cells.end(); ++it) {
        const bool isInRow = index && *index == it.getRowIndex();
        if (it->getKind() == DOM::Cell::Kind::Empty || (isInRow && rows.back().size() == ColumnsMax))
            continue;
        if (!isInRow && rows.size() == RowsMax)
            break;
        const DOM::CellFormat* const format =
            displays.findFormat(Adapter::getResolvedCellStyle(it.getCellInfo(), styles));
        const std::string text = showCell(*it, format, displays);
        if (text.empty())
            continue;
        if (!isInRow)
            rows.emplace_back();
        index = it.getRowIndex();
        rows.back().emplace(it.getColIndex().get(), cut(text, it->getKind() == DOM::Cell::Kind::Number));
    }
    return rows;
}

/// The first columns of all that the rows have, and the width of each.
std::map<unsigned long, std::size_t> findWidths(const std::vector<Row>& rows)
{
    std::map<unsigned long, std::size_t> widths;
    for (const Row& row : rows)
        for (const auto& cell : row)
            widths[cell.first] = std::max(widths[cell.first], cell.second.width);
    while (widths.size() > ColumnsMax)
        widths.erase(std::prev(widths.end()));
    return widths;
}

std::string layOut(const Row& row, const std::map<unsigned long, std::size_t>& widths)
{
    std::string line;
    for (const auto& column : widths) {
        const auto cell = row.find(column.first);
        const std::size_t width = cell == row.end() ? 0 : cell->second.width;
        const std::string blanks(column.second - width, ' ');
        line += "  ";
        if (cell == row.end())
            line += blanks;
        else
            line += cell->second.isNumber ? blanks + cell->second.text : cell->second.text + blanks;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

} // namespace

void writeBeginning(const DOM::Document& document, std::ostream& out)
{
    Filters::CellDisplays displays(document);
    for (const DOM::Block& block : document.getBlocks()) {
        const auto* const table = dynamic_cast<const DOM::Table*>(&block);
        if (!table || !table->isVisible())
            continue;
        const std::vector<Row> rows = findRows(*table, document.getStyles(), displays);
        if (rows.empty())
            continue;
        out << fmt::format("{} begins:\n", Filters::makePrintable(table->getName()));
        const auto widths = findWidths(rows);
        for (const Row& row : rows)
            out << layOut(row, widths) << '\n';
        return;
    }
}

} // namespace QV::Tool
