#include <Formulas/Public/References.h>

#include <memory>
#include <utility>
#include <vector>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/ReferenceScanner.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

using ExprPtr = std::unique_ptr<Expr>;

constexpr const char* ReferenceError = "#REF!";

template <RowOrColumnTag Axis>
CellRangeAxis<Axis> makeAxis(
    const boost::optional<AxisIndex<Axis>>& first, const boost::optional<AxisIndex<Axis>>& second)
{
    if (!first || !second)
        return CellRangeAxis<Axis>::makeWhole();
    return first->getIndex() <= second->getIndex() ? CellRangeAxis<Axis>(*first, *second)
                                                   : CellRangeAxis<Axis>(*second, *first);
}

/// The production REF of references; a parser of whole formulas has it as one of its operands.
class ReferenceParser
{
public:
    explicit ReferenceParser(ReferenceScanner& scanner)
        : _scanner(scanner)
    {
    }

    /// Null where the text does not go on with a reference.
    ExprPtr parse()
    {
        if (_scanner.skipWord(ReferenceError)) {
            if (!_scanner.skipWord(ReferenceError))
                parseCells({});
            return std::make_unique<Error>(ReferenceError);
        }
        const auto place = _scanner.scanPlace();
        if (place && _scanner.skipWord(ReferenceError))
            return std::make_unique<Error>(ReferenceError);
        if (ExprPtr cells = parseCells(place.value_or(ScannedPlace())))
            return cells;
        return parseName(place.value_or(ScannedPlace()));
    }

private:
    ExprPtr parseCells(const ScannedPlace& place)
    {
        const ReferenceScanner start = _scanner;
        const auto first = _scanner.scanEnd();
        const bool isRange = first && _scanner.skip(':');
        const auto second = isRange ? _scanner.scanEnd() : first;
        const bool isMatched = first && second && first->column.has_value() == second->column.has_value() &&
                               first->row.has_value() == second->row.has_value();
        const bool isCell = isMatched && first->column && first->row;
        if (!isMatched || (!isRange && !isCell)) {
            _scanner = start;
            return nullptr;
        }
        DocumentAddress document(place.document);
        if (!isRange && place.secondTable.empty())
            return std::make_unique<CellAddress>(
                std::move(document), place.firstTable, *first->column, *first->row);
        return std::make_unique<CellRange>(std::move(document), place.firstTable, place.secondTable,
            makeAxis(first->column, second->column), makeAxis(first->row, second->row));
    }

    ExprPtr parseName(const ScannedPlace& place)
    {
        auto name = place.secondTable.empty() ? _scanner.scanName() : boost::none;
        if (!name)
            return nullptr;
        return std::make_unique<Label>(DocumentAddress(place.document), place.firstTable, std::move(*name));
    }

    ReferenceScanner& _scanner;
};

/// Null where there is no list of references.
ExprPtr parseList(ReferenceScanner& scanner)
{
    ReferenceParser parser(scanner);
    std::vector<ExprPtr> items;
    do {
        scanner.skipBlanks();
        items.push_back(parser.parse());
        if (!items.back())
            return nullptr;
        scanner.skipBlanks();
    } while (scanner.skip(','));
    if (items.size() == 1)
        return std::move(items.front());
    auto list = std::make_unique<ArgumentsList>();
    for (ExprPtr& item : items)
        list->appendChild(std::move(item));
    return list;
}

} // namespace

boost::optional<DOM::Formula> parseReference(boost::string_ref text)
{
    ReferenceScanner scanner(text);
    scanner.skipBlanks();
    const bool isEnclosed = scanner.skip('(');
    ExprPtr root = parseList(scanner);
    if (!root || (isEnclosed && !scanner.skip(')')))
        return boost::none;
    scanner.skipBlanks();
    if (!scanner.isAtEnd())
        return boost::none;
    return DOM::Formula(std::move(root));
}

} // namespace QV::Formulas
