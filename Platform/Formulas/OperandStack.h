#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/FormulaExpr.h>
#include <Formulas/Parentheses.h>

namespace QV::Formulas {

/// Builds a tree out of operands and operators in the order of the text: an operator waits here until a
/// weaker one follows. All in constant stack.
class OperandStack
{
public:
    using ExprPtr = std::unique_ptr<DOM::FormulaSyntaxTree::Expr>;

    OperandStack();

    void push(ExprPtr operand);
    /// An argument that is left out.
    void pushEmpty();
    /// @param sign "+", "-" or "@"
    void pushPrefix(char sign);
    void pushBinary(DOM::FormulaSyntaxTree::BinaryOpType type);
    void wrapInPercent();
    void wrapInSpill();

    void openCall(std::string function);
    void openParentheses();
    /// Whether the next argument of a call could be left out.
    bool isArgumentOpen() const { return _operators.back().kind == Kind::Call; }
    /// Ends an argument or an item of a list, which another one follows.
    void endItem();
    /// Closes what was opened last; false where nothing is open.
    bool close();

    /// The whole tree; null where something is open, or where an operator has operands that it does not take.
    ExprPtr finish();

private:
    enum class Kind
    {
        Binary,
        Prefix,
        Call,
        Parentheses,
    };

    struct Operator
    {
        Kind kind;
        Binding binding = Binding::Nothing;
        DOM::FormulaSyntaxTree::BinaryOpType type = DOM::FormulaSyntaxTree::Add;
        char sign = 0;
        std::string function = {};
        std::size_t firstItem = 0; // of what is open: among the operands
    };

    struct Operand
    {
        ExprPtr expr;
        std::size_t parentheses = 0; // around it
    };

    void reduce(Binding weakest);
    void reducePrefix(char sign);
    void reduceBinary(DOM::FormulaSyntaxTree::BinaryOpType type);
    Operand pop();
    ExprPtr settle(Operand operand, const Place& place);
    ExprPtr makeList(std::size_t firstItem);
    void wrapInCall(const char* function);

    std::vector<Operator> _operators; // those that wait, and what is open; the formula itself is
    std::vector<Operand> _operands;
    bool _isBroken = false;
};

} // namespace QV::Formulas
