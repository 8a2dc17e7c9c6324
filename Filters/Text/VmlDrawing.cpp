#include <Filters/Text/VmlDrawing.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include <boost/optional.hpp>
#include <boost/variant.hpp>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Paragraph.h>
#include <FilterUtils/FU_Text.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Text/DrawnAttributes.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextWords.h>
#include <Filters/Text/VmlShapes.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::Filters {
namespace {

constexpr cinder::Vec2<float> VmlUsualCoordinateSize(1000, 1000);

bool isOfFalse(const boost::optional<std::string>& text)
{
    return text && isVmlFalse(*text);
}

/// The preset of a shape: its element's own, or that of the type which it refers to.
std::string findVmlGeometry(const FilterUtils::XMLStreamStart& element)
{
    const std::string ofElement = findVmlElementGeometry(getPlainName(element));
    if (!ofElement.empty())
        return ofElement;
    auto type = findVmlShapeType(element.findAttributeText(TextWords::VmlTypeId).value_or(std::string()));
    if (!type)
        type = findVmlShapeType(
            "shapetype_" + element.findAttributeText(TextWords::VmlSpType).value_or(std::string()));
    return type ? findVmlTypeGeometry(*type) : std::string();
}

boost::optional<DOM::Color> readVmlFillColor(
    const FilterUtils::XMLStreamStart& element, OperationReport& report)
{
    const auto color = element.findAttributeText(TextWords::VmlFillColor);
    if (!color || isOfFalse(element.findAttributeText(TextWords::VmlFilled)))
        return boost::none;
    return readVmlColor(*color, report);
}

/// What the coordinates in a group are, by its box.
DrawnBox readVmlChildBox(const FilterUtils::XMLStreamStart& group)
{
    const cinder::Vec2<float> origin =
        readVmlPair(group.findAttributeText(TextWords::VmlCoordinateOrigin).value_or(std::string()), {});
    const cinder::Vec2<float> size =
        readVmlPair(group.findAttributeText(TextWords::VmlCoordinateSize).value_or(std::string()),
            VmlUsualCoordinateSize);
    return {
        origin,
        {size.x > 0 ? size.x : VmlUsualCoordinateSize.x, size.y > 0 ? size.y : VmlUsualCoordinateSize.y}
    };
}

/// Points of a unit inside of a group.
VmlUnits makeVmlUnits(const VmlUnits& outer, const DrawnItem& group)
{
    VmlUnits units;
    units.areOfGroup = true;
    units.pointsX = 1;
    units.pointsY = 1;
    if (!group.transform.box || !group.transform.childBox)
        return units;
    const Size2D<float>& size = group.transform.box->extent;
    const Size2D<float>& inner = group.transform.childBox->extent;
    const float width = outer.areOfGroup ? size.getWidth() * outer.pointsX : size.getWidth();
    const float height = outer.areOfGroup ? size.getHeight() * outer.pointsY : size.getHeight();
    if (width > 0)
        units.pointsX = width / inner.getWidth();
    if (height > 0)
        units.pointsY = height / inner.getHeight();
    return units;
}

} // namespace

FilterUtils::XMLStep VmlDrawing::onStart(const FilterUtils::XMLStreamStart& element)
{
    using FilterUtils::XMLStep;
    if (element.getLocalName() == u"shapetype") // a definition, which shows nothing
        return XMLStep::Skip;
    const int word = element.getId();
    if (word == TextWords::VmlShape || word == TextWords::VmlGroup)
        return startShape(element);
    DrawnItem* const item = _items.getOpen();
    if (!item)
        return XMLStep::Enter;
    switch (word) {
    case TextWords::VmlImageData:
        takePicture(element, *item);
        return XMLStep::Skip;
    case TextWords::VmlFill:
        takeFill(element, *item);
        return XMLStep::Skip;
    case TextWords::VmlTextPath: {
        auto paragraph = std::make_unique<DOM::Paragraph>();
        const std::string text = element.findAttributeText(TextWords::VmlText).value_or(std::string());
        if (text.empty())
            return XMLStep::Skip;
        paragraph->appendText(text);
        item->blocks.push_back(std::move(paragraph));
        return XMLStep::Skip;
    }
    default:
        return XMLStep::Enter;
    }
}

void VmlDrawing::onEnd(const FilterUtils::XMLStreamEnd& element)
{
    const std::size_t depth = _items.getDepth();
    const bool isDone = _items.end(element.getDepth());
    if (_items.getDepth() < depth)
        _units.pop_back();
    if (isDone)
        endDone();
}

void VmlDrawing::addText(std::vector<std::unique_ptr<DOM::Block>> blocks)
{
    if (!_items.getOpen())
        _place = DrawnPlace();
    _items.addText(std::move(blocks));
    if (!_items.getOpen())
        endDone();
}

std::vector<std::shared_ptr<const DOM::Frame>> VmlDrawing::takeFrames()
{
    return std::exchange(_frames, {});
}

