#pragma once

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Text/TableConditions.h>

namespace QV::Filters {

class FormatReader;

/// Lays what a table style says of parts of a table, and of how many rows and columns its stripes have, over
/// what its parents say of them.
///
/// Parts of unknown kinds and numbers that cannot be read are reported as FormatValues says.
/// @param style a "style" element
/// @param conditions receives the parents' conditions, and gives those of the style
FILTERS_API void readTableConditions(
    const FilterUtils::XMLElement& style, const FormatReader& formats, TableConditions& conditions);

/// Whether anything is said of any part.
FILTERS_API bool hasConditions(const TableConditions& conditions);

/// How a whole table looks by a "style" element, or a part of it by one of a part ("tblStylePr").
FILTERS_API TablePartFormat readTablePart(
    const FilterUtils::XMLElement& element, const FormatReader& formats);

} // namespace QV::Filters
