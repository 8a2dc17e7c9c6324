#include <Filters/Presentation/GraphicFrames.h>

#include <map>
#include <utility>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_GeometryParserUtils.h>
#include <Filters/Package/AlternateContent.h>
#include <Filters/Package/ChartReader.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/ShapeReader.h>
#include <Filters/Presentation/ShapeTree.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Filters/Presentation/SlideParts.h>
#include <Filters/Presentation/SlideTable.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr const char* DiagramDrawingType =
    "http://schemas.microsoft.com/office/2007/relationships/diagramDrawing";
constexpr const char* DiagramExtension =
    "http://schemas.microsoft.com/office/drawing/2008/diagram:dataModelExt";

const std::string VmlNames = "urn:schemas-microsoft-com:vml:";
const std::string VmlOfficeNames = "urn:schemas-microsoft-com:office:office:";

using ObjectPtr = std::unique_ptr<DOM::GraphicalObject>;

/// Gathers the pictures of VML shapes, those in groups as well.
void gatherVmlPictures(const XMLElement& parent, std::map<std::string, std::string>& ids)
{
    parent.processAllElements([&](const std::string& name, const XMLElement& child) {
        if (name == VmlNames + "group")
            gatherVmlPictures(child, ids);
        if (name != VmlNames + "shape")
            return;
        const auto picture =
            child.getElement(VmlNames + "imagedata").getAttributeValue(VmlOfficeNames + "relid");
        for (const std::string& attribute : {VmlOfficeNames + "spid", std::string("id")})
            if (const auto id = child.getAttributeValue(attribute); id && picture)
                ids.emplace(*id, *picture);
    });
}

class GraphicFrameReader
{
public:
    GraphicFrameReader(const TreeObject& frame, const TreeSurroundings& surroundings,
        const ShapeTreeScope& scope, const ReadDiagram& readDiagram)
        : _surroundings(surroundings)
        , _scope(scope)
        , _readDiagram(readDiagram)
        , _alternatives(scope.part.root, {})
        , _data(findDrawingElement(findDrawingElement(frame.element, Vocabulary::Drawing, "graphic"),
              Vocabulary::Drawing, "graphicData"))
    {
    }

