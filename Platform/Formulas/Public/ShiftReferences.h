#pragma once

/// @file
/// Formulas that several cells share: the same formula as each of them means it.

#include <DOM/Public/Formula.h>
#include <Formulas/Public/Export.h>

namespace QV::Formulas {

/// The formula of another cell that shares @p formula: relative rows and columns of its references move
/// along, in other tables and documents too; those with "$" and names stay. A reference that leaves the sheet
/// becomes the error "#REF!". Ends of ranges are put in order again. The cells of an array formula stay.
///
///     makeShifted(formula, 1, 0); // "A1+$B$1" one row below: "A2+$B$1"
///
/// @param rows, columns how far the other cell is away, downwards and to the right
FORMULAS_API DOM::Formula makeShifted(const DOM::Formula& formula, long rows, long columns);

} // namespace QV::Formulas
