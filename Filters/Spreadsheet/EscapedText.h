#pragma once

#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Undoes the escapes of spreadsheet text: "_x000D_" stands for the UTF-16 code unit 000D, and so "_x005F_"
/// for an underscore (ECMA-376 Part 1, 22.9.2.19). A pair of escapes may make one surrogate pair; an escape
/// of a lone surrogate stays as it is, since UTF-8 has no form for it.
FILTERS_API void unescapeText(std::string& text);

/// True for more text than applications show in a cell: 32,767 UTF-16 code units.
FILTERS_API bool isTooLongForCell(const std::string& text);

} // namespace QV::Filters
