#include <OutputFile.h>

#include <cerrno>
#include <cstring>
#include <iostream>

#include <boost/filesystem/operations.hpp>
#include <fmt/format.h>

#include <Filters/Package/PackageError.h>
#include <Utils/Public/UUID.h>

namespace QV::Tool {

namespace fs = boost::filesystem;

namespace {

const char* const StandardOutput = "-";

std::string describeLastError()
{
    return errno != 0 ? std::strerror(errno) : "it cannot be written";
}

/// The file that a name leads to, which need not be there.
fs::path followLinks(fs::path path)
{
    constexpr int LinksMax = 40; // as the system has it
    boost::system::error_code error;
    for (int i = 0; i < LinksMax && fs::is_symlink(fs::symlink_status(path, error)); ++i)
        path = path.parent_path() / fs::read_symlink(path, error); // what is absolute replaces all
    return path;
}

bool isWrittenBeside(const fs::path& name)
{
    boost::system::error_code error;
    const auto status = fs::status(name, error);
    return !fs::exists(status) || fs::is_regular_file(status);
}

} // namespace

OutputError::OutputError(const std::string& name, const std::string& reason)
    : std::runtime_error(fmt::format("{}: {}", Filters::makePrintable(name), reason))
{
}

OutputFile::OutputFile(const std::string& name)
    : _name(name)
{
    if (_name == StandardOutput)
        return;
    _target = followLinks(_name);
    if (isWrittenBeside(_target))
        _temporaryName = fmt::format("{}.{}.part", _target.string(), UUID::generate().toString());
    errno = 0;
    _file.open(_temporaryName.empty() ? _name : _temporaryName, std::ios::binary | std::ios::trunc);
    if (!_file) {
        _temporaryName.clear();
        throw OutputError(_name, describeLastError());
    }
}

OutputFile::~OutputFile()
{
    if (_temporaryName.empty())
        return;
    _file.close();
    boost::system::error_code error;
    fs::remove(_temporaryName, error);
}

std::ostream& OutputFile::getStream()
{
    return _name == StandardOutput ? std::cout : _file;
}

void OutputFile::complete()
{
    errno = 0;
    std::ostream& stream = getStream();
    stream.flush();
    if (_file.is_open())
        _file.close();
    if (!stream)
        throw OutputError(_name == StandardOutput ? "standard output" : _name, describeLastError());
}

void OutputFile::commit()
{
    if (_temporaryName.empty())
        return;
    boost::system::error_code error;
    fs::rename(_temporaryName, _target, error);
    if (error)
        throw OutputError(_name, error.message());
    _temporaryName.clear();
}

} // namespace QV::Tool
