#include <Filters/ModelJson/ChangeJson.h>

#include <cstddef>

#include <DOM/Public/TrackedChange.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/TextJsonState.h>

namespace QV::Filters {
namespace {

const char* const ChangeKindNames[] = {"inserted", "deleted", "movedFrom", "movedTo"}; // as the enumerators

} // namespace

void writeChangeJson(const char* key, const DOM::TrackedChange& change, JsonWriter& json)
{
    json.writeKey(key);
    json.beginObject();
    json.writeMember("kind", ChangeKindNames[static_cast<std::size_t>(change.getKind())]);
    if (!change.getAuthor().empty())
        writeShortMember("author", change.getAuthor(), json);
    if (!change.getDate().empty())
        writeShortMember("date", change.getDate(), json);
    json.endObject();
}

} // namespace QV::Filters
