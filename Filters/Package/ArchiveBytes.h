#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include <zip.h>

namespace QV::Filters {

/// The bytes of an archive, in memory or in a file, as libzip reads them; and how many of them it has read.
/// What a part really cost is told by this count, whatever the archive's directory says.
class ArchiveBytes
{
public:
    explicit ArchiveBytes(std::string bytes);
    ~ArchiveBytes();

    ArchiveBytes(const ArchiveBytes&) = delete;
    ArchiveBytes& operator=(const ArchiveBytes&) = delete;

    /// Throws PackageError of the kind NotAPackage where the path leads to no regular file that can be read.
    static std::unique_ptr<ArchiveBytes> openFile(const std::string& path);

    std::uint64_t getSize() const { return _size; }

    /// All bytes that libzip has read so far, repeated ones included.
    std::uint64_t getReadCount() const { return _readCount; }

    /// Reads up to @p count bytes from @p offset on; fewer at the end or where the file cannot be read. Not
    /// counted.
    std::size_t readAt(std::uint64_t offset, char* buffer, std::size_t count) const;

    /// A source for libzip, which must not outlive this object; null, with the reason in @p error, where
    /// memory runs out.
    zip_source_t* makeSource(zip_error_t& error);

private:
    ArchiveBytes(int file, std::uint64_t size);

    static zip_int64_t answer(void* self, void* data, zip_uint64_t size, zip_source_cmd_t command);
    zip_int64_t read(void* data, zip_uint64_t size);
    zip_int64_t seek(void* data, zip_uint64_t size);
    zip_int64_t stat(void* data, zip_uint64_t size);

    const std::string _bytes;
    const int _file; // -1 where _bytes holds the archive
    const std::uint64_t _size;
    std::uint64_t _position = 0;
    std::uint64_t _readCount = 0;
    zip_error_t _error;
};

} // namespace QV::Filters
