#pragma once

/// @file
/// Paths and files of the local file system.
///
/// Names are bytes and are taken as they are: no locale takes part. A path that holds a NUL byte names no
/// file, so that what is looked at and what the system opens are always the same.

#include <cwchar>
#include <locale>
#include <memory>
#include <ostream>
#include <string>

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/utility/string_ref.hpp>

#include <Utils/Public/Export.h>

namespace QV::FileSystem {

/// The name of a file or folder, absolute or relative to the working directory.
///
///     Path picture("media");
///     picture /= "image1.png";     // media/image1.png
///     picture.extension();         // .png
///
/// A value: pure work on text, no access to the file system but in createOutputFileStream.
class UTILS_API Path
{
public:
    /// Turns the text of a path into another encoding; see getCvt.
    using CodeConversion = std::codecvt<wchar_t, char, std::mbstate_t>;

    Path() = default;
    Path(const char* text);
    Path(const std::string& text);
    Path(boost::string_ref text);

    /// Appends @p other with one separator between; an absolute @p other is appended like a relative one, as
    /// plain text: "a" / "/b" is "a/b".
    Path& operator/=(const Path& other);

    /// What stands after the last separator, up to a NUL byte; "." after a trailing separator; empty for an
    /// empty path.
    Path filename() const;

    /// The last dot of filename() and what follows it; empty where there is no dot, and for "." and "..".
    /// ".png" alone is all extension.
    Path extension() const;

    /// Drops filename() and the separator before it, unless that is the root: "a/b" becomes "a", "/b" becomes
    /// "/", "b" becomes the empty path.
    Path& remove_filename();

    bool empty() const { return _path.empty(); }

    const std::string& string() const { return _path.native(); }

    /// The text of the path as @p cvt encodes it. Paths are kept as bytes, so it is the same for every facet.
    std::string string(const CodeConversion& cvt) const;

    /// The code conversion facet of paths: that of the classic "C" locale, whatever the environment says.
    static const CodeConversion& getCvt();

    /// Creates the file, or empties the one that is there, and opens it for writing bytes. Never null; where
    /// that fails the stream is in the failed state.
    std::unique_ptr<std::ostream> createOutputFileStream() const;

    /// The path as boost::filesystem knows it.
    const boost::filesystem::path& native() const { return _path; }

    friend bool operator==(const Path& a, const Path& b) { return a.string() == b.string(); }
    friend bool operator!=(const Path& a, const Path& b) { return !(a == b); }

private:
    boost::filesystem::path _path;
};

UTILS_API Path operator/(Path folder, const Path& name);

/// Makes the folder and those above it, as far as they are missing.
/// Throws boost::filesystem::filesystem_error where that is impossible, and where a file is in the way.
UTILS_API void create_directories(const Path& folder);

/// Whether a file or a folder is there. False where one of the folders on the way is a file, and where the
/// name is longer than the system allows.
/// Throws boost::filesystem::filesystem_error where the system cannot tell.
UTILS_API bool exists(const Path& path);

/// Makes an empty file; sets the time of one that is there to now and leaves its content alone.
/// Throws boost::filesystem::filesystem_error where that is impossible.
UTILS_API void touch(const Path& file);

/// Copies the content and the permissions of a regular file.
/// Throws boost::filesystem::filesystem_error where that is impossible, where @p to is there already and
/// @p option is not overwrite_if_exists, and where both are the same file.
UTILS_API void copy_file(const Path& from, const Path& to, boost::filesystem::copy_option option);

} // namespace QV::FileSystem
