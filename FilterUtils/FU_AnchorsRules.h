#pragma once

/// @file
/// What FU_Anchors and FU_AnchorsConverter do alike, whichever way they walk the sizes; private.

#include <cmath>
#include <cstddef>
#include <utility>

#include <boost/variant.hpp>

#include <DOM/Public/Frame.h>
#include <DOM/Public/TableOffset.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::FilterUtils {

/// The cell past @p count explicit sizes where @p remainder lies.
inline std::pair<unsigned long, float> findCellPastSizes(
    std::size_t count, float remainder, float defaultSize)
{
    if (defaultSize == 0)
        return {count, remainder};
    const float cells = std::floor(remainder / defaultSize);
    const float index = static_cast<float>(count) + cells;
    if (!(index >= 0 && index < 0x1p64F))
        return {count, remainder};
    return {static_cast<unsigned long>(index), remainder - defaultSize * cells};
}

/// @param sumSizes called with [begin, end) of the explicit sizes, gives their sum as double
template <typename SumSizes>
float measureDistance(unsigned long index1, float offset1, unsigned long index2, float offset2,
    std::size_t count, float defaultSize, SumSizes sumSizes)
{
    const bool isOrdered = index1 <= index2;
    const unsigned long low = isOrdered ? index1 : index2;
    unsigned long high = isOrdered ? index2 : index1;
    const float base = isOrdered ? offset2 - offset1 : offset1 - offset2;
    if (count <= low)
        return base + static_cast<float>(high - low) * defaultSize;

    float pastSizes = 0;
    if (count <= high) {
        pastSizes = static_cast<float>(high - count) * defaultSize;
        high = count;
    }
    return static_cast<float>(sumSizes(low, high) + static_cast<double>(base)) + pastSizes;
}

/// Both frame conversions ask @p Conversions for toOffset(point), toPoint(offset) and toSize(from, to).
template <typename Conversions>
class FrameToAbsoluteAnchor : public boost::static_visitor<void>
{
public:
    FrameToAbsoluteAnchor(DOM::Frame& frame, Conversions& conversions)
        : _frame(frame)
        , _conversions(conversions)
    {
    }

    void operator()(const DOM::TextAnchor&) const {}
    void operator()(const DOM::AbsoluteAnchor&) const {}
    void operator()(const DOM::OneCellAnchor& anchor) const { place(anchor.getFrom(), anchor.getExtent()); }
    void operator()(const DOM::TwoCellAnchor& anchor) const
    {
        place(anchor.getFrom(), _conversions.toSize(anchor.getFrom(), anchor.getTo()));
    }

private:
    void place(const DOM::TableOffset& from, const Size2D<float>& size) const
    {
        _frame.setAnchor(DOM::AbsoluteAnchor(_conversions.toPoint(from)));
        _frame.setExtent(size);
    }

    DOM::Frame& _frame;
    Conversions& _conversions;
};

template <typename Conversions>
class FrameTurn : public boost::static_visitor<void>
{
public:
    FrameTurn(DOM::Frame& frame, Conversions& conversions)
        : _frame(frame)
        , _conversions(conversions)
    {
    }

    void operator()(const DOM::TextAnchor&) const {}
    void operator()(const DOM::AbsoluteAnchor& anchor) const
    {
        const Size2D<float> size = getExtent();
        _frame.setAnchor(DOM::AbsoluteAnchor(turn(anchor.getOffset(), size)));
        _frame.setExtent(exchange(size));
    }
    void operator()(const DOM::OneCellAnchor& anchor) const
    {
        const Size2D<float> size = getExtent();
        DOM::OneCellAnchor turned;
        turned.setFrom(_conversions.toOffset(turn(_conversions.toPoint(anchor.getFrom()), size)));
        turned.setExtent(exchange(size));
        _frame.setAnchor(turned);
    }
    void operator()(const DOM::TwoCellAnchor& anchor) const
    {
        const Size2D<float> size = _conversions.toSize(anchor.getFrom(), anchor.getTo());
        const cinder::Vec2<float> point = turn(_conversions.toPoint(anchor.getFrom()), size);
        DOM::TwoCellAnchor turned;
        turned.setFrom(_conversions.toOffset(point));
        turned.setTo(_conversions.toOffset(point + cinder::Vec2<float>(size.getHeight(), size.getWidth())));
        _frame.setAnchor(turned);
    }

private:
    Size2D<float> getExtent() const { return _frame.getExtent().value_or(Size2D<float>()); }

    static Size2D<float> exchange(const Size2D<float>& size) { return {size.getHeight(), size.getWidth()}; }

    static cinder::Vec2<float> turn(const cinder::Vec2<float>& point, const Size2D<float>& size)
    {
        return {point.x + (size.getWidth() - size.getHeight()) * 0.5F,
            point.y + (size.getHeight() - size.getWidth()) * 0.5F};
    }

    DOM::Frame& _frame;
    Conversions& _conversions;
};

/// A copy of @p frame, changed by a Change<Conversions>.
template <template <typename> class Change, typename Conversions>
DOM::Frame changeFrame(const DOM::Frame& frame, Conversions conversions)
{
    DOM::Frame changed(frame);
    boost::apply_visitor(Change<Conversions>(changed, conversions), frame.getAnchor());
    return changed;
}

} // namespace QV::FilterUtils
