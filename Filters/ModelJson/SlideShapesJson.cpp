#include <Filters/ModelJson/SlideShapesJson.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <string>

#include <boost/optional.hpp>
#include <boost/variant/get.hpp>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_Text.h>
#include <Filters/ModelJson/BlocksJson.h>
#include <Filters/ModelJson/ChartJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/RunsJson.h>
#include <Filters/ModelJson/TextJsonState.h>
#include <Filters/Package/CoveredCells.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/ListLabels.h>
#include <Formulas/Public/TableContext.h>

namespace QV::Filters {
namespace {

// In the order of the enumerators of DOM::Shape::Kind.
const char* const ShapeKindNames[] = {"shape", "group", "connector", "other", "other"};

/// A frame, and what it shows: one of these at most is not null.
struct ShownFrame
{
    explicit ShownFrame(const DOM::Frame& shownFrame)
        : frame(shownFrame)
        , shape(dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject()))
        , picture(dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject()))
        , table(dynamic_cast<const DOM::Table*>(frame.getGraphicalObject()))
        , chart(dynamic_cast<const DOM::ChartSpace*>(frame.getGraphicalObject()))
    {
    }

    const char* getKind() const
    {
        if (shape)
            return ShapeKindNames[static_cast<std::size_t>(shape->getKind())];
        return picture ? "picture" : table ? "table" : "other";
    }

    /// Null where nothing is said of the looks.
    const DOM::ShapeProps* getProps() const
    {
        if (shape)
            return shape->getStyle().getShapeProps().get();
        return picture ? picture->getShapeProps().get() : nullptr;
    }

    const DOM::Frame& frame;
    const DOM::Shape* shape;
    const DOM::Picture* picture;
    const DOM::Table* table;
    const DOM::ChartSpace* chart;
};

class SlideShapesWriter
{
public:
    explicit SlideShapesWriter(TextJsonState& state)
        : _state(state)
        , _json(state.getJson())
    {
    }

    // Groups lie in one another as deep as the importer lets them.
    void writeChildren(const DOM::Shape& parent)
    {
        _json.beginArray();
        for (const DOM::Frame& child : parent.getChildren())
            writeShown(ShownFrame(child));
        _json.endArray();
    }

private:
    void writeShown(const ShownFrame& shown);
    void writePlace(const DOM::Frame& frame);
    void writeOutline(const DOM::ShapeProps& props);
    void writeMedia(const ShownFrame& shown);
    void writeFrameExtras(const ShownFrame& shown);
    void writeShapeLine(const DOM::ShapeProps& props);
    void writeCrop(const DOM::RelativeRect& crop);
    void writeSpatialRotation(const DOM::Frame& frame);
    void writeShapeHyperlink(const DOM::Frame& frame);
    void writeCellTexts(const DOM::Table& table);
    void writeShapeParagraphs(const DOM::CellText& text);
    void writeShapeParagraph(const DOM::Paragraph& paragraph, ListLabels& labels);

    TextJsonState& _state;
    JsonWriter& _json;
    const Formulas::TableContext _noTables; // references of charts lead to workbooks of their own
};

void SlideShapesWriter::writeShown(const ShownFrame& shown)
{
    const DOM::ShapeProps* const props = shown.getProps();
    _json.beginObject();
    if (!shown.frame.getName().empty())
        _json.writeMember("name", shown.frame.getName());
    if (shown.chart)
        writeChart(*shown.chart, _noTables, _json);
    else
        _json.writeMember("kind", shown.getKind());
    if (shown.shape && shown.shape->getPlaceholder())
        writeShortMember("placeholder", shown.shape->getPlaceholder()->type, _json);
    writePlace(shown.frame);
    if (props)
        writeOutline(*props);
    if (shown.shape && shown.shape->getText())
        _json.writeMember("text", shown.shape->getText()->getPlainText());
    writeMedia(shown);
    if (shown.shape &&
        (shown.shape->getKind() == DOM::Shape::Kind::Group || !shown.shape->getChildren().empty())) {
        _json.writeKey("children");
        writeChildren(*shown.shape);
    }
    writeFrameExtras(shown);
    _json.endObject();
}

void SlideShapesWriter::writePlace(const DOM::Frame& frame)
{
    if (const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&frame.getAnchor())) {
        writeLengthMember("x", anchor->getOffset().x, _json);
        writeLengthMember("y", anchor->getOffset().y, _json);
    }
    if (const auto& extent = frame.getExtent()) {
        writeLengthMember("width", extent->getWidth(), _json);
        writeLengthMember("height", extent->getHeight(), _json);
    }
    writeLengthMember("rotation", frame.getRotation(), _json);
    _json.writeMember("flipHorizontal", frame.isFlippedHorizontally());
    _json.writeMember("flipVertical", frame.isFlippedVertically());
}

void writeVisibleColor(const char* key, const boost::optional<DOM::ShapeFill>& fill, JsonWriter& json)
{
    const auto* const solid = fill ? boost::get<DOM::SolidFill>(&*fill) : nullptr;
    if (solid && solid->color.getRGBA().a != 0)
        json.writeMember(key, FilterUtils::convertRGBColor(solid->color.getRGBA()));
}

