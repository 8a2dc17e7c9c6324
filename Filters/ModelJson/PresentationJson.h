#pragma once

#include <iosfwd>

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// Writes the run's presentation: an object with "format", "slideWidth", "slideHeight", "masters", "layouts",
/// "slides", "links" and "media". Lengths are points on the slide, those of children of groups, too; what is
/// not set is left out. Names that many objects may share are cut after 1,024 bytes.
FILTERS_API void writePresentationJson(FilterRun& run, std::ostream& out);

} // namespace QV::Filters
