#include <Filters/ModelJson/TextFramesJson.h>

#include <cstddef>
#include <limits>

#include <boost/optional.hpp>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Shape.h>
#include <Filters/ModelJson/BlocksJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/TextJsonState.h>
#include <Filters/Package/SeenText.h>
#include <Utils/Public/Size2D.h>

namespace QV::Filters {
namespace {

const char* findFrameKind(const DOM::Picture* picture, const DOM::Shape* shape)
{
    if (picture)
        return "picture";
    if (!shape)
        return "other";
    return shape->getChildren().empty() ? "shape" : "group";
}

void writeShapeContent(const DOM::Shape& shape, TextJsonState& state)
{
    JsonWriter& json = state.getJson();
    if (const DOM::SharedCellText& text = shape.getText()) {
        json.writeMember("text",
            getSeenText(text->getBlocks(), state.getFormats(), std::numeric_limits<std::size_t>::max()));
        json.writeKey("blocks");
        writeStoryJson(text->getBlocks(), state);
    }
    if (shape.getChildren().empty())
        return;
    json.writeKey("children");
    json.beginArray();
    for (const DOM::Frame& child : shape.getChildren())
        writeTextFrameJson(child, state);
    json.endArray();
}

} // namespace

// Groups and text boxes lie in one another as deep as the importer lets them.
void writeTextFrameJson(const DOM::Frame& frame, TextJsonState& state)
{
    const auto* const picture = dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject());
    const auto* const shape = dynamic_cast<const DOM::Shape*>(frame.getGraphicalObject());
    JsonWriter& json = state.getJson();
    json.beginObject();
    json.writeMember("kind", findFrameKind(picture, shape));
    if (!frame.getName().empty())
        json.writeMember("name", frame.getName());
    if (const auto& extent = frame.getExtent()) {
        writeLengthMember("width", extent->getWidth(), json);
        writeLengthMember("height", extent->getHeight(), json);
    }
    if (picture)
        json.writeMember("media", picture->getMediaId());
    if (shape)
        writeShapeContent(*shape, state);
    json.endObject();
}

} // namespace QV::Filters
