#include <Beginning.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include <DOM/Public/Adapter/ResolvedCellStyle.h>
#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/Block.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellFormat.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/CellDisplays.h>
#include <Filters/Package/PackageError.h>
#include <OfficeUtils/Public/CellFormatter.h>
#include <ShownText.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Tool {
namespace {

constexpr std::size_t RowsMax = 4;
constexpr std::size_t ColumnsMax = 6;
constexpr std::size_t CharactersMax = 20;
constexpr std::size_t CellsMax = 2000;     // that are looked at, for most may show nothing
constexpr std::size_t BytesMax = 16 << 20; // of their texts

struct Shown
{
    ShownText text;
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

/// Reads the first rows of a sheet that show something, and the first columns of these.
class BeginningReader
{
public:
    BeginningReader(const DOM::Table& table, const DOM::Styles& styles, Filters::CellDisplays& displays)
        : _table(table)
        , _styles(styles)
        , _displays(displays)
    {
    }

    std::vector<Row> read()
    {
        const auto cells = Adapter::getCellIterators(_table);
        std::size_t count = 0;
        for (auto it = cells.begin(); it != cells.end() && count < CellsMax && _bytes < BytesMax; ++it) {
            if (_rows.size() == RowsMax && it.getRowIndex() != _index)
                break;
            if (it->getKind() == DOM::Cell::Kind::Empty || isHidden(it))
                continue;
            ++count;
            add(it);
        }
        return std::move(_rows);
    }

private:
    using Iterator = Adapter::ConstTableCellIterator;

    bool isHidden(const Iterator& it) const
    {
        return _table.getRowProps(it.getRowIndex()).isHidden() ||
               _table.getColumnProps(it.getColIndex()).isHidden();
    }

    void add(const Iterator& it)
    {
        const DOM::CellFormat* const format =
            _displays.findFormat(Adapter::getResolvedCellStyle(it.getCellInfo(), _styles));
        const std::string text = showCell(*it, format, _displays);
        _bytes += text.size() + (it->getText() ? it->getText()->getPlainText().size() : 0);
        const std::string line = text.substr(0, text.find('\n'));
        const unsigned long column = it.getColIndex().get();
        if (line.empty() || !hasRoom(column))
            return;
        if (_rows.empty() || it.getRowIndex() != _index)
            _rows.emplace_back();
        _index = it.getRowIndex();
        _columns.insert(column);
        _rows.back().emplace(
            column, Shown{makeShownText(line, CharactersMax), it->getKind() == DOM::Cell::Kind::Number});
    }

    /// Whether a column is, or can become, one of those that are shown.
    bool hasRoom(unsigned long column) const
    {
        return _columns.size() < ColumnsMax || _columns.count(column) != 0;
    }

    const DOM::Table& _table;
    const DOM::Styles& _styles;
    Filters::CellDisplays& _displays;
    std::vector<Row> _rows;
    std::set<unsigned long> _columns; // the first that any row has
    RowIndex _index = RowIndex(0);    // of the last row
    std::size_t _bytes = 0;
};

/// The width of each column.
std::map<unsigned long, std::size_t> findWidths(const std::vector<Row>& rows)
{
    std::map<unsigned long, std::size_t> widths;
    for (const Row& row : rows)
        for (const auto& cell : row)
            widths[cell.first] = std::max(widths[cell.first], cell.second.text.width);
    return widths;
}

std::string layOut(const Row& row, const std::map<unsigned long, std::size_t>& widths)
{
    std::string line;
    for (const auto& column : widths) {
        const auto cell = row.find(column.first);
        const std::size_t width = cell == row.end() ? 0 : cell->second.text.width;
        const std::string blanks(column.second - width, ' ');
        line += "  ";
        if (cell == row.end())
            line += blanks;
        else
            line += cell->second.isNumber ? blanks + cell->second.text.text : cell->second.text.text + blanks;
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
        const std::vector<Row> rows = BeginningReader(*table, document.getStyles(), displays).read();
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
