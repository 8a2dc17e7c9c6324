#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/FormulaExpr.h>
#include <Formulas/Public/FormulaText.h>
#include <Formulas/ReferenceScanner.h>

namespace QV::Formulas {

/// An operand that consists of one word: a constant, a reference, or the beginning of a call.
struct Operand
{
    std::unique_ptr<DOM::FormulaSyntaxTree::Expr> expr; // null for a call
    std::string function;                               // whose "(" is taken
    bool hasTableColumns = false;
    bool hasUnknownDocument = false;
};

/// Takes an operand from the front of the text; nothing where it goes on with none.
boost::optional<Operand> takeOperand(ReferenceScanner& scanner, const DocumentList& documents);

} // namespace QV::Formulas
