#pragma once

#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The part of a sheet that a page shows: its first rows and columns, their sizes, and which cells merges
/// cover.
class FILTERS_API SheetGrid
{
public:
    SheetGrid(const DOM::Table& table, unsigned long rowsCount, unsigned long columnsCount);

    unsigned long getRowsCount() const { return static_cast<unsigned long>(_heights.size()); }
    unsigned long getColumnsCount() const { return static_cast<unsigned long>(_widths.size()); }
    /// In points; 0 for a hidden one.
    float getHeight(unsigned long row) const { return _heights[row]; }
    float getWidth(unsigned long column) const { return _widths[column]; }
    float getTotalWidth() const;

    enum class Place
    {
        Single,
        Begin,   ///< the top-left cell of a merge
        Covered, ///< any other cell of a merge
    };
    Place getPlace(unsigned long row, unsigned long column) const;
    /// The rows and columns that are shown of the merge that begins there; 1 and 1 for no merge.
    std::pair<unsigned long, unsigned long> getSpan(unsigned long row, unsigned long column) const;

private:
    std::size_t getIndex(unsigned long row, unsigned long column) const
    {
        return static_cast<std::size_t>(row) * _widths.size() + column;
    }

    std::vector<float> _heights;
    std::vector<float> _widths;
    std::vector<bool> _covered; // row by row, of every cell of a merge
    std::unordered_map<std::size_t, std::pair<unsigned long, unsigned long>>
        _spans; // by the index of the begin
};

/// Decides which line is seen on each edge between cells, as they come row by row. An edge belongs to the
/// cell to its right or below it; the outermost edges to the last cells themselves.
class FILTERS_API EdgeLines
{
public:
    explicit EdgeLines(const SheetGrid& grid);

    struct Sides
    {
        const DOM::LineProps* left = nullptr;
        const DOM::LineProps* top = nullptr;
        const DOM::LineProps* right = nullptr;
        const DOM::LineProps* bottom = nullptr;
    };

    /// The lines that the cell at (row, column) draws. Cells are asked for in reading order, each once.
    /// @param borders of the cell; may be null
    Sides resolve(unsigned long row, unsigned long column, const DOM::BordersProps* borders);

private:
    struct Below
    {
        unsigned long row = 0; // of the cell below the edge
        const DOM::LineProps* line = nullptr;
    };

    const DOM::LineProps* takeLeft(unsigned long row, unsigned long column);

    const SheetGrid& _grid;
    std::vector<Below> _below;                                       // by column
    std::unordered_map<std::size_t, const DOM::LineProps*> _rightOf; // edges at the right of merges, by cell
};

} // namespace QV::Filters
