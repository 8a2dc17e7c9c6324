#include <Utils/Public/FileSystem.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>

#include <boost/filesystem/file_status.hpp>
#include <boost/system/error_code.hpp>

namespace QV::FileSystem {
namespace {

[[noreturn]] void fail(const char* operation, const Path& path, int error)
{
    throw boost::filesystem::filesystem_error(
        operation, path.native(), boost::system::error_code(error, boost::system::system_category()));
}

bool holdsNul(const Path& path)
{
    return path.string().find('\0') != std::string::npos;
}

void refuseNul(const char* operation, const Path& path)
{
    if (holdsNul(path))
        fail(operation, path, EINVAL);
}

} // namespace

Path::Path(const char* text)
    : _path(text)
{
}

Path::Path(const std::string& text)
    : _path(text)
{
}

Path::Path(boost::string_ref text)
    : _path(text.begin(), text.end())
{
}

Path& Path::operator/=(const Path& other)
{
    _path /= other._path;
    return *this;
}

Path Path::filename() const
{
    return Path(_path.filename().native());
}

Path Path::extension() const
{
    return Path(_path.extension().native());
}

Path& Path::remove_filename()
{
    _path.remove_filename();
    return *this;
}

std::string Path::string(const CodeConversion& /*cvt*/) const
{
    return string();
}

const Path::CodeConversion& Path::getCvt()
{
    return std::use_facet<CodeConversion>(std::locale::classic());
}

std::unique_ptr<std::ostream> Path::createOutputFileStream() const
{
    auto stream = std::make_unique<std::ofstream>();
    if (holdsNul(*this))
        stream->setstate(std::ios::failbit);
    else
        stream->open(string(), std::ios::binary | std::ios::trunc);
    return stream;
}

Path operator/(Path folder, const Path& name)
{
    folder /= name;
    return folder;
}

void create_directories(const Path& folder)
{
    refuseNul("create_directories", folder);
    boost::filesystem::create_directories(folder.native());
}

bool exists(const Path& path)
{
    if (holdsNul(path))
        return false;
    boost::system::error_code error;
    const boost::filesystem::file_status status = boost::filesystem::status(path.native(), error);
    if (status.type() != boost::filesystem::status_error)
        return boost::filesystem::exists(status);
    if (error.value() == ENAMETOOLONG)
        return false;
    fail("exists", path, error.value());
}

void touch(const Path& file)
{
    refuseNul("touch", file);
    // Without O_NONBLOCK a pipe that nobody reads from would never open.
    const int descriptor =
        open(file.string().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
    if (descriptor < 0)
        fail("touch", file, errno);
    const int error = futimens(descriptor, nullptr) == 0 ? 0 : errno;
    close(descriptor);
    if (error != 0)
        fail("touch", file, error);
}

void copy_file(const Path& from, const Path& to, boost::filesystem::copy_option option)
{
    refuseNul("copy_file", from);
    refuseNul("copy_file", to);
    // Opening a pipe to read from it would wait for a writer, and a file copied onto itself would be emptied.
    if (exists(from) && !boost::filesystem::is_regular_file(from.native()))
        fail("copy_file", from, EINVAL);
    if (exists(from) && exists(to) && boost::filesystem::equivalent(from.native(), to.native()))
        fail("copy_file", to, EEXIST);
    boost::filesystem::copy_file(from.native(), to.native(), option);
}

} // namespace QV::FileSystem
