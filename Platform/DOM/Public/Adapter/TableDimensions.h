#pragma once

/// @file
/// The sizes of a table's rows and columns as they show.

#include <utility>
#include <vector>

#include <DOM/Public/Export.h>

namespace QV::DOM {
class Table;
}

namespace QV::Adapter {

/// A height in points.
class RowHeight
{
public:
    explicit RowHeight(float points)
        : _points(points)
    {
    }

    float getValue() const { return _points; }

private:
    float _points;
};

/// A row, with the table's default height where it has none of its own.
class RowDimensions
{
public:
    RowDimensions(float heightPoints, bool isHidden)
        : _height(heightPoints)
        , _isHidden(isHidden)
    {
    }

    /// Of a hidden row: the height that it has once it is shown.
    const RowHeight& getHeight() const { return _height; }
    bool isHidden() const { return _isHidden; }

private:
    RowHeight _height;
    bool _isHidden;
};

/// The same of a column.
class ColumnDimensions
{
public:
    ColumnDimensions(float widthPoints, bool isHidden)
        : _width(widthPoints)
        , _isHidden(isHidden)
    {
    }

    /// In points.
    float getWidth() const { return _width; }
    bool isHidden() const { return _isHidden; }

private:
    float _width;
    bool _isHidden;
};

/// The rows and columns that a table describes, from the first one to the last one with properties of its
/// own, and the size of all beyond them.
class TableDimensions
{
public:
    TableDimensions(float defaultRowHeight, float defaultColumnWidth, std::vector<RowDimensions> rows,
        std::vector<ColumnDimensions> columns)
        : _defaultRowHeight(defaultRowHeight)
        , _defaultColumnWidth(defaultColumnWidth)
        , _rows(std::move(rows))
        , _columns(std::move(columns))
    {
    }

    float getDefaultRowHeight() const { return _defaultRowHeight; }
    float getDefaultColumnWidth() const { return _defaultColumnWidth; }
    const std::vector<RowDimensions>& getRowsProps() const { return _rows; }
    const std::vector<ColumnDimensions>& getColumnsProps() const { return _columns; }

private:
    float _defaultRowHeight;
    float _defaultColumnWidth;
    std::vector<RowDimensions> _rows;
    std::vector<ColumnDimensions> _columns;
};

/// O(n) for the rows and columns up to the last one with properties, even where few of them have any.
DOM_API TableDimensions getTableDimensionsInfo(const DOM::Table& table);

} // namespace QV::Adapter
