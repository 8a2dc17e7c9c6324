#pragma once

#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <Filters/Package/Export.h>
#include <Filters/Package/PackageLimits.h>

namespace QV::Filters {

class Archive;

/// A zip archive from a stranger, read as a package of named parts.
///
///     Package package = Package::openFile("orders.xlsx");
///     const std::unique_ptr<std::istream> part = package.openPart("/XL/workbook.xml");
///
/// Part names are written without a leading "/" and looked up without regard to the case of ASCII letters,
/// to percent-encoding, to a leading "/" and to "\" in the place of "/" (see PartNames.h). Parts are
/// inflated as they are read, never as a whole, and never written anywhere.
///
/// Whatever is wrong with the archive ends in a PackageError, from opening it or out of the stream of a part.
/// One thread at a time, the streams included.
class FILTERS_API Package
{
public:
    /// Opens a file. Throws PackageError:
    ///     - NotAPackage: no such file, no regular file, or no zip archive
    ///     - Encrypted: a part is, or the file is the container of an encrypted package
    ///     - Damaged: the archive's directory is broken or missing
    ///     - LimitExceeded: more than @p limits.entries entries
    ///     - Refused: two parts of one name, or a name that normalizePartName refuses
    static Package openFile(const std::string& path, const PackageLimits& limits = {});

    /// As openFile, with the archive in memory.
    static Package openBytes(std::string bytes, const PackageLimits& limits = {});

    /// As openBytes, with what @p in holds up to its end. Throws PackageError also:
    ///     - LimitExceeded: more than @p limits.streamBytes
    ///     - NotAPackage: the stream fails
    static Package openStream(std::istream& in, const PackageLimits& limits = {});

    Package(Package&& other) noexcept;
    Package& operator=(Package&& other) noexcept;
    ~Package();

    /// Opens a part for reading from its start. Several may be open at once, and they keep the archive open
    /// when the package is gone.
    ///
    /// The stream has exceptions(badbit) set, and reading from it throws PackageError:
    ///     - LimitExceeded: a limit on bytes or on the ratio, see PackageLimits. A part that is read again
    ///       counts towards `unpackedBytes` and the ratio only by what it yields beyond its longest read so
    ///       far, and towards `inflatedBytes` each time; so reading twice costs nothing, and reading for ever
    ///       is bounded.
    ///     - Damaged: the part's data is broken, breaks off or fails its checksum
    ///
    /// Throws PackageError: MissingPart; Damaged or Unsupported where its header or packing cannot be read.
    std::unique_ptr<std::istream> openPart(const std::string& name);

    /// The part's name as the archive spells it, with "/"; or nothing where there is no such part.
    boost::optional<std::string> findPart(const std::string& name) const;

    /// All parts, in the order of the archive's directory; folders are no parts.
    const std::vector<std::string>& getPartNames() const;

    const PackageLimits& getLimits() const;

    /// The bytes that count towards `unpackedBytes` so far.
    std::uint64_t getUnpackedBytes() const;

private:
    explicit Package(std::shared_ptr<Archive> archive);

    std::shared_ptr<Archive> _archive; // never null, but in a package that was moved from
};

} // namespace QV::Filters
