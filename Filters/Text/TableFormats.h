#pragma once

#include <memory>

#include <DOM/Public/CellProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class FormatValues;

/// What a "tblPr" or "tblPrEx" element says of a table's cells: their borders around the table ("left" or
/// "start", "top", "right" or "end", "bottom") and between them ("insideV" as vertical, "insideH" as
/// horizontal ones), and their filling, which is transparent where it is set to none. What cannot be read is
/// reported, and stays unset.
///
/// @return null for an invalid view, and where nothing is said
FILTERS_API std::shared_ptr<const DOM::CellProps> readTableFormat(
    const FilterUtils::XMLElement& tableProps, const FormatValues& values);

/// What a "tcPr" element says of a cell, or of the cells of a part of a table style: borders (also inside of
/// the part, and diagonal ones), filling, vertical alignment.
///
/// @return null for an invalid view, and where nothing is said
FILTERS_API std::shared_ptr<const DOM::CellProps> readCellFormat(
    const FilterUtils::XMLElement& cellProps, const FormatValues& values);

} // namespace QV::Filters
