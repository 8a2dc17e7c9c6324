#include <Formulas/Public/ShiftReferences.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/ReferenceParser.h>
#include <Utils/Public/Visitor.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

template <RowOrColumnTag Axis>
boost::optional<AxisIndex<Axis>> shift(const AxisIndex<Axis>& index, long distance)
{
    if (index.isAbsolute() || distance == 0)
        return index;
    const unsigned long value = index.getIndex().get();
    const unsigned long max = CellRangeAxis<Axis>::Max.get();
    const unsigned long size =
        distance < 0 ? 0 - static_cast<unsigned long>(distance) : static_cast<unsigned long>(distance);
    if (distance < 0 ? value < size : value > max || size > max - value)
        return boost::none;
    return AxisIndex<Axis>(typename AxisIndex<Axis>::Index(distance < 0 ? value - size : value + size));
}

template <RowOrColumnTag Axis>
boost::optional<CellRangeAxis<Axis>> shift(const CellRangeAxis<Axis>& axis, long distance)
{
    if (axis.isWhole())
        return axis;
    const auto first = shift(axis.getFirst(), distance);
    const auto last = shift(axis.getLast(), distance);
    if (!first || !last)
        return boost::none;
    return makeOrderedAxis(*first, *last);
}

/// What stands in the place of a node; null where the node stays.
struct Shifter
{
    std::unique_ptr<Expr> operator()(const CellAddress& cell) const
    {
        const auto column = shift(cell.getColumn(), columns);
        const auto row = shift(cell.getRow(), rows);
        if (!column || !row)
            return std::make_unique<Error>("#REF!");
        return std::make_unique<CellAddress>(
            DocumentAddress(cell.getDocURL()), cell.getTableAddress(), *column, *row);
    }
    std::unique_ptr<Expr> operator()(const CellRange& range) const
    {
        const auto columnAxis = shift(range.getColumns(), columns);
        const auto rowAxis = shift(range.getRows(), rows);
        if (!columnAxis || !rowAxis)
            return std::make_unique<Error>("#REF!");
        return std::make_unique<CellRange>(DocumentAddress(range.getDocURL()), range.getFirstTableAddress(),
            range.getSecondTableAddress(), *columnAxis, *rowAxis);
    }
    std::unique_ptr<Expr> operator()(const Expr&) const { return nullptr; }

    long rows;
    long columns;
};

} // namespace

DOM::Formula makeShifted(const DOM::Formula& formula, long rows, long columns)
{
    const Shifter shifter{rows, columns};
    if (auto root = applyVisitor(shifter, formula.getSyntaxTree())) {
        DOM::Formula shifted(std::move(root));
        if (const auto range = formula.getArrayRange())
            shifted.setArrayRange(*range);
        return shifted;
    }
    DOM::Formula shifted = formula;
    std::vector<CompoundExpr*> parents; // which stay, while leaves go
    for (Expr* const node : toExprStack(shifted.getSyntaxTree()))
        if (!node->getChildren().empty())
            parents.push_back(static_cast<CompoundExpr*>(node));
    for (CompoundExpr* const parent : parents)
        for (std::size_t i = 0; i < parent->getChildren().size(); ++i)
            if (auto child = applyVisitor(shifter, std::as_const(*parent->getChildren()[i])))
                parent->setChild(i, std::move(child));
    return shifted;
}

} // namespace QV::Formulas
