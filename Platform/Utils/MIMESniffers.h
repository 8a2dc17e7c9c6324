#pragma once

/// @file
/// Parts of the detection of MIME types from content. Each function is given the first bytes of the content,
/// as many as there are up to 64 KiB, and returns a type, or null where the content is not of its family.

#include <cstddef>
#include <cstdint>

#include <boost/utility/string_ref.hpp>

namespace QV::MIMESniffers {

/// Whether @p text stands at @p offset, whole.
bool standsAt(boost::string_ref head, std::size_t offset, boost::string_ref text);

/// The byte at @p offset, or 0 beyond the end.
std::uint8_t readByte(boost::string_ref head, std::size_t offset);

/// ISO base media files (ISO/IEC 14496-12): MPEG-4, QuickTime, 3GPP, HEIF, AVIF.
const char* sniffISOMedia(boost::string_ref head);

/// RIFF and IFF files: WAV, AVI, WebP, AIFF.
const char* sniffRIFF(boost::string_ref head);

/// Matroska (RFC 9559) and WebM.
const char* sniffMatroska(boost::string_ref head);

/// Advanced Systems Format: Windows Media sound and film.
const char* sniffASF(boost::string_ref head);

/// Ogg (RFC 3533).
const char* sniffOgg(boost::string_ref head);

/// MPEG sound without a container: MP3 and AAC frames.
const char* sniffMPEGAudio(boost::string_ref head);

/// Windows metafiles, enhanced or not, and bitmaps.
const char* sniffWindowsPicture(boost::string_ref head);

/// SVG as text in UTF-8 or UTF-16.
const char* sniffSVG(boost::string_ref head);

/// Zip files and the office packages in them.
const char* sniffZip(boost::string_ref head);

} // namespace QV::MIMESniffers
