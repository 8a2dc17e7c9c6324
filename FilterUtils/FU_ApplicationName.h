#pragma once

/// @file
/// Behind getApplicationFullNameAndVersion, for a version of the caller's; private.

#include <string>

#include <FilterUtils/FU_Export.h>

namespace QV::Versioning {
class CoreVersion;
}

namespace QV::FilterUtils {

FILTERUTILS_API std::string makeApplicationFullNameAndVersion(
    const std::string& name, const Versioning::CoreVersion& version);

} // namespace QV::FilterUtils
