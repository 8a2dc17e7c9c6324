#include <MediaFolder.h>

#include <set>

#include <boost/filesystem/operations.hpp>
#include <fmt/format.h>

#include <OutputFile.h>
#include <Utils/Public/UUID.h>

namespace QV::Tool {

namespace fs = boost::filesystem;

MediaFolder::MediaFolder(const std::string& folder)
    : _folder(folder)
{
    if (folder.empty())
        return;
    if (_folder.filename_is_dot()) // "media/" names the folder "media"
        _folder = _folder.has_parent_path() ? _folder.parent_path() : fs::path(".");
    boost::system::error_code error;
    const std::string part = fmt::format("{}.part", UUID::generate().toString());
    // Inside a folder that is there, since what lies beside it may be another file system.
    _growing =
        fs::exists(_folder, error) ? _folder / part : fs::path(fmt::format("{}.{}", _folder.string(), part));
    for (fs::path parent = _growing.parent_path(); !parent.empty() && !fs::exists(parent, error);
         parent = parent.parent_path())
        _parents.push_back(parent);
    fs::create_directories(_growing, error);
    if (!error && !fs::is_directory(_growing, error))
        error = boost::system::errc::make_error_code(boost::system::errc::not_a_directory);
    if (error) {
        removeGrown();
        throw OutputError(folder, error.message());
    }
}

MediaFolder::~MediaFolder()
{
    if (!_growing.empty())
        removeGrown();
}

void MediaFolder::removeGrown()
{
    boost::system::error_code error;
    fs::remove_all(_growing, error);
    for (const fs::path& parent : _parents)
        fs::remove(parent, error); // only what is empty
}

void MediaFolder::commit(const std::vector<Filters::MediaItem>& items)
{
    if (_growing.empty())
        return;
    std::set<std::string> names;
    for (const Filters::MediaItem& item : items)
        names.insert(item.id);
    boost::system::error_code error;
    for (fs::directory_iterator it(_growing, error), end; !error && it != end; it.increment(error))
        if (names.count(it->path().filename().string()) == 0)
            fs::remove(it->path(), error);
    if (error)
        throw OutputError(_folder.string(), error.message());
    if (!fs::exists(_folder, error)) {
        fs::rename(_growing, _folder, error);
    } else {
        for (fs::directory_iterator it(_growing, error), end; !error && it != end; it.increment(error))
            fs::rename(it->path(), _folder / it->path().filename(), error);
        if (!error)
            fs::remove_all(_growing, error);
    }
    if (error)
        throw OutputError(_folder.string(), error.message());
    _growing.clear();
}

} // namespace QV::Tool
