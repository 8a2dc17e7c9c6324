#include <Utils/Public/MIME.h>

#include <istream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

namespace QV {
namespace {

// A literal with the NUL bytes inside of it.
template <std::size_t Size>
std::string bytes(const char (&literal)[Size])
{
    return std::string(literal, Size - 1);
}

std::string widen(const std::string& text, bool isBigEndian)
{
    std::string wide;
    for (const char c : text)
        wide += isBigEndian ? std::string("\0", 1) + c : c + std::string("\0", 1);
    return wide;
}

// The first box of a file: its brand, and the compatible ones after it, four letters each.
std::string makeBrandBox(const std::string& brands)
{
    return std::string(3, '\0') + static_cast<char>(12 + brands.size()) + "ftyp" + brands.substr(0, 4) +
           std::string(4, '\0') + brands.substr(4);
}

std::string makeBitmap(char headerSize)
{
    return bytes("BM\x46\0\0\0\0\0\0\0\x36\0\0\0") + headerSize + bytes("\0\0\0");
}

const std::string Filler(200, 'x');
const std::string EMFBegin = bytes("\x01\0\0\0\x6c\0\0\0") + std::string(32, 'x');
const std::string OggPage = "OggS" + std::string(24, '\0');
const std::string BrandBoxCutShort = makeBrandBox("mif1").substr(0, 12);
const std::string VideoStream = bytes("\xc0\xef\x19\xbc\x4d\x5b\xcf\x11\xa8\xfd\x00\x80\x5f\x5c\x44\x2b");
const std::string AudioStream = bytes("\x40\x9e\x69\xf8\x4d\x5b\xcf\x11\xa8\xfd\x00\x80\x5f\x5c\x44\x2b");
const std::string ASFHeader =
    bytes("\x30\x26\xb2\x75\x8e\x66\xcf\x11\xa6\xd9\x00\xaa\x00\x62\xce\x6c\x10\0\0");
const std::string ASFHeaderCutShort = ASFHeader.substr(0, 15);

struct ContentRow
{
    const char* name;
    std::string content;
    std::string mimeType; // empty where nothing is known
};

void PrintTo(const ContentRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.content.substr(0, 60));
}

const ContentRow PictureRows[] = {
    {"PNG",                    bytes("\x89PNG\r\n\x1a\n\0\0\0\rIHDR"),     "image/png"                },
    {"PNGOfSignatureAlone",    bytes("\x89PNG\r\n\x1a\n"),                 "image/png"                },
    {"PNGCutShort",            bytes("\x89PNG\r\n\x1a"),                   ""                         },
    {"PNGWithChangedLineEnds", bytes("\x89PNG\n\x1a\n\0"),                 ""                         },
    {"JPEGOfJFIF",             bytes("\xff\xd8\xff\xe0\0\x10JFIF"),        "image/jpeg"               },
    {"JPEGOfEXIF",             bytes("\xff\xd8\xff\xe1"),                  "image/jpeg"               },
    {"JPEGCutShort",           bytes("\xff\xd8"),                          ""                         },
    {"GIF87",                  bytes("GIF87a\x01\0"),                      "image/gif"                },
    {"GIF89",                  bytes("GIF89a\x01\0"),                      "image/gif"                },
    {"GIFOfNoVersion",         bytes("GIF88a"),                            ""                         },
    {"BMPWithCoreHeader",      makeBitmap(12),                             "image/bmp"                },
    {"BMP",                    makeBitmap(40),                             "image/bmp"                },
    {"BMPVersion5",            makeBitmap(124),                            "image/bmp"                },
    {"BMPOfNoHeader",          makeBitmap(41),                             ""                         },
    {"TextFromBM",             "BM is short for bitmap, but this is text", ""                         },
    {"TIFFLittleEndian",       bytes("II*\0\x08\0\0\0"),                   "image/tiff"               },
    {"TIFFBigEndian",          bytes("MM\0*\0\0\0\x08"),                   "image/tiff"               },
    {"TIFFMixed",              bytes("II\0*\0\0\0\x08"),                   ""                         },
    {"BigTIFFLittleEndian",    bytes("II+\0\x08\0\0\0"),                   "image/tiff"               },
    {"BigTIFFBigEndian",       bytes("MM\0+\0\x08\0\0"),                   "image/tiff"               },
    {"JPEGXR",                 bytes("II\xbc\x01\x08\0\0\0"),              "image/vnd.ms-photo"       },
    {"WebP",                   bytes("RIFF\x24\0\0\0WEBPVP8 "),            "image/webp"               },
    {"Photoshop",              bytes("8BPS\0\x01\0\0"),                    "image/vnd.adobe.photoshop"},
    {"EMF",                    EMFBegin + " EMF",                          "image/x-emf"              },
    {"EMFWithoutItsMark",      EMFBegin + " EMG",                          ""                         },
    {"WMFPlaceable",           bytes("\xd7\xcd\xc6\x9a\0\0"),              "image/x-wmf"              },
    {"WMFInMemory",            bytes("\x01\0\x09\0\0\x03\x10\0"),          "image/x-wmf"              },
    {"WMFOnDisk",              bytes("\x02\0\x09\0\0\x01\x10\0"),          "image/x-wmf"              },
    {"WMFOfNoVersion",         bytes("\x01\0\x09\0\0\x02\x10\0"),          ""                         },
    {"WMFOfNoType",            bytes("\x03\0\x09\0\0\x03\x10\0"),          ""                         },
    {"HEIC",                   makeBrandBox("heicmif1heic"),               "image/heic"               },
    {"HEICByCompatibleBrand",  makeBrandBox("mif1mif1heic"),               "image/heic"               },
    {"AVIF",                   makeBrandBox("avifmif1"),                   "image/avif"               },
    {"AVIFByCompatibleBrand",  makeBrandBox("mif1mif1avif"),               "image/avif"               },
    {"HEIFOfOtherCoding",      makeBrandBox("mif1mif1jpeg"),               "image/heif"               },
    {"HEIFBrandBeyondTheBox",  makeBrandBox("mif1mif1") + "heic",          "image/heif"               },
    {"HEIFCutShort",           BrandBoxCutShort,                           "image/heif"               },
};

const ContentRow SVGRows[] = {
    {"Bare",                       "<svg xmlns=\"http://www.w3.org/2000/svg\"/>",                             "image/svg+xml"},
    {"NoAttributes",               "<svg>",                                                                   "image/svg+xml"},
    {"EmptyElement",               "<svg/>",                                                                  "image/svg+xml"},
    {"LineEndAfterName",           "<svg\n width='1'>",                                                       "image/svg+xml"},
    {"Declaration",                "<?xml version=\"1.0\"?>\r\n<svg >",                                       "image/svg+xml"},
    {"ByteOrderMark",              "\xef\xbb\xbf<?xml version=\"1.0\"?><svg >",                               "image/svg+xml"},
    {"Comments",                   "<!-- a > b --><!---->\n<svg >",                                           "image/svg+xml"},
    {"Doctype",                    "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"svg11.dtd\">\n<svg >", "image/svg+xml"},
    {"DoctypeWithDeclarations",    "<!DOCTYPE svg [\n<!ENTITY a \"b>\">\n] >\n<svg >",                        "image/svg+xml"},
    {"Instruction",                "<?xml version='1.0'?><?xml-stylesheet href='a.css'?><svg >",              "image/svg+xml"},
    {"Prefix",                     "<svg:svg xmlns:svg='http://www.w3.org/2000/svg'>",                        "image/svg+xml"},
    {"LittleEndian",               widen("<?xml version='1.0'?><svg >",                                       false),          "image/svg+xml"},
    {"BigEndian",                            widen("<?xml version='1.0'?><svg >",                                                                                           true),                                            "image/svg+xml"},
    {"LittleEndianMark",             "\xff\xfe" + widen("<!-- \x01 --><svg >",                                                                                      false),                                         "image/svg+xml"},
    {"BigEndianMark",                      "\xfe\xff" + widen("<svg/>",true),"image/svg+xml"},
    {"LongComment","<!--" + std::string(60000,                                                      '-') + "--><svg >",                                                                                     "image/svg+xml"},
    {"CommentBeyondTheHead",                "<!--" + std::string(70000,                                                                                    ' ') + "--><svg >",                            ""},
    {"NameGoesOn",                            "<svgs >",                                                                                ""                                                     },
    {"OtherRoot",                          "<html><svg ></svg></html>",                                                                                                   ""                                                                           },
    {"CommentedOut",                          "<!-- <svg > --><html>",                    ""},
    {"CommentWithoutEnd",                          "<!-- <svg >", ""},
    {"DoctypeWithoutEnd",                          "<!DOCTYPE svg [ <svg >",                                                                                ""                                                                                                         },
    {"DeclarationWithoutEnd",                          "<?xml <svg >",                                                                                                   ""                                                                                                                                                                        },
    {"CutAfterName",                          "<svg",                    ""},
    {"TextBefore",                          "x<svg >", ""},
};

const ContentRow MediaRows[] = {
    {"WAV",                    bytes("RIFF\x24\0\0\0WAVEfmt "),                                               "audio/wav"       },
    {"AVI",                    bytes("RIFF\x24\0\0\0AVI LIST"),                                               "video/x-msvideo" },
    {"RIFFOfOtherForm",        bytes("RIFF\x24\0\0\0ACONLIST"),                                               ""                },
    {"RIFFCutShort",           bytes("RIFF\x24\0\0\0WAV"),                                                    ""                },
    {"AIFF",                   bytes("FORM\0\0\0$AIFFCOMM"),                                                  "audio/aiff"      },
    {"AIFC",                   bytes("FORM\0\0\0$AIFCFVER"),                                                  "audio/aiff"      },
    {"MP3WithTag",             bytes("ID3\x03\0\0"),                                                          "audio/mpeg"      },
    {"MP3Frame",               bytes("\xff\xfb\x90\x64"),                                                     "audio/mpeg"      },
    {"MP3FrameWithChecksum",   bytes("\xff\xfa\x90\x64"),                                                     "audio/mpeg"      },
    {"MP3OfVersion2",          bytes("\xff\xf3\x40\xc4"),                                                     "audio/mpeg"      },
    {"MP3OfVersion25",         bytes("\xff\xe3\x40\xc4"),                                                     "audio/mpeg"      },
    {"MP3OfNoVersion",         bytes("\xff\xeb\x90\x64"),                                                     ""                },
    {"MP3OfNoBitRate",         bytes("\xff\xfb\xf0\x64"),                                                     ""                },
    {"MP3OfFreeBitRate",       bytes("\xff\xfb\x00\x64"),                                                     ""                },
    {"MP3OfNoSamplingRate",    bytes("\xff\xfb\x9c\x64"),                                                     ""                },
    {"MPEGLayer2",             bytes("\xff\xfd\x90\x64"),                                                     ""                },
    {"MP3CutShort",            bytes("\xff\xfb\x90"),                                                         ""                },
    {"AAC",                    bytes("\xff\xf1\x50\x80"),                                                     "audio/aac"       },
    {"AACOfVersion2",          bytes("\xff\xf9\x50\x80"),                                                     "audio/aac"       },
    {"AACOfLastSamplingRate",  bytes("\xff\xf1\x70\x80"),                                                     "audio/aac"       },
    {"AACOfNoSamplingRate",    bytes("\xff\xf1\x74\x80"),                                                     ""                },
    {"UTF16Text",              bytes("\xff\xfeH\0i\0"),                                                       ""                },
    {"OggVorbis",              OggPage + "\x01vorbis",                                                        "audio/ogg"       },
    {"OggTheora",              OggPage + "\x80theora",                                                        "video/ogg"       },
    {"OggCutShort",            "OggS",                                                                        "audio/ogg"       },
    {"FLAC",                   bytes("fLaC\0\0\0\x22"),                                                       "audio/flac"      },
    {"MIDI",                   bytes("MThd\0\0\0\x06\0\x01"),                                                 "audio/midi"      },
    {"AMR",                    bytes("#!AMR\n"),                                                              "audio/amr"       },
    {"M4A",                    makeBrandBox("M4A "),                                                          "audio/mp4"       },
    {"MP4",                    makeBrandBox("isom"),                                                          "video/mp4"       },
    {"MP4Version2",            makeBrandBox("mp42"),                                                          "video/mp4"       },
    {"M4V",                    makeBrandBox("M4V "),                                                          "video/x-m4v"     },
    {"QuickTime",              makeBrandBox("qt  "),                                                          "video/quicktime" },
    {"QuickTimeBeforeBrands",  bytes("\0\0\x10\0moov\0\0\0\x6cmvhd"),                                         "video/quicktime" },
    {"QuickTimeDataFirst",     bytes("\0\0\0\x08wide\0\0\x10\0mdat"),                                         "video/quicktime" },
    {"ThirdGeneration",        makeBrandBox("3gp4"),                                                          "video/3gpp"      },
    {"WebM",                   bytes("\x1a\x45\xdf\xa3\x9f\x42\x86\x81\x01\x42\x82\x84webm\x42\x87\x81\x04"), "video/webm"      },
    {"Matroska",               bytes("\x1a\x45\xdf\xa3\xa3\x42\x86\x81\x01\x42\x82\x88matroska"),             "video/x-matroska"},
    {"MatroskaNamingTheOther",
     bytes("\x1a\x45\xdf\xa3\xa3\x42\x82\x88matroska") + Filler + "\x42\x82\x84webm",                         "video/x-matroska"},
    {"MPEGProgram",            bytes("\0\0\x01\xba\x21"),                                                     "video/mpeg"      },
    {"MPEGVideo",              bytes("\0\0\x01\xb3\x16"),                                                     "video/mpeg"      },
    {"Flash",                  bytes("FLV\x01\x05"),                                                          "video/x-flv"     },
    {"WindowsFilm",            ASFHeader + AudioStream + VideoStream,                                         "video/x-ms-wmv"  },
    {"WindowsSound",           ASFHeader + AudioStream,                                                       "audio/x-ms-wma"  },
    {"WindowsStream",          ASFHeader,                                                                     "video/x-ms-asf"  },
    {"WindowsStreamCutShort",  ASFHeaderCutShort,                                                             ""                },
};

const ContentRow OtherRows[] = {
    {"PDF",                   "%PDF-1.7\n",                              "application/pdf"       },
    {"PostScript",            "%!PS-Adobe-3.0 EPSF-3.0",                 "application/postscript"},
    {"PostScriptWithPreview", bytes("\xc5\xd0\xd3\xc6\x1e\0"),           "application/postscript"},
    {"RTF",                   "{\\rtf1\\ansi",                           "application/rtf"       },
    {"Gzip",                  bytes("\x1f\x8b\x08\0"),                   ""                      },
    {"CompoundFile",          bytes("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1"), ""                      },
    {"Empty",                 "",                                        ""                      },
    {"OneByte",               bytes("\x89"),                             ""                      },
    {"OneNul",                bytes("\0"),                               ""                      },
    {"PlainText",             "Just some text.\n",                       ""                      },
    {"XML",                   "<?xml version=\"1.0\"?><a/>",             ""                      },
};

class MIMEDetection : public testing::TestWithParam<ContentRow>
{
};

boost::optional<std::string> expectedOf(const ContentRow& row)
{
    return row.mimeType.empty() ? boost::optional<std::string>() : row.mimeType;
}

std::string readRest(std::istream& stream)
{
    return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

TEST_P(MIMEDetection, KnowsTheContent)
{
    const ContentRow& row = GetParam();
    std::istringstream stream(row.content);
    EXPECT_EQ(detectMIMETypePreservingStream(stream), expectedOf(row));
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(readRest(stream), row.content);
}

TEST_P(MIMEDetection, StartsAtThePosition)
{
    const ContentRow& row = GetParam();
    std::istringstream stream("\x89PNG\r\n\x1a\n" + row.content);
    stream.seekg(8);
    EXPECT_EQ(detectMIMETypePreservingStream(stream), expectedOf(row));
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.tellg(), std::streampos(8));
    EXPECT_EQ(readRest(stream), row.content);
}

TEST_P(MIMEDetection, AcceptsContentCutAnywhere)
{
    const ContentRow& row = GetParam();
    for (std::size_t size = 0; size < row.content.size() && size < 400; ++size) {
        std::istringstream stream(row.content.substr(0, size));
        detectMIMETypePreservingStream(stream);
        EXPECT_EQ(readRest(stream), row.content.substr(0, size));
    }
}

std::string nameOf(const testing::TestParamInfo<ContentRow>& row)
{
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Pictures, MIMEDetection, testing::ValuesIn(PictureRows), nameOf);
INSTANTIATE_TEST_SUITE_P(SVG, MIMEDetection, testing::ValuesIn(SVGRows), nameOf);
INSTANTIATE_TEST_SUITE_P(Media, MIMEDetection, testing::ValuesIn(MediaRows), nameOf);
INSTANTIATE_TEST_SUITE_P(Others, MIMEDetection, testing::ValuesIn(OtherRows), nameOf);

TEST(MIMEDetection, EveryTypeHasAnExtension)
{
    const auto check = [](const auto& rows) {
        for (const ContentRow& row : rows) {
            if (row.mimeType.empty())
                continue;
            const boost::optional<std::string> extension = getFileExtensionByMIMEType(row.mimeType);
            ASSERT_TRUE(extension) << row.mimeType;
            EXPECT_EQ(getMIMETypeByExtension(*extension), row.mimeType);
        }
    };
    check(PictureRows);
    check(SVGRows);
    check(MediaRows);
    check(OtherRows);
}

TEST(MIMEDetection, LeavesStreamsThatAreNotGoodAlone)
{
    for (const std::ios::iostate state : {std::ios::eofbit, std::ios::failbit, std::ios::badbit}) {
        std::istringstream stream("GIF89a");
        stream.setstate(state);
        EXPECT_EQ(detectMIMETypePreservingStream(stream), boost::none);
        EXPECT_EQ(stream.rdstate(), state);
        stream.clear();
        EXPECT_EQ(readRest(stream), "GIF89a");
    }
    std::istream nothing(nullptr);
    EXPECT_EQ(detectMIMETypePreservingStream(nothing), boost::none);
}

TEST(MIMEDetection, RaisesNoAlarmInStreamsThatThrow)
{
    std::istringstream stream("GIF89a");
    stream.exceptions(std::ios::eofbit | std::ios::failbit | std::ios::badbit);
    EXPECT_EQ(detectMIMETypePreservingStream(stream), std::string("image/gif"));
    EXPECT_TRUE(stream.good());
}

// Gives its bytes once, from begin to end, as a pipe does.
class PipeBuffer : public std::streambuf
{
public:
    explicit PipeBuffer(std::string content)
        : _content(std::move(content))
    {
        setg(&_content[0], &_content[0], &_content[0] + _content.size());
    }

private:
    std::string _content;
};

TEST(MIMEDetection, ReadsNothingOfAPipe)
{
    PipeBuffer buffer("GIF89a");
    std::istream stream(&buffer);
    EXPECT_EQ(detectMIMETypePreservingStream(stream), boost::none);
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(readRest(stream), "GIF89a");
}

// Throws after its first bytes; can be repositioned.
class DamagedBuffer : public std::stringbuf
{
public:
    DamagedBuffer()
        : std::stringbuf("GIF89a", std::ios::in)
    {
    }

private:
    int_type underflow() override { throw std::runtime_error("damaged"); }
    std::streamsize xsgetn(char* begin, std::streamsize count) override
    {
        std::stringbuf::xsgetn(begin, 3);
        return count > 3 ? std::streamsize(underflow()) : count;
    }
};

TEST(MIMEDetection, GoesBackBeforeWhatTheStreamThrowsPasses)
{
    DamagedBuffer buffer;
    std::istream stream(&buffer);
    EXPECT_THROW(detectMIMETypePreservingStream(stream), std::runtime_error);
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.tellg(), std::streampos(0));
}

// Goes back once, and then no more.
class ForgetfulBuffer : public std::stringbuf
{
public:
    ForgetfulBuffer()
        : std::stringbuf("GIF89a", std::ios::in)
    {
    }

private:
    std::streampos seekpos(std::streampos position, std::ios::openmode mode) override
    {
        return ++_seeksCount > 1 ? std::streampos(-1) : std::stringbuf::seekpos(position, mode);
    }

    int _seeksCount = 0;
};

TEST(MIMEDetection, MarksAStreamThatDoesNotGoBack)
{
    ForgetfulBuffer buffer;
    std::istream stream(&buffer);
    EXPECT_EQ(detectMIMETypePreservingStream(stream), std::string("image/gif"));
    EXPECT_TRUE(stream.bad());
}

} // namespace
} // namespace QV
