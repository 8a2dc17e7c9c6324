#pragma once

#include <string>
#include <vector>

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Table;
}

namespace QV::Filters {

class FilterRun;
class Relationships;

/// A link as a sheet writes it.
struct SheetLink
{
    std::string reference;      ///< of the cells that carry it
    std::string relationshipId; ///< to what lies outside of the workbook; empty for a place inside
    std::string location;       ///< a place in that document; may be empty
};

/// Puts links on the cells of a sheet that is otherwise complete: into the mark of their paragraph and into
/// its runs; beside the value of cells that hold no text. Of links that share cells, the last one stays.
///
/// A link makes the empty cells that it covers, of one sheet at most LinkedCellsMax; where it covers more, it
/// is put on the cells that are there, and on its first one. A copy of a text is made for each link that it
/// carries, of all texts at most LinkedTextMax bytes.
///
/// What cannot be read is left out, each with one message:
///     - "Hyperlink on {} is on no range of a sheet"
///     - "Hyperlink on {} has an unknown relationship {}"
///     - "Hyperlink on {} leads nowhere"
///     - "Hyperlink on {} shares cells with a later one"
///     - "Hyperlink on {} has more text under it than links may have"
FILTERS_API void applyLinks(const std::vector<SheetLink>& links, const Relationships& relationships,
    DOM::Table& table, FilterRun& run);

constexpr unsigned long LinkedCellsMax = 10000;
constexpr unsigned long LinkedTextMax = 64UL << 20U;

} // namespace QV::Filters
