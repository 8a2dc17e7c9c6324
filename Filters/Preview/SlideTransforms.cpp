#include <Filters/Preview/SlideTransforms.h>

#include <algorithm>
#include <array>
#include <cmath>

#include <boost/variant/get.hpp>
#include <fmt/format.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Frame.h>
#include <FilterUtils/FU_TransformMatrices.h>
#include <Filters/Preview/SvgNumbers.h>
#include <cinder/Matrix33.h>
#include <cinder/Vector.h>

namespace QV::Filters {
namespace {

constexpr float SlideSideMax = 100'000; // points; far beyond any slide

void addTransform(std::string& transforms, const std::string& transform)
{
    if (!transforms.empty() && !transform.empty())
        transforms += ' ';
    transforms += transform;
}

std::string makeTranslation(double x, double y)
{
    if (x == 0 && y == 0)
        return {};
    return fmt::format("translate({} {})", formatSvgNumber(x), formatSvgNumber(y));
}

bool isTurnedInSpace(const DOM::Frame& frame)
{
    const auto& angles = frame.getSpatialRotation();
    return angles && std::all_of(angles->begin(), angles->end(), [](float a) { return std::isfinite(a); });
}

/// The upper-left part of a matrix whose second axis leads up, where that of a slide leads down, about a
/// centre.
std::string makeProjection(const cinder::Matrix33<float>& matrix, double x, double y)
{
    const double a = matrix.at(0, 0);
    const double b = -matrix.at(1, 0);
    const double c = -matrix.at(0, 1);
    const double d = matrix.at(1, 1);
    return fmt::format("matrix({} {} {} {} {} {})", formatSvgShare(a), formatSvgShare(b), formatSvgShare(c),
        formatSvgShare(d), formatSvgNumber(x - a * x - c * y), formatSvgNumber(y - b * x - d * y));
}

/// Turns about a centre.
std::string makeTurn(const DOM::Frame& frame, double x, double y)
{
    if (isTurnedInSpace(frame)) {
        const std::array<float, 3>& angles = *frame.getSpatialRotation();
        return makeProjection(
            FilterUtils::buildTransformMatrixFromAngleDegrees(angles[0], angles[1], angles[2]), x, y);
    }
    const std::string degrees = formatSvgNumber(std::fmod(frame.getRotation(), 360.0F));
    if (degrees == "0")
        return {};
    return fmt::format("rotate({} {} {})", degrees, formatSvgNumber(x), formatSvgNumber(y));
}

/// Mirrors about a centre.
std::string makeMirror(bool isHorizontal, bool isVertical, double x, double y)
{
    if (!isHorizontal && !isVertical)
        return {};
    std::string transform = makeTranslation(isHorizontal ? 2 * x : 0, isVertical ? 2 * y : 0);
    addTransform(transform, fmt::format("scale({} {})", isHorizontal ? -1 : 1, isVertical ? -1 : 1));
    return transform;
}

} // namespace

boost::optional<DrawnBox> findSlideBox(const DOM::Frame& frame)
{
    const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&frame.getAnchor());
    const auto& extent = frame.getExtent();
    if (!anchor || !extent || !std::isfinite(anchor->getOffset().x) ||
        !std::isfinite(anchor->getOffset().y) || !std::isfinite(extent->getWidth()) ||
        !std::isfinite(extent->getHeight()))
        return boost::none;
    DrawnBox box;
    box.offset = cinder::Vec2<float>(std::clamp(anchor->getOffset().x, -SlideSideMax, SlideSideMax),
        std::clamp(anchor->getOffset().y, -SlideSideMax, SlideSideMax));
    box.extent = Size2D<float>(std::clamp(extent->getWidth(), 0.0F, SlideSideMax),
        std::clamp(extent->getHeight(), 0.0F, SlideSideMax));
    return box;
}

std::string makeFrameTransform(const DOM::Frame& frame, const DrawnBox& box)
{
    std::string transform = makeTranslation(box.offset.x, box.offset.y);
    addTransform(transform, makeTurn(frame, box.extent.getWidth() / 2.0, box.extent.getHeight() / 2.0));
    return transform;
}

std::string makeFlipTransform(const DOM::Frame& frame, const Size2D<float>& size)
{
    return makeMirror(frame.isFlippedHorizontally(), frame.isFlippedVertically(), size.getWidth() / 2.0,
        size.getHeight() / 2.0);
}

std::string makeGroupTransform(const DOM::Frame& frame, const DrawnBox& box)
{
    const double x = box.offset.x + box.extent.getWidth() / 2.0;
    const double y = box.offset.y + box.extent.getHeight() / 2.0;
    std::string transform = makeTurn(frame, x, y);
    addTransform(transform, makeMirror(frame.isFlippedHorizontally(), frame.isFlippedVertically(), x, y));
    return transform;
}

std::string makeUprightTransform(const DOM::Frame& frame, const Size2D<float>& size, bool isMirrored)
{
    const double x = size.getWidth() / 2.0;
    const double y = size.getHeight() / 2.0;
    std::string transform = makeMirror(isMirrored, false, x, y);
    if (frame.isFlippedVertically())
        addTransform(transform, fmt::format("rotate(180 {} {})", formatSvgNumber(x), formatSvgNumber(y)));
    return transform;
}

} // namespace QV::Filters
