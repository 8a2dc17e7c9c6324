#include <Formulas/Public/References.h>

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

/// Appends the text of each node that it visits.
class ReferencePrinter
{
public:
    explicit ReferencePrinter(const TableContext& context)
        : _context(context)
    {
    }

    bool operator()(const CellAddress& cell)
    {
        appendPlace(cell, cell.getTableAddress(), std::string());
        _text += makeText(cell.getColumn()) + makeText(cell.getRow());
        return true;
    }
    bool operator()(const CellRange& range)
    {
        appendPlace(range, range.getFirstTableAddress(), range.getSecondTableAddress());
        const ColumnAxis& columns = range.getColumns();
        const RowAxis& rows = range.getRows();
        const std::string first = makeEnd(columns, columns.getFirst(), rows, rows.getFirst());
        const std::string last = makeEnd(columns, columns.getLast(), rows, rows.getLast());
        const bool isCell = columns.getFirst() == columns.getLast() && rows.getFirst() == rows.getLast();
        const bool hasSecondTable = range.getSecondTableAddress() != TableAddress(std::string());
        _text += isCell && hasSecondTable ? first : first + ':' + last;
        return true;
    }
    bool operator()(const Label& label)
    {
        appendPlace(label, label.getTableAddress(), std::string());
        _text += label.getName();
        return true;
    }
    bool operator()(const Error& error)
    {
        _text += error.getText();
        return true;
    }
    bool operator()(const ArgumentsList& list)
    {
        _text += '(';
        for (const auto& item : list.getChildren()) {
            if (item != list.getChildren().front())
                _text += ',';
            const Expr& node = *item;
            if (!node.getChildren().empty() || !applyVisitor(*this, node))
                return false; // lists in lists are none that the parser gives
        }
        _text += ')';
        return true;
    }
    bool operator()(const Expr&) { return false; }

    const std::string& getText() const { return _text; }

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
        return uuid ? _context.findName(*uuid) : boost::get<std::string>(&table);
    }

    void appendPlace(
        const BaseReferenceExpr& reference, const TableAddress& first, const TableAddress& second)
    {
        const std::string* const firstName = findName(first);
        const std::string* const secondName = findName(second);
        if (!firstName || !secondName) {
            _text += "#REF!";
            return;
        }
        const std::string& document = reference.getDocURL();
        std::string place = document.empty() ? std::string() : '[' + document + ']';
        place += *firstName;
        if (!secondName->empty())
            place += ':' + *secondName;
        const bool isPlain =
            isPlainDocument(document) && isPlainOrNone(*firstName) && isPlainOrNone(*secondName);
        if (!place.empty())
            _text += (isPlain ? place : quote(place)) + '!';
    }

    static bool isPlainDocument(const std::string& url)
    {
        return url.empty() || isPlainTableName('_' + url); // digits may come first here
    }

    static bool isPlainOrNone(const std::string& name) { return name.empty() || isPlainTableName(name); }

    static std::string quote(const std::string& place)
    {
        std::string quoted = "'";
        for (const char c : place)
            quoted.append(c == '\'' ? 2 : 1, c);
        return quoted + '\'';
    }

    const TableContext& _context;
    std::string _text;
};

} // namespace

std::string toText(const DOM::Formula& formula, const TableContext& context)
{
    ReferencePrinter printer(context);
    return applyVisitor(printer, formula.getSyntaxTree()) ? printer.getText() : std::string();
}

} // namespace QV::Formulas
