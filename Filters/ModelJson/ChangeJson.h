#pragma once

namespace QV::DOM {
class TrackedChange;
}

namespace QV::Filters {

class JsonWriter;

/// Writes a member with a tracked change: its "kind" ("inserted", "deleted", "movedFrom" or "movedTo"), and
/// its "author" and "date" where they are known.
void writeChangeJson(const char* key, const DOM::TrackedChange& change, JsonWriter& json);

} // namespace QV::Filters
