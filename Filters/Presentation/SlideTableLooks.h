#pragma once

#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::Filters {

struct ShapeTreeScope;

/// How a cell, or a part of a table, looks.
struct SlideCellLook
{
    boost::optional<DOM::Color> background;
    DOM::BordersProps borders; ///< of a part: around it and between its cells; of a cell: around it
    DOM::RunProps runProps;
};

/// What a table's style says of its cells, by their places: of the whole table, of bands, of the first and
/// last column and row, and of the corners, each over those before it. Bands begin behind the first row and
/// column, and end before the last ones, where the table shows these apart.
class FILTERS_API SlideTableLooks
{
public:
    /// Reads an a:tblPr element, and the style that it names or holds. Reported:
    ///     - "Table style {} is not there": the table has none
    SlideTableLooks(const FilterUtils::XMLElement& tableProps, const ShapeTreeScope& scope);

    /// @param cell with all that its merge spans
    /// @param table all of its rows and columns
    SlideCellLook makeLook(const TableRange& cell, const TableRange& table) const;

    /// The parts of a table that a style may format apart (ECMA-376 Part 1, 20.1.4.2), from the lowest on.
    enum class Part
    {
        WholeTable,
        OddRows,
        EvenRows,
        OddColumns,
        EvenColumns,
        LastColumn,
        FirstColumn,
        LastRow,
        SouthEastCell,
        SouthWestCell,
        FirstRow,
        NorthEastCell,
        NorthWestCell,
    };

private:
    struct Flags
    {
        bool hasFirstRow = false;
        bool hasLastRow = false;
        bool hasFirstColumn = false;
        bool hasLastColumn = false;
        bool hasRowBands = false;
        bool hasColumnBands = false;
    };
    struct PartLook
    {
        Part part;
        SlideCellLook look;
    };

    boost::optional<TableRange> findBand(Part part, const TableRange& cell, const TableRange& table) const;
    boost::optional<TableRange> findRegion(Part part, const TableRange& cell, const TableRange& table) const;
    bool isShown(Part part) const;

    Flags _flags;
    std::vector<PartLook> _looks; // in the order of parts
};

} // namespace QV::Filters
