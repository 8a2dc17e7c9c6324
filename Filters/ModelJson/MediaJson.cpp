#include <Filters/ModelJson/MediaJson.h>

#include <string>

#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/Package/FilterRun.h>

namespace QV::Filters {

void writeLinksAndMediaJson(const FilterRun& run, JsonWriter& json)
{
    json.writeKey("links");
    json.beginArray();
    for (const std::string& link : run.getLinks())
        json.write(link);
    json.endArray();
    json.writeKey("media");
    json.beginArray();
    for (const MediaItem& item : run.getMedia()) {
        json.beginObject();
        json.writeMember("id", item.id);
        if (!item.mimeType.empty())
            json.writeMember("mimeType", item.mimeType);
        json.writeMember("bytes", static_cast<unsigned long>(item.bytes));
        json.endObject();
    }
    json.endArray();
}

} // namespace QV::Filters
