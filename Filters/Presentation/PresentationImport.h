#pragma once

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;
class Package;

/// Reads a presentation into the run's document: its masters and layouts as named shape styles, its slides as
/// blocks in the order in which they are shown, and the size of the slides. What is wrong in a part other
/// than the main one is reported to the run, and the part is left out.
///
/// Positions, looks and text properties of placeholders are the effective ones: those of the layout and the
/// master stand where a slide says nothing.
///
/// Throws PackageError where the package holds no presentation, or is refused; the document may hold a part
/// of the content then.
FILTERS_API void importPresentation(Package& package, FilterRun& run);

} // namespace QV::Filters
