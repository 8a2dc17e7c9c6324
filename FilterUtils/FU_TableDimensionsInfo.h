#pragma once

#include <utility>
#include <vector>

#include <FilterUtils/FU_Export.h>

namespace QV::DOM {
class Table;
}

namespace QV::FilterUtils {

/// The sizes of a table's rows and columns, in points: those that the table describes, from the first one on,
/// and one size for all beyond them. What is hidden has the size 0.
class FILTERUTILS_API TableDimensionsInfo
{
public:
    void setDefaultColumnWidth(float points) { _defaultColumnWidth = points; }
    float getDefaultColumnWidth() const { return _defaultColumnWidth; }
    void setDefaultRowHeight(float points) { _defaultRowHeight = points; }
    float getDefaultRowHeight() const { return _defaultRowHeight; }

    void setRowsHeight(std::vector<float> points) { _rowsHeight = std::move(points); }
    const std::vector<float>& getRowsHeight() const { return _rowsHeight; }
    std::vector<float>& getRowsHeight() { return _rowsHeight; }
    void setColumnsWidths(std::vector<float> points) { _columnsWidth = std::move(points); }
    const std::vector<float>& getColumnsWidth() const { return _columnsWidth; }
    std::vector<float>& getColumnsWidth() { return _columnsWidth; }

private:
    float _defaultColumnWidth = 0;
    float _defaultRowHeight = 0;
    std::vector<float> _rowsHeight;
    std::vector<float> _columnsWidth;
};

/// The sizes of @p table: a row or column without a size of its own has the default one. O(n) for what the
/// table describes, which ends with the last row and the last column that have properties.
FILTERUTILS_API TableDimensionsInfo getTableDimensionsInfo(const DOM::Table& table);

} // namespace QV::FilterUtils
