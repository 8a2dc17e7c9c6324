#pragma once

#include <memory>
#include <string>

#include <DOM/Public/Export.h>
#include <DOM/Public/FormulaExpr.h>

namespace QV::DOM {

/// A formula: a value that owns its syntax tree. A copy has a tree of its own.
///
///     const Formula formula(std::make_unique<FormulaSyntaxTree::Number>(7));
///
/// A formula that no parser could read has its text instead, and an empty argument for a tree.
class DOM_API Formula
{
public:
    /// @param root asserted not to be null ("_root"); an empty argument stands in for a null one
    explicit Formula(std::unique_ptr<FormulaSyntaxTree::Expr> root);
    /// A formula that could not be read.
    static Formula makeUnread(std::string text);
    ~Formula();
    Formula(const Formula& other);
    Formula(Formula&& other) noexcept;
    Formula& operator=(const Formula& other);
    Formula& operator=(Formula&& other) noexcept;

    /// Of a formula that was moved from, asserts "plainPtr" and throws std::logic_error.
    const FormulaSyntaxTree::Expr& getSyntaxTree() const;
    FormulaSyntaxTree::Expr& getSyntaxTree();

    /// As the file has it, where that could not be read; otherwise empty.
    const std::string& getUnreadText() const { return _unreadText; }

    friend bool operator==(const Formula& a, const Formula& b)
    {
        return a._unreadText == b._unreadText && a.getSyntaxTree() == b.getSyntaxTree();
    }
    friend bool operator!=(const Formula& a, const Formula& b) { return !(a == b); }

private:
    std::unique_ptr<FormulaSyntaxTree::Expr> _root; // null only after a move
    std::string _unreadText;
};

} // namespace QV::DOM
