#include <Filters/Preview/PictureSize.h>

#include <cstddef>
#include <cstdint>

namespace QV::Filters {
namespace {

using PictureSizeOpt = boost::optional<Size2D<float>>;

constexpr double PointsPerInch = 72;
constexpr double PointsPerMetre = 72 / 0.0254;
constexpr double PointsPerCentimetre = 72 / 2.54;
constexpr double PointsPerPlainPixel = PointsPerInch / 96;

/// The parts of a picture; what lies beyond its end is zero.
class PictureBytesView
{
public:
    explicit PictureBytesView(boost::string_ref bytes)
        : _bytes(bytes)
    {
    }

    bool has(std::size_t begin, boost::string_ref part) const
    {
        return begin < _bytes.size() && _bytes.substr(begin).starts_with(part);
    }
    bool isWithin(std::size_t place) const { return place < _bytes.size(); }
    unsigned getByte(std::size_t place) const
    {
        return place < _bytes.size() ? static_cast<unsigned char>(_bytes[place]) : 0U;
    }
    std::uint32_t getBig(std::size_t begin, unsigned count) const
    {
        std::uint32_t number = 0;
        for (unsigned i = 0; i < count; ++i)
            number = number << 8U | getByte(begin + i);
        return number;
    }
    std::uint32_t getLittle(std::size_t begin, unsigned count) const
    {
        std::uint32_t number = 0;
        for (unsigned i = count; i > 0; --i)
            number = number << 8U | getByte(begin + i - 1);
        return number;
    }

private:
    boost::string_ref _bytes;
};

/// How long a pixel is, in points.
struct PixelSize
{
    double width = PointsPerPlainPixel;
    double height = PointsPerPlainPixel;
};

/// @param across, down how many pixels there are in a unit; none is said where either is zero
PixelSize makePixelSize(std::uint32_t across, std::uint32_t down, double pointsPerUnit)
{
    return across > 0 && down > 0 ? PixelSize{pointsPerUnit / across, pointsPerUnit / down} : PixelSize();
}

PictureSizeOpt makePictureSize(std::uint32_t columns, std::uint32_t rows, const PixelSize& pixel)
{
    if (columns == 0 || rows == 0)
        return boost::none;
    return Size2D<float>(static_cast<float>(columns * pixel.width), static_cast<float>(rows * pixel.height));
}

// ISO/IEC 15948: chunks of a length, a name, the data and a checksum.
PictureSizeOpt readPngSize(const PictureBytesView& bytes)
{
    constexpr std::size_t ChunkOverhead = 12;
    constexpr std::size_t FirstChunk = 8;
    if (!bytes.has(FirstChunk + 4, "IHDR"))
        return boost::none;
    PixelSize pixel;
    for (std::size_t chunk = FirstChunk; bytes.isWithin(chunk) && !bytes.has(chunk + 4, "IDAT");
         chunk += ChunkOverhead + bytes.getBig(chunk, 4)) {
        const std::size_t data = chunk + 8;
        const bool isPerMetre = bytes.getByte(data + 8) == 1; // else only the shape of a pixel is said
        if (bytes.has(chunk + 4, "pHYs") && isPerMetre)
            pixel = makePixelSize(bytes.getBig(data, 4), bytes.getBig(data + 4, 4), PointsPerMetre);
    }
    return makePictureSize(bytes.getBig(16, 4), bytes.getBig(20, 4), pixel);
}

/// Of the APP0 segment whose data begins there.
PixelSize readJfifPixelSize(const PictureBytesView& bytes, std::size_t data)
{
    const unsigned unit = bytes.getByte(data + 7);
    if (unit != 1 && unit != 2)
        return {};
    return makePixelSize(bytes.getBig(data + 8, 2), bytes.getBig(data + 10, 2),
        unit == 1 ? PointsPerInch : PointsPerCentimetre);
}

bool isJpegFrame(unsigned marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// ISO/IEC 10918-1 and 10918-5: segments of a marker, a length that counts itself, and the data.
PictureSizeOpt readJpegSize(const PictureBytesView& bytes)
{
    PixelSize pixel;
    std::size_t segment = 2;
    while (bytes.getByte(segment) == 0xFF) {
        const unsigned marker = bytes.getByte(segment + 1);
        if (marker == 0xFF) { // fills up
            ++segment;
            continue;
        }
        const std::size_t data = segment + 4;
        if (marker == 0xE0 && bytes.has(data, boost::string_ref("JFIF\0", 5)))
            pixel = readJfifPixelSize(bytes, data);
        if (isJpegFrame(marker))
            return makePictureSize(bytes.getBig(data + 3, 2), bytes.getBig(data + 1, 2), pixel);
        segment += 2 + bytes.getBig(segment + 2, 2);
    }
    return boost::none;
}

PictureSizeOpt readGifSize(const PictureBytesView& bytes)
{
    return makePictureSize(bytes.getLittle(6, 2), bytes.getLittle(8, 2), PixelSize());
}

/// Rows that stand from top to bottom are counted below zero.
std::uint32_t getBitmapLength(std::uint32_t number)
{
    return number > INT32_MAX ? 0U - number : number;
}

PictureSizeOpt readBitmapSize(const PictureBytesView& bytes)
{
    constexpr std::uint32_t OldHeader = 12;
    if (bytes.getLittle(14, 4) == OldHeader)
        return makePictureSize(bytes.getLittle(18, 2), bytes.getLittle(20, 2), PixelSize());
    return makePictureSize(getBitmapLength(bytes.getLittle(18, 4)), getBitmapLength(bytes.getLittle(22, 4)),
        makePixelSize(bytes.getLittle(38, 4), bytes.getLittle(42, 4), PointsPerMetre));
}

struct PictureForm
{
    boost::string_ref begin;
    PictureSizeOpt (*read)(const PictureBytesView& bytes);
};
const PictureForm PictureForms[] = {
    {"\x89PNG\r\n\x1A\n", readPngSize   },
    {"\xFF\xD8",          readJpegSize  },
    {"GIF87a",            readGifSize   },
    {"GIF89a",            readGifSize   },
    {"BM",                readBitmapSize},
};

} // namespace

PictureSizeOpt readPictureSize(boost::string_ref bytes)
{
    const PictureBytesView view(bytes);
    for (const PictureForm& form : PictureForms)
        if (view.has(0, form.begin))
            return form.read(view);
    return boost::none;
}

} // namespace QV::Filters
