#pragma once

#include <iosfwd>
#include <string>

namespace QV::Filters {
class FilterRun;
}

namespace QV::Tool {

/// Tells a person what came in: the sheets, what was left out, and the messages in groups.
void writeSummary(const std::string& name, const Filters::FilterRun& run, std::ostream& out);

} // namespace QV::Tool
