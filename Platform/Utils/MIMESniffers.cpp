#include <Utils/MIMESniffers.h>

#include <algorithm>
#include <iterator>

namespace QV::MIMESniffers {
namespace {

std::uint32_t readBigEndian(boost::string_ref head, std::size_t offset)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | readByte(head, offset + i);
    return value;
}

std::uint32_t readLittleEndian(boost::string_ref head, std::size_t offset)
{
    std::uint32_t value = 0;
    for (std::size_t i = 4; i > 0; --i)
        value = value << 8 | readByte(head, offset + i - 1);
    return value;
}

struct NameRow
{
    const char* name;
    const char* mimeType;
};

template <std::size_t Size>
const char* findByName(const NameRow (&rows)[Size], boost::string_ref head, std::size_t offset)
{
    for (const NameRow& row : rows)
        if (standsAt(head, offset, row.name))
            return row.mimeType;
    return nullptr;
}

// Brands of the ftyp box. What is not here is MPEG-4 film: most brands are versions and profiles of it.
constexpr NameRow Brands[] = {
    {"M4A ", "audio/mp4"      },
    {"M4B ", "audio/mp4"      },
    {"M4P ", "audio/mp4"      },
    {"F4A ", "audio/mp4"      },
    {"M4V",  "video/x-m4v"    },
    {"qt  ", "video/quicktime"},
    {"3gp",  "video/3gpp"     },
    {"3gr",  "video/3gpp"     },
    {"3gs",  "video/3gpp"     },
    {"avif", "image/avif"     },
    {"avis", "image/avif"     },
    {"heic", "image/heic"     },
    {"heix", "image/heic"     },
    {"hevc", "image/heic"     },
    {"hevx", "image/heic"     },
};

// A still picture whose own brand tells only the container; the compatible brands tell how it is coded.
const char* sniffHEIF(boost::string_ref head)
{
    constexpr std::size_t FirstCompatibleBrand = 16;
    const std::size_t end = std::min<std::size_t>(readBigEndian(head, 0), head.size());
    for (std::size_t offset = FirstCompatibleBrand; offset + 4 <= end; offset += 4) {
        const char* const mimeType = findByName(Brands, head, offset);
        if (mimeType &&
            (mimeType == boost::string_ref("image/avif") || mimeType == boost::string_ref("image/heic")))
            return mimeType;
    }
    return "image/heif";
}

} // namespace

bool standsAt(boost::string_ref head, std::size_t offset, boost::string_ref text)
{
    return offset <= head.size() && head.substr(offset).starts_with(text);
}

std::uint8_t readByte(boost::string_ref head, std::size_t offset)
{
    return offset < head.size() ? static_cast<std::uint8_t>(head[offset]) : std::uint8_t(0);
}

const char* sniffISOMedia(boost::string_ref head)
{
    // Films from before there was an ftyp box begin with one of these.
    constexpr NameRow OldFilmBoxes[] = {
        {"moov", "video/quicktime"},
        {"mdat", "video/quicktime"},
        {"wide", "video/quicktime"},
    };
    if (!standsAt(head, 4, "ftyp"))
        return findByName(OldFilmBoxes, head, 4);
    if (standsAt(head, 8, "mif1") || standsAt(head, 8, "msf1"))
        return sniffHEIF(head);
    const char* const mimeType = findByName(Brands, head, 8);
    return mimeType ? mimeType : "video/mp4";
}

const char* sniffRIFF(boost::string_ref head)
{
    constexpr NameRow RIFFForms[] = {
        {"WAVE", "audio/wav"      },
        {"AVI ", "video/x-msvideo"},
        {"WEBP", "image/webp"     },
    };
    constexpr NameRow IFFForms[] = {
        {"AIFF", "audio/aiff"},
        {"AIFC", "audio/aiff"},
    };
    if (head.starts_with("RIFF"))
        return findByName(RIFFForms, head, 8);
    if (head.starts_with("FORM"))
        return findByName(IFFForms, head, 8);
    return nullptr;
}

