#pragma once

#include <cstddef>
#include <memory>
#include <tuple>
#include <utility>

#include <DOM/Public/LineProps.h>
#include <DOM/Public/Properties.h>

namespace QV::DOM {

/// The lines around a cell or a table, and between the cells of a table. A side without a line leaves it to
/// the layers below; a line of LineStyle::None takes away what they draw.
///
/// Lines are shared between copies and never change. Two sets are equal when their lines are, by value.
/// `override(BordersProps&, const BordersProps&)` lays one set over another, side by side.
class BordersProps
{
public:
    using Line = std::shared_ptr<const LineProps>;

    /// The outer edges; null where the side is not set.
    const Line& getLeft() const { return _left; }
    const Line& getTop() const { return _top; }
    const Line& getRight() const { return _right; }
    const Line& getBottom() const { return _bottom; }
    /// The lines between columns.
    const Line& getVertical() const { return _vertical; }
    /// The lines between rows.
    const Line& getHorizontal() const { return _horizontal; }

    void setLeft(Line&& line) { _left = std::move(line); }
    void setTop(Line&& line) { _top = std::move(line); }
    void setRight(Line&& line) { _right = std::move(line); }
    void setBottom(Line&& line) { _bottom = std::move(line); }
    void setVertical(Line&& line) { _vertical = std::move(line); }
    void setHorizontal(Line&& line) { _horizontal = std::move(line); }

    static constexpr auto getFields()
    {
        return std::make_tuple(&BordersProps::_left, &BordersProps::_top, &BordersProps::_right,
            &BordersProps::_bottom, &BordersProps::_vertical, &BordersProps::_horizontal);
    }

    friend bool operator==(const BordersProps& a, const BordersProps& b) { return areEqual(a, b); }
    friend bool operator!=(const BordersProps& a, const BordersProps& b) { return !(a == b); }
    friend std::size_t hash_value(const BordersProps& borders) { return hashProps(borders); }

private:
    Line _left;
    Line _top;
    Line _right;
    Line _bottom;
    Line _vertical;
    Line _horizontal;
};

} // namespace QV::DOM
