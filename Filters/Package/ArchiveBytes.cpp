#include <Filters/Package/ArchiveBytes.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <Filters/Package/PackageError.h>

namespace QV::Filters {
namespace {

[[noreturn]] void refuseFile(const std::string& reason)
{
    throw PackageError(PackageError::Kind::NotAPackage, "the file cannot be read: " + reason);
}

} // namespace

ArchiveBytes::ArchiveBytes(std::string bytes)
    : _bytes(std::move(bytes))
    , _file(-1)
    , _size(_bytes.size())
{
    zip_error_init(&_error);
}

ArchiveBytes::ArchiveBytes(int file, std::uint64_t size)
    : _file(file)
    , _size(size)
{
    zip_error_init(&_error);
}

ArchiveBytes::~ArchiveBytes()
{
    if (_file >= 0)
        ::close(_file);
    zip_error_fini(&_error);
}

std::unique_ptr<ArchiveBytes> ArchiveBytes::openFile(const std::string& path)
{
    // Without O_NONBLOCK, a pipe without a writer would be waited for here, before it can be refused.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        refuseFile(std::generic_category().message(errno));
    struct stat status = {};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(file);
        refuseFile("it is no regular file");
    }
    return std::unique_ptr<ArchiveBytes>(new ArchiveBytes(file, static_cast<std::uint64_t>(status.st_size)));
}

std::size_t ArchiveBytes::readAt(std::uint64_t offset, char* buffer, std::size_t count) const
{
    const std::size_t wanted =
        offset < _size ? static_cast<std::size_t>(std::min<std::uint64_t>(count, _size - offset)) : 0;
    if (_file < 0) {
        std::memcpy(buffer, _bytes.data() + (wanted == 0 ? 0 : offset), wanted);
        return wanted;
    }
    std::size_t done = 0;
    while (done < wanted) {
        const ssize_t got = ::pread(_file, buffer + done, wanted - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

zip_source_t* ArchiveBytes::makeSource(zip_error_t& error)
{
    return zip_source_function_create(&ArchiveBytes::answer, this, &error);
}

zip_int64_t ArchiveBytes::answer(void* self, void* data, zip_uint64_t size, zip_source_cmd_t command)
{
    auto& bytes = *static_cast<ArchiveBytes*>(self);
    switch (command) {
    case ZIP_SOURCE_OPEN:
        bytes._position = 0;
        return 0;
    case ZIP_SOURCE_READ:
        return bytes.read(data, size);
    case ZIP_SOURCE_SEEK:
        return bytes.seek(data, size);
    case ZIP_SOURCE_TELL:
        return static_cast<zip_int64_t>(bytes._position);
    case ZIP_SOURCE_STAT:
        return bytes.stat(data, size);
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&bytes._error, data, size);
    case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:
        return 0;
    default:
        zip_error_set(&bytes._error, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
}

zip_int64_t ArchiveBytes::read(void* data, zip_uint64_t size)
{
    const std::size_t got = readAt(_position, static_cast<char*>(data), static_cast<std::size_t>(size));
    _position += got;
    _readCount += got;
    return static_cast<zip_int64_t>(got);
}

zip_int64_t ArchiveBytes::seek(void* data, zip_uint64_t size)
{
    const zip_int64_t position = zip_source_seek_compute_offset(_position, _size, data, size, &_error);
    if (position < 0)
        return -1;
    _position = static_cast<std::uint64_t>(position);
    return 0;
}

zip_int64_t ArchiveBytes::stat(void* data, zip_uint64_t size)
{
    if (size < sizeof(zip_stat_t)) {
        zip_error_set(&_error, ZIP_ER_INVAL, 0);
        return -1;
    }
    zip_stat_t status;
    zip_stat_init(&status);
    status.size = _size;
    status.valid = ZIP_STAT_SIZE;
    std::memcpy(data, &status, sizeof status);
    return sizeof status;
}

} // namespace QV::Filters
