#include <Formulas/LeafText.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>

#include <boost/variant/get.hpp>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/Public/TableContext.h>
#include <Formulas/Public/Utils.h>
#include <Formulas/ReferenceScanner.h>
#include <Utils/Public/Visitor.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

std::string makeText(const ColumnAxisIndex& column)
{
    return (column.isAbsolute() ? "$" : "") + Utils::convertIndexToAlphaIndex(column.getIndex().get());
}

std::string makeText(const RowAxisIndex& row)
{
    return (row.isAbsolute() ? "$" : "") + std::to_string(row.getIndex().get() + 1);
}

std::string quote(const std::string& text, char mark)
{
    std::string quoted(1, mark);
    for (const char c : text)
        quoted.append(c == mark ? 2 : 1, c);
    return quoted + mark;
}

/// The shortest text that reads back to the same number: without an exponent up to 21 digits, and for small
/// numbers down to 0.00001.
std::string makeText(double number)
{
    constexpr int FixedExponentMin = -5;
    constexpr int FixedExponentMax = 20;
    if (!std::isfinite(number))
        return "#NUM!";
    char buffer[32];
    const auto end =
        std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::scientific);
    std::string text(std::begin(buffer), end.ptr); // "-1.5e+07"
    const std::size_t mark = text.find('e');
    int exponent = 0;
    std::from_chars(text.data() + mark + 2, text.data() + text.size(), exponent);
    exponent = text[mark + 1] == '-' ? -exponent : exponent;
    if (exponent < FixedExponentMin || exponent > FixedExponentMax) {
        text[mark] = 'E';
        return text;
    }
    const std::string sign = text.substr(0, std::signbit(number) ? 1 : 0);
    std::string digits = text.substr(sign.size(), mark - sign.size());
    digits.erase(std::remove(digits.begin(), digits.end(), '.'), digits.end());
    if (exponent < 0)
        return sign + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    const std::size_t wholeSize = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= wholeSize)
        return sign + digits.append(wholeSize - digits.size(), '0');
    return sign + digits.insert(wholeSize, 1, '.');
}

class LeafPrinter
{
public:
    explicit LeafPrinter(const TextNames& names)
        : _names(names)
    {
    }

    std::string operator()(const String& string) const { return quote(string.getValue(), '"'); }
    std::string operator()(const Number& number) const { return makeText(number.getValue()); }
    std::string operator()(const Bool& boolean) const { return boolean.getValue() ? "TRUE" : "FALSE"; }
    std::string operator()(const Error& error) const { return error.getText(); }
    std::string operator()(const Label& label) const
    {
        return makePlace(label, label.getTableAddress(), std::string()) + label.getName();
    }
    std::string operator()(const CellAddress& cell) const
    {
        return makePlace(cell, cell.getTableAddress(), std::string()) + makeText(cell.getColumn()) +
               makeText(cell.getRow());
    }
    std::string operator()(const CellRange& range) const
    {
        const ColumnAxis& columns = range.getColumns();
        const RowAxis& rows = range.getRows();
        const std::string first = makeEnd(columns, columns.getFirst(), rows, rows.getFirst());
        const std::string last = makeEnd(columns, columns.getLast(), rows, rows.getLast());
        const bool isCell = !columns.isWhole() && !rows.isWhole() && first == last;
        const bool hasSecondTable = range.getSecondTableAddress() != TableAddress(std::string());
        return makePlace(range, range.getFirstTableAddress(), range.getSecondTableAddress()) +
               (isCell && hasSecondTable ? first : first + ':' + last);
    }
    std::string operator()(const Expr&) const { return {}; }

private:
    static std::string makeEnd(const ColumnAxis& columns, const ColumnAxisIndex& column, const RowAxis& rows,
        const RowAxisIndex& row)
    {
        return (columns.isWhole() && !rows.isWhole() ? std::string() : makeText(column)) +
               (rows.isWhole() ? std::string() : makeText(row));
    }

    /// Null where the table is not known any more.
    const std::string* findName(const TableAddress& table) const
    {
        const UUID* const uuid = boost::get<UUID>(&table);
        if (!uuid)
            return boost::get<std::string>(&table);
        return _names.tables ? _names.tables->findName(*uuid) : nullptr;
    }

    /// The document's number where it has one.
    std::string findDocument(const std::string& url) const
    {
        if (!_names.documents || url.empty())
            return url;
        const std::size_t number = _names.documents->findNumber(url);
        return number == 0 ? url : std::to_string(number);
    }

    std::string makePlace(
        const BaseReferenceExpr& reference, const TableAddress& first, const TableAddress& second) const
    {
        const std::string* const firstName = findName(first);
        const std::string* const secondName = findName(second);
        if (!firstName || !secondName)
            return "#REF!";
        const std::string document = findDocument(reference.getDocURL());
        std::string place = putInBrackets(document) + *firstName;
        if (!secondName->empty())
            place += ':' + *secondName;
        if (place.empty())
            return {};
        const bool isLikeColumns = !secondName->empty() && readColumn(*firstName); // behind a ":"
        const bool isPlain = !isLikeColumns && isPlainDocument(document) && isPlainOrNone(*firstName) &&
                             isPlainOrNone(*secondName);
        return (isPlain ? place : quote(place, '\'')) + '!';
    }

    /// "[b.xlsx]", or "folder/[b.xlsx]".
    static std::string putInBrackets(const std::string& document)
    {
        if (document.empty())
            return {};
        const std::size_t separator = document.find_last_of("/\\");
        const bool hasPath = separator != std::string::npos && separator + 1 < document.size();
        const std::size_t begin = hasPath ? separator + 1 : 0;
        return document.substr(0, begin) + '[' + document.substr(begin) + ']';
    }

    static bool isPlainDocument(const std::string& url)
    {
        return url.empty() || isPlainTableName('_' + url); // digits may come first here
    }

    static bool isPlainOrNone(const std::string& name) { return name.empty() || isPlainTableName(name); }

    const TextNames _names;
};

} // namespace

std::string makeLeafText(const Expr& leaf, const TextNames& names)
{
    return applyVisitor(LeafPrinter(names), leaf);
}

} // namespace QV::Formulas
