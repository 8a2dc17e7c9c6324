#pragma once

#include <Filters/Package/Export.h>
#include <Filters/Package/MainPart.h>

namespace QV::Filters {

class FilterRun;
class Package;

/// Reads the document of a package into the run's document, whatever its kind. What is wrong in a part other
/// than the main one is reported to the run.
///
/// Throws PackageError where the package holds no document, or is refused; the document may hold a part of
/// the content then.
FILTERS_API DocumentKind importDocument(Package& package, FilterRun& run);

} // namespace QV::Filters
