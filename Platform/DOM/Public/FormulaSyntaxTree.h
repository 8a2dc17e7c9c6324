#pragma once

/// @file
/// The kinds of nodes of a formula's syntax tree: constants, operators, calls; references come from
/// FormulaReferences.h.

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/Export.h>
#include <DOM/Public/FormulaExpr.h>
#include <DOM/Public/FormulaReferences.h> // IWYU pragma: keep
#include <Utils/Public/Visitor.h>

namespace QV::DOM::FormulaSyntaxTree {

/// A text constant.
class DOM_API String final : public ValueExpr<String>
{
public:
    explicit String(std::string value)
        : _value(std::move(value))
    {
    }

    const std::string& getValue() const { return _value; }

    bool equals(const String& other) const { return _value == other._value; }

private:
    std::string _value;
};

/// A number constant.
class DOM_API Number final : public ValueExpr<Number>
{
public:
    explicit Number(double value)
        : _value(value)
    {
    }

    double getValue() const { return _value; }

    bool equals(const Number& other) const { return _value == other._value; }

private:
    double _value;
};

/// TRUE or FALSE.
class DOM_API Bool final : public ValueExpr<Bool>
{
public:
    explicit Bool(bool value)
        : _value(value)
    {
    }

    bool getValue() const { return _value; }

    bool equals(const Bool& other) const { return _value == other._value; }

private:
    bool _value;
};

/// An error constant, such as "#REF!".
class DOM_API Error final : public ValueExpr<Error>
{
public:
    explicit Error(std::string text)
        : _text(std::move(text))
    {
    }

    const std::string& getText() const { return _text; }

    bool equals(const Error& other) const { return _text == other._text; }

private:
    std::string _text;
};

/// An argument that is left out, as the second one of "IF(A1,,2)".
class DOM_API Empty final : public ValueExpr<Empty>
{
public:
    bool equals(const Empty&) const { return true; }
};

/// A compound node that takes nothing but its children to make.
template <typename Kind>
class PlainCompoundExpr : public Visitable<Kind, Expr, CompoundExpr>
{
private:
    std::unique_ptr<Expr> cloneNode() const override { return std::make_unique<Kind>(); }
    bool isSameNode(const Expr&) const override { return true; }
};

/// An operator and its operand, the only child.
template <UnaryOpType Type>
class DOM_API UnaryOp final : public PlainCompoundExpr<UnaryOp<Type>>
{
public:
    /// Without the operand, which is the first child to be appended.
    UnaryOp() = default;
    explicit UnaryOp(std::unique_ptr<Expr> operand) { this->appendChild(std::move(operand)); }

    static constexpr UnaryOpType getType() { return Type; }
};

/// An operator and its operands, the two children.
template <BinaryOpType Type>
class DOM_API BinaryOp final : public PlainCompoundExpr<BinaryOp<Type>>
{
public:
    /// Without the operands, which are the first children to be appended.
    BinaryOp() = default;
    BinaryOp(std::unique_ptr<Expr> left, std::unique_ptr<Expr> right)
    {
        this->appendChild(std::move(left));
        this->appendChild(std::move(right));
    }

    static constexpr BinaryOpType getType() { return Type; }
};

/// Expressions in parentheses, with commas between: "(A1,B2)". A list of one is parentheses that the formula
/// has without need: an operand that needs some has none in the tree.
class DOM_API ArgumentsList final : public PlainCompoundExpr<ArgumentsList>
{
};

/// A function and its arguments, the children.
class DOM_API FunctionCall final : public Visitable<FunctionCall, Expr, CompoundExpr>
{
public:
    explicit FunctionCall(std::string name)
        : _name(std::move(name))
    {
    }

    const std::string& getName() const { return _name; }

private:
    std::unique_ptr<Expr> cloneNode() const override;
    bool isSameNode(const Expr& other) const override;

    std::string _name;
};

/// An array constant; its elements are the children, row by row.
class DOM_API Array final : public Visitable<Array, Expr, CompoundExpr>
{
public:
    explicit Array(std::size_t columnsCount)
        : _columnsCount(columnsCount)
    {
    }

    std::size_t getColumnsCount() const { return _columnsCount; }

private:
    std::unique_ptr<Expr> cloneNode() const override;
    bool isSameNode(const Expr& other) const override;

    std::size_t _columnsCount;
};

} // namespace QV::DOM::FormulaSyntaxTree
