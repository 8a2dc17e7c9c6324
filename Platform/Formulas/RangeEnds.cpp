#include <Formulas/RangeEnds.h>

#include <cmath>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/ReferenceParser.h>
#include <Formulas/ReferenceScanner.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/Visitor.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

using Ends = boost::optional<ScannedEnd>;

/// Where a reference lies; empty for the formula's own table.
struct TablePlace
{
    std::string document;
    TableAddress firstTable;
    TableAddress secondTable;

    bool isOwn() const { return document.empty() && !hasTable(firstTable); }
    bool isOneTable() const { return document.empty() && hasTable(firstTable) && !hasTable(secondTable); }

    static bool hasTable(const TableAddress& table) { return table != TableAddress(std::string()); }
};

struct PlaceFinder
{
    TablePlace operator()(const CellAddress& cell) const
    {
        return {cell.getDocURL(), cell.getTableAddress(), std::string()};
    }
    TablePlace operator()(const CellRange& range) const
    {
        return {range.getDocURL(), range.getFirstTableAddress(), range.getSecondTableAddress()};
    }
    TablePlace operator()(const Label& label) const
    {
        return {label.getDocURL(), label.getTableAddress(), std::string()};
    }
    TablePlace operator()(const Expr&) const { return {}; }
};

/// What ":" and a second end could follow.
struct LastEndFinder
{
    Ends operator()(const CellAddress& cell) const { return ScannedEnd{cell.getColumn(), cell.getRow()}; }
    Ends operator()(const CellRange& range) const
    {
        const ColumnAxis& columns = range.getColumns();
        const RowAxis& rows = range.getRows();
        const bool isCell = !columns.isWhole() && !rows.isWhole() &&
                            columns.getFirst() == columns.getLast() && rows.getFirst() == rows.getLast();
        if (!isCell || !TablePlace::hasTable(range.getSecondTableAddress()))
            return boost::none; // has its second end
        return ScannedEnd{columns.getFirst(), rows.getFirst()};
    }
    Ends operator()(const Label& label) const
    {
        const auto column = readColumn(label.getName());
        if (!column)
            return boost::none;
        return ScannedEnd{ColumnAxisIndex(*column), boost::none};
    }
    Ends operator()(const Number& number) const
    {
        const double value = number.getValue();
        const auto last = static_cast<double>(MaxRowIndex.get()) + 1;
        if (!(value >= 1 && value <= last) || value != std::floor(value))
            return boost::none;
        return ScannedEnd{boost::none, RowAxisIndex(RowIndex(static_cast<unsigned long>(value) - 1))};
    }
    Ends operator()(const Expr&) const { return boost::none; }
};

/// What the text of a node begins with.
struct FirstEndFinder
{
    Ends operator()(const CellRange& range) const
    {
        ScannedEnd end;
        if (!range.getColumns().isWhole() || range.getRows().isWhole())
            end.column = range.getColumns().getFirst();
        if (!range.getRows().isWhole())
            end.row = range.getRows().getFirst();
        return end;
    }
    template <typename Kind>
    Ends operator()(const Kind& node) const
    {
        return LastEndFinder()(node);
    }
};

bool areOfOneForm(const Ends& a, const Ends& b)
{
    return a && b && a->column.has_value() == b->column.has_value() &&
           a->row.has_value() == b->row.has_value();
}

bool startsWithTable(const Expr& expr)
{
    const auto* const call = exactCast<FunctionCall>(&expr);
    return call ? ReferenceScanner(call->getName()).isTableNext()
                : applyVisitor(PlaceFinder(), expr).isOneTable();
}

/// Whether the name could be that of a table.
bool isTableName(const Expr& expr)
{
    const auto* const label = exactCast<Label>(&expr);
    return label && PlaceFinder()(*label).isOwn() && ReferenceScanner(label->getName() + '!').isTableNext();
}

} // namespace

std::unique_ptr<Expr> joinRangeEnds(const Expr& first, const Expr& last)
{
    const Ends a = applyVisitor(LastEndFinder(), first);
    const Ends b = applyVisitor(LastEndFinder(), last);
    if (!areOfOneForm(a, b) || !applyVisitor(PlaceFinder(), last).isOwn())
        return nullptr;
    const TablePlace place = applyVisitor(PlaceFinder(), first);
    return std::make_unique<CellRange>(DocumentAddress(place.document), place.firstTable, place.secondTable,
        makeAxis(a->column, b->column), makeAxis(a->row, b->row));
}

bool wouldJoin(const Expr& first, const Expr& last)
{
    const auto* const range = exactCast<BinaryOp<RangeOp>>(&first);
    const Expr& left = range ? *range->getChildren().back() : first;
    if (isTableName(left) && startsWithTable(last))
        return true;
    return applyVisitor(PlaceFinder(), last).isOwn() &&
           areOfOneForm(applyVisitor(LastEndFinder(), left), applyVisitor(FirstEndFinder(), last));
}

} // namespace QV::Formulas
