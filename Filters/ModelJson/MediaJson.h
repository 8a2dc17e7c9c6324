#pragma once

namespace QV::Filters {

class FilterRun;
class JsonWriter;

/// Writes what a run's document brought along, as members of the object at hand: "links", the documents that
/// it refers to, and "media", each with its "id", "mimeType" where it is known, and "bytes".
void writeLinksAndMediaJson(const FilterRun& run, JsonWriter& json);

} // namespace QV::Filters
