#include <OutputFile.h>

#include <cerrno>
#include <cstring>
#include <iostream>

#include <boost/filesystem/operations.hpp>
#include <fmt/format.h>

#include <Utils/Public/UUID.h>

namespace QV::Tool {
namespace {

const char* const StandardOutput = "-";

std::string describeLastError()
{
    return errno != 0 ? std::strerror(errno) : "it cannot be written";
}

bool isWrittenBeside(const std::string& name)
{
    boost::system::error_code error;
    const auto status = boost::filesystem::status(name, error);
    return !boost::filesystem::exists(status) || boost::filesystem::is_regular_file(status);
}

} // namespace

OutputError::OutputError(const std::string& name, const std::string& reason)
    : std::runtime_error(fmt::format("{}: {}", name, reason))
{
}

OutputFile::OutputFile(const std::string& name)
    : _name(name)
{
    if (_name == StandardOutput)
        return;
    if (isWrittenBeside(_name))
        _temporaryName = fmt::format("{}.{}.part", _name, UUID::generate().toString());
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
    boost::filesystem::remove(_temporaryName, error);
}

std::ostream& OutputFile::getStream()
{
    return _name == StandardOutput ? std::cout : _file;
}

void OutputFile::commit()
{
    errno = 0;
    std::ostream& stream = getStream();
    stream.flush();
    if (_file.is_open())
        _file.close();
    if (!stream)
        throw OutputError(_name == StandardOutput ? "standard output" : _name, describeLastError());
    if (_temporaryName.empty())
        return;
    boost::system::error_code error;
    boost::filesystem::rename(_temporaryName, _name, error);
    if (error)
        throw OutputError(_name, error.message());
    _temporaryName.clear();
}

} // namespace QV::Tool
