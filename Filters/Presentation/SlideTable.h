#pragma once

#include <memory>

#include <DOM/Public/Table.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

struct ShapeTreeScope;

/// Reads an a:tbl element: the widths of its columns, the heights of its rows, its cells with their text,
/// fills and lines, and merged cells. What the table's style says of the whole table, of the first and last
/// row and column, and of bands lies below what the cells say.
///
/// Tables of more than 1,000 columns or 10,000 rows are cut, with one message each.
FILTERS_API std::unique_ptr<DOM::Table> readSlideTable(
    const FilterUtils::XMLElement& table, const ShapeTreeScope& scope);

} // namespace QV::Filters
