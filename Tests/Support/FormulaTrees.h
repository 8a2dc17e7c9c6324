#pragma once

// Syntax trees of formulas as text, in a notation that differs from that of formulas:
// kind{document|tables|axes} for references, and operators before their operands.

#include <iterator>
#include <string>

#include <boost/variant/get.hpp>

#include <DOM/Public/Formula.h>
#include <DOM/Public/FormulaSyntaxTree.h>
#include <Utils/Public/Visitor.h>

namespace QV::Tests {

struct TreeDescriber
{
    static std::string describe(const DOM::FormulaSyntaxTree::TableAddress& table)
    {
        const UUID* const uuid = boost::get<UUID>(&table);
        return uuid ? uuid->toString() : boost::get<std::string>(table);
    }
    template <RowOrColumnTag Axis>
    static std::string describe(const DOM::FormulaSyntaxTree::AxisIndex<Axis>& index)
    {
        return (index.isAbsolute() ? "=" : "") + std::to_string(index.getIndex().get());
    }
    template <RowOrColumnTag Axis>
    static std::string describe(const DOM::FormulaSyntaxTree::CellRangeAxis<Axis>& axis)
    {
        return axis.isWhole() ? "all" : describe(axis.getFirst()) + "-" + describe(axis.getLast());
    }
    std::string describe(const DOM::FormulaSyntaxTree::Expr& node) const { return applyVisitor(*this, node); }
    std::string describeChildren(const DOM::FormulaSyntaxTree::Expr& node) const
    {
        std::string text;
        for (const auto& child : node.getChildren())
            text += describe(static_cast<const DOM::FormulaSyntaxTree::Expr&>(*child));
        return "{" + text + "}";
    }

    std::string operator()(const DOM::FormulaSyntaxTree::CellAddress& cell) const
    {
        return "cell{" + cell.getDocURL() + "|" + describe(cell.getTableAddress()) + "|c" +
               describe(cell.getColumn()) + " r" + describe(cell.getRow()) + "}";
    }
    std::string operator()(const DOM::FormulaSyntaxTree::CellRange& range) const
    {
        return "range{" + range.getDocURL() + "|" + describe(range.getFirstTableAddress()) + "|" +
               describe(range.getSecondTableAddress()) + "|c" + describe(range.getColumns()) + " r" +
               describe(range.getRows()) + "}";
    }
    std::string operator()(const DOM::FormulaSyntaxTree::Label& label) const
    {
        return "label{" + label.getDocURL() + "|" + describe(label.getTableAddress()) + "|" +
               label.getName() + "}";
    }
    std::string operator()(const DOM::FormulaSyntaxTree::Error& error) const
    {
        return "error{" + error.getText() + "}";
    }
    std::string operator()(const DOM::FormulaSyntaxTree::String& string) const
    {
        return "string{" + string.getValue() + "}";
    }
    std::string operator()(const DOM::FormulaSyntaxTree::Number& number) const
    {
        return "number{" + std::to_string(number.getValue()) + "}";
    }
    std::string operator()(const DOM::FormulaSyntaxTree::Bool& boolean) const
    {
        return boolean.getValue() ? "true" : "false";
    }
    std::string operator()(const DOM::FormulaSyntaxTree::Empty&) const { return "empty"; }
    template <DOM::FormulaSyntaxTree::UnaryOpType Type>
    std::string operator()(const DOM::FormulaSyntaxTree::UnaryOp<Type>& node) const
    {
        const char* const names[] = {"plus", "minus", "percent"};
        return names[Type] + describeChildren(node);
    }
    template <DOM::FormulaSyntaxTree::BinaryOpType Type>
    std::string operator()(const DOM::FormulaSyntaxTree::BinaryOp<Type>& node) const
    {
        const char* const names[] = {"add", "subtract", "multiply", "divide", "power", "join", "equal",
            "unequal", "less", "lessOrEqual", "greater", "greaterOrEqual", "between", "both"};
        return names[Type] + describeChildren(node);
    }
    std::string operator()(const DOM::FormulaSyntaxTree::FunctionCall& call) const
    {
        return call.getName() + "()" + describeChildren(call);
    }
    std::string operator()(const DOM::FormulaSyntaxTree::Array& array) const
    {
        return "array" + std::to_string(array.getColumnsCount()) + describeChildren(array);
    }
    std::string operator()(const DOM::FormulaSyntaxTree::ArgumentsList& list) const
    {
        return "list" + describeChildren(list);
    }
};

inline std::string describeTree(const DOM::Formula& formula)
{
    return TreeDescriber().describe(formula.getSyntaxTree());
}

} // namespace QV::Tests
