#include <Filters/Package/DrawingFormats.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingLeftOut.h>
#include <Filters/Package/DrawingValues.h>
#include <Filters/Package/FilterRun.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using ShadowPtr = std::shared_ptr<const DOM::ShapeShadow>;

/// Whether any of its factors or slants says something.
bool isShadowShaped(const XMLElement& shadow, OperationReport& report)
{
    for (const char* const name : {"sx", "sy"})
        if (std::fabs(readShare(shadow.getAttributeValue(name), report).value_or(1) - 1) > 0)
            return true;
    for (const char* const name : {"kx", "ky"})
        if (readAngle(shadow.getAttributeValue(name), report).value_or(0) > 0)
            return true;
    return false;
}

/// Null where it has no colour that can be read.
ShadowPtr readShadow(const XMLElement& element, bool isInner, const DrawingScope& scope)
{
    OperationReport& report = scope.run.getReport();
    const auto color = readDrawingColor(element, scope.colors, report);
    if (!color)
        return nullptr;
    const auto readLength = [&](const char* name) {
        const auto text = element.getAttributeValue(name);
        return text ? std::max(readCoordinate(*text, report).value_or(0), 0.0F) : 0.0F;
    };
    auto shadow = std::make_shared<DOM::ShapeShadow>();
    shadow->color = *color;
    shadow->blur = readLength("blurRad");
    shadow->distance = readLength("dist");
    shadow->direction = static_cast<float>(readAngle(element.getAttributeValue("dir"), report).value_or(0));
    shadow->isInner = isInner;
    shadow->turnsWithShape = readSwitch(element.getAttributeValue("rotWithShape"), true);
    if (isShadowShaped(element, report))
        scope.run.leaveOut(DrawingLeftOut::ShadowShapes);
    return shadow;
}

/// The first shadow of a list; null for none.
ShadowPtr readEffectList(const XMLElement& list, const DrawingScope& scope)
{
    ShadowPtr first;
    forEachDrawingElement(list, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& effect) {
        const bool isInner = name == "innerShdw";
        const bool isShadow = isInner || name == "outerShdw" || name == "prstShdw";
        if (!isShadow || first)
            scope.run.leaveOut(DrawingLeftOut::Effects);
        else
            first = readShadow(effect, isInner, scope);
    });
    return first;
}

} // namespace

void readEffects(const XMLElement& parent, const DrawingScope& scope, DOM::ShapeProps& props)
{
    const auto find = [](const XMLElement& element, const char* name) {
        return findDrawingElement(element, Vocabulary::Drawing, name);
    };
    const XMLElement list = find(parent, "effectLst");
    const XMLElement graph = find(parent, "effectDag");
    if (graph.isValid())
        scope.run.leaveOut(DrawingLeftOut::Effects);
    if (list.isValid() || graph.isValid())
        props.setShadow(readEffectList(list, scope));

    // A camera that looks straight on shows nothing of the third dimension.
    constexpr const char* StraightOn = "orthographicFront";
    const XMLElement camera = find(find(parent, "scene3d"), "camera");
    if (find(parent, "sp3d").isValid() || camera.getAttributeValue("prst").value_or(StraightOn) != StraightOn)
        scope.run.leaveOut(DrawingLeftOut::ThreeDimensions);
}

} // namespace QV::Filters
