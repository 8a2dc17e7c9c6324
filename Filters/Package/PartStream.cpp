#include <Filters/Package/PartStream.h>

#include <utility>

#include <zip.h>

namespace QV::Filters {
namespace {

constexpr std::size_t BlockSize = std::size_t{64} << 10;

} // namespace

PartBuffer::PartBuffer(std::shared_ptr<Archive> archive, std::size_t part)
    : _archive(std::move(archive))
    , _reading{part, nullptr}
    , _block(BlockSize)
{
    _reading.file = _archive->openPart(part); // last: nothing else can throw once the file is open
}

PartBuffer::~PartBuffer()
{
    zip_fclose(_reading.file);
}

PartBuffer::int_type PartBuffer::underflow()
{
    if (gptr() == egptr()) {
        // Emptied first: where reading throws, the old bytes must not come a second time.
        setg(_block.data(), _block.data(), _block.data());
        const std::size_t size = _archive->read(_reading, _block.data(), _block.size());
        setg(_block.data(), _block.data(), _block.data() + size);
    }
    return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

PartStream::PartStream(std::shared_ptr<Archive> archive, std::size_t part)
    : std::istream(nullptr)
    , _buffer(std::move(archive), part)
{
    rdbuf(&_buffer);
    exceptions(std::ios::badbit);
}

} // namespace QV::Filters
