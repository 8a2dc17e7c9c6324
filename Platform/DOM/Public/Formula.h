#pragma once

#include <memory>

#include <DOM/Public/Export.h>
#include <DOM/Public/FormulaExpr.h>

namespace QV::DOM {

/// A formula: a value that owns its syntax tree. A copy has a tree of its own.
///
///     const Formula formula(std::make_unique<FormulaSyntaxTree::Number>(7));
class DOM_API Formula
{
public:
    /// @param root asserted not to be null ("_root"); an empty argument stands in for a null one
    explicit Formula(std::unique_ptr<FormulaSyntaxTree::Expr> root);
    ~Formula();
    Formula(const Formula& other);
    Formula(Formula&& other) noexcept;
    Formula& operator=(const Formula& other);
    Formula& operator=(Formula&& other) noexcept;

    /// Of a formula that was moved from, asserts "plainPtr" and throws std::logic_error.
    const FormulaSyntaxTree::Expr& getSyntaxTree() const;
    FormulaSyntaxTree::Expr& getSyntaxTree();

    friend bool operator==(const Formula& a, const Formula& b)
    {
        return a.getSyntaxTree() == b.getSyntaxTree();
    }
    friend bool operator!=(const Formula& a, const Formula& b) { return !(a == b); }

private:
    std::unique_ptr<FormulaSyntaxTree::Expr> _root; // null only after a move
};

} // namespace QV::DOM
