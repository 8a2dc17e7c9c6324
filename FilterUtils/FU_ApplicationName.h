#pragma once

/// @file
/// Behind getApplicationFullNameAndVersion, for a version of the caller's; private.

#include <string>

#include <fmt/format.h>

#include <Versioning/Public/CoreVersion.h>

namespace QV::FilterUtils {

inline std::string makeApplicationFullNameAndVersion(
    const std::string& name, const Versioning::CoreVersion& version)
{
    using Versioning::CoreVersion;
    const bool isPermanent = version.isPermanent(CoreVersion::AllParts);
    return fmt::format("{}-{}-{}/{}", "Quillbox", name, "Linux",
        version.toString(isPermanent ? CoreVersion::AllParts : CoreVersion::Major));
}

} // namespace QV::FilterUtils
