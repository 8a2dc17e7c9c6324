#include <Filters/Package/Archive.h>

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <Filters/Package/ForeignContainers.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/PartNames.h>

namespace QV::Filters {
namespace {

using Kind = PackageError::Kind;

[[noreturn]] void refuse(Kind kind, const std::string& message, const std::string& part = {})
{
    throw PackageError(kind, message, part);
}

std::string quote(const std::string& part)
{
    return "part \"" + makePrintable(part) + '"';
}

[[noreturn]] void refuseArchive(const ArchiveBytes& bytes, int code)
{
    if (code == ZIP_ER_MULTIDISK)
        refuse(Kind::Unsupported, "the archive is one volume of several");
    if (code == ZIP_ER_NOZIP && !startsLikeZip(bytes))
        refuse(Kind::NotAPackage, "the file is not a package: no zip archive");
    if (code == ZIP_ER_NOZIP)
        refuse(Kind::Damaged, "the package is damaged: the directory at its end is missing");
    refuse(Kind::Damaged, "the package is damaged: the directory at its end is broken");
}

[[noreturn]] void refusePart(const std::string& part, zip_error_t& error)
{
    switch (zip_error_code_zip(&error)) {
    case ZIP_ER_CRC:
        refuse(Kind::Damaged, quote(part) + " is damaged: its checksum does not fit", part);
    case ZIP_ER_ZLIB:
    case ZIP_ER_COMPRESSED_DATA:
        refuse(Kind::Damaged, quote(part) + " is damaged: its packed data is broken", part);
    case ZIP_ER_EOF:
        refuse(Kind::Damaged, quote(part) + " is damaged: it breaks off", part);
    case ZIP_ER_COMPNOTSUPP:
        refuse(Kind::Unsupported, quote(part) + " is packed by a method that is not supported", part);
    case ZIP_ER_ENCRNOTSUPP:
    case ZIP_ER_NOPASSWD:
        refuse(Kind::Encrypted, quote(part) + " is encrypted", part);
    default:
        refuse(Kind::Damaged,
            fmt::format("{} is damaged: {}", quote(part), makePrintable(zip_error_strerror(&error))), part);
    }
}

bool isControl(char character)
{
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

bool isFolder(const std::string& name)
{
    return name.back() == '/' || name.back() == '\\';
}

} // namespace

Archive::Archive(std::unique_ptr<ArchiveBytes> bytes, const PackageLimits& limits)
    : _bytes(std::move(bytes))
    , _limits(limits)
    , _zip(nullptr, &zip_discard)
{
    refuseForeignContainers(*_bytes);
    open();
    const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(_zip.get(), 0));
    if (count > _limits.entries)
        refuse(Kind::LimitExceeded,
            fmt::format("the package has {} entries; the limit is {}", count, _limits.entries));
    for (zip_uint64_t index = 0; index < count; ++index)
        addEntry(index);
}

Archive::~Archive() = default;

void Archive::open()
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source = _bytes->makeSource(error);
    if (source)
        _zip.reset(zip_open_from_source(source, ZIP_RDONLY, &error));
    if (source && !_zip)
        zip_source_free(source);
    const int code = zip_error_code_zip(&error);
    zip_error_fini(&error);
    if (!_zip)
        refuseArchive(*_bytes, code);
}

