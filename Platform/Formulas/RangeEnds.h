#pragma once

#include <memory>

#include <DOM/Public/FormulaExpr.h>

namespace QV::Formulas {

/// The one reference that the operands of ":" are: "A1:B2" for two cells, "A:C" for two names, "1:3" for two
/// numbers. Null where ":" is an operator between them.
std::unique_ptr<DOM::FormulaSyntaxTree::Expr> joinRangeEnds(
    const DOM::FormulaSyntaxTree::Expr& first, const DOM::FormulaSyntaxTree::Expr& last);

/// Whether the texts of two operands with ":" between them would be read as something else than these: "A1"
/// and "B2:C3" as "A1:B2" and "C3", "Sheet1" and "Sheet2!A1" as a cell on two tables.
bool wouldJoin(const DOM::FormulaSyntaxTree::Expr& first, const DOM::FormulaSyntaxTree::Expr& last);

} // namespace QV::Formulas
