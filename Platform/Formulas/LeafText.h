#pragma once

#include <string>

#include <DOM/Public/FormulaExpr.h>
#include <Formulas/Public/FormulaText.h>

namespace QV::Formulas {

/// Where the texts of references have their names from.
struct TextNames
{
    const TableContext* tables = nullptr; // null where tables are known by name alone
    const DocumentNumbers* documents = nullptr;
};

/// The text of a node with nothing below it; empty for any other node.
std::string makeLeafText(const DOM::FormulaSyntaxTree::Expr& leaf, const TextNames& names);

} // namespace QV::Formulas
