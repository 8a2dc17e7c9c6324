#include <Filters/Package/Package.h>

#include <cstddef>
#include <ios>
#include <utility>

#include <fmt/format.h>

#include <Filters/Package/Archive.h>
#include <Filters/Package/ArchiveBytes.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/PartStream.h>

namespace QV::Filters {
namespace {

std::string readStream(std::istream& in, std::uint64_t limit)
{
    using Trouble = PackageError::Kind;
    constexpr std::size_t BlockSize = std::size_t{1} << 20;
    std::string bytes;
    try {
        std::size_t count = BlockSize;
        while (count == BlockSize && bytes.size() <= limit) {
            const std::size_t size = bytes.size();
            bytes.resize(size + BlockSize);
            in.read(&bytes[size], static_cast<std::streamsize>(BlockSize));
            count = static_cast<std::size_t>(in.gcount());
            bytes.resize(size + count);
        }
    } catch (const std::ios_base::failure&) { // a stream's buffer may throw whatever the stream's mask says
        throw PackageError(Trouble::NotAPackage, "cannot be read");
    }
    if (in.bad())
        throw PackageError(Trouble::NotAPackage, "cannot be read");
    if (bytes.size() > limit)
        throw PackageError(Trouble::LimitExceeded,
            fmt::format("holds more than {} bytes, the limit for a package that comes from a stream", limit));
    return bytes;
}

} // namespace

Package::Package(std::shared_ptr<Archive> archive)
    : _archive(std::move(archive))
{
}

Package::Package(Package&& other) noexcept = default;
Package& Package::operator=(Package&& other) noexcept = default;
Package::~Package() = default;

Package Package::openFile(const std::string& path, const PackageLimits& limits)
{
    return Package(std::make_shared<Archive>(ArchiveBytes::openFile(path), limits));
}

Package Package::openBytes(std::string bytes, const PackageLimits& limits)
{
    return Package(std::make_shared<Archive>(std::make_unique<ArchiveBytes>(std::move(bytes)), limits));
}

Package Package::openStream(std::istream& in, const PackageLimits& limits)
{
    return openBytes(readStream(in, limits.streamBytes), limits);
}

std::unique_ptr<std::istream> Package::openPart(const std::string& name)
{
    const auto part = _archive->findPart(name);
    if (!part)
        throw PackageError(
            PackageError::Kind::MissingPart, "part \"" + makePrintable(name) + "\" is missing", name);
    return std::make_unique<PartStream>(_archive, *part);
}

boost::optional<std::string> Package::findPart(const std::string& name) const
{
    const auto part = _archive->findPart(name);
    return part ? boost::make_optional(_archive->getPartNames()[*part]) : boost::none;
}

const std::vector<std::string>& Package::getPartNames() const
{
    return _archive->getPartNames();
}

const PackageLimits& Package::getLimits() const
{
    return _archive->getLimits();
}

std::uint64_t Package::getUnpackedBytes() const
{
    return _archive->getUnpackedBytes();
}

} // namespace QV::Filters
