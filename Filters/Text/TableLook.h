#pragma once

#include <memory>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellStyle.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Text/TableConditions.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::Filters {

class Names;

/// Which parts of its style a table shows.
struct TableLook
{
    bool hasFirstRow = false;
    bool hasLastRow = false;
    bool hasFirstColumn = false;
    bool hasLastColumn = false;
    bool hasRowStripes = true;
    bool hasColumnStripes = true;
};

/// Reads a "tblLook" element (ECMA-376 Part 1, 17.4.56): the bits of its hexadecimal value, and over them the
/// attributes of newer files. The look of no attributes is that of an invalid view.
FILTERS_API TableLook readTableLook(const FilterUtils::XMLElement& element, const Names& names);

/// What a table style says of one cell: the parts that hold it, each over those before it in TablePart. A
/// part's outer lines stand at its edges, those inside of it between its cells.
///
/// The first row and the last one belong to no stripe of rows where the table shows them apart, and neither
/// do such columns to stripes of columns.
///
/// @param cell with all that its merge spans; the parts of its first row and column hold it
/// @param table its rows, and from the first to the last column of the cell's row
FILTERS_API DOM::CellStyle makeConditionalStyle(const TableConditions& conditions, const TableLook& look,
    const TableRange& cell, const TableRange& table);

/// Puts the borders of @p part, which stands in a table's or a part's properties, to one of its cells: outer
/// lines where the cell touches the edge, and inner lines elsewhere.
///
/// @return @p props itself where it has no borders
FILTERS_API std::shared_ptr<const DOM::CellProps> placeBorders(
    const std::shared_ptr<const DOM::CellProps>& props, const TableRange& part, const TableRange& cell);

} // namespace QV::Filters