const char* sniffMatroska(boost::string_ref head)
{
    if (!head.starts_with("\x1a\x45\xdf\xa3"))
        return nullptr;
    // The document type stands in the first element, after its identifier and its size.
    constexpr std::size_t FirstElementSize = 128;
    const boost::string_ref first = head.substr(0, FirstElementSize);
    return first.find("\x42\x82\x84webm") != boost::string_ref::npos ? "video/webm" : "video/x-matroska";
}

const char* sniffASF(boost::string_ref head)
{
    // Kinds of objects and of streams are told by GUIDs, written with their first three fields little-endian.
    constexpr char HeaderObject[] = "\x30\x26\xb2\x75\x8e\x66\xcf\x11\xa6\xd9\x00\xaa\x00\x62\xce\x6c";
    constexpr char VideoStream[] = "\xc0\xef\x19\xbc\x4d\x5b\xcf\x11\xa8\xfd\x00\x80\x5f\x5c\x44\x2b";
    constexpr char AudioStream[] = "\x40\x9e\x69\xf8\x4d\x5b\xcf\x11\xa8\xfd\x00\x80\x5f\x5c\x44\x2b";
    constexpr std::size_t GUIDSize = 16;
    if (!head.starts_with(boost::string_ref(HeaderObject, GUIDSize)))
        return nullptr;
    if (head.find(boost::string_ref(VideoStream, GUIDSize)) != boost::string_ref::npos)
        return "video/x-ms-wmv";
    if (head.find(boost::string_ref(AudioStream, GUIDSize)) != boost::string_ref::npos)
        return "audio/x-ms-wma";
    return "video/x-ms-asf";
}

const char* sniffOgg(boost::string_ref head)
{
    if (!head.starts_with("OggS"))
        return nullptr;
    // Film begins its streams with that of the picture; its first page holds nothing but the codec's header.
    constexpr std::size_t FirstPageData = 28;
    return standsAt(head, FirstPageData, "\x80theora") ? "video/ogg" : "audio/ogg";
}

const char* sniffMPEGAudio(boost::string_ref head)
{
    // ISO/IEC 11172-3, 2.4.1.3: eleven set bits, two of version, two of layer, one of protection; four of bit
    // rate, two of sampling rate. What is reserved there is refused here, since two bytes are a weak sign.
    const std::uint8_t second = readByte(head, 1);
    const std::uint8_t third = readByte(head, 2);
    if (head.size() < 4 || readByte(head, 0) != 0xff || (second & 0xe0) != 0xe0)
        return nullptr;
    if ((second & 0xf6) ==
        0xf0) // ISO/IEC 13818-7, 6.2: layer 0 is an AAC frame; its sampling rates end at 12
        return (third >> 2 & 0x0f) <= 12 ? "audio/aac" : nullptr;
    const bool isVersionReserved = (second & 0x18) == 0x08;
    const bool isLayer3 = (second & 0x06) == 0x02;
    const bool isBitRateKnown = (third & 0xf0) != 0x00 && (third & 0xf0) != 0xf0;
    const bool isSamplingRateKnown = (third & 0x0c) != 0x0c;
    return !isVersionReserved && isLayer3 && isBitRateKnown && isSamplingRateKnown ? "audio/mpeg" : nullptr;
}

const char* sniffWindowsPicture(boost::string_ref head)
{
    constexpr std::uint32_t BitmapHeaderSizes[] = {12, 40, 52, 56, 64, 108, 124};
    if (head.starts_with(boost::string_ref("\x01\0\0\0", 4)) && standsAt(head, 40, " EMF"))
        return "image/x-emf";
    if (head.starts_with("\xd7\xcd\xc6\x9a")) // with a placement before the metafile
        return "image/x-wmf";
    const bool isMetafile = head.starts_with(boost::string_ref("\x01\0\x09\0\0", 5)) ||
                            head.starts_with(boost::string_ref("\x02\0\x09\0\0", 5));
    if (isMetafile && (readByte(head, 5) == 0x01 || readByte(head, 5) == 0x03))
        return "image/x-wmf";
    const auto* const end = std::end(BitmapHeaderSizes);
    if (head.starts_with("BM") && std::find(BitmapHeaderSizes, end, readLittleEndian(head, 14)) != end)
        return "image/bmp";
    return nullptr;
}

} // namespace QV::MIMESniffers
