#include <Filters/Presentation/ShapeReader.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/Document.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <Filters/Package/AlternateContent.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/DrawingLeftOut.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/Placeholders.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/ShapeTree.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Filters/Presentation/SlideText.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

/// All layers of an object's properties, and what its style says of its text.
ReferredFormats readLayeredProps(
    const TreeObject& object, const TreeSurroundings& surroundings, const ShapeTreeScope& scope)
{
    const DrawingScope drawing = scope.part.makeDrawingScope(scope.context, surroundings.fill);
    ReferredFormats formats = readReferredFormats(findTreeElement(object.element, "style"), drawing);
    DOM::ShapeProps props = object.source ? object.source->props : DOM::ShapeProps();
    override(props, formats.props);
    readShapeProps(object.shapeProps, drawing, props);
    formats.props = std::move(props);
    return formats;
}

void applyFontOfStyle(const ReferredFormats& formats, const ShapeTreeScope& scope, DOM::TextLevels& levels)
{
    const auto font = formats.fontName.empty() ? boost::none : scope.part.theme->findFont(formats.fontName);
    for (DOM::TextLevel& level : levels) {
        if (formats.fontColor)
            level.runProps.setColor(formats.fontColor);
        if (font)
            level.runProps.setFontName(font);
    }
}

/// What an object that takes this one's place over takes over.
void addPlaceholderSource(const TreeObject& object, const XMLElement& textBody, const DOM::ShapeProps& props,
    const ShapeTreeScope& scope)
{
    PlaceholderSource source;
    source.placeholder = *object.placeholder;
    if (object.transform && object.transform->box)
        source.transform = object.transform;
    source.props = props;
    if (object.source)
        source.levels = object.source->levels;
    const XMLElement ownStyles = findDrawingElement(textBody, Vocabulary::Drawing, "lstStyle");
    overrideLevels(source.levels, readTextLevels(ownStyles, scope.part, scope.context));
    if (!scope.placeholders->add(std::move(source)))
        scope.context.report("Part {} has too many placeholders; those that come last give nothing to others",
            scope.part.name);
}

bool isPlainOutline(const DOM::ShapeGeometry& geometry)
{
    return geometry.preset == "ooxml-rect" || (geometry.preset.empty() && geometry.paths.empty());
}

/// What is seen around a picture; null for a plain rectangle.
std::shared_ptr<const DOM::ShapeProps> makePictureProps(const DOM::ShapeProps& all)
{
    DOM::ShapeProps props;
    if (all.getLineFill() && all.getLineFill()->type() != typeid(DOM::NoFill)) {
        props.setLineFill(all.getLineFill());
        props.setLineWidth(all.getLineWidth());
        props.setLineDash(all.getLineDash());
        props.setLineCap(all.getLineCap());
        props.setLineJoin(all.getLineJoin());
    }
    props.setShadow(all.getShadow());
    if (all.getGeometry() && !isPlainOutline(*all.getGeometry()))
        props.setGeometry(all.getGeometry());
    return isEmpty(props) ? nullptr : std::make_shared<const DOM::ShapeProps>(std::move(props));
}

/// Whether it takes long to compare. Any number of placeholders may have such an outline from their layout,
/// and looking for an equal style walks through it each time.
bool isLargeOutline(const DOM::ShapeGeometry* geometry)
{
    constexpr std::size_t PartsMax = 1000;
    std::size_t count = geometry ? geometry->adjustValues.size() + geometry->guides.size() : 0;
    for (std::size_t i = 0; geometry && i < geometry->paths.size(); ++i)
        count += 1 + geometry->paths[i].commands.size();
    return count > PartsMax;
}

void leaveOutBends(const XMLElement& bodyProperties, FilterRun& run)
{
    constexpr const char* Straight = "textNoShape";
    const XMLElement warp = findDrawingElement(bodyProperties, Vocabulary::Drawing, "prstTxWarp");
    if (warp.getAttributeValue("prst").value_or(Straight) != Straight)
        run.leaveOut(SlideLeftOut::TextEffects);
}

void leaveOutMedia(const XMLElement& application, FilterRun& run)
{
    for (const char* const name : {"audioCd", "wavAudioFile", "audioFile", "videoFile", "quickTimeFile"})
        if (findDrawingElement(application, Vocabulary::Drawing, name).isValid())
            run.leaveOut(SlideLeftOut::Media);
}

} // namespace

