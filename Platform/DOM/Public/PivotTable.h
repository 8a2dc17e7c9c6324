#pragma once

#include <string>
#include <utility>

#include <Utils/Public/Size2D.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/UUIDable.h>

namespace QV::DOM {

/// A pivot table on a sheet: its name and the cells that it covers.
class PivotTable : public UUIDable
{
public:
    explicit PivotTable(std::string name)
        : _name(std::move(name))
    {
    }

    const std::string& getName() const { return _name; }
    void setName(std::string name) { _name = std::move(name); }

    /// Its top-left cell.
    const CellIndex& getLocation() const { return _location; }
    void setLocation(const CellIndex& topLeft) { _location = topLeft; }

    /// Width in columns and height in rows.
    const Size2D<int>& getSize() const { return _size; }
    void setSize(const Size2D<int>& size) { _size = size; }

private:
    std::string _name;
    CellIndex _location;
    Size2D<int> _size;
};

} // namespace QV::DOM
