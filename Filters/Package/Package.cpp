#include <Filters/Package/Package.h>

#include <utility>

#include <Filters/Package/Archive.h>
#include <Filters/Package/ArchiveBytes.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/PartStream.h>

namespace QV::Filters {

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
