#include <Filters/Spreadsheet/CellReferences.h>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace QV::Filters {
namespace {

constexpr unsigned long MaxNumber = std::numeric_limits<unsigned>::max();

/// Takes @p text from the front as it is read.
class ReferenceReader
{
public:
    explicit ReferenceReader(std::u16string_view text)
        : _text(text)
    {
    }

    bool isAtEnd() const { return _text.empty(); }

    bool skip(char16_t character)
    {
        if (_text.empty() || _text.front() != character)
            return false;
        _text.remove_prefix(1);
        return true;
    }

    boost::optional<CellIndex> readCell()
    {
        skip(u'$');
        const unsigned long column = readNumber<26>([](char16_t c) -> unsigned {
            const unsigned upper = c & 0xFFDFU; // of a letter
            return upper >= u'A' && upper <= u'Z' ? upper - u'A' + 1U : 0U;
        });
        skip(u'$');
        const bool startsWithZero = !_text.empty() && _text.front() == u'0';
        const unsigned long row =
            readNumber<10>([](char16_t c) { return c >= u'0' && c <= u'9' ? c - u'0' + 1U : 0U; }, 1);
        if (column == 0 || row == 0 || startsWithZero)
            return boost::none;
        return CellIndex(RowIndex(row - 1), ColumnIndex(column - 1));
    }

private:
    /// Reads digits of the base; @p digitOf answers 0 for any other character, else the digit plus @p bias.
    /// 0 where there is no digit, or the number is too large.
    template <unsigned long Base, typename DigitOf>
    unsigned long readNumber(DigitOf digitOf, unsigned bias = 0)
    {
        unsigned long number = 0;
        std::size_t size = 0;
        for (; size < _text.size(); ++size) {
            const unsigned digit = digitOf(_text[size]);
            if (digit == 0)
                break;
            if (number <= MaxNumber)
                number = number * Base + digit - bias;
        }
        _text.remove_prefix(size);
        return number <= MaxNumber ? number : 0;
    }

    std::u16string_view _text;
};

} // namespace

boost::optional<CellIndex> parseCellReference(std::u16string_view text)
{
    ReferenceReader reader(text);
    const auto cell = reader.readCell();
    return reader.isAtEnd() ? cell : boost::none;
}

boost::optional<TableRange> parseRangeReference(std::u16string_view text)
{
    ReferenceReader reader(text);
    const auto first = reader.readCell();
    const auto second = reader.skip(u':') ? reader.readCell() : first;
    if (!first || !second || !reader.isAtEnd())
        return boost::none;
    const auto rows = std::minmax({first->getRow().get(), second->getRow().get()});
    const auto columns = std::minmax({first->getColumn().get(), second->getColumn().get()});
    return TableRange(rows.first, columns.first, rows.second + 1, columns.second + 1);
}

boost::optional<TableRange> parseRangeReference(const std::string& text)
{
    std::u16string wide;
    for (const char c : text)
        wide += static_cast<char16_t>(static_cast<unsigned char>(c));
    return parseRangeReference(std::u16string_view(wide));
}

bool isInGrid(const CellIndex& cell)
{
    return cell.getRow() <= MaxRowIndex && cell.getColumn() <= MaxColumnIndex;
}

} // namespace QV::Filters
