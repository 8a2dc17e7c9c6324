#include <Filters/Spreadsheet/DrawingReader.h>

#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Spreadsheet/DrawingMessages.h>
#include <Filters/Spreadsheet/DrawingWords.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using FilterUtils::XMLFlow;
using FilterUtils::XMLStep;
using FilterUtils::XMLStreamElement;
using FilterUtils::XMLStreamEnd;
using FilterUtils::XMLStreamStart;

constexpr std::size_t GroupsDeepMax = 50;

boost::optional<DrawnAnchor::Kind> findAnchorKind(int word)
{
    switch (word) {
    case DrawingWords::AbsoluteAnchor:
        return DrawnAnchor::Kind::Absolute;
    case DrawingWords::OneCellAnchor:
        return DrawnAnchor::Kind::OneCell;
    case DrawingWords::TwoCellAnchor:
        return DrawnAnchor::Kind::TwoCell;
    default:
        return boost::none;
    }
}

boost::optional<DrawnObject::Kind> findObjectKind(int word)
{
    switch (word) {
    case DrawingWords::Picture:
        return DrawnObject::Kind::Picture;
    case DrawingWords::Shape:
    case DrawingWords::Connector:
        return DrawnObject::Kind::Shape;
    case DrawingWords::Group:
        return DrawnObject::Kind::Group;
    case DrawingWords::GraphicFrame:
        return DrawnObject::Kind::GraphicFrame;
    default:
        return boost::none;
    }
}

class DrawingHandler final : public FilterUtils::XMLStreamHandler
{
public:
    DrawingHandler(const std::string& part, std::size_t objectsMax, const Colors& colors,
        DrawingMessages& messages, const DrawingReader::TakeAnchor& takeAnchor)
        : _part(part)
        , _objectsMax(objectsMax)
        , _colors(colors)
        , _messages(messages)
        , _takeAnchor(takeAnchor)
    {
    }

    XMLStep onStart(const XMLStreamStart& element) override
    {
        const int word = element.getId();
        if (word == DrawingWords::Choice) // only what every reader understands is read: the fallback
            return XMLStep::Skip;
        if (const auto kind = findAnchorKind(word)) {
            if (_anchorDepth != 0)
                return XMLStep::Skip;
            _anchor = DrawnAnchor();
            _anchor.kind = *kind;
            _anchorDepth = element.getDepth();
            return XMLStep::Enter;
        }
        if (const auto kind = findObjectKind(word))
            return startObject(*kind);
        return _objects.empty() ? startOfAnchor(word) : startOfObject(element, _objects.back());
    }

    XMLFlow onTree(const XMLStreamElement& element, const XMLElement& tree) override
    {
        switch (element.getId()) {
        case DrawingWords::From:
            _anchor.from = readMarker(tree, _report);
            break;
        case DrawingWords::To:
            _anchor.to = readMarker(tree, _report);
            break;
        case DrawingWords::Position:
            _anchor.position = readPoint(tree, _report);
            break;
        case DrawingWords::Extent:
            _anchor.extent = readSize(tree, _report);
            break;
        case DrawingWords::GraphicFrameTransform:
            _objects.back().transform = readTransform(tree, _report);
            break;
        default:
            readShapeProps(tree, _objects.back());
        }
        return XMLFlow::Continue;
    }

    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        if (element.getId() == DrawingWords::Text && !_objects.back().paragraphs.empty())
            element.appendText(_objects.back().paragraphs.back());
        else if (findObjectKind(element.getId()))
            endObject();
        else if (findAnchorKind(element.getId()) && element.getDepth() == _anchorDepth)
            endAnchor();
        return XMLFlow::Continue;
    }

    std::size_t getObjectsCount() const { return _objectsCount; }

