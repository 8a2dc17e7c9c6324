#pragma once

/// @file
/// Whether formulas refer to cells that exist.

#include <Formulas/Public/Export.h>

namespace QV::DOM {
class Formula;
}

namespace QV::Formulas {

class TableContext;

/// True where @p formula is a cell, a range of cells, or a list of such in parentheses, and each of them
///     - lies in the formula's own document,
///     - names tables that @p context knows (a reference without a table is not valid: nothing says where it
///       lies),
///     - has its ends in order and within the tables' limits.
///
/// Names that stand for ranges are not looked up, so a Label is not valid. Never throws; constant stack.
FORMULAS_API bool isValidRange(const DOM::Formula& formula, const TableContext& context);

} // namespace QV::Formulas
