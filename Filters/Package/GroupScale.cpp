#include <Filters/Package/GroupScale.h>

#include <algorithm>

namespace QV::Filters {
namespace {

constexpr int GroupUnitsPerDegree = 60000;
constexpr float GroupCoordinateMax = 27273042329600.0F / 12700.0F; // points; ECMA-376 Part 1, 20.1.10.16

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
    return std::clamp(coordinate, -GroupCoordinateMax, GroupCoordinateMax);
}

} // namespace

bool isQuarterTurned(int rotation)
{
    return rotation / GroupUnitsPerDegree % 180 >= 45 && rotation / GroupUnitsPerDegree % 180 < 135;
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

} // namespace QV::Filters
