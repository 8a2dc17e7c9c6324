#include <Filters/Text/DrawnItems.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include <boost/variant.hpp>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Shape.h>
#include <FilterUtils/FU_GeometryParserUtils.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Text/TextContext.h>
#include <Utils/Public/OperationReport.h>
#include <cinder/Vector.h>

namespace QV::Filters {
namespace {

constexpr float DrawnPointsMax = 1e6F;
constexpr int DrawnUnitsPerDegree = 60000;
constexpr const char* TooManyDrawnObjects = "drawn objects beyond the first 100,000";

/// From the coordinates of a group's children to those of what the group stands in.
class DrawnGroupScale
{
public:
    DrawnGroupScale(const DrawnBox& group, const DrawnBox& children)
        : _group(group.offset)
        , _children(children.offset)
        , _scaleX(findScale(group.extent.getWidth(), children.extent.getWidth()))
        , _scaleY(findScale(group.extent.getHeight(), children.extent.getHeight()))
    {
    }

    /// A box is that of the object before it is turned; a group stretches the sides as they show, about the
    /// centre, which turning leaves alone.
    DrawnBox apply(const DrawnBox& box, int rotation) const
    {
        const int degrees = rotation / DrawnUnitsPerDegree % 180;
        const bool isQuarterTurned = degrees >= 45 && degrees < 135;
        const float width = box.extent.getWidth() * (isQuarterTurned ? _scaleY : _scaleX);
        const float height = box.extent.getHeight() * (isQuarterTurned ? _scaleX : _scaleY);
        const float centerX = (box.offset.x - _children.x + box.extent.getWidth() / 2) * _scaleX;
        const float centerY = (box.offset.y - _children.y + box.extent.getHeight() / 2) * _scaleY;
        return {
            {keepDrawnInReach(_group.x + centerX - width / 2),
             keepDrawnInReach(_group.y + centerY - height / 2)                         },
            {keepDrawnInReach(width),                          keepDrawnInReach(height)}
        };
    }

private:
    static float findScale(float group, float children) { return children > 0 ? group / children : 1; }

    cinder::Vec2<float> _group;
    cinder::Vec2<float> _children;
    float _scaleX;
    float _scaleY;
};

void turnDrawnFrame(DOM::Frame& frame, const DrawnTransform& transform)
{
    frame.setRotation(static_cast<float>(transform.rotation) / static_cast<float>(DrawnUnitsPerDegree));
    frame.setFlippedHorizontally(transform.isFlippedHorizontally);
    frame.setFlippedVertically(transform.isFlippedVertically);
}

/// Makes the objects of one drawing, whose offsets all count from the same corner.
class DrawnObjectMaker
{
public:
    explicit DrawnObjectMaker(const DOM::AbsoluteAnchor& corner)
        : _corner(corner)
    {
    }

    std::unique_ptr<DOM::GraphicalObject> make(DrawnItem& item, const DrawnBox& box) const
    {
        if (item.kind == DrawnItem::Kind::Group)
            return makeGroup(item, box);
        if (item.kind == DrawnItem::Kind::Picture && item.blocks.empty())
            return std::move(item.picture);
        if (item.picture)
            return makePictureWithText(item, box);
        return makeShape(item);
    }

private:
    static std::unique_ptr<DOM::GraphicalObject> makeShape(DrawnItem& item)
    {
        auto shape = std::make_unique<DOM::Shape>();
        if (!item.geometry.empty())
            shape->setPresetGeometry(FilterUtils::makeOOXMLPresetType(item.geometry));
        shape->setFillColor(item.fillColor);
        if (!item.blocks.empty())
            shape->setText(DOM::SharedCellText(new DOM::CellText(std::move(item.blocks))));
        return shape;
    }

    // A picture of the model has no text: a shape before it has.
    std::unique_ptr<DOM::GraphicalObject> makePictureWithText(DrawnItem& item, const DrawnBox& box) const
    {
        auto group = std::make_unique<DOM::Shape>();
        auto picture = makeFrame(box);
        picture->setGraphicalObject(std::move(item.picture));
        group->appendChild(std::move(picture));
        auto text = makeFrame(box);
        text->setGraphicalObject(makeShape(item));
        group->appendChild(std::move(text));
        return group;
    }

