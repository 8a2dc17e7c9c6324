#include <Filters/Spreadsheet/DrawingPlaces.h>

#include <boost/variant.hpp>

#include <FilterUtils/FU_AnchorsConverter.h>
#include <Filters/Package/GroupScale.h>

namespace QV::Filters {
namespace {

constexpr int UnitsPerDegree = 60000;

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

} // namespace

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

DOM::Frame makePlacedFrame(const DrawnBox& box, const DrawnObject& object)
{
    DOM::Frame frame = makeFrame(object);
    place(frame, box);
    return frame;
}

} // namespace QV::Filters