    ObjectPtr read() const
    {
        const XMLElement table = findData(Vocabulary::Drawing, "tbl");
        if (table.isValid())
            return readSlideTable(table, _scope);
        const XMLElement chart = findData(Vocabulary::Chart, "chart");
        if (chart.isValid())
            return readSlideChart(readRelationshipId(chart, "id"));
        const XMLElement foreign = findData(Vocabulary::Presentation, "oleObj");
        if (foreign.isValid())
            return readForeignObject(foreign);
        const XMLElement diagram = findData(Vocabulary::Diagram, "relIds");
        if (diagram.isValid())
            // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the pointer moves to its second base
            return readSlideDiagram(readRelationshipId(diagram, "dm"));
        const std::string kind = _data.getAttributeValue("uri").value_or(std::string());
        const bool isChart = kind.find("/chartex") != std::string::npos;
        return leaveOut(isChart ? SlideLeftOut::NewerCharts : SlideLeftOut::OtherGraphics);
    }

private:
    XMLElement findData(Vocabulary vocabulary, const char* name) const
    {
        XMLElement found;
        for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict})
            if (!found.isValid())
                found = _alternatives.getElement(_data, Names(dialect)(vocabulary, name));
        return found;
    }

    /// Null where the part does not have it.
    const Relationship* findInternal(const std::string& id) const
    {
        const Relationship* const relationship = _scope.part.relationships.findById(id);
        return relationship && !relationship->isExternal ? relationship : nullptr;
    }

    static std::unique_ptr<DOM::Shape> makeObject()
    {
        auto object = std::make_unique<DOM::Shape>();
        object->setKind(DOM::Shape::Kind::Object);
        return object;
    }

    ObjectPtr leaveOut(const char* what) const
    {
        _scope.context.run.leaveOut(what);
        return makeObject();
    }

    ObjectPtr readSlideChart(const std::string& id) const
    {
        constexpr const char* Missing = "Chart {} of {} is missing";
        PresentationContext& context = _scope.context;
        if (const Relationship* const relationship = findInternal(id)) {
            if (!context.takeRead(relationship->target))
                return makeObject();
            return readChart(context.package, relationship->target, nullptr, context.run);
        }
        if (context.messages.add(Missing))
            context.run.getReport().emplace_back(Missing, id, _scope.part.name);
        return nullptr;
    }

    ObjectPtr readForeignObject(const XMLElement& element) const
    {
        _scope.context.run.leaveOut(SlideLeftOut::EmbeddedObjects);
        auto object = makeObject();
        const XMLElement picture = findTreeElement(element, "pic");
        const auto fill = picture.isValid()
                              ? readTreePictureFill(picture, _surroundings, _scope)
                              : readLegacyPicture(element.getAttributeValue("spid").value_or(std::string()));
        if (fill) {
            auto geometry = std::make_shared<DOM::ShapeGeometry>();
            geometry->preset = FilterUtils::makeOOXMLPresetType("rect");
            DOM::ShapeProps props;
            props.setFill(DOM::ShapeFill(*fill));
            props.setGeometry(std::move(geometry));
            setTreeShapeProps(*object, props, _scope);
        }
        return object;
    }

    /// The picture of a VML shape; nothing where there is no such shape, or it has none.
    boost::optional<DOM::PictureFill> readLegacyPicture(const std::string& shapeId) const
    {
        PresentationContext& context = _scope.context;
        LegacyPictures& legacy = context.legacyPictures;
        const std::string part = findRelatedPart(_scope.part.relationships, "vmlDrawing");
        if (part.empty() || shapeId.empty())
            return boost::none;
        if (legacy.part != part) {
            if (!context.takeRead(part))
                return boost::none;
            OperationReport& report = context.run.getReport();
            legacy = {part, Relationships::read(context.package, part, report), {}};
            gatherVmlPictures(readXml(context.package, part, report), legacy.ids);
        }
        const auto id = legacy.ids.find(shapeId);
        const Relationship* const relationship =
            id == legacy.ids.end() ? nullptr : legacy.relationships.findById(id->second);
        const auto stored = relationship ? context.pictures.makePicture(*relationship) : nullptr;
        if (!stored)
            return boost::none;
        DOM::PictureFill fill;
        fill.mediaId = stored->getMediaId();
        fill.mimeType = stored->getMimeType();
        return fill;
    }

    ObjectPtr readSlideDiagram(const std::string& dataId) const
    {
        const Relationship* const drawing = findDiagramDrawing(dataId);
        ObjectPtr object = drawing && _readDiagram ? _readDiagram(drawing->target) : nullptr;
        return object ? std::move(object) : leaveOut(SlideLeftOut::Diagrams);
    }

    /// The diagram's data name the drawing; where they do not, it is the only one of the slide.
    const Relationship* findDiagramDrawing(const std::string& dataId) const
    {
        const Relationship* const data = findInternal(dataId);
        if (data && _scope.context.takeRead(data->target)) {
            const XMLElement root =
                readXml(_scope.context.package, data->target, _scope.context.run.getReport());
            const XMLElement extensions = findDrawingElement(root, Vocabulary::Diagram, "extLst");
            std::string drawingId;
            forEachDrawingElement(
                extensions, Vocabulary::Drawing, [&](const std::string&, const XMLElement& extension) {
                    const auto id = extension.getElement(DiagramExtension).getAttributeValue("relId");
                    drawingId = id.value_or(drawingId);
                });
            if (const Relationship* const drawing = findInternal(drawingId))
                return drawing;
        }
        const Relationship* only = nullptr;
        for (const Relationship& relationship : _scope.part.relationships.getAll()) {
            if (relationship.type != DiagramDrawingType || relationship.isExternal)
                continue;
            if (only)
                return nullptr;
            only = &relationship;
        }
        return only;
    }

    const TreeSurroundings& _surroundings;
    const ShapeTreeScope& _scope;
    const ReadDiagram& _readDiagram;
    const AlternateContent _alternatives;
    const XMLElement _data;
};

} // namespace

std::unique_ptr<DOM::GraphicalObject> readGraphicFrame(const TreeObject& frame,
    const TreeSurroundings& surroundings, const ShapeTreeScope& scope, const ReadDiagram& readDiagram)
{
    return GraphicFrameReader(frame, surroundings, scope, readDiagram).read();
}

} // namespace QV::Filters
