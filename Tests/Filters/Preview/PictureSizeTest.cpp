#include <Filters/Preview/PictureSize.h>

#include <cstddef>
#include <ostream>
#include <string>

#include <boost/optional.hpp>
#include <fmt/format.h>
#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

/// A text that may hold any bytes.
template <std::size_t Size>
std::string makeBytes(const char (&text)[Size])
{
    return std::string(text, Size - 1);
}

const std::string PngBegin = makeBytes("\x89PNG\r\n\x1A\n");
const std::string PngHeader = makeBytes("\0\0\0\rIHDR\0\0\0\x60\0\0\0\x30\x08\2\0\0\0crc!"); // 96 by 48
const std::string PngData = makeBytes("\0\0\0\0IDATcrc!");
const std::string JpegBegin = makeBytes("\xFF\xD8");
const std::string JpegFrame = makeBytes("\xFF\xC0\0\x11\x08\0\x30\0\x60\3"); // 96 by 48
const std::string Bitmap = makeBytes("BM----\0\0\0\0\x36\0\0\0");

std::string makeResolution(const std::string& across, const std::string& down, char unit)
{
    return makeBytes("\0\0\0\x09pHYs") + across + down + unit + "crc!";
}

std::string makeJfif(char unit, const std::string& densities)
{
    return makeBytes("\xFF\xE0\0\x10JFIF\0\1\1") + unit + densities + makeBytes("\0\0");
}

/// @param size columns and rows
/// @param resolution columns and rows per metre
std::string makeBitmap(const std::string& size, const std::string& resolution)
{
    return Bitmap + makeBytes("\x28\0\0\0") + size + makeBytes("\1\0\x18\0\0\0\0\0\0\0\0\0") + resolution;
}

struct PictureRow
{
    const char* name;
    std::string bytes;
    const char* size; ///< in points
};

void PrintTo(const PictureRow& row, std::ostream* out)
{
    *out << row.name;
}

PictureRow makePictureRow(const char* name, const std::string& bytes, const char* size)
{
    return {name, bytes, size};
}

const std::string Dots144 = makeBytes("\0\0\x16\x25"); // 5669 in a metre
const std::string None = makeBytes("\0\0\0\0");

const PictureRow PictureRows[] = {
    makePictureRow("Png", PngBegin + PngHeader + PngData, "72 36"),
    makePictureRow("PngBeginAlone", PngBegin + PngHeader, "72 36"),
    makePictureRow("PngOfDots",
        PngBegin + PngHeader + makeBytes("\0\0\0\2tEXTabcrc!") + makeResolution(Dots144, Dots144, 1) +
            PngData,
        "48 24"),
    makePictureRow("PngOfOblongPixels",
        PngBegin + PngHeader + makeResolution(makeBytes("\0\0\x0B\x13"), Dots144, 1), "96 24"),
    makePictureRow(
        "PngOfNoUnit", PngBegin + PngHeader + makeResolution(Dots144, Dots144, 0) + PngData, "72 36"),
    makePictureRow("PngOfNoDots", PngBegin + PngHeader + makeResolution(None, Dots144, 1), "72 36"),
    makePictureRow(
        "PngOfDotsTooLate", PngBegin + PngHeader + PngData + makeResolution(Dots144, Dots144, 1), "72 36"),
    makePictureRow("PngOfALongChunk", PngBegin + PngHeader + makeBytes("\xFF\xFF\xFF\xFFtEXT"), "72 36"),
    makePictureRow("PngWithoutHeader", PngBegin + PngData, "nothing"),
    makePictureRow("PngOfNoWidth", PngBegin + makeBytes("\0\0\0\rIHDR\0\0\0\0\0\0\0\1"), "nothing"),
    makePictureRow("PngCutInItsHeader", PngBegin + PngHeader.substr(0, 12), "nothing"),
    makePictureRow("Jpeg", JpegBegin + JpegFrame, "72 36"),
    makePictureRow(
        "JpegOfDotsInAnInch", JpegBegin + makeJfif(1, makeBytes("\0\x48\0\x90")) + JpegFrame, "96 24"),
    makePictureRow("JpegOfDotsInACentimetre", JpegBegin + makeJfif(2, makeBytes("\0\x48\0\x48")) + JpegFrame,
        "37.8 18.9"),
    makePictureRow("JpegOfAShape", JpegBegin + makeJfif(0, makeBytes("\0\1\0\1")) + JpegFrame, "72 36"),
    makePictureRow("JpegOfNoDots", JpegBegin + makeJfif(1, None) + JpegFrame, "72 36"),
    makePictureRow("JpegOfOtherData",
        JpegBegin + makeBytes("\xFF\xE0\0\x10JFXX\0\1\1\1\0\x48\0\x48\0\0") + JpegFrame, "72 36"),
    makePictureRow("JpegOfTables",
        JpegBegin + makeBytes("\xFF\xC4\0\x0A--------") + makeBytes("\xFF\xFF") + JpegFrame, "72 36"),
    makePictureRow("ProgressiveJpeg", JpegBegin + makeBytes("\xFF\xC2\0\x11\x08\0\x30\0\x60\3"), "72 36"),
    makePictureRow("JpegWithoutFrame", JpegBegin + makeBytes("\xFF\xC4\0\x02\xFF\xDA"), "nothing"),
    makePictureRow("JpegOfNothing", JpegBegin, "nothing"),
    makePictureRow("Gif", makeBytes("GIF89a\x60\0\x30\1"), "72 228"),
    makePictureRow("OldGif", makeBytes("GIF87a\x60\0\x30\0"), "72 36"),
    makePictureRow("OtherGif", makeBytes("GIF88a\x60\0\x30\0"), "nothing"),
    makePictureRow("CutGif", makeBytes("GIF89a\x60\0"), "nothing"),
    makePictureRow("Bitmap", makeBitmap(makeBytes("\x60\0\0\0\x30\0\0\0"), None + None), "72 36"),
    makePictureRow(
        "BitmapFromTheTop", makeBitmap(makeBytes("\x60\0\0\0\xD0\xFF\xFF\xFF"), None + None), "72 36"),
    makePictureRow("BitmapOfDots",
        makeBitmap(makeBytes("\x60\0\0\0\x30\0\0\0"), makeBytes("\x25\x16\0\0\x25\x16\0\0")), "48 24"),
    makePictureRow("OldBitmap", Bitmap + makeBytes("\x0C\0\0\0\x60\0\x30\0\1\0\x18\0"), "72 36"),
    makePictureRow("CutBitmap", Bitmap, "nothing"),
    makePictureRow("Metafile", makeBytes("\xD7\xCD\xC6\x9A"), "nothing"),
    makePictureRow("Nothing", "", "nothing"),
};

class ReadPictureSize : public testing::TestWithParam<PictureRow>
{
};

TEST_P(ReadPictureSize, KeepsRow)
{
    const auto size = readPictureSize(GetParam().bytes);
    EXPECT_EQ(size ? fmt::format("{:.3g} {:.3g}", size->getWidth(), size->getHeight()) : "nothing",
        GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadPictureSize, testing::ValuesIn(PictureRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