    std::unique_ptr<DOM::GraphicalObject> makeGroup(DrawnItem& item, const DrawnBox& box) const
    {
        const DrawnBox fromItsCorner{{}, box.extent};
        const boost::optional<DrawnBox>& own =
            item.transform.childBox ? item.transform.childBox : item.transform.box;
        const DrawnGroupScale scale(box, own.value_or(fromItsCorner));
        auto group = std::make_unique<DOM::Shape>();
        for (DrawnItem& child : item.children) {
            const DrawnTransform& transform = child.transform;
            const DrawnBox childBox = transform.box ? scale.apply(*transform.box, transform.rotation) : box;
            auto shown = make(child, childBox);
            if (!shown)
                continue;
            auto frame = makeFrame(childBox);
            frame->setName(child.name);
            turnDrawnFrame(*frame, transform);
            frame->setGraphicalObject(std::move(shown));
            group->appendChild(std::move(frame));
        }
        return group->getChildren().empty() ? nullptr : std::move(group);
    }

    std::unique_ptr<DOM::Frame> makeFrame(const DrawnBox& box) const
    {
        auto frame = std::make_unique<DOM::Frame>();
        DOM::AbsoluteAnchor anchor(box.offset);
        anchor.setOrigins(_corner.getHorizontalOrigin(), _corner.getVerticalOrigin());
        frame->setAnchor(anchor);
        frame->setExtent(box.extent);
        return frame;
    }

    DOM::AbsoluteAnchor _corner;
};

} // namespace

DrawnItem* DrawnItemStack::start(DrawnItem::Kind kind, std::size_t depth)
{
    if (!_open.empty() && _open.back().item.kind != DrawnItem::Kind::Group)
        return nullptr;
    if (_open.size() == DepthMax) {
        _context.report("Groups deeper than {} levels are left out", std::to_string(DepthMax));
        return nullptr;
    }
    if (_context.drawnObjectsLeft == 0) {
        _context.run.leaveOut(TooManyDrawnObjects);
        return nullptr;
    }
    --_context.drawnObjectsLeft;
    _open.push_back({DrawnItem(), depth});
    _open.back().item.kind = kind;
    return &_open.back().item;
}

bool DrawnItemStack::end(std::size_t depth)
{
    if (_open.empty() || _open.back().depth != depth)
        return false;
    DrawnItem item = std::move(_open.back().item);
    _open.pop_back();
    getSiblings().push_back(std::move(item));
    return _open.empty();
}

void DrawnItemStack::addText(std::vector<std::unique_ptr<DOM::Block>> blocks)
{
    if (_open.empty() || _open.back().item.kind == DrawnItem::Kind::Group) {
        getSiblings().emplace_back();
        getSiblings().back().blocks = std::move(blocks);
        return;
    }
    std::vector<std::unique_ptr<DOM::Block>>& all = _open.back().item.blocks;
    std::move(blocks.begin(), blocks.end(), std::back_inserter(all));
}

std::vector<DrawnItem> DrawnItemStack::takeDone()
{
    return std::exchange(_done, {});
}

std::shared_ptr<const DOM::Frame> makeDrawnFrame(DrawnPlace place, DrawnItem item)
{
    const auto* const absolute = boost::get<DOM::AbsoluteAnchor>(&place.anchor);
    const DOM::AbsoluteAnchor corner = absolute ? *absolute : DOM::AbsoluteAnchor();
    for (const boost::optional<DrawnBox>* const own : {&item.transform.box, &item.transform.childBox})
        if (!place.extent && *own)
            place.extent = makeDrawnExtent((*own)->extent.getWidth(), (*own)->extent.getHeight());
    const DrawnBox box{corner.getOffset(), place.extent.value_or(Size2D<float>())};

    auto shown = DrawnObjectMaker(corner).make(item, box);
    if (!shown)
        return nullptr;
    auto frame = std::make_shared<DOM::Frame>();
    frame->setAnchor(place.anchor);
    frame->setExtent(place.extent);
    frame->setName(place.name.empty() ? item.name : place.name);
    turnDrawnFrame(*frame, item.transform);
    frame->setGraphicalObject(std::move(shown));
    return frame;
}

float keepDrawnInReach(float points)
{
    return std::isnan(points) ? 0 : std::clamp(points, -DrawnPointsMax, DrawnPointsMax);
}

boost::optional<Size2D<float>> makeDrawnExtent(float width, float height)
{
    const Size2D<float> extent(
        std::max(keepDrawnInReach(width), 0.0F), std::max(keepDrawnInReach(height), 0.0F));
    return extent == Size2D<float>() ? boost::none : boost::make_optional(extent);
}

void passDrawnMessages(TextContext& context, const OperationReport& messages)
{
    for (const OperationReport::Message& message : messages.getMessages())
        if (context.messages.add(message.getText()))
            context.getReport().emplace_back(message);
}

} // namespace QV::Filters
