#include <Filters/ModelJson/LinksJson.h>

#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/ReportJson.h>
#include <Filters/Package/DocumentLinks.h>

namespace QV::Filters {

void writeLinksJson(const std::vector<DocumentLink>& links, const OperationReport& report, std::ostream& out)
{
    JsonWriter json(out);
    json.beginObject();
    json.writeKey("links");
    json.beginArray();
    for (const DocumentLink& link : links) {
        json.beginObject();
        json.writeMember("kind", link.kind);
        json.writeMember("part", link.part);
        json.writeMember("id", link.id);
        json.writeMember("target", link.target);
        json.writeMember("place", getName(link.place));
        if (link.place == LinkPlace::Found)
            json.writeMember("file", link.file);
        json.endObject();
    }
    json.endArray();
    writeMessagesJson(report, json);
    json.endObject();
}

} // namespace QV::Filters
