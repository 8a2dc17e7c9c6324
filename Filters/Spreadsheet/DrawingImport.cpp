#include <Filters/Spreadsheet/DrawingImport.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <boost/variant.hpp>

#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_AnchorsConverter.h>
#include <FilterUtils/FU_GeometryParserUtils.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/GroupScale.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Spreadsheet/DrawingMessages.h>
#include <Filters/Spreadsheet/DrawingPlaces.h>
#include <Filters/Spreadsheet/DrawingReader.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

DOM::SharedCellText makeText(const std::vector<std::string>& paragraphs)
{
    bool hasText = false;
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    for (const std::string& text : paragraphs) {
        auto paragraph = std::make_unique<DOM::Paragraph>();
        paragraph->appendText(text);
        blocks.push_back(std::move(paragraph));
        hasText = hasText || !text.empty();
    }
    return hasText ? DOM::SharedCellText(new DOM::CellText(std::move(blocks))) : nullptr;
}

std::unique_ptr<DOM::GraphicalObject> makeShape(const DrawnObject& object)
{
    auto shape = std::make_unique<DOM::Shape>();
    if (!object.presetGeometry.empty())
        shape->setPresetGeometry(FilterUtils::makeOOXMLPresetType(object.presetGeometry));
    shape->setFillColor(object.fillColor);
    shape->setText(makeText(object.paragraphs));
    return shape;
}

boost::optional<DrawnBox> findBox(const DOM::Frame& frame, FilterUtils::AnchorsConverter& converter)
{
    const DOM::Frame placed = converter.convertToAbsoluteAnchor(frame);
    const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&placed.getAnchor());
    if (!anchor || !placed.getExtent())
        return boost::none;
    return DrawnBox{anchor->getOffset(), *placed.getExtent()};
}

} // namespace

/// One drawing part on its way into a table.
struct DrawingImporter::Drawing
{
    const std::string& part;
    const Relationships& relationships;
    DOM::Table& table;
    FilterUtils::AnchorsConverter converter;
    DrawingMessages messages;
};

DrawingImporter::DrawingImporter(
    Package& package, FilterRun& run, const Colors& colors, ChartReader readChart)
    : _package(package)
    , _run(run)
    , _colors(colors)
    , _readChart(std::move(readChart))
    , _pictures(package, run)
{
}

DrawingImporter::~DrawingImporter() = default;

void DrawingImporter::read(const std::string& drawingPart, DOM::Table& table)
{
    const Relationships relationships = Relationships::read(_package, drawingPart, _run.getReport());
    for (const Relationship& relationship : relationships.getAll())
        if (relationship.type.find("/chartEx") != std::string::npos)
            _run.leaveOut(LeftOut::NewerCharts);
    Drawing drawing{drawingPart, relationships, table,
        FilterUtils::AnchorsConverter(FilterUtils::getTableDimensionsInfo(table)),
        DrawingMessages(_run.getReport())};
    DrawingReader reader(_package, _colors, _run.getReport());
    const std::size_t count = reader.read(drawingPart, _objectsLeft, drawing.messages,
        [&](const DrawnAnchor& anchor) { takeAnchor(anchor, drawing); });
    if (count > _objectsLeft)
        drawing.messages.add("Drawings have more than {} objects; the rest of {} is left out",
            std::to_string(ObjectsMax), drawingPart);
    _objectsLeft -= std::min(count, _objectsLeft);
    drawing.messages.finish();
}

void DrawingImporter::takeAnchor(const DrawnAnchor& anchor, Drawing& drawing)
{
    for (const DrawnObject& object : anchor.objects) {
        auto frame = std::make_unique<DOM::Frame>(makeAnchoredFrame(anchor, object, drawing.converter));
        const bool isGroup = object.kind == DrawnObject::Kind::Group;
        auto shown = makeObject(object, isGroup ? findBox(*frame, drawing.converter) : boost::none, drawing);
        if (!shown && object.kind != DrawnObject::Kind::GraphicFrame)
            continue;
        frame->setGraphicalObject(std::move(shown));
        drawing.table.appendFrame(std::move(frame));
    }
}

std::unique_ptr<DOM::GraphicalObject> DrawingImporter::makeObject(
    const DrawnObject& object, const boost::optional<DrawnBox>& box, Drawing& drawing)
{
    switch (object.kind) {
    case DrawnObject::Kind::Picture:
        return makePicture(object, drawing);
    case DrawnObject::Kind::Shape:
        return makeShape(object);
    case DrawnObject::Kind::Group:
        return makeGroup(object, box, drawing);
    case DrawnObject::Kind::GraphicFrame:
        return makeChart(object, drawing);
    }
    return nullptr;
}

std::unique_ptr<DOM::GraphicalObject> DrawingImporter::makePicture(
    const DrawnObject& object, Drawing& drawing)
{
    if (object.relationshipId.empty())
        return nullptr;
    if (const Relationship* const relationship = drawing.relationships.findById(object.relationshipId))
        return _pictures.makePicture(*relationship);
    drawing.messages.add("Picture {} of {} is missing", object.relationshipId, drawing.part);
    return nullptr;
}

std::unique_ptr<DOM::GraphicalObject> DrawingImporter::makeChart(const DrawnObject& object, Drawing& drawing)
{
    if (object.relationshipId.empty()) {
        _run.leaveOut(LeftOut::Diagrams);
        return nullptr;
    }
    if (!_readChart)
        return nullptr;
    const Relationship* const relationship = drawing.relationships.findById(object.relationshipId);
    if (relationship && !relationship->isExternal)
        return _readChart(relationship->target);
    drawing.messages.add("Chart {} of {} is missing", object.relationshipId, drawing.part);
    return nullptr;
}

// Children come in the coordinates of the group, and leave in those of the sheet. Without a box of its own, a
// child has that of the group; without one of its children's, a group does not scale them.
std::unique_ptr<DOM::GraphicalObject> DrawingImporter::makeGroup(
    const DrawnObject& object, const boost::optional<DrawnBox>& box, Drawing& drawing)
{
    auto group = std::make_unique<DOM::Shape>();
    const DrawnBox place = box.value_or(object.transform.box.value_or(DrawnBox()));
    const GroupScale scale(place, object.transform.childBox.value_or(place));
    for (const DrawnObject& child : object.children) {
        const boost::optional<DrawnBox>& own = child.transform.box;
        const DrawnBox childBox = own ? scale.apply(*own, child.transform.rotation) : place;
        auto shown = makeObject(child, childBox, drawing);
        if (!shown && child.kind != DrawnObject::Kind::GraphicFrame)
            continue;
        auto frame = std::make_unique<DOM::Frame>(makePlacedFrame(childBox, child));
        frame->setGraphicalObject(std::move(shown));
        group->appendChild(std::move(frame));
    }
    return group->getChildren().empty() ? nullptr : std::move(group);
}

} // namespace QV::Filters
