#pragma once

/// @file
/// Cells by name: zero-based indices -> A1 text.

#include <string>

#include <FilterUtils/FU_Export.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::FilterUtils {

/// The cell's name in A1 form: column letters, then the one-based row.
///
///     toAlphaIndex(RowIndex(0), ColumnIndex(0));    // "A1"
///     toAlphaIndex(RowIndex(9), ColumnIndex(27));   // "AB10"
FILTERUTILS_API std::string toAlphaIndex(RowIndex row, ColumnIndex column);

/// The same for the cell's row and column.
FILTERUTILS_API std::string toAlphaIndex(const CellIndex& cell);

} // namespace QV::FilterUtils
