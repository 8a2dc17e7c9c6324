#pragma once

#include <cstddef>
#include <tuple>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/Properties.h>

namespace QV::DOM {

/// How a cell looks apart from its text.
class CellProps
{
public:
    /// The colour that fills the cell.
    const boost::optional<Color>& getBackgroundColor() const { return _backgroundColor; }

    void setBackgroundColor(const boost::optional<Color>& color) { _backgroundColor = color; }

    static constexpr auto getFields() { return std::make_tuple(&CellProps::_backgroundColor); }

    friend bool operator==(const CellProps& a, const CellProps& b) { return areEqual(a, b); }
    friend bool operator!=(const CellProps& a, const CellProps& b) { return !(a == b); }
    friend std::size_t hash_value(const CellProps& props) { return hashProps(props); }

private:
    boost::optional<Color> _backgroundColor;
};

} // namespace QV::DOM
