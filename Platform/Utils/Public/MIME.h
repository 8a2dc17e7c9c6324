#pragma once

/// @file
/// MIME types of media and office files: from content, from file extensions, and back to extensions.
///
/// The tables are part of the library, since it reads no configuration of the system it runs on.

#include <istream>
#include <string>

#include <boost/optional.hpp>

#include <Utils/Public/Export.h>

namespace QV {

/// The type of the content that @p stream is about to give, by its first 64 KiB: pictures (PNG, JPEG, GIF,
/// BMP, TIFF, WebP, JPEG XR, HEIF, AVIF, SVG, EMF, WMF, Photoshop), sound and film (WAV, AIFF, MP3, AAC,
/// MPEG-4, FLAC, Ogg, MIDI, AMR, AVI, QuickTime, 3GPP, Matroska, WebM, MPEG, Flash, Windows Media), PDF,
/// PostScript, RTF, and zip packages: OOXML and OpenDocument kinds where the names of their parts tell, any
/// other as "application/zip".
///
/// The position and the state of the stream are what they were. Nothing where the content is of no known
/// type, where the stream is not in the good state, and where it cannot be repositioned: such a stream is not
/// read at all. A stream that tells a position and then does not go back to it is put in the bad state.
UTILS_API boost::optional<std::string> detectMIMETypePreservingStream(std::istream& stream);

/// The usual file extension of a type, without the dot: "jpg" for "image/jpeg". Letters of either case.
/// Nothing for an unknown type.
UTILS_API boost::optional<std::string> getFileExtensionByMIMEType(const std::string& mimeType);

/// The type of files with an extension, which comes without a dot and in letters of either case: "image/jpeg"
/// for "jpg" and for "JPEG". Nothing for an unknown extension.
UTILS_API boost::optional<std::string> getMIMETypeByExtension(const std::string& extension);

} // namespace QV
