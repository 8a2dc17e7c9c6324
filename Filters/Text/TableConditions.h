#pragma once

/// @file
/// What a table style says of single rows, columns and cells.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>

namespace QV::Filters {

/// The parts of a table that a table style may format apart (ECMA-376 Part 1, 17.18.89), in the order in
/// which they lie over each other: later ones win.
enum class TablePart : std::uint8_t
{
    WholeTable,
    OddColumns, ///< the first stripe, and every second one after it
    EvenColumns,
    OddRows,
    EvenRows,
    FirstRow,
    LastRow,
    FirstColumn,
    LastColumn,
    NorthWestCell,
    NorthEastCell,
    SouthWestCell,
    SouthEastCell,
};
constexpr std::size_t TablePartsCount = 13;

/// How one part looks; null where nothing is said.
struct TablePartFormat
{
    std::shared_ptr<const DOM::CellProps> cellProps; ///< borders are those around and inside of the part
    std::shared_ptr<const DOM::ParaProps> paraProps;
    std::shared_ptr<const DOM::RunProps> runProps;
};

/// How the parts of a table look by its style, parents included.
struct TableConditions
{
    std::array<TablePartFormat, TablePartsCount> parts; ///< by TablePart
    unsigned long rowStripe = 1;                        ///< rows of a stripe; 0: there are no stripes
    unsigned long columnStripe = 1;
};

} // namespace QV::Filters
