#include <Utils/Public/MIME.h>

#include <cstddef>
#include <ios>
#include <streambuf>

#include <boost/utility/string_ref.hpp>

#include <Utils/MIMESniffers.h>

namespace QV {
namespace {

// Enough for the first part names of a package, and for a long prologue of an SVG picture.
constexpr std::size_t HeadSize = std::size_t{64} << 10;

struct Signature
{
    const char* bytes;
    std::size_t size;
    const char* mimeType;
};

template <std::size_t Size>
constexpr Signature makeSignature(const char (&bytes)[Size], const char* mimeType)
{
    return {bytes, Size - 1, mimeType}; // without the NUL that ends a literal
}

// What files of one type alone begin with. Two are missing on purpose: that of gzip, since compressed
// metafiles and SVG pictures begin with it and only their extensions tell them apart, and that of the
// compound files that the old office formats are kept in.
constexpr Signature Signatures[] = {
    makeSignature("\x89PNG\r\n\x1a\n", "image/png"),
    makeSignature("\xff\xd8\xff", "image/jpeg"),
    makeSignature("GIF87a", "image/gif"),
    makeSignature("GIF89a", "image/gif"),
    makeSignature("II*\0", "image/tiff"),
    makeSignature("MM\0*", "image/tiff"),
    makeSignature("II+\0", "image/tiff"), // files with 64-bit offsets
    makeSignature("MM\0+", "image/tiff"),
    makeSignature("II\xbc\x01", "image/vnd.ms-photo"),
    makeSignature("8BPS\0\x01", "image/vnd.adobe.photoshop"),
    makeSignature("%PDF-", "application/pdf"),
    makeSignature("%!PS-Adobe-", "application/postscript"),
    makeSignature("\xc5\xd0\xd3\xc6", "application/postscript"), // with a preview for DOS
    makeSignature("{\\rtf", "application/rtf"),
    makeSignature("fLaC", "audio/flac"),
    makeSignature("MThd\0\0\0\x06", "audio/midi"),
    makeSignature("#!AMR", "audio/amr"),
    makeSignature("ID3", "audio/mpeg"),
    makeSignature("\0\0\x01\xba", "video/mpeg"),
    makeSignature("\0\0\x01\xb3", "video/mpeg"),
    makeSignature("FLV\x01", "video/x-flv"),
};

const char* sniffSignature(boost::string_ref head)
{
    for (const Signature& signature : Signatures)
        if (head.starts_with(boost::string_ref(signature.bytes, signature.size)))
            return signature.mimeType;
    return nullptr;
}

using Sniffer = const char* (*)(boost::string_ref head);

// From sure signs to weak ones.
constexpr Sniffer Sniffers[] = {
    sniffSignature,
    MIMESniffers::sniffRIFF,
    MIMESniffers::sniffISOMedia,
    MIMESniffers::sniffMatroska,
    MIMESniffers::sniffASF,
    MIMESniffers::sniffOgg,
    MIMESniffers::sniffZip,
    MIMESniffers::sniffWindowsPicture,
    MIMESniffers::sniffSVG,
    MIMESniffers::sniffMPEGAudio,
};

boost::optional<std::string> detectMIMEType(boost::string_ref head)
{
    for (const Sniffer sniff : Sniffers)
        if (const char* const mimeType = sniff(head))
            return std::string(mimeType);
    return boost::none;
}

// Goes back to where the stream stood, also when reading throws.
class PositionKeeper
{
public:
    PositionKeeper(std::istream& stream, std::streampos position)
        : _stream(stream)
        , _position(position)
    {
    }
    ~PositionKeeper()
    {
        try {
            if (_stream.rdbuf()->pubseekpos(_position, std::ios::in) == _position)
                return;
        } catch (...) { // the same as a refusal
        }
        try {
            _stream.setstate(std::ios::badbit);
        } catch (...) { // the bit is set all the same
        }
    }
    PositionKeeper(const PositionKeeper&) = delete;
    PositionKeeper& operator=(const PositionKeeper&) = delete;

private:
    std::istream& _stream;
    const std::streampos _position;
};

} // namespace

boost::optional<std::string> detectMIMETypePreservingStream(std::istream& stream)
{
    // The buffer is read beside the stream, so that the end of the data leaves no mark in the stream's state.
    std::streambuf* const buffer = stream.rdbuf();
    if (!stream.good() || !buffer)
        return boost::none;
    const std::streampos position = buffer->pubseekoff(0, std::ios::cur, std::ios::in);
    if (position == std::streampos(-1) || buffer->pubseekpos(position, std::ios::in) != position)
        return boost::none;
    std::string head(HeadSize, '\0');
    {
        const PositionKeeper keeper(stream, position);
        head.resize(
            static_cast<std::size_t>(buffer->sgetn(head.data(), static_cast<std::streamsize>(HeadSize))));
    }
    return detectMIMEType(head);
}

} // namespace QV
