#pragma once

#include <iosfwd>
#include <vector>

#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

struct DocumentLink;

/// Writes the links of a document: an object with "links" (each with its "kind", the "part" and "id" of its
/// relationship, its "target", its "place", and the "file" that was found) and "messages", as in a report.
FILTERS_API void writeLinksJson(
    const std::vector<DocumentLink>& links, const OperationReport& report, std::ostream& out);

} // namespace QV::Filters
