#pragma once

/// @file
/// What holds a frame in its place.

#include <cstdint>

#include <boost/variant.hpp>

#include <DOM/Public/TableOffset.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::DOM {

/// The frame stands in the text, like a character.
class TextAnchor
{
public:
    friend bool operator==(const TextAnchor&, const TextAnchor&) { return true; }
    friend bool operator!=(const TextAnchor&, const TextAnchor&) { return false; }
};

/// The frame's top-left corner lies at a point of the sheet or page.
class AbsoluteAnchor
{
public:
    /// What a text document counts an offset from.
    enum class Origin : std::uint8_t
    {
        Page, ///< its edge; that of the sheet in a workbook
        Margin,
        Column,    ///< of the text, horizontally
        Paragraph, ///< that the frame belongs to, vertically
    };

    AbsoluteAnchor() = default;
    /// @param offset in points, from the top-left corner of the sheet or page
    explicit AbsoluteAnchor(const cinder::Vec2<float>& offset)
        : _offset(offset)
    {
    }

    const cinder::Vec2<float>& getOffset() const { return _offset; }

    Origin getHorizontalOrigin() const { return _horizontalOrigin; }
    Origin getVerticalOrigin() const { return _verticalOrigin; }
    void setOrigins(Origin horizontal, Origin vertical)
    {
        _horizontalOrigin = horizontal;
        _verticalOrigin = vertical;
    }

    friend bool operator==(const AbsoluteAnchor& a, const AbsoluteAnchor& b)
    {
        return a._offset == b._offset && a._horizontalOrigin == b._horizontalOrigin &&
               a._verticalOrigin == b._verticalOrigin;
    }
    friend bool operator!=(const AbsoluteAnchor& a, const AbsoluteAnchor& b) { return !(a == b); }

private:
    cinder::Vec2<float> _offset;
    Origin _horizontalOrigin = Origin::Page;
    Origin _verticalOrigin = Origin::Page;
};

/// The frame's top-left corner moves with a cell; its size stays.
class OneCellAnchor
{
public:
    const TableOffset& getFrom() const { return _from; }
    void setFrom(const TableOffset& from) { _from = from; }
    /// In points.
    const Size2D<float>& getExtent() const { return _extent; }
    void setExtent(const Size2D<float>& extent) { _extent = extent; }

    friend bool operator==(const OneCellAnchor& a, const OneCellAnchor& b)
    {
        return a._from == b._from && a._extent == b._extent;
    }
    friend bool operator!=(const OneCellAnchor& a, const OneCellAnchor& b) { return !(a == b); }

private:
    TableOffset _from;
    Size2D<float> _extent;
};

/// The frame's top-left and bottom-right corners move with a cell each.
class TwoCellAnchor
{
public:
    const TableOffset& getFrom() const { return _from; }
    void setFrom(const TableOffset& from) { _from = from; }
    const TableOffset& getTo() const { return _to; }
    void setTo(const TableOffset& to) { _to = to; }

    friend bool operator==(const TwoCellAnchor& a, const TwoCellAnchor& b)
    {
        return a._from == b._from && a._to == b._to;
    }
    friend bool operator!=(const TwoCellAnchor& a, const TwoCellAnchor& b) { return !(a == b); }

private:
    TableOffset _from;
    TableOffset _to;
};

using Anchor = boost::variant<TextAnchor, AbsoluteAnchor, OneCellAnchor, TwoCellAnchor>;

} // namespace QV::DOM