void Archive::addEntry(zip_uint64_t index)
{
    // libzip makes blanks of NULs, takes a name without the UTF-8 mark that is not valid UTF-8 for code page
    // 437, and in that code page control characters are pictures: so they are looked for in the raw name.
    const char* const rawText = zip_get_name(_zip.get(), index, ZIP_FL_ENC_RAW);
    const char* const text = zip_get_name(_zip.get(), index, ZIP_FL_ENC_GUESS);
    const std::string rawName = rawText ? rawText : "";
    const std::string entryName = text ? text : "";
    if (!entryName.empty() && isFolder(entryName))
        return;
    const auto name = normalizePartName(entryName);
    if (!name || std::any_of(rawName.begin(), rawName.end(), isControl))
        refuse(Kind::Refused, fmt::format("{} has a name that is not allowed", quote(rawName)), rawName);

    zip_stat_t status;
    zip_stat_init(&status);
    if (zip_stat_index(_zip.get(), index, 0, &status) == 0 &&
        (status.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && status.encryption_method != ZIP_EM_NONE)
        refuse(Kind::Encrypted, fmt::format("the package is encrypted: {} is", quote(*name)), *name);
    if (!_partsByKey.emplace(makePartKey(*name), _names.size()).second)
        refuse(Kind::Refused, fmt::format("{} is there twice", quote(*name)), *name);
    _names.push_back(*name);
    _parts.push_back({index, 0, 0});
}

boost::optional<std::size_t> Archive::findPart(const std::string& name) const
{
    const auto normalized = normalizePartName(name);
    const auto found = normalized ? _partsByKey.find(makePartKey(*normalized)) : _partsByKey.end();
    return found == _partsByKey.end() ? boost::none : boost::make_optional(found->second);
}

zip_file_t* Archive::openPart(std::size_t part)
{
    zip_file_t* const file = zip_fopen_index(_zip.get(), _parts[part].index, 0);
    if (!file)
        refusePart(_names[part], *zip_get_error(_zip.get()));
    return file;
}

std::size_t Archive::read(Reading& reading, char* buffer, std::size_t size)
{
    const std::uint64_t readBefore = _bytes->getReadCount();
    const zip_int64_t got = zip_fread(reading.file, buffer, size);
    if (got < 0)
        refusePart(_names[reading.part], *zip_file_get_error(reading.file));
    reading.packedBytes += _bytes->getReadCount() - readBefore;
    reading.unpackedBytes += static_cast<std::uint64_t>(got);
    account(reading, static_cast<std::size_t>(got));
    return static_cast<std::size_t>(got);
}

void Archive::account(const Reading& reading, std::size_t size)
{
    Part& part = _parts[reading.part];
    const std::string& name = _names[reading.part];
    _inflatedBytes += size;
    if (reading.unpackedBytes > part.unpackedBytes) {
        _unpackedBytes += reading.unpackedBytes - part.unpackedBytes;
        part.unpackedBytes = reading.unpackedBytes;
    }
    if (reading.packedBytes > part.packedBytes) {
        _packedBytes += reading.packedBytes - part.packedBytes;
        part.packedBytes = reading.packedBytes;
    }
    if (reading.unpackedBytes > _limits.partBytes)
        refuse(Kind::LimitExceeded,
            fmt::format("{} unpacks to {} bytes or more; the limit for a part is {}", quote(name),
                reading.unpackedBytes, _limits.partBytes),
            name);
    if (_unpackedBytes > _limits.unpackedBytes)
        refuse(Kind::LimitExceeded,
            fmt::format("{} brings the package to {} unpacked bytes or more; the limit is {}", quote(name),
                _unpackedBytes, _limits.unpackedBytes),
            name);
    if (_inflatedBytes > _limits.inflatedBytes)
        refuse(Kind::LimitExceeded,
            fmt::format("{} is read once too often: {} bytes were inflated in all; the limit is {}",
                quote(name), _inflatedBytes, _limits.inflatedBytes),
            name);
    checkRatio(reading);
}

void Archive::checkRatio(const Reading& reading) const
{
    const std::string& name = _names[reading.part];
    if (isOverRatio(reading.unpackedBytes, reading.packedBytes))
        refuse(Kind::LimitExceeded,
            fmt::format("{} unpacks to {} bytes or more from {}; the limit is {} from one", quote(name),
                reading.unpackedBytes, reading.packedBytes, _limits.ratio),
            name);
    if (isOverRatio(_unpackedBytes, _packedBytes))
        refuse(Kind::LimitExceeded,
            fmt::format(
                "{} brings the package to {} unpacked bytes or more from {}; the limit is {} from one",
                quote(name), _unpackedBytes, _packedBytes, _limits.ratio),
            name);
}

bool Archive::isOverRatio(std::uint64_t unpackedBytes, std::uint64_t packedBytes) const
{
    if (unpackedBytes <= _limits.ratioFreeBytes)
        return false;
    if (_limits.ratio == 0)
        return true;
    // Divided, since a product with a generous ratio could overflow.
    const std::uint64_t quotient = unpackedBytes / _limits.ratio;
    return quotient > packedBytes || (quotient == packedBytes && unpackedBytes % _limits.ratio != 0);
}

} // namespace QV::Filters
