#pragma once

#include <string>

#include <boost/filesystem/path.hpp>

namespace QV::Tool {

/// A folder whose files appear only when all of them are there: they grow in a folder beside, or inside, it.
class MediaFolder
{
public:
    /// @param folder empty: there is none, and nothing is done
    /// Throws OutputError where the folder cannot be made or written to.
    explicit MediaFolder(const std::string& folder);
    /// Takes away what was not committed.
    ~MediaFolder();

    MediaFolder(const MediaFolder&) = delete;
    MediaFolder& operator=(const MediaFolder&) = delete;

    /// Where the files grow; empty where there is no folder.
    std::string getGrowingFolder() const { return _growing.string(); }

    /// Moves the files to their place; throws OutputError where that fails.
    void commit();

private:
    boost::filesystem::path _folder;
    boost::filesystem::path _growing;
};

} // namespace QV::Tool
