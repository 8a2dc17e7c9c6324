#pragma once

/// @file
/// The nodes of a formula's syntax tree: what every kind of node can do. FormulaSyntaxTree.h holds the kinds.

#include <cstddef>
#include <memory>
#include <vector>

#include <DOM/Public/Export.h>
#include <Utils/Public/Visitor.h>

namespace QV::DOM::FormulaSyntaxTree {

/// Operators before or behind one operand.
enum UnaryOpType
{
    UnaryPlus,
    UnaryMinus,
    Percent,
};

/// Operators between two operands.
enum BinaryOpType
{
    Add,
    Subtract,
    Multiply,
    Divide,
    Power,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    RangeOp,      ///< ":" between references that are computed
    Intersection, ///< the blank between two references
};

class String;
class Number;
class Label;
class Bool;
class Error;
class Empty;
class CellAddress;
class CellRange;
template <UnaryOpType Type>
class UnaryOp;
template <BinaryOpType Type>
class BinaryOp;
class FunctionCall;
class Array;
class ArgumentsList;

/// A node of a syntax tree, with all that stands below it.
///
///     struct Namer
///     {
///         std::string operator()(const Label& label) const { return label.getName(); }
///         template <typename Kind>
///         std::string operator()(const Kind&) const { return {}; }
///     };
///     const std::string name = applyVisitor(Namer(), formula.getSyntaxTree());
///
/// Trees come out of strangers' files, so nothing here recurses: a tree of any depth is copied, compared and
/// destroyed in constant stack.
class DOM_API Expr
{
public:
    using VisitedBase = Expr;
    using Kinds =
        TypeList<String, Number, Label, Bool, Error, Empty, CellAddress, CellRange, UnaryOp<UnaryPlus>,
            UnaryOp<UnaryMinus>, UnaryOp<Percent>, BinaryOp<Add>, BinaryOp<Subtract>, BinaryOp<Multiply>,
            BinaryOp<Divide>, BinaryOp<Power>, BinaryOp<Concatenate>, BinaryOp<Equal>, BinaryOp<NotEqual>,
            BinaryOp<Less>, BinaryOp<LessOrEqual>, BinaryOp<Greater>, BinaryOp<GreaterOrEqual>, FunctionCall,
            Array, BinaryOp<RangeOp>, BinaryOp<Intersection>, ArgumentsList>;
    using Children = std::vector<std::unique_ptr<Expr>>;

    virtual ~Expr();

    virtual void accept(Visitor<Expr, Kinds>& visitor) = 0;
    virtual void accept(Visitor<const Expr, Kinds>& visitor) const = 0;

    /// The nodes right below, from left to right; none below a leaf. No null entries.
    virtual const Children& getChildren() const;

    /// A copy of the whole tree.
    std::unique_ptr<Expr> clone() const;

    /// The same kinds in the same places, with equal values.
    friend DOM_API bool operator==(const Expr& a, const Expr& b);
    friend bool operator!=(const Expr& a, const Expr& b) { return !(a == b); }

protected:
    Expr() = default;
    Expr(const Expr&) = default;
    Expr(Expr&&) = default;
    Expr& operator=(const Expr&) = default;
    Expr& operator=(Expr&&) = default;

private:
    /// A copy of this node alone.
    virtual std::unique_ptr<Expr> cloneNode() const = 0;
    /// @param other of the same kind
    virtual bool isSameNode(const Expr& other) const = 0;
};

/// A node that may have others below it.
class DOM_API CompoundExpr : public Expr
{
public:
    ~CompoundExpr() override;

    CompoundExpr(const CompoundExpr&) = delete; // clone() copies trees
    CompoundExpr& operator=(const CompoundExpr&) = delete;

    const Children& getChildren() const override { return _children; }
    /// @param child asserted not to be null ("child"); a null one is left out
    void appendChild(std::unique_ptr<Expr> child);
    /// Puts another node in the place of a child, which goes with all below it.
    /// @param index asserted to be that of a child ("index < _children.size()")
    /// @param child asserted not to be null ("child")
    void setChild(std::size_t index, std::unique_ptr<Expr> child);

protected:
    CompoundExpr() = default;

private:
    Children _children;
};

/// A kind of node that is a value: copied and compared as such.
template <typename Kind, typename Parent = Expr>
class ValueExpr : public Visitable<Kind, Expr, Parent>
{
public:
    using Visitable<Kind, Expr, Parent>::Visitable;

private:
    std::unique_ptr<Expr> cloneNode() const override
    {
        return std::make_unique<Kind>(static_cast<const Kind&>(*this));
    }
    bool isSameNode(const Expr& other) const override
    {
        return static_cast<const Kind&>(*this).equals(static_cast<const Kind&>(other));
    }
};

/// All nodes of the tree, each once: a node, then what stands below it from left to right.
DOM_API std::vector<Expr*> toExprStack(Expr& root);
DOM_API std::vector<const Expr*> toExprStack(const Expr& root);

} // namespace QV::DOM::FormulaSyntaxTree
