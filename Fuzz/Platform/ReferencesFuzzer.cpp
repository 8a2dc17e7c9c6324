// parseReference: a formula or nothing, for any text; what toText prints of it reads back to an equal tree,
// and prints the same again. A reference without a table or into another document is never valid, and one
// whose tables are known is valid unless it holds names or errors.

#include <Formulas/Public/References.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include <boost/variant/get.hpp>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/TableContext.h>
#include <Formulas/Public/ValidRange.h>
#include <Utils/Public/Visitor.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using namespace QV::DOM::FormulaSyntaxTree;
using QV::Formulas::TableContext;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Adds the tables that a tree names, and says whether all of it are cells of known tables.
class TableCollector
{
public:
    explicit TableCollector(TableContext& context)
        : _context(context)
    {
    }

    bool operator()(const CellAddress& cell) { return isHere(cell) && add(cell.getTableAddress()); }
    bool operator()(const CellRange& range)
    {
        const bool isFirstKnown = add(range.getFirstTableAddress());
        add(range.getSecondTableAddress());
        return isHere(range) && isFirstKnown;
    }
    bool operator()(const ArgumentsList&) { return true; }
    bool operator()(const Expr&) { return false; }

private:
    static bool isHere(const BaseReferenceExpr& reference) { return reference.getDocURL().empty(); }

    bool add(const TableAddress& table)
    {
        const std::string& name = boost::get<std::string>(table);
        _context.addTable(QV::UUID(1, ++_tablesCount), name);
        return !name.empty();
    }

    TableContext& _context;
    std::uint64_t _tablesCount = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const boost::string_ref text(reinterpret_cast<const char*>(data), size);
    const auto formula = QV::Formulas::parseReference(text);
    if (!formula)
        return 0;
    TableContext context;
    const std::string printed = QV::Formulas::toText(*formula, context);
    const auto again = QV::Formulas::parseReference(printed);
    require(again && *again == *formula);
    require(QV::Formulas::toText(*again, context) == printed);

    require(!QV::Formulas::isValidRange(*formula, context));
    TableCollector collector(context);
    bool isKnown = true;
    for (const Expr* node : toExprStack(formula->getSyntaxTree()))
        isKnown = QV::applyVisitor(collector, *node) && isKnown;
    require(QV::Formulas::isValidRange(*formula, context) == isKnown);
    return 0;
}
