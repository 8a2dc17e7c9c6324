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
        _blockEnd += static_cast<off_type>(size);
    }
    return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

PartBuffer::pos_type PartBuffer::seekoff(
    off_type offset, std::ios_base::seekdir direction, std::ios_base::openmode which)
{
    if (direction == std::ios_base::end)
        return pos_type(off_type(-1)); // the size is known only when all is inflated
    return seekpos(pos_type(direction == std::ios_base::cur ? getPosition() + offset : offset), which);
}

PartBuffer::pos_type PartBuffer::seekpos(pos_type position, std::ios_base::openmode which)
{
    const off_type target = position;
    if (target < 0 || (which & std::ios_base::in) == 0)
        return pos_type(off_type(-1));
    if (target < _blockEnd - (egptr() - eback()))
        reopen();
    while (target > _blockEnd) {
        setg(eback(), egptr(), egptr());
        if (traits_type::eq_int_type(underflow(), traits_type::eof()))
            return pos_type(off_type(-1));
    }
    setg(eback(), egptr() - (_blockEnd - target), egptr());
    return pos_type(target);
}

void PartBuffer::reopen()
{
    zip_file_t* const again = _archive->openPart(_reading.part);
    zip_fclose(_reading.file);
    _reading = {_reading.part, again};
    setg(_block.data(), _block.data(), _block.data());
    _blockEnd = 0;
}

PartStream::PartStream(std::shared_ptr<Archive> archive, std::size_t part)
    : std::istream(nullptr)
    , _buffer(std::move(archive), part)
{
    rdbuf(&_buffer);
    exceptions(std::ios::badbit);
}

} // namespace QV::Filters
