#pragma once

#include <string>

namespace QV::DOM {
class Table;
}

namespace QV::Filters {

struct TextPageContext;
struct TextPlace;

/// Appends a table of a text: the widths of its columns, merged cells, fillings, the lines that its cells
/// show by CellBordersStyleResolver, and the blocks of its cells. Where two lines meet, browsers choose as
/// tables with collapsed borders do. Rows beyond the limits are counted.
void writeTextTable(
    const DOM::Table& table, const TextPlace& place, TextPageContext& context, std::string& page);

} // namespace QV::Filters
