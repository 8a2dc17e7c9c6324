#pragma once

#include <cstddef>
#include <istream>
#include <memory>
#include <streambuf>
#include <vector>

#include <Filters/Package/Archive.h>

namespace QV::Filters {

/// Inflates a part block by block as it is read.
class PartBuffer : public std::streambuf
{
public:
    PartBuffer(std::shared_ptr<Archive> archive, std::size_t part);
    ~PartBuffer() override;

    PartBuffer(const PartBuffer&) = delete;
    PartBuffer& operator=(const PartBuffer&) = delete;

protected:
    int_type underflow() override;

private:
    const std::shared_ptr<Archive> _archive;
    Archive::Reading _reading;
    std::vector<char> _block;
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