private:
    XMLStep startObject(DrawnObject::Kind kind)
    {
        if (!_objects.empty() && _objects.back().kind != DrawnObject::Kind::Group)
            return XMLStep::Skip;
        if (kind == DrawnObject::Kind::Group && _objects.size() == GroupsDeepMax) {
            if (!std::exchange(_isDepthReported, true))
                _messages.add(
                    "Groups in {} deeper than {} levels are left out", _part, std::to_string(GroupsDeepMax));
            return XMLStep::Skip;
        }
        if (++_objectsCount > _objectsMax)
            return XMLStep::Stop;
        DrawnObject object{};
        object.kind = kind;
        _objects.push_back(std::move(object));
        return XMLStep::Enter;
    }

    XMLStep startOfAnchor(int word) const
    {
        switch (word) {
        case DrawingWords::From:
        case DrawingWords::To:
        case DrawingWords::Position:
        case DrawingWords::Extent:
            return _anchorDepth != 0 ? XMLStep::Tree : XMLStep::Skip;
        case DrawingWords::NonVisualProps:
        case DrawingWords::ShapeProps:
        case DrawingWords::GroupProps:
        case DrawingWords::GraphicFrameTransform:
        case DrawingWords::TextBody:
        case DrawingWords::ShapeStyle:
            return XMLStep::Skip; // of an object of a kind that is not known
        default:
            return XMLStep::Enter;
        }
    }

    XMLStep startOfObject(const XMLStreamStart& element, DrawnObject& object)
    {
        switch (element.getId()) {
        case DrawingWords::NonVisualProps:
            object.name = element.findAttributeText(DrawingWords::Name).value_or(object.name);
            return XMLStep::Skip;
        case DrawingWords::ShapeProps:
        case DrawingWords::GroupProps:
        case DrawingWords::GraphicFrameTransform:
            return XMLStep::Tree;
        case DrawingWords::ShapeStyle:
            return XMLStep::Skip;
        case DrawingWords::Blip:
            if (object.kind == DrawnObject::Kind::Picture)
                takePicture(element, object);
            return XMLStep::Skip;
        case DrawingWords::Chart:
            object.relationshipId =
                element.findAttributeText(DrawingWords::RelationshipId).value_or(std::string());
            return XMLStep::Skip;
        case DrawingWords::Paragraph:
            object.paragraphs.emplace_back();
            return XMLStep::Enter;
        case DrawingWords::Text:
            return XMLStep::EnterText;
        case DrawingWords::LineBreak:
            if (!object.paragraphs.empty())
                object.paragraphs.back() += '\n';
            return XMLStep::Skip;
        default:
            return XMLStep::Enter;
        }
    }

    static void takePicture(const XMLStreamStart& blip, DrawnObject& picture)
    {
        auto id = blip.findAttributeText(DrawingWords::Embed);
        if (!id || id->empty())
            id = blip.findAttributeText(DrawingWords::Link);
        picture.relationshipId = id.value_or(std::string());
    }

    void readShapeProps(const XMLElement& props, DrawnObject& object)
    {
        object.transform = readTransform(findDrawingElement(props, Vocabulary::Drawing, "xfrm"), _report);
        object.presetGeometry = findDrawingElement(props, Vocabulary::Drawing, "prstGeom")
                                    .getAttributeValue("prst")
                                    .value_or(std::string());
        object.fillColor =
            readDrawingColor(findDrawingElement(props, Vocabulary::Drawing, "solidFill"), _colors, _report);
    }

    void endObject()
    {
        DrawnObject object = std::move(_objects.back());
        _objects.pop_back();
        std::vector<DrawnObject>& siblings = _objects.empty() ? _anchor.objects : _objects.back().children;
        siblings.push_back(std::move(object));
        if (_objects.empty() && _anchorDepth == 0)
            endAnchor();
    }

    void endAnchor()
    {
        _anchorDepth = 0;
        _messages.pass(_report);
        _report = OperationReport();
        _takeAnchor(std::exchange(_anchor, DrawnAnchor()));
    }

    const std::string& _part;
    const std::size_t _objectsMax;
    const Colors& _colors;
    DrawingMessages& _messages;
    const DrawingReader::TakeAnchor& _takeAnchor;

    OperationReport _report; // of the anchor
    DrawnAnchor _anchor;
    std::size_t _anchorDepth = 0;      // of its element; 0 outside of any
    std::vector<DrawnObject> _objects; // that are open, each in the one before
    std::size_t _objectsCount = 0;
    bool _isDepthReported = false;
};

} // namespace

std::size_t DrawingReader::read(
    const std::string& part, std::size_t objectsMax, DrawingMessages& messages, const TakeAnchor& takeAnchor)
{
    DrawingHandler handler(part, objectsMax, _colors, messages, takeAnchor);
    readXmlStream(_package, part, getDrawingWords(), handler, _report);
    return handler.getObjectsCount();
}

} // namespace QV::Filters
