#include <Formulas/ReferenceParser.h>

#include <utility>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/ReferenceScanner.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

using ExprPtr = std::unique_ptr<Expr>;

constexpr const char* ReferenceError = "#REF!";

/// The second end of a range, which is of the same form as the first one.
boost::optional<ScannedEnd> scanSecondEnd(ReferenceScanner& scanner, const ScannedEnd& first)
{
    const ReferenceScanner start = scanner;
    const auto second = scanner.skip(':') ? scanner.scanEnd() : boost::none;
    if (second && first.column.has_value() == second->column.has_value() &&
        first.row.has_value() == second->row.has_value())
        return second;
    scanner = start;
    return boost::none;
}

ExprPtr parseCells(ReferenceScanner& scanner, const ScannedPlace& place)
{
    const ReferenceScanner start = scanner;
    const auto first = scanner.scanEnd();
    const auto second = first ? scanSecondEnd(scanner, *first) : boost::none;
    if (!second && (!first || !first->column || !first->row)) {
        scanner = start;
        return nullptr;
    }
    DocumentAddress document(place.document);
    if (!second && place.secondTable.empty())
        return std::make_unique<CellAddress>(
            std::move(document), place.firstTable, *first->column, *first->row);
    const ScannedEnd& last = second ? *second : *first;
    return std::make_unique<CellRange>(std::move(document), place.firstTable, place.secondTable,
        makeAxis(first->column, last.column), makeAxis(first->row, last.row));
}

ExprPtr parseName(ReferenceScanner& scanner, const ScannedPlace& place)
{
    auto name = place.secondTable.empty() ? scanner.scanName() : boost::none;
    if (!name)
        return nullptr;
    return std::make_unique<Label>(DocumentAddress(place.document), place.firstTable, std::move(*name));
}

} // namespace

ExprPtr takeReference(ReferenceScanner& scanner)
{
    if (scanner.skipWordOfAnyCase(ReferenceError)) {
        if (!scanner.skipWordOfAnyCase(ReferenceError))
            parseCells(scanner, {});
        return std::make_unique<Error>(ReferenceError);
    }
    const auto scanned = scanner.scanPlace();
    const ScannedPlace place = scanned.value_or(ScannedPlace());
    if (scanned && scanner.skipWordOfAnyCase(ReferenceError))
        return std::make_unique<Error>(ReferenceError);
    if (ExprPtr cells = parseCells(scanner, place))
        return cells;
    return parseName(scanner, place);
}

} // namespace QV::Formulas
