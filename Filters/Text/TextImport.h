#pragma once

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;
class Package;

/// Reads the text document of a package into the run's document: styles, lists, the blocks of its body,
/// sections with their headers and footers, notes and comments.
///
/// What is wrong in a part other than the main one is reported to the run, and the rest comes in. Throws
/// PackageError where the package holds no text document, its main part cannot be read, or the package is
/// refused; the document may hold some blocks then.
FILTERS_API void importText(Package& package, FilterRun& run);

} // namespace QV::Filters
