#include <Formulas/Parentheses.h>

#include <cmath>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/RangeEnds.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/Visitor.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

/// How strongly the operator of a node binds.
struct NodeBinding
{
    Binding operator()(const UnaryOp<Percent>&) const { return Binding::Percent; }
    template <UnaryOpType Type>
    Binding operator()(const UnaryOp<Type>&) const
    {
        return Binding::Sign;
    }
    template <BinaryOpType Type>
    Binding operator()(const BinaryOp<Type>&) const
    {
        return getBinding(Type);
    }
    Binding operator()(const Number& number) const
    {
        return std::signbit(number.getValue()) ? Binding::Sign : Binding::Operand;
    }
    Binding operator()(const Expr&) const { return Binding::Operand; }
};

/// What ":" and " " take.
struct ReferenceKinds
{
    bool operator()(const CellAddress&) const { return true; }
    bool operator()(const CellRange&) const { return true; }
    bool operator()(const Label&) const { return true; }
    bool operator()(const Error&) const { return true; }
    bool operator()(const FunctionCall&) const { return true; }
    bool operator()(const BinaryOp<RangeOp>&) const { return true; }
    bool operator()(const BinaryOp<Intersection>&) const { return true; }
    bool operator()(const Expr&) const { return false; }
};

} // namespace

Binding getBinding(BinaryOpType type)
{
    switch (type) {
    case Add:
    case Subtract:
        return Binding::Addition;
    case Multiply:
    case Divide:
        return Binding::Multiplication;
    case Power:
        return Binding::Power;
    case Concatenate:
        return Binding::Concatenation;
    case RangeOp:
        return Binding::Range;
    case Intersection:
        return Binding::Intersection;
    default:
        return Binding::Comparison;
    }
}

bool needsParentheses(const Expr& expr, const Place& place)
{
    if (isExactly<ArgumentsList>(expr))
        return true;
    if (place.binding == Binding::Nothing)
        return false;
    const Binding own = applyVisitor(NodeBinding(), expr);
    if (own < place.binding || (own == place.binding && place.isRightOperand))
        return true;
    if (place.binding < Binding::Intersection)
        return false;
    return !applyVisitor(ReferenceKinds(), expr) || (place.rangeEnd && wouldJoin(expr, *place.rangeEnd));
}

} // namespace QV::Formulas
