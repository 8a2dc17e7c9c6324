#include <Formulas/Public/ValidRange.h>

#include <vector>

#include <boost/variant/get.hpp>

#include <DOM/Public/Formula.h>
#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/Public/TableContext.h>
#include <Utils/Public/Visitor.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

bool isNone(const TableAddress& table)
{
    const std::string* const name = boost::get<std::string>(&table);
    return name && name->empty();
}

bool isKnown(const TableAddress& table, const TableContext& context)
{
    if (const UUID* const uuid = boost::get<UUID>(&table))
        return context.findName(*uuid) != nullptr;
    return context.findTable(boost::get<std::string>(table)) != nullptr;
}

template <RowOrColumnTag Axis>
bool isWithin(const CellRangeAxis<Axis>& axis, typename CellRangeAxis<Axis>::Index max)
{
    return axis.getFirst().getIndex() <= axis.getLast().getIndex() && axis.getLast().getIndex() <= max;
}

/// Judges one node; the items of a list are judged by themselves.
struct ReferenceJudge
{
    bool operator()(const CellAddress& cell) const
    {
        return cell.getDocURL().empty() && isKnown(cell.getTableAddress(), context) &&
               cell.getColumn().getIndex() <= context.getMaxColumn() &&
               cell.getRow().getIndex() <= context.getMaxRow();
    }
    bool operator()(const CellRange& range) const
    {
        const TableAddress& second = range.getSecondTableAddress();
        return range.getDocURL().empty() && isKnown(range.getFirstTableAddress(), context) &&
               (isNone(second) || isKnown(second, context)) &&
               isWithin(range.getColumns(), context.getMaxColumn()) &&
               isWithin(range.getRows(), context.getMaxRow());
    }
    bool operator()(const ArgumentsList& list) const { return !list.getChildren().empty(); }
    bool operator()(const Expr&) const { return false; }

    const TableContext& context;
};

} // namespace

bool isValidRange(const DOM::Formula& formula, const TableContext& context)
{
    const ReferenceJudge judge{context};
    std::vector<const Expr*> pending = {&formula.getSyntaxTree()};
    while (!pending.empty()) {
        const Expr& node = *pending.back();
        pending.pop_back();
        if (!applyVisitor(judge, node))
            return false;
        for (const auto& child : node.getChildren())
            pending.push_back(child.get());
    }
    return true;
}

} // namespace QV::Formulas
