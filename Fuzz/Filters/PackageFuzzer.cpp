// Any bytes are a package within the limits, or end in one PackageError of one line; no name leaves the
// package, and no internal relationship leads to what is not there.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <istream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <xercesc/util/PlatformUtils.hpp>

#include <Utils/Public/OperationReport.h>

#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/MainPart.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/PackageLimits.h>
#include <Filters/Package/PartNames.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Package/XmlParts.h>

namespace {

using namespace QV;
using namespace QV::Filters;

void require(bool holds, const char* property)
{
    if (holds)
        return;
    std::cerr << "broken: " << property << '\n';
    std::abort();
}

PackageLimits makeLimits()
{
    PackageLimits limits;
    limits.entries = 100;
    limits.unpackedBytes = 1 << 20;
    limits.partBytes = 1 << 19;
    limits.inflatedBytes = 1 << 22;
    limits.treeBytes = 1 << 16;
    limits.ratioFreeBytes = 1 << 17;
    return limits;
}

void readPart(Package& package, const std::string& part, const PackageLimits& limits)
{
    std::vector<char> block(4096);
    std::uint64_t size = 0;
    const std::unique_ptr<std::istream> stream = package.openPart(part);
    do {
        stream->read(block.data(), static_cast<std::streamsize>(block.size()));
        size += static_cast<std::uint64_t>(stream->gcount());
        require(size <= limits.partBytes, "a part stays within its limit");
        require(package.getUnpackedBytes() <= limits.unpackedBytes, "a package stays within its limit");
    } while (*stream);
}

void readRelationships(Package& package, const std::string& part, OperationReport& report)
{
    const Relationships relationships = Relationships::read(package, part, report);
    for (const Relationship& relationship : relationships.getAll())
        require(relationship.isExternal || package.findPart(relationship.target) == relationship.target,
            "internal targets are there");
}

void readAll(std::string bytes)
{
    const PackageLimits limits = makeLimits();
    OperationReport report;
    Package package = Package::openBytes(std::move(bytes), limits);
    require(package.getPartNames().size() <= limits.entries, "entries stay within their limit");
    const ContentTypes types = ContentTypes::read(package, report);
    readRelationships(package, "", report);
    for (const std::string& part : package.getPartNames()) {
        require(normalizePartName(part) == part, "names are normal");
        require(package.findPart('/' + part) == part, "parts are found by their names");
        types.getType(part);
        readPart(package, part, limits);
        readRelationships(package, part, report);
        if (getPartExtension(part) == "xml")
            readXml(package, part, report);
    }
    findMainPart(package, types, Relationships::read(package, "", report));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool isInitialized = (xercesc::XMLPlatformUtils::Initialize(), true);
    require(isInitialized, "the XML parser is there");
    try {
        readAll(std::string(reinterpret_cast<const char*>(data), size));
    } catch (const PackageError& error) {
        require(std::string(error.what()).find('\n') == std::string::npos, "errors are one line");
    }
    return 0;
}
