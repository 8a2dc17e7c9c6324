#pragma once

#include <iosfwd>

#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class FilterRun;
class JsonWriter;

/// Writes what the import had to say: an object with "messages" (each with its "text", its "arguments" and
/// the "message" that they make) and "leftOut", the kinds of content that were not read.
FILTERS_API void writeReportJson(const FilterRun& run, std::ostream& out);

/// Writes the "messages" alone, as a member of the object at hand.
FILTERS_API void writeMessagesJson(const OperationReport& report, JsonWriter& json);

} // namespace QV::Filters
