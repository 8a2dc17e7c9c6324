#pragma once

/// @file
/// References of the spreadsheet grid as text: "B7", "A1:C3".

#include <string>
#include <string_view>

#include <boost/optional.hpp>

#include <Filters/Package/Export.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::Filters {

/// Reads a cell's name.
///
///     CELL ::= "$"? LETTER+ "$"? DIGIT+        letters of either case; the row is at least 1
///
/// @return the zero-based place, which may lie beyond the grid; nothing where the text is no name, or its
/// numbers
///     do not fit 32 bits
FILTERS_API boost::optional<CellIndex> parseCellReference(std::u16string_view text);

/// Reads a rectangle: two cell names and a ":" between them, in any order of corners, or one cell name.
FILTERS_API boost::optional<TableRange> parseRangeReference(std::u16string_view text);

/// The same for a text of bytes, of which those beyond ASCII are in no reference.
FILTERS_API boost::optional<TableRange> parseRangeReference(const std::string& text);

FILTERS_API bool isInGrid(const CellIndex& cell);

} // namespace QV::Filters
