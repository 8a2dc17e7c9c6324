#include <Formulas/OperandStack.h>

#include <utility>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/RangeEnds.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

using ExprPtr = OperandStack::ExprPtr;

// What files have in the place of "@" and "#".
constexpr const char* SingleFunction = "_xlfn.SINGLE";
constexpr const char* SpillFunction = "_xlfn.ANCHORARRAY";

template <BinaryOpType Type>
ExprPtr makeBinaryOf(ExprPtr left, ExprPtr right)
{
    return std::make_unique<BinaryOp<Type>>(std::move(left), std::move(right));
}

using BinaryMaker = ExprPtr (*)(ExprPtr, ExprPtr);

constexpr BinaryMaker BinaryMakers[] = { // in the order of the enumerators
    makeBinaryOf<Add>, makeBinaryOf<Subtract>, makeBinaryOf<Multiply>, makeBinaryOf<Divide>,
    makeBinaryOf<Power>, makeBinaryOf<Concatenate>, makeBinaryOf<Equal>, makeBinaryOf<NotEqual>,
    makeBinaryOf<Less>, makeBinaryOf<LessOrEqual>, makeBinaryOf<Greater>, makeBinaryOf<GreaterOrEqual>,
    makeBinaryOf<RangeOp>, makeBinaryOf<Intersection>};

} // namespace

OperandStack::OperandStack()
{
    openParentheses();
}

void OperandStack::push(ExprPtr operand)
{
    _operands.push_back({std::move(operand)});
}

void OperandStack::pushEmpty()
{
    push(std::make_unique<Empty>());
}

void OperandStack::pushPrefix(char sign)
{
    Operator prefix{Kind::Prefix, sign == '@' ? Binding::Single : Binding::Sign};
    prefix.sign = sign;
    _operators.push_back(std::move(prefix));
}

void OperandStack::pushBinary(BinaryOpType type)
{
    reduce(getBinding(type));
    _operators.push_back({Kind::Binary, getBinding(type), type});
}

void OperandStack::wrapInPercent()
{
    reduce(Binding::Percent);
    push(std::make_unique<UnaryOp<Percent>>(settle(pop(), {Binding::Percent})));
}

void OperandStack::wrapInSpill()
{
    wrapInCall(SpillFunction);
}

void OperandStack::wrapInCall(const char* function)
{
    auto call = std::make_unique<FunctionCall>(function);
    call->appendChild(settle(pop(), {}));
    push(std::move(call));
}

void OperandStack::openCall(std::string function)
{
    Operator call{Kind::Call};
    call.function = std::move(function);
    call.firstItem = _operands.size();
    _operators.push_back(std::move(call));
}

void OperandStack::openParentheses()
{
    Operator parentheses{Kind::Parentheses};
    parentheses.firstItem = _operands.size();
    _operators.push_back(std::move(parentheses));
}

void OperandStack::endItem()
{
    reduce(Binding::Comparison);
}

bool OperandStack::close()
{
    reduce(Binding::Comparison);
    if (_operators.size() == 1)
        return false;
    Operator opened = std::move(_operators.back());
    _operators.pop_back();
    if (opened.kind == Kind::Call) {
        auto call = std::make_unique<FunctionCall>(std::move(opened.function));
        const bool hasNone =
            _operands.size() == opened.firstItem + 1 && isExactly<Empty>(_operands.back().expr.get());
        for (std::size_t i = opened.firstItem; i < _operands.size() && !hasNone; ++i)
            call->appendChild(settle(std::move(_operands[i]), {}));
        _operands.resize(opened.firstItem);
        push(std::move(call));
        return true;
    }
    if (_operands.size() > opened.firstItem + 1)
        push(makeList(opened.firstItem));
    ++_operands.back().parentheses;
    return true;
}

ExprPtr OperandStack::finish()
{
    reduce(Binding::Comparison);
    if (_operators.size() != 1 || _isBroken)
        return nullptr;
    return _operands.size() == 1 ? settle(pop(), {}) : makeList(0);
}

/// Takes the items from @p firstItem on away.
ExprPtr OperandStack::makeList(std::size_t firstItem)
{
    auto list = std::make_unique<ArgumentsList>();
    for (std::size_t i = firstItem; i < _operands.size(); ++i)
        list->appendChild(settle(std::move(_operands[i]), {}));
    _operands.resize(firstItem);
    return list;
}

/// Applies the operators that wait and bind no weaker than @p weakest, up to what is open.
void OperandStack::reduce(Binding weakest)
{
    while (_operators.back().binding >= weakest) {
        const Operator next = std::move(_operators.back());
        _operators.pop_back();
        if (next.kind == Kind::Prefix)
            reducePrefix(next.sign);
        else
            reduceBinary(next.type);
    }
}

void OperandStack::reducePrefix(char sign)
{
    if (sign == '@') {
        wrapInCall(SingleFunction);
        return;
    }
    ExprPtr operand = settle(pop(), {Binding::Sign});
    if (sign == '-')
        push(std::make_unique<UnaryOp<UnaryMinus>>(std::move(operand)));
    else
        push(std::make_unique<UnaryOp<UnaryPlus>>(std::move(operand)));
}

void OperandStack::reduceBinary(BinaryOpType type)
{
    Operand right = pop();
    Operand left = pop();
    if (type == RangeOp && left.parentheses + right.parentheses == 0)
        if (ExprPtr joined = joinRangeEnds(*left.expr, *right.expr)) { // which blanks kept apart
            push(std::move(joined));
            return;
        }
    const Binding binding = getBinding(type);
    const bool isOfReferences = binding >= Binding::Intersection;
    const auto isRefused = [&](const Operand& operand, const Place& place) {
        return isOfReferences && operand.parentheses == 0 && needsParentheses(*operand.expr, place);
    };
    _isBroken = _isBroken || isRefused(left, {binding}) || isRefused(right, {binding, true});
    ExprPtr second = settle(std::move(right), {binding, true});
    ExprPtr first = settle(std::move(left), {binding, false, type == RangeOp ? second.get() : nullptr});
    push(BinaryMakers[type](std::move(first), std::move(second)));
}

OperandStack::Operand OperandStack::pop()
{
    Operand operand = std::move(_operands.back());
    _operands.pop_back();
    return operand;
}

/// The operand with those of its parentheses that it does not need at its place.
ExprPtr OperandStack::settle(Operand operand, const Place& place)
{
    if (operand.parentheses > 0 && needsParentheses(*operand.expr, place))
        --operand.parentheses;
    for (; operand.parentheses > 0; --operand.parentheses) {
        auto list = std::make_unique<ArgumentsList>();
        list->appendChild(std::move(operand.expr));
        operand.expr = std::move(list);
    }
    return std::move(operand.expr);
}

} // namespace QV::Formulas
