#pragma once

#include <iosfwd>

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// Writes what the import had to say: an object with "messages" (each with its "text", its "arguments" and
/// the "message" that they make) and "leftOut", the kinds of content that were not read.
FILTERS_API void writeReportJson(const FilterRun& run, std::ostream& out);

} // namespace QV::Filters
