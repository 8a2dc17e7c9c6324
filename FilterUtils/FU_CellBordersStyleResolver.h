#pragma once

#include <functional>
#include <memory>

#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_Export.h>

namespace QV::DOM {
class Styles;
class Table;
} // namespace QV::DOM

namespace QV::FilterUtils {

/// The borders that each cell of a table shows, for formats that keep four of them with every cell. What wins
/// for one side of a cell, highest first:
///
///     1. the cell's own style
///     2. the named styles that it derives from, nearest first
///     3. of the table: the line between cells where the side has a neighbour, the outer edge where it has
///     none
///
/// and for the table itself: its own style, the named styles that this derives from, the default borders.
///
///     const CellBordersStyleResolver resolver(document.getStyles(), table, true, nullptr);
///     const auto cells = Adapter::getCellIterators(table);
///     for (auto cell = cells.begin(); cell != cells.end(); ++cell)
///         if (const auto borders = resolver.resolve(cell))
///             write(*borders);
///
/// Lives no longer than the styles and the table, which must not change meanwhile. Safe to read from several
/// threads.
class FILTERUTILS_API CellBordersStyleResolver
{
public:
    /// @param useTableStyle whether the table's style counts at all, with the named styles that it derives
    ///     from
    /// @param defaultBorders the lowest layer of the table; may be null
    CellBordersStyleResolver(const DOM::Styles& styles, const DOM::Table& table, bool useTableStyle,
        const std::shared_ptr<const DOM::BordersProps>& defaultBorders);

    /// The borders of the cell that @p cellIt stands on: a new object, or null where no layer gives any.
    /// O(length of the cell's chain of styles).
    ///
    /// Asserts "&cellIt.getTable() == &_table.get()"; where that fails, the cell is taken as if it stood at
    /// its place in the resolver's table.
    std::shared_ptr<DOM::BordersProps> resolve(const Adapter::TableCellIteratorImpl<true>& cellIt) const;

    /// The same without what the table gives.
    std::shared_ptr<DOM::BordersProps> getResolvedBordersFromCellRowColumn(
        const Adapter::TableCellIteratorImpl<true>& cellIt) const;

private:
    std::reference_wrapper<const DOM::Styles> _styles;
    std::reference_wrapper<const DOM::Table> _table;
    std::shared_ptr<DOM::BordersProps> _tableBorders; // null where no layer of the table gives any
};

} // namespace QV::FilterUtils
