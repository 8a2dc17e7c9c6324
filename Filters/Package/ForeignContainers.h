#pragma once

#include <Filters/Package/ArchiveBytes.h>

namespace QV::Filters {

/// True where the bytes start with the signature of a zip archive's first entry.
bool startsLikeZip(const ArchiveBytes& bytes);

/// Says what a file is that is taken for a package and is none, by throwing PackageError:
///     - NotAPackage "the file is empty"
///     - Encrypted, or NotAPackage for an older binary document: an OLE 2 compound file
///
/// Returns for everything else.
void refuseForeignContainers(const ArchiveBytes& bytes);

} // namespace QV::Filters