DOM::TextLevels makeBaseLevels(
    const boost::optional<DOM::Placeholder>& placeholder, const ShapeTreeScope& scope)
{
    if (!placeholder) {
        DOM::TextLevels levels = scope.textStyles.other;
        overrideLevels(levels, scope.textStyles.defaults);
        return levels;
    }
    DOM::TextLevels levels = scope.textStyles.defaults;
    switch (getTextStyleKind(placeholder)) {
    case TextStyleKind::Title:
        overrideLevels(levels, scope.textStyles.title);
        break;
    case TextStyleKind::Body:
        overrideLevels(levels, scope.textStyles.body);
        break;
    case TextStyleKind::Other:
        overrideLevels(levels, scope.textStyles.other);
        break;
    }
    return levels;
}

std::unique_ptr<DOM::Shape> readTreeShape(const TreeObject& object, DOM::Shape::Kind kind,
    const TreeSurroundings& surroundings, const ShapeTreeScope& scope)
{
    if (object.element.getAttributeValue("useBgFill").value_or("0") == FilterUtils::XSDTrueValue)
        scope.context.run.leaveOut(SlideLeftOut::BackgroundFills);
    ReferredFormats formats = readLayeredProps(object, surroundings, scope);
    const XMLElement textBody = findTreeElement(object.element, "txBody");
    const XMLElement bodyProperties = findDrawingElement(textBody, Vocabulary::Drawing, "bodyPr");
    readTextBodyProps(bodyProperties, formats.props, scope.context.run.getReport());
    leaveOutBends(bodyProperties, scope.context.run);

    DOM::TextLevels levels = makeBaseLevels(object.placeholder, scope);
    applyFontOfStyle(formats, scope, levels);
    if (object.source)
        overrideLevels(levels, object.source->levels);

    auto shape = std::make_unique<DOM::Shape>();
    shape->setKind(kind);
    shape->setPlaceholder(object.placeholder);
    shape->setText(readSlideText(textBody, {scope.context, scope.part, std::move(levels)}));
    setTreeShapeProps(*shape, formats.props, scope);
    if (scope.placeholders && object.placeholder)
        addPlaceholderSource(object, textBody, formats.props, scope);
    return shape;
}

std::unique_ptr<DOM::Picture> readTreePicture(
    const TreeObject& object, const TreeSurroundings& surroundings, const ShapeTreeScope& scope)
{
    leaveOutMedia(object.application, scope.context.run);
    const auto fill = readTreePictureFill(object.element, surroundings, scope);
    if (!fill)
        return nullptr;
    auto picture = std::make_unique<DOM::Picture>(fill->mediaId, fill->mimeType);
    picture->setCrop(fill->crop);
    if (fill->opacity < 1 || !fill->duotone.empty()) // of fills alone
        scope.context.run.leaveOut(DrawingLeftOut::PictureEffects);
    picture->setShapeProps(makePictureProps(readLayeredProps(object, surroundings, scope).props));
    return picture;
}

boost::optional<DOM::PictureFill> readTreePictureFill(
    const XMLElement& picture, const TreeSurroundings& surroundings, const ShapeTreeScope& scope)
{
    XMLElement blipFill = findTreeElement(picture, "blipFill");
    const AlternateContent alternatives(scope.part.root, {});
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict})
        if (!blipFill.isValid())
            blipFill = alternatives.getElement(picture, Names(dialect)(Vocabulary::Presentation, "blipFill"));
    return readPictureFill(blipFill, scope.part.makeDrawingScope(scope.context, surroundings.fill));
}

void setTreeShapeProps(DOM::Shape& shape, const DOM::ShapeProps& props, const ShapeTreeScope& scope)
{
    if (isEmpty(props))
        return;
    DOM::ShapeStyle style;
    style.setShapeProps(std::make_shared<const DOM::ShapeProps>(props));
    if (isLargeOutline(props.getGeometry().get()))
        shape.setSharedStyle(DOM::SharedShapeStyle(std::make_unique<DOM::ShapeStyle>(style).release()));
    else
        shape.setSharedStyle(scope.context.run.getDocument().getSharedObjectFactory().getShared(style));
}

} // namespace QV::Filters
