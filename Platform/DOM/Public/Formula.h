#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/FormulaExpr.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::DOM {

/// A formula: a value that owns its syntax tree. A copy has a tree of its own.
///
///     const Formula formula(std::make_unique<FormulaSyntaxTree::Number>(7));
///
/// A formula that no parser could read has its text instead, and an empty argument for a tree. An array
/// formula stands in the first of the cells that show what it gives.
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
    const std::string& getUnreadText() const;

    /// The cells of an array formula, the first one included; nothing for any other formula.
    boost::optional<TableRange> getArrayRange() const;
    void setArrayRange(const TableRange& range);

    friend DOM_API bool operator==(const Formula& a, const Formula& b);
    friend bool operator!=(const Formula& a, const Formula& b) { return !(a == b); }

private:
    struct Extras; // what few formulas have

    Extras& getOrMakeExtras();

    std::unique_ptr<FormulaSyntaxTree::Expr> _root; // null only after a move
    std::unique_ptr<Extras> _extras;
};

} // namespace QV::DOM
