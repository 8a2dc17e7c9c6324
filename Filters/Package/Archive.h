#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <boost/optional.hpp>
#include <zip.h>

#include <Filters/Package/ArchiveBytes.h>
#include <Filters/Package/PackageLimits.h>

namespace QV::Filters {

/// What the package and the streams of its parts share: the open archive, its names, and the account of what
/// was read. Throws PackageError as Package and its streams say.
class Archive
{
public:
    Archive(std::unique_ptr<ArchiveBytes> bytes, const PackageLimits& limits);
    ~Archive();

    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;

    const std::vector<std::string>& getPartNames() const { return _names; }
    const PackageLimits& getLimits() const { return _limits; }
    std::uint64_t getUnpackedBytes() const { return _unpackedBytes; }

    /// The place of the part in getPartNames().
    boost::optional<std::size_t> findPart(const std::string& name) const;

    /// Opens the part; the caller closes it with zip_fclose.
    zip_file_t* openPart(std::size_t part);

    /// One reading of a part: how far it got, and what that took.
    struct Reading
    {
        std::size_t part;
        zip_file_t* file;
        std::uint64_t unpackedBytes = 0;
        std::uint64_t packedBytes = 0;
    };

    /// Inflates the next bytes of a part and enters them into the account. Returns 0 at the part's end.
    std::size_t read(Reading& reading, char* buffer, std::size_t size);

private:
    struct Part
    {
        zip_uint64_t index;
        std::uint64_t unpackedBytes; // of the longest reading so far, and what that one took
        std::uint64_t packedBytes;
    };

    void open();
    void addEntry(zip_uint64_t index);
    void account(const Reading& reading, std::size_t size);
    void checkRatio(const Reading& reading) const;
    bool isOverRatio(std::uint64_t unpackedBytes, std::uint64_t packedBytes) const;

    const std::unique_ptr<ArchiveBytes> _bytes; // outlives _zip
    const PackageLimits _limits;
    std::unique_ptr<zip_t, decltype(&zip_discard)> _zip;
    std::vector<std::string> _names;
    std::vector<Part> _parts;                                 // beside _names
    std::unordered_map<std::string, std::size_t> _partsByKey; // by makePartKey of the name
    std::uint64_t _unpackedBytes = 0;                         // sums over _parts
    std::uint64_t _packedBytes = 0;
    std::uint64_t _inflatedBytes = 0;
};

} // namespace QV::Filters