void SlideShapesWriter::writeOutline(const DOM::ShapeProps& props)
{
    if (const auto& geometry = props.getGeometry())
        writeShortMember("geometry", geometry->preset.empty() ? "custom" : geometry->preset, _json);
    writeVisibleColor("fill", props.getFill(), _json);
}

void SlideShapesWriter::writeMedia(const ShownFrame& shown)
{
    if (shown.picture) {
        _json.writeMember("media", shown.picture->getMediaId());
        return;
    }
    const DOM::ShapeProps* const props = shown.getProps();
    const auto* const fill =
        props && props->getFill() ? boost::get<DOM::PictureFill>(&*props->getFill()) : nullptr;
    if (fill)
        _json.writeMember("media", fill->mediaId);
}

void SlideShapesWriter::writeFrameExtras(const ShownFrame& shown)
{
    const DOM::ShapeProps* const props = shown.getProps();
    if (shown.shape && shown.shape->getPlaceholder())
        _json.writeMember("placeholderIndex", shown.shape->getPlaceholder()->index);
    if (props)
        writeShapeLine(*props);
    writeShapeHyperlink(shown.frame);
    if (!shown.frame.getDescription().empty())
        _json.writeMember("description", shown.frame.getDescription());
    if (shown.frame.isHidden())
        _json.writeMember("hidden", true);
    if (shown.picture)
        writeCrop(shown.picture->getCrop());
    writeSpatialRotation(shown.frame);
    if (props && props->getShadow())
        _json.writeMember("shadow", true);
    if (shown.table)
        writeCellTexts(*shown.table);
    if (shown.shape && shown.shape->getText())
        writeShapeParagraphs(*shown.shape->getText());
}

void SlideShapesWriter::writeShapeLine(const DOM::ShapeProps& props)
{
    if (!props.getLineFill() || boost::get<DOM::NoFill>(&*props.getLineFill()))
        return;
    _json.writeKey("line");
    _json.beginObject();
    writeLengthMember("width", props.getLineWidth(), _json);
    writeVisibleColor("color", props.getLineFill(), _json);
    _json.endObject();
}

void SlideShapesWriter::writeShapeHyperlink(const DOM::Frame& frame)
{
    if (!frame.getHyperlink())
        return;
    const std::string link = FilterUtils::joinHyperlink(*frame.getHyperlink());
    writeShortMember("hyperlink", link, _json, _state.takeLinkRoom(link.size()));
}

void SlideShapesWriter::writeCrop(const DOM::RelativeRect& crop)
{
    if (crop == DOM::RelativeRect())
        return;
    _json.writeKey("crop");
    _json.beginObject();
    writeLengthMember("left", crop.left, _json);
    writeLengthMember("top", crop.top, _json);
    writeLengthMember("right", crop.right, _json);
    writeLengthMember("bottom", crop.bottom, _json);
    _json.endObject();
}

void SlideShapesWriter::writeSpatialRotation(const DOM::Frame& frame)
{
    if (!frame.getSpatialRotation())
        return;
    for (const float degrees : *frame.getSpatialRotation())
        if (!std::isfinite(degrees))
            return;
    _json.writeKey("rotation3d");
    _json.beginArray();
    for (const float degrees : *frame.getSpatialRotation())
        _json.write(degrees + 0.0F); // without the sign of a zero
    _json.endArray();
}

void SlideShapesWriter::writeCellTexts(const DOM::Table& table)
{
    CoveredCells covered;
    const auto cells = table.getTableIterators();
    auto cell = cells.begin();
    _json.writeKey("rows");
    _json.beginArray();
    for (unsigned long row = 0; row < table.getLiveRowsCount(); ++row) {
        _json.beginArray();
        for (; cell != cells.end() && cell.getRowIndex().get() == row; ++cell) {
            const unsigned long column = cell.getColIndex().get();
            if (covered.isCovered(row, column))
                continue;
            covered.add(row, column, cell->getMergeProps());
            _json.write(cell->getText() ? cell->getText()->getPlainText() : std::string());
        }
        _json.endArray();
    }
    _json.endArray();
}

void SlideShapesWriter::writeShapeParagraphs(const DOM::CellText& text)
{
    ListLabels labels(_state.getDocument()); // each text counts for itself
    _json.writeKey("paragraphs");
    _json.beginArray();
    for (const std::unique_ptr<DOM::Block>& block : text.getBlocks())
        if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(block.get()))
            writeShapeParagraph(*paragraph, labels);
    _json.endArray();
}

void SlideShapesWriter::writeShapeParagraph(const DOM::Paragraph& paragraph, ListLabels& labels)
{
    const auto reference = _state.getFormats().getNumRef(paragraph);
    const std::string label = reference ? labels.next(*reference) : std::string();
    _json.beginObject();
    _json.writeMember("text", paragraph.getPlainText());
    const DOM::NumberingRef* const own = paragraph.getNumRef().get(); // also where it takes the marker away
    _json.writeMember("level", own ? own->getLevel().value_or(0) : 0);
    if (!label.empty())
        _json.writeMember("label", label);
    writeAlignmentMember(_state.getFormats().getParaProps(paragraph), _json);
    _json.writeKey("runs");
    writeRunsJson(paragraph, {}, _state);
    _json.endObject();
}

} // namespace

void writeSlideShapesJson(const DOM::Shape& parent, TextJsonState& state)
{
    SlideShapesWriter(state).writeChildren(parent);
}

} // namespace QV::Filters
