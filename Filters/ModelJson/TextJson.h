#pragma once

/// @file
/// A text document of the model as JSON.

#include <iosfwd>

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// Writes the run's document: an object with "format", "blocks", "sections", "styles", "notes", "links" and
/// "media". Lengths are points. Texts are those of the final view, and runs look as all of their styles
/// together make them; what is not set is left out.
///
/// The ids of lists are drawn from the run where they are sequential. Names and fields that many objects may
/// share are cut after 1,024 bytes, links after 8,192; after 16 MiB of long links, these after 1,024, too.
FILTERS_API void writeTextJson(FilterRun& run, std::ostream& out);

} // namespace QV::Filters
