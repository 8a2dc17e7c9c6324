#include <Filters/Presentation/TreeElements.h>

#include <array>
#include <utility>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Hyperlink.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/ShapeTree.h>
#include <Filters/Presentation/SlideText.h>
#include <Filters/Presentation/SpatialRotation.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr float RotationUnitsPerDegree = 60000.0F;

const std::array<std::string, 3>& getTreePrefixes()
{
    static const std::array<std::string, 3> prefixes = {
        Names(Dialect::Transitional)(Vocabulary::Presentation, {}),
        Names(Dialect::Strict)(Vocabulary::Presentation, {}),
        "http://schemas.microsoft.com/office/drawing/2008/diagram:",
    };
    return prefixes;
}

bool isTreeFlagSet(const XMLElement& element, const char* name)
{
    const auto text = element.getAttributeValue(name);
    return text && (*text == FilterUtils::XSDTrueValue || *text == "true");
}

// Each kind of object has an element of its own for what is not seen of it.
XMLElement findNonVisualProps(const XMLElement& element)
{
    for (const char* const name : {"nvSpPr", "nvPicPr", "nvCxnSpPr", "nvGrpSpPr", "nvGraphicFramePr"}) {
        XMLElement found = findTreeElement(element, name);
        if (found.isValid())
            return found;
    }
    return {};
}

XMLElement findTransform(const TreeObject& object)
{
    XMLElement own = findTreeElement(object.element, "xfrm"); // of frames
    return own.isValid() ? own : findDrawingElement(object.shapeProps, Vocabulary::Drawing, "xfrm");
}

void placeTreeObject(TreeObject& object, const TreeSurroundings& surroundings, OperationReport& report)
{
    const XMLElement element = findTransform(object);
    const DrawnTransform* const inherited = object.source ? object.source->transform.get_ptr() : nullptr;
    if (element.isValid())
        object.transform = readTransform(element, report);
    if (object.transform && object.transform->box) {
        if (surroundings.scale)
            object.transform->box =
                surroundings.scale->apply(*object.transform->box, object.transform->rotation);
        return;
    }
    if (!inherited)
        return;
    object.placeholder->isPlaceInherited = true;
    if (!object.transform)
        object.transform = *inherited;
    object.transform->box = inherited->box;
}

} // namespace

std::string findTreeElementName(const std::string& qualifiedName)
{
    for (const std::string& prefix : getTreePrefixes())
        if (qualifiedName.compare(0, prefix.size(), prefix) == 0)
            return qualifiedName.substr(prefix.size());
    return {};
}

XMLElement findTreeElement(const XMLElement& parent, const char* name)
{
    for (const std::string& prefix : getTreePrefixes()) {
        XMLElement found = parent.getElement(prefix + name);
        if (found.isValid())
            return found;
    }
    return {};
}

std::string readRelationshipId(const XMLElement& element, const char* name)
{
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict})
        if (auto id = element.getAttributeValue(Names(dialect)(Vocabulary::Relationships, name)))
            return std::move(*id);
    return {};
}

TreeObject readTreeObject(
    const XMLElement& element, const TreeSurroundings& surroundings, const ShapeTreeScope& scope)
{
    OperationReport& report = scope.context.run.getReport();
    TreeObject object;
    object.element = element;
    const XMLElement nonVisual = findNonVisualProps(element);
    object.names = findTreeElement(nonVisual, "cNvPr");
    object.application = findTreeElement(nonVisual, "nvPr");
    object.shapeProps = findTreeElement(element, "spPr");
    if (!object.shapeProps.isValid())
        object.shapeProps = findTreeElement(element, "grpSpPr");
    object.placeholder = readPlaceholder(findTreeElement(object.application, "ph"), report);
    if (object.placeholder && scope.findSource)
        object.source = scope.findSource(*object.placeholder);
    placeTreeObject(object, surroundings, report);
    return object;
}

std::unique_ptr<DOM::Frame> makeTreeFrame(const TreeObject& object, const ShapeTreeScope& scope)
{
    auto frame = std::make_unique<DOM::Frame>();
    frame->setName(object.names.getAttributeValue("name").value_or(std::string()));
    frame->setDescription(object.names.getAttributeValue("descr").value_or(std::string()));
    frame->setHidden(isTreeFlagSet(object.names, "hidden"));
    const DrawnTransform transform = object.transform.value_or(DrawnTransform());
    frame->setAnchor(DOM::AbsoluteAnchor(transform.box ? transform.box->offset : cinder::Vec2<float>()));
    if (transform.box)
        frame->setExtent(transform.box->extent);
    frame->setRotation(static_cast<float>(transform.rotation) / RotationUnitsPerDegree);
    frame->setFlippedHorizontally(transform.isFlippedHorizontally);
    frame->setFlippedVertically(transform.isFlippedVertically);
    frame->setSpatialRotation(
        readSpatialRotation(object.shapeProps, frame->getRotation(), scope.context.run));
    const auto target = readClickTarget(object.names, scope.part, scope.context);
    if (target && !target->empty()) {
        const bool isInside = target->front() == '#';
        frame->setHyperlink(std::make_shared<DOM::Hyperlink>(
            isInside ? std::string() : *target, isInside ? target->substr(1) : std::string()));
    }
    return frame;
}

} // namespace QV::Filters
