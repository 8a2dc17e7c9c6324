#include <Filters/ModelJson/FramesJson.h>

#include <memory>

#include <boost/variant.hpp>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_AnchorsConverter.h>
#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>
#include <FilterUtils/FU_TableIndices.h>
#include <Filters/ModelJson/ChartJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Utils/Public/ReadonlyVector.h>

namespace QV::Filters {
namespace {

class FramesWriter
{
public:
    FramesWriter(
        FilterUtils::AnchorsConverter& converter, const Formulas::TableContext& tables, JsonWriter& json)
        : _converter(converter)
        , _tables(tables)
        , _json(json)
    {
    }

    // Groups lie in one another as deep as the importer lets them.
    template <typename Frames>
    void writeFrames(const Frames& frames)
    {
        _json.beginArray();
        for (const DOM::Frame& frame : frames)
            writeFrame(frame);
        _json.endArray();
    }

private:
    void writeFrame(const DOM::Frame& frame);
    void writePicture(const DOM::Picture& picture);
    void writeShape(const DOM::Shape& shape);
    void writeAnchor(const DOM::Anchor& anchor);
    void writeOffset(const char* key, const DOM::TableOffset& offset);
    void writeBox(const DOM::Frame& frame);
    void writeTurn(const DOM::Frame& frame);

    FilterUtils::AnchorsConverter& _converter;
    const Formulas::TableContext& _tables;
    JsonWriter& _json;
};

const char* findKind(const DOM::Picture* picture, const DOM::Shape* shape)
{
    if (picture)
        return "picture";
    if (!shape)
        return "other";
    return shape->getChildren().empty() ? "shape" : "group";
}

void FramesWriter::writeFrame(const DOM::Frame& frame)
{
    const auto* const picture = dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject());
    const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
    const auto* const chart = dynamic_cast<const DOM::ChartSpace*>(frame.getGraphicalObject());
    _json.beginObject();
    if (chart)
        writeChart(*chart, _tables, _json);
    else
        _json.writeMember("kind", findKind(picture, shape));
    if (!frame.getName().empty())
        _json.writeMember("name", frame.getName());
    if (picture)
        writePicture(*picture);
    if (shape)
        writeShape(*shape);
    writeAnchor(frame.getAnchor());
    writeBox(frame);
    writeTurn(frame);
    if (shape && !shape->getChildren().empty()) {
        _json.writeKey("children");
        writeFrames(shape->getChildren());
    }
    _json.endObject();
}

void FramesWriter::writePicture(const DOM::Picture& picture)
{
    _json.writeMember("media", picture.getMediaId());
    if (!picture.getMimeType().empty())
        _json.writeMember("mimeType", picture.getMimeType());
}

void FramesWriter::writeShape(const DOM::Shape& shape)
{
    if (!shape.getPresetGeometry().empty())
        _json.writeMember("geometry", shape.getPresetGeometry());
    if (shape.getFillColor())
        _json.writeMember("fill", FilterUtils::convertRGBColor(shape.getFillColor()->getRGBA()));
    if (shape.getText())
        _json.writeMember("text", shape.getText()->getPlainText());
}

void FramesWriter::writeAnchor(const DOM::Anchor& anchor)
{
    _json.writeKey("anchor");
    _json.beginObject();
    if (const auto* const absolute = boost::get<DOM::AbsoluteAnchor>(&anchor)) {
        _json.writeMember("type", "absolute");
        _json.writeMember("x", absolute->getOffset().x);
        _json.writeMember("y", absolute->getOffset().y);
    } else if (const auto* const oneCell = boost::get<DOM::OneCellAnchor>(&anchor)) {
        _json.writeMember("type", "oneCell");
        writeOffset("from", oneCell->getFrom());
    } else if (const auto* const twoCell = boost::get<DOM::TwoCellAnchor>(&anchor)) {
        _json.writeMember("type", "twoCell");
        writeOffset("from", twoCell->getFrom());
        writeOffset("to", twoCell->getTo());
    } else {
        _json.writeMember("type", "text");
    }
    _json.endObject();
}

void FramesWriter::writeOffset(const char* key, const DOM::TableOffset& offset)
{
    _json.writeKey(key);
    _json.beginObject();
    _json.writeMember("ref", FilterUtils::toAlphaIndex(offset.getRowIndex(), offset.getColumnIndex()));
    _json.writeMember("x", offset.getColumnOffset());
    _json.writeMember("y", offset.getRowOffset());
    _json.endObject();
}

void FramesWriter::writeBox(const DOM::Frame& frame)
{
    const DOM::Frame placed = _converter.convertToAbsoluteAnchor(frame);
    const auto* const anchor = boost::get<DOM::AbsoluteAnchor>(&placed.getAnchor());
    if (!anchor)
        return;
    _json.writeKey("absolute");
    _json.beginObject();
    _json.writeMember("x", anchor->getOffset().x);
    _json.writeMember("y", anchor->getOffset().y);
    if (const auto& extent = placed.getExtent()) {
        _json.writeMember("width", extent->getWidth());
        _json.writeMember("height", extent->getHeight());
    }
    _json.endObject();
}

void FramesWriter::writeTurn(const DOM::Frame& frame)
{
    if (frame.getRotation() != 0)
        _json.writeMember("rotation", frame.getRotation());
    if (frame.isFlippedHorizontally())
        _json.writeMember("flipHorizontal", true);
    if (frame.isFlippedVertically())
        _json.writeMember("flipVertical", true);
}

} // namespace

void writeFramesJson(const DOM::Table& table, const Formulas::TableContext& tables, JsonWriter& json)
{
    if (table.getFrames().empty()) {
        json.beginArray();
        json.endArray();
        return;
    }
    FilterUtils::AnchorsConverter converter(FilterUtils::getTableDimensionsInfo(table));
    FramesWriter(converter, tables, json)
        .writeFrames(ReadonlyVector<std::unique_ptr<DOM::Frame>>(table.getFrames()));
}

} // namespace QV::Filters
