#include <Utils/Public/Blob.h>

#include <fstream>
#include <utility>

#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>

#include <Utils/Public/StreamAdapterFactory.h>

namespace QV {

Blob::~Blob() = default;

FileSystemBlob::FileSystemBlob(FileSystem::Path path)
    : _path(std::move(path))
{
}

std::shared_ptr<InputStream> FileSystemBlob::openInputStream() const
{
    boost::system::error_code error;
    if (!FileSystem::exists(_path) || boost::filesystem::is_directory(_path.native(), error))
        return nullptr; // a folder opens, and then every read from it fails
    auto stream = std::make_shared<std::ifstream>(_path.string(), std::ios::binary);
    if (!stream->is_open())
        return nullptr;
    return StreamAdapterFactory::convertToInputStream(std::move(stream));
}

std::shared_ptr<std::ostream> FileSystemBlob::openStdOutputStream()
{
    std::shared_ptr<std::ostream> stream = _path.createOutputFileStream();
    return stream->good() ? stream : nullptr;
}

} // namespace QV
