#pragma once

/// @file
/// Pictures between packages and the media storage.

#include <istream>
#include <memory>
#include <string>

#include <FilterUtils/FU_Export.h>

namespace QV::FilterUtils {

class MediaStorage;

/// Keeps the picture that @p in gives, from its current position to its end.
///
/// The type of the picture is that of its content; only where the content tells nothing, that of @p extension
/// (without a dot): a part whose name says one format and whose bytes are of another is kept as what it is.
///
/// @return the identifier that @p storage gave; never null, a pointer to the empty text where it kept nothing
///
/// Exceptions of the storage pass.
FILTERUTILS_API std::shared_ptr<std::string> savePictureToMediaStorage(
    std::istream& in, MediaStorage& storage, const std::string& extension);

/// The path of a picture inside of a package: @p folder, @p baseName and a suffix, with nothing between.
///
///     getPathForPictureInPackage("image/png", "media/", "image1", "");   // "media/image1.png"
///     getPathForPictureInPackage("", "media/", "image1", ".emf");        // "media/image1.emf"
///     getPathForPictureInPackage("x/y", "media/", "image1", ".emf");     // "media/image1"
///
/// @param folder with its slash
/// @param fallbackExtension the suffix, with its dot, for an empty @p mimeType; not for an unknown one
FILTERUTILS_API std::string getPathForPictureInPackage(const std::string& mimeType, const std::string& folder,
    const std::string& baseName, const std::string& fallbackExtension);

/// Copies what @p in gives until its end to the file at @p path, which is made or emptied first. Makes no
/// file where @p in is not in the good state.
///
/// Nothing tells of a file that could not be made or was not written whole: who cares looks at the file.
FILTERUTILS_API void saveStreamToLocalFile(std::istream& in, const std::string& path);

} // namespace QV::FilterUtils
