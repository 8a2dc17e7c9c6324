#pragma once

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Spreadsheet/Borders.h>
#include <Filters/Spreadsheet/FormatParts.h>

namespace QV::Filters {

class FilterRun;
class Names;

/// Reads the table styles that a workbook defines by itself into named table styles of its document: what
/// they say of the whole table. What they say of single stripes, rows and columns is noted to @p run as left
/// out.
void readTableStyles(
    const FilterUtils::XMLElement& styleSheet, const Names& names, const FormatParts& parts, FilterRun& run);

} // namespace QV::Filters
