#include <Filters/Text/DrawingMLDrawing.h>

#include <cstddef>
#include <string>
#include <string_view>

#include <boost/optional.hpp>

#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Text/DrawnAttributes.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextLeftOut.h>
#include <Filters/Text/TextWords.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::Filters {
namespace {

using Origin = DOM::AbsoluteAnchor::Origin;

struct DrawnOriginName
{
    const char* name;
    Origin origin;
};

// What is not of the page itself counts from the nearest edge that the model knows. ECMA-376 Part 1, 20.4.3.4
// and 20.4.3.5.
constexpr DrawnOriginName DrawnHorizontalOrigins[] = {
    {"page",          Origin::Page  },
    {"margin",        Origin::Margin},
    {"column",        Origin::Column},
    {"character",     Origin::Column},
    {"leftMargin",    Origin::Page  },
    {"insideMargin",  Origin::Page  },
    {"rightMargin",   Origin::Margin},
    {"outsideMargin", Origin::Margin},
};
constexpr DrawnOriginName DrawnVerticalOrigins[] = {
    {"page",          Origin::Page     },
    {"margin",        Origin::Margin   },
    {"paragraph",     Origin::Paragraph},
    {"line",          Origin::Paragraph},
    {"topMargin",     Origin::Page     },
    {"insideMargin",  Origin::Page     },
    {"bottomMargin",  Origin::Margin   },
    {"outsideMargin", Origin::Margin   },
};

template <std::size_t Size>
Origin findDrawnOrigin(const DrawnOriginName (&names)[Size], const boost::optional<std::string>& name)
{
    for (const DrawnOriginName& known : names)
        if (name == std::string(known.name))
            return known.origin;
    return Origin::Page;
}

/// The offset of a "positionH" or "positionV"; one that is aligned begins where it counts from, since nothing
/// here knows the page.
float readDrawnOffset(const FilterUtils::XMLElement& position, OperationReport& report)
{
    const auto offset =
        findDrawingElement(position, Vocabulary::WordProcessingDrawing, "posOffset").getText();
    return offset ? keepDrawnInReach(readCoordinate(*offset, report).value_or(0)) : 0;
}

bool isDrawnTrue(const boost::optional<std::string>& text)
{
    return text && (*text == FilterUtils::XSDTrueValue || *text == "true");
}

bool isShapePropsName(std::u16string_view name)
{
    return name == u"spPr" || name == u"grpSpPr";
}

} // namespace

FilterUtils::XMLStep DrawingMLDrawing::onStart(const FilterUtils::XMLStreamStart& element)
{
    using FilterUtils::XMLStep;
    if (isShapePropsName(element.getLocalName()))
        return _items.getOpen() ? XMLStep::Tree : XMLStep::Skip;
    switch (element.getId()) {
    case TextWords::Inline:
    case TextWords::Anchor:
        begin(element);
        return XMLStep::Enter;
    case TextWords::Extent:
    case TextWords::HorizontalPosition:
    case TextWords::VerticalPosition:
    case TextWords::SimplePosition:
        return _items.getOpen() ? XMLStep::Skip : XMLStep::Tree;
    case TextWords::GraphicData:
        _hasContent = true;
        return _isHidden ? XMLStep::Skip : XMLStep::Enter;
    case TextWords::Picture:
        return startItem(DrawnItem::Kind::Picture, element);
    case TextWords::WordShape:
        return startItem(DrawnItem::Kind::Shape, element);
    case TextWords::WordGroup:
    case TextWords::WordGroupChild:
    case TextWords::WordCanvas:
        return startItem(DrawnItem::Kind::Group, element);
    case TextWords::ShapeStyle:
        return XMLStep::Skip;
    case TextWords::Blip:
        takeBlip(element);
        return XMLStep::Skip;
    case TextWords::Chart:
        return leaveOut(TextLeftOut::Charts);
    case TextWords::Diagram:
        return leaveOut(TextLeftOut::Diagrams);
    default:
        takeName(element);
        return XMLStep::Enter;
    }
}

