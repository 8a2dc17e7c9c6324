#pragma once

/// @file
/// Column widths of spreadsheet files: characters of the default font -> points.

#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The width of the widest digit of a font, in whole pixels at 96 dots per inch: 7 for most files' default
/// font.
/// @param fontSize in points
FILTERS_API int getMaxDigitWidth(const std::string& fontName, float fontSize);

/// A width in characters, as a column states it, in points: through whole pixels, as screens show it.
FILTERS_API float convertCharactersToPoints(double characters, int maxDigitWidth);

/// The width, in points, of the columns of a sheet that states only how many characters they take, without
/// the margins: rounded up to a multiple of eight pixels.
FILTERS_API float getDefaultColumnWidth(unsigned baseCharacters, int maxDigitWidth);

} // namespace QV::Filters
