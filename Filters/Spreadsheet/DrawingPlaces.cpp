#include <Filters/Spreadsheet/DrawingPlaces.h>

#include <algorithm>

#include <boost/variant.hpp>

#include <FilterUtils/FU_AnchorsConverter.h>

namespace QV::Filters {
namespace {

constexpr int UnitsPerDegree = 60000;
constexpr float CoordinateMax = 27273042329600.0F / 12700.0F; // points; ECMA-376 Part 1, 20.1.10.16

DOM::Frame makeFrame(const DrawnObject& object)
{
    DOM::Frame frame;
    frame.setName(object.name);
    frame.setRotation(static_cast<float>(object.transform.rotation) / static_cast<float>(UnitsPerDegree));
    frame.setFlippedHorizontally(object.transform.isFlippedHorizontally);
    frame.setFlippedVertically(object.transform.isFlippedVertically);
    return frame;
}

void place(DOM::Frame& frame, const DrawnBox& box)
{
    frame.setAnchor(DOM::AbsoluteAnchor(box.offset));
    frame.setExtent(box.extent);
}

void setAnchor(DOM::Frame& frame, const DrawnAnchor& anchor, const DrawnObject& object)
{
    switch (anchor.kind) {
    case DrawnAnchor::Kind::None:
        if (object.transform.box)
            place(frame, *object.transform.box);
        return;
    case DrawnAnchor::Kind::Absolute:
        place(frame, {anchor.position, anchor.extent});
        return;
    case DrawnAnchor::Kind::OneCell: {
        DOM::OneCellAnchor oneCell;
        oneCell.setFrom(anchor.from);
        oneCell.setExtent(anchor.extent);
        frame.setAnchor(oneCell);
        frame.setExtent(anchor.extent); // by which it is turned
        return;
    }
    case DrawnAnchor::Kind::TwoCell: {
        DOM::TwoCellAnchor twoCells;
        twoCells.setFrom(anchor.from);
        twoCells.setTo(anchor.to);
        frame.setAnchor(twoCells);
        return;
    }
    }
}

bool beginsBeyondTheEdge(const DOM::Frame& frame)
{
    const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&frame.getAnchor());
    return anchor && (anchor->getOffset().x < 0 || anchor->getOffset().y < 0);
}

DrawnBox exchangeSides(const DrawnBox& box)
{
    const float width = box.extent.getWidth();
    const float height = box.extent.getHeight();
    return {
        {box.offset.x + (width - height) * 0.5F, box.offset.y + (height - width) * 0.5F},
        {height,                                 width                                 }
    };
}

float keepInReach(float coordinate)
{
    return std::clamp(coordinate, -CoordinateMax, CoordinateMax);
}

} // namespace

bool isQuarterTurned(int rotation)
{
    return rotation / UnitsPerDegree % 180 >= 45 && rotation / UnitsPerDegree % 180 < 135;
}

DOM::Frame makeAnchoredFrame(
    const DrawnAnchor& anchor, const DrawnObject& object, FilterUtils::AnchorsConverter& converter)
{
    DOM::Frame frame = makeFrame(object);
    setAnchor(frame, anchor, object);
    // An object's own box is that of the object before it is turned; only anchors keep the exchanged one.
    if (anchor.kind == DrawnAnchor::Kind::None || !isQuarterTurned(object.transform.rotation))
        return frame;
    const DOM::Frame turnedInPoints =
        converter.turnFrameOXMLSpecificWay(converter.convertToAbsoluteAnchor(frame));
    if (beginsBeyondTheEdge(turnedInPoints))
        return turnedInPoints;
    DOM::Frame turned = converter.turnFrameOXMLSpecificWay(frame);
    if (const auto* const oneCell = boost::get<DOM::OneCellAnchor>(&turned.getAnchor()))
        turned.setExtent(oneCell->getExtent());
    return turned;
}

GroupScale::GroupScale(const DrawnBox& group, const DrawnBox& children)
    : _group(group)
    , _children(children)
    , _scaleX(children.extent.getWidth() > 0 ? group.extent.getWidth() / children.extent.getWidth() : 1)
    , _scaleY(children.extent.getHeight() > 0 ? group.extent.getHeight() / children.extent.getHeight() : 1)
{
}

DrawnBox GroupScale::scale(const DrawnBox& box) const
{
    const cinder::Vec2<float> way = box.offset - _children.offset;
    return {
        {keepInReach(_group.offset.x + way.x * _scaleX), keepInReach(_group.offset.y + way.y * _scaleY)},
        {keepInReach(box.extent.getWidth() * _scaleX),   keepInReach(box.extent.getHeight() * _scaleY) }
    };
}

// The sides that a group stretches are those that show.
DrawnBox GroupScale::apply(const DrawnBox& box, int rotation) const
{
    return isQuarterTurned(rotation) ? exchangeSides(scale(exchangeSides(box))) : scale(box);
}

DOM::Frame makePlacedFrame(const DrawnBox& box, const DrawnObject& object)
{
    DOM::Frame frame = makeFrame(object);
    place(frame, box);
    return frame;
}

} // namespace QV::Filters