void DrawingMLDrawing::onTree(
    const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree)
{
    OperationReport report;
    cinder::Vec2<float> offset = _anchor.getOffset();
    Origin horizontal = _anchor.getHorizontalOrigin();
    Origin vertical = _anchor.getVerticalOrigin();
    switch (element.getId()) {
    case TextWords::Extent: {
        const Size2D<float> extent = readSize(tree, report);
        _place.extent = makeDrawnExtent(extent.getWidth(), extent.getHeight());
        break;
    }
    case TextWords::SimplePosition:
        if (_isSimplyPlaced) {
            const cinder::Vec2<float> point = readPoint(tree, report);
            offset = {keepDrawnInReach(point.x), keepDrawnInReach(point.y)};
        }
        break;
    case TextWords::HorizontalPosition:
        if (!_isSimplyPlaced) {
            horizontal = findDrawnOrigin(DrawnHorizontalOrigins, tree.getAttributeValue("relativeFrom"));
            offset.x = readDrawnOffset(tree, report);
        }
        break;
    case TextWords::VerticalPosition:
        if (!_isSimplyPlaced) {
            vertical = findDrawnOrigin(DrawnVerticalOrigins, tree.getAttributeValue("relativeFrom"));
            offset.y = readDrawnOffset(tree, report);
        }
        break;
    default:
        readShape(tree, report);
    }
    _anchor = DOM::AbsoluteAnchor(offset);
    _anchor.setOrigins(horizontal, vertical);
    passDrawnMessages(_context, report);
}

void DrawingMLDrawing::onEnd(const FilterUtils::XMLStreamEnd& element)
{
    if (element.getDepth() == _depth)
        end();
    else
        _items.end(element.getDepth());
}

void DrawingMLDrawing::begin(const FilterUtils::XMLStreamStart& element)
{
    if (isOpen()) // inside of another one, which has no place for it: its objects belong to that
        return;
    _depth = element.getDepth();
    _place = DrawnPlace();
    _anchor = DOM::AbsoluteAnchor();
    _isInText = element.getId() == TextWords::Inline;
    _isSimplyPlaced = isDrawnTrue(findPlainAttribute(element, u"simplePos"));
    _isHidden = false;
    _hasContent = false;
    _isAccounted = false;
}

void DrawingMLDrawing::end()
{
    _depth = 0;
    std::vector<DrawnItem> items = _items.takeDone();
    if (items.empty()) {
        if (_hasContent && !_isHidden && !_isAccounted)
            leaveOut(TextLeftOut::Diagrams);
        return;
    }
    if (!_isInText)
        _place.anchor = _anchor;
    DrawnItem shown;
    if (items.size() == 1) {
        shown = std::move(items.front());
    } else {
        shown.kind = DrawnItem::Kind::Group;
        shown.children = std::move(items);
    }
    if (auto frame = makeDrawnFrame(std::move(_place), std::move(shown)))
        _frames.push_back(std::move(frame));
}

FilterUtils::XMLStep DrawingMLDrawing::startItem(
    DrawnItem::Kind kind, const FilterUtils::XMLStreamStart& element)
{
    _isAccounted = true;
    return _items.start(kind, element.getDepth()) ? FilterUtils::XMLStep::Enter : FilterUtils::XMLStep::Skip;
}

FilterUtils::XMLStep DrawingMLDrawing::leaveOut(const char* what)
{
    _isAccounted = true;
    _context.run.leaveOut(what);
    return FilterUtils::XMLStep::Skip;
}

// The drawing's own name is on "docPr", the names of its objects are on "cNvPr".
void DrawingMLDrawing::takeName(const FilterUtils::XMLStreamStart& element)
{
    const bool isOfDrawing = element.getLocalName() == u"docPr";
    if (!isOfDrawing && element.getLocalName() != u"cNvPr")
        return;
    std::string name = element.findAttributeText(TextWords::PlainName).value_or(std::string());
    if (name.empty())
        name = findPlainAttribute(element, u"descr").value_or(std::string());
    if (isOfDrawing) {
        _place.name = std::move(name);
        _isHidden = isDrawnTrue(findPlainAttribute(element, u"hidden"));
    } else if (DrawnItem* const item = _items.getOpen()) {
        item->name = std::move(name);
    }
}

void DrawingMLDrawing::takeBlip(const FilterUtils::XMLStreamStart& blip)
{
    DrawnItem* const item = _items.getOpen();
    if (!item || item->kind != DrawnItem::Kind::Picture)
        return;
    auto id = blip.findAttributeText(TextWords::RelationshipEmbed);
    if (!id || id->empty())
        id = blip.findAttributeText(TextWords::RelationshipLink);
    if (!id || id->empty())
        return;
    if (const Relationship* const relationship = _relationships.findById(*id))
        item->picture = _context.pictures.makePicture(*relationship);
    else
        _context.report("Picture {} is missing", *id);
}

void DrawingMLDrawing::readShape(const FilterUtils::XMLElement& props, OperationReport& report)
{
    DrawnItem* const item = _items.getOpen();
    if (!item)
        return;
    item->transform = readTransform(findDrawingElement(props, Vocabulary::Drawing, "xfrm"), report);
    item->geometry = findDrawingElement(props, Vocabulary::Drawing, "prstGeom")
                         .getAttributeValue("prst")
                         .value_or(std::string());
    item->fillColor = readDrawingColor(
        findDrawingElement(props, Vocabulary::Drawing, "solidFill"), _context.colors, report);
}

} // namespace QV::Filters
