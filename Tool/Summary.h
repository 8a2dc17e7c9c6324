#pragma once

#include <iosfwd>
#include <string>

#include <Filters/Package/MainPart.h>

namespace QV {
class OperationReport;
}
namespace QV::Filters {
class FilterRun;
}

namespace QV::Tool {

/// Tells a person what came in: the sheets, what a text holds or what the slides show, how it begins, what
/// was left out, and the messages in groups.
void writeSummary(
    const std::string& name, Filters::DocumentKind kind, const Filters::FilterRun& run, std::ostream& out);

/// Tells the messages of a report in groups; those about what was left out are not among them.
void writeMessages(const OperationReport& report, std::ostream& out);

} // namespace QV::Tool
