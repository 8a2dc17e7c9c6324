#pragma once

#include <array>
#include <string>

#include <Versioning/Public/Export.h>

namespace QV::Versioning {

/// The version of the suite: four numbers, and three labels that only builds on the way to a release have.
///
///     CoreVersion({2, 1, 0, 7}, "", "", "").toString(127);             // "2.1.0.7"
///     CoreVersion({2, 1, 0, 7}, "beta", "683da49", "").toString(127);  // "2.1.0.7-beta+683da49"
///     CoreVersion({2, 1, 0, 7}, "beta", "683da49", "").toString(1);    // "2"
///
/// Immutable.
class VERSIONING_API CoreVersion
{
public:
    /// The parts of a version; a mask is a sum of them. Bits of a mask beyond these mean nothing.
    enum Part : unsigned
    {
        Major = 1,
        Minor = 2,
        Patch = 4,
        Build = 8,
        Stage = 16,    ///< "alpha", "beta" and the like
        Revision = 32, ///< of the sources
        Changes = 64,  ///< a name for what was changed on top of the revision
        AllParts = 127,
    };

    /// @param numbers major, minor, patch and build
    CoreVersion(
        const std::array<unsigned, 4>& numbers, std::string stage, std::string revision, std::string changes);

    /// The version of this build.
    static const CoreVersion& getCurrent();

    /// Whether the parts in @p mask stay what they are: true unless one of them is a label that is set, since
    /// numbers name a release for good, and labels what is on its way to one.
    bool isPermanent(unsigned mask) const;

    /// The parts in @p mask, in their order: numbers joined by ".", a build of 0 left out; then each label
    /// that is set, the stage after "-", the revision and the changes after "+". Empty where there are none.
    std::string toString(unsigned mask) const;

private:
    std::array<unsigned, 4> _numbers;
    std::array<std::string, 3> _labels; // stage, revision, changes
};

} // namespace QV::Versioning
