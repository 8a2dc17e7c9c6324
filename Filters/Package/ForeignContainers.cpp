#include <Filters/Package/ForeignContainers.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <boost/utility/string_ref.hpp>

#include <Filters/Package/PackageError.h>

namespace QV::Filters {
namespace {

constexpr boost::string_ref ZipSignature("PK\x03\x04", 4);
constexpr boost::string_ref CompoundFileSignature("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);

// The stream of a compound file that holds an encrypted package, as a directory entry starts: in UTF-16LE,
// with its terminator.
constexpr boost::string_ref EncryptedPackageEntry("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0\0\0", 34);

// Directory entries of a compound file stand at multiples of their size.
constexpr std::size_t DirectoryEntrySize = 128;
constexpr std::size_t BlockSize = 512 * DirectoryEntrySize;

bool startsWith(const ArchiveBytes& bytes, boost::string_ref signature)
{
    std::array<char, 8> start = {};
    const std::size_t size = bytes.readAt(0, start.data(), start.size());
    return boost::string_ref(start.data(), size).starts_with(signature);
}

bool holdsEncryptedPackage(const ArchiveBytes& bytes)
{
    std::vector<char> block(BlockSize);
    for (std::uint64_t offset = 0; offset < bytes.getSize(); offset += BlockSize) {
        const std::size_t size = bytes.readAt(offset, block.data(), block.size());
        for (std::size_t i = 0; i + EncryptedPackageEntry.size() <= size; i += DirectoryEntrySize)
            if (boost::string_ref(block.data() + i, size - i).starts_with(EncryptedPackageEntry))
                return true;
    }
    return false;
}

} // namespace

bool startsLikeZip(const ArchiveBytes& bytes)
{
    return startsWith(bytes, ZipSignature);
}

void refuseForeignContainers(const ArchiveBytes& bytes)
{
    if (bytes.getSize() == 0)
        throw PackageError(PackageError::Kind::NotAPackage, "the file is empty");
    if (!startsWith(bytes, CompoundFileSignature))
        return;
    if (holdsEncryptedPackage(bytes))
        throw PackageError(PackageError::Kind::Encrypted, "the package is encrypted: it needs a password");
    throw PackageError(PackageError::Kind::NotAPackage,
        "the file is not a package: a document of an older binary format (OLE 2 compound file)");
}

} // namespace QV::Filters
