#pragma once

// Frames for tests: a place in a table in four numbers, frames by anchor, and how failures print them.

#include <ostream>

#include <boost/optional.hpp>
#include <boost/optional/optional_io.hpp>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/TableOffset.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace cinder {

inline std::ostream& operator<<(std::ostream& out, const Vec2<float>& point)
{
    return out << '(' << point.x << ", " << point.y << ')';
}

} // namespace cinder

namespace QV {

inline std::ostream& operator<<(std::ostream& out, const Size2D<float>& size)
{
    return out << size.getWidth() << " by " << size.getHeight();
}

} // namespace QV

namespace QV::DOM {

inline std::ostream& operator<<(std::ostream& out, const TableOffset& offset)
{
    return out << "column " << offset.getColumnIndex().get() << " + " << offset.getColumnOffset() << ", row "
               << offset.getRowIndex().get() << " + " << offset.getRowOffset();
}

inline std::ostream& operator<<(std::ostream& out, const TextAnchor&)
{
    return out << "in the text";
}

inline std::ostream& operator<<(std::ostream& out, const AbsoluteAnchor& anchor)
{
    return out << "at " << anchor.getOffset();
}

inline std::ostream& operator<<(std::ostream& out, const OneCellAnchor& anchor)
{
    return out << "at " << anchor.getFrom() << ", " << anchor.getExtent();
}

inline std::ostream& operator<<(std::ostream& out, const TwoCellAnchor& anchor)
{
    return out << "from " << anchor.getFrom() << " to " << anchor.getTo();
}

inline std::ostream& operator<<(std::ostream& out, const Frame& frame)
{
    return out << frame.getAnchor() << ", extent " << frame.getExtent() << ", turned by "
               << frame.getRotation();
}

} // namespace QV::DOM

namespace QV {

inline DOM::TableOffset makeOffset(unsigned long column, float x, unsigned long row, float y)
{
    return {ColumnIndex(column), x, RowIndex(row), y};
}

inline DOM::AbsoluteAnchor makeAbsolute(float x, float y)
{
    return DOM::AbsoluteAnchor({x, y});
}

inline DOM::OneCellAnchor makeOneCell(const DOM::TableOffset& from, const Size2D<float>& extent)
{
    DOM::OneCellAnchor anchor;
    anchor.setFrom(from);
    anchor.setExtent(extent);
    return anchor;
}

inline DOM::TwoCellAnchor makeTwoCell(const DOM::TableOffset& from, const DOM::TableOffset& to)
{
    DOM::TwoCellAnchor anchor;
    anchor.setFrom(from);
    anchor.setTo(to);
    return anchor;
}

inline DOM::Frame makeFrame(
    const DOM::Anchor& anchor, const boost::optional<Size2D<float>>& extent = boost::none)
{
    DOM::Frame frame;
    frame.setAnchor(anchor);
    frame.setExtent(extent);
    return frame;
}

} // namespace QV
