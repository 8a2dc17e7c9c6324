#pragma once

#include <DOM/Public/FormulaExpr.h>

namespace QV::Formulas {

/// How strongly operators bind, and what there is in their place.
enum class Binding
{
    Nothing, ///< arguments, items of lists, and the formula itself
    Comparison,
    Concatenation,
    Addition,
    Multiplication,
    Power,
    Percent,
    Sign,
    Single, ///< "@"
    Intersection,
    Range,
    Operand,
};

Binding getBinding(DOM::FormulaSyntaxTree::BinaryOpType type);

/// Where an expression stands: its operator, and the side on which it is.
struct Place
{
    Binding binding = Binding::Nothing;
    bool isRightOperand = false; // which an operator of the same binding leaves to the left one
    const DOM::FormulaSyntaxTree::Expr* rangeEnd = nullptr; // the right operand, for the left one of ":"
};

/// Whether @p expr stands in parentheses at @p place, where without them the text would mean something else.
/// A list of more than one always does.
bool needsParentheses(const DOM::FormulaSyntaxTree::Expr& expr, const Place& place);

} // namespace QV::Formulas