FilterUtils::XMLStep VmlDrawing::startShape(const FilterUtils::XMLStreamStart& element)
{
    const VmlStyle style =
        readVmlStyle(element.findAttributeText(TextWords::VmlStyle).value_or(std::string()));
    if (isVmlHidden(style))
        return FilterUtils::XMLStep::Skip;
    const std::u16string_view name = element.getLocalName();
    const bool isGroup = element.getId() == TextWords::VmlGroup || name == u"group";
    DrawnItem* const item =
        _items.start(isGroup ? DrawnItem::Kind::Group : DrawnItem::Kind::Shape, element.getDepth());
    if (!item)
        return FilterUtils::XMLStep::Skip;

    OperationReport report;
    item->name = findPlainAttribute(element, u"alt").value_or(std::string());
    placeShape(element, style, *item, report);
    _units.push_back(makeVmlUnits(_units.empty() ? VmlUnits() : _units.back(), *item));
    if (!isGroup) {
        item->geometry = findVmlGeometry(element);
        item->fillColor = readVmlFillColor(element, report);
    }
    passDrawnMessages(_context, report);
    if (name == u"image")
        takePicture(element, *item);
    return FilterUtils::XMLStep::Enter;
}

void VmlDrawing::placeShape(const FilterUtils::XMLStreamStart& element, const VmlStyle& style,
    DrawnItem& item, OperationReport& report)
{
    const bool isOutermost = _units.empty();
    const VmlUnits units = isOutermost ? VmlUnits() : _units.back();
    const auto from = findPlainAttribute(element, u"from");
    const auto to = findPlainAttribute(element, u"to");
    const bool isLine = from && to;
    if (isLine)
        item.transform = readVmlLine(*from, *to, units, report);
    else
        item.transform.box = readVmlBox(style, units, report);
    readVmlTurn(style, item.transform, report);
    if (item.kind == DrawnItem::Kind::Group)
        item.transform.childBox = readVmlChildBox(element);
    if (!isOutermost)
        return;

    OperationReport again; // what the box told already
    _place = DrawnPlace();
    _place.anchor = readVmlAnchor(style, item.transform.box && !isLine ? again : report);
    if (!item.transform.box)
        return;
    const DrawnBox& box = *item.transform.box;
    _place.extent = makeDrawnExtent(box.extent.getWidth(), box.extent.getHeight());
    if (auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&_place.anchor); anchor && isLine) {
        DOM::AbsoluteAnchor moved({keepDrawnInReach(anchor->getOffset().x + box.offset.x),
            keepDrawnInReach(anchor->getOffset().y + box.offset.y)});
        moved.setOrigins(anchor->getHorizontalOrigin(), anchor->getVerticalOrigin());
        _place.anchor = moved;
    }
}

void VmlDrawing::takeFill(const FilterUtils::XMLStreamStart& fill, DrawnItem& item)
{
    OperationReport report;
    if (const auto color = findPlainAttribute(fill, u"color"))
        item.fillColor = readVmlColor(*color, report);
    const std::string type = findPlainAttribute(fill, u"type").value_or("solid");
    if (type != "solid" || isOfFalse(findPlainAttribute(fill, u"on")))
        item.fillColor = boost::none; // a pattern, a gradient or a picture is no colour
    const auto opacity = findPlainAttribute(fill, u"opacity");
    const auto part = opacity ? readVmlFraction(*opacity, report) : boost::none;
    if (part && item.fillColor) {
        DOM::Color::RGBA rgba = item.fillColor->getRGBA();
        rgba.a = static_cast<unsigned char>(std::lround(*part * 255));
        item.fillColor = DOM::Color(rgba);
    }
    passDrawnMessages(_context, report);
}

void VmlDrawing::takePicture(const FilterUtils::XMLStreamStart& element, DrawnItem& item)
{
    if (item.name.empty())
        item.name = element.findAttributeText(TextWords::VmlTitle).value_or(std::string());
    boost::optional<std::string> id;
    for (const auto& candidate : {element.findAttributeText(TextWords::RelationshipId),
             element.findAttributeText(TextWords::VmlRelationshipId),
             findForeignAttribute(element, u"/relationships", u"href")})
        if ((!id || id->empty()) && candidate)
            id = candidate;
    if (id && !id->empty()) {
        item.kind = DrawnItem::Kind::Picture;
        if (const Relationship* const relationship = _relationships.findById(*id))
            item.picture = _context.pictures.makePicture(*relationship);
        else
            _context.report("Picture {} is missing", *id);
        return;
    }
    const auto source = element.findAttributeText(TextWords::VmlSource);
    if (!source || source->empty())
        return; // the shape is all there is
    item.kind = DrawnItem::Kind::Picture;
    item.picture = makeSourcePicture(*source);
}

std::unique_ptr<DOM::Picture> VmlDrawing::makeSourcePicture(const std::string& source)
{
    const bool isData = source.compare(0, 5, "data:") == 0;
    if (!isData)
        return _context.pictures.makePicture(Relationship{std::string(), std::string(), source, true});
    std::string mimeType;
    const std::string bytes = FilterUtils::getRawImageData(source, mimeType);
    if (!bytes.empty())
        return _context.pictures.makePictureFromBytes(bytes, mimeType);
    constexpr std::size_t SourceBytesMax = 100; // before the data, there is nothing of interest
    std::string start = source.substr(0, std::min(source.find(','), 2 * SourceBytesMax));
    cutUtf8(start, SourceBytesMax);
    _context.report("Picture {} cannot be decoded", start);
    return nullptr;
}

void VmlDrawing::endDone()
{
    for (DrawnItem& item : _items.takeDone())
        if (auto frame = makeDrawnFrame(_place, std::move(item)))
            _frames.push_back(std::move(frame));
}

} // namespace QV::Filters
