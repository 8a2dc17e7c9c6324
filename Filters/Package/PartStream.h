#pragma once

#include <cstddef>
#include <istream>
#include <memory>
#include <streambuf>
#include <vector>

#include <Filters/Package/Archive.h>

namespace QV::Filters {

/// Inflates a part block by block as it is read. Seeks to any place: within the last block at no cost,
/// elsewhere by inflating up to there, so that a picture's first bytes can be looked at before it is copied.
class PartBuffer : public std::streambuf
{
public:
    PartBuffer(std::shared_ptr<Archive> archive, std::size_t part);
    ~PartBuffer() override;

    PartBuffer(const PartBuffer&) = delete;
    PartBuffer& operator=(const PartBuffer&) = delete;

protected:
    int_type underflow() override;
    pos_type seekoff(
        off_type offset, std::ios_base::seekdir direction, std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

private:
    off_type getPosition() const { return _blockEnd - (egptr() - gptr()); }
    void reopen();

    const std::shared_ptr<Archive> _archive;
    Archive::Reading _reading;
    std::vector<char> _block;
    off_type _blockEnd = 0; // of what was inflated so far
};

/// The stream that Package::openPart describes.
class PartStream : public std::istream
{
public:
    PartStream(std::shared_ptr<Archive> archive, std::size_t part);

private:
    PartBuffer _buffer;
};

} // namespace QV::Filters
