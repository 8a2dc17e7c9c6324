#pragma once

#include <string>
#include <vector>

#include <boost/filesystem/path.hpp>

#include <Filters/Package/FilterRun.h>

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

    /// Moves the files of these items to their place, and takes away what else grew, such as a picture that
    /// broke off; throws OutputError where that fails.
    void commit(const std::vector<Filters::MediaItem>& items);

private:
    void removeGrown();

    boost::filesystem::path _folder;
    boost::filesystem::path _growing;
    std::vector<boost::filesystem::path> _parents; // that were made for it, the innermost first
};

} // namespace QV::Tool
