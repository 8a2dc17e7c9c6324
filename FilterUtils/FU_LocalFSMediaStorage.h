#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include <boost/optional.hpp>

#include <Utils/Public/Blob.h>
#include <Utils/Public/FileSystem.h>

#include <FilterUtils/FU_Export.h>
#include <FilterUtils/FU_IDGenerators.h>
#include <FilterUtils/FU_MediaStorage.h>

namespace QV::FilterUtils {

/// What LocalFSMediaStorage does with an identifier that it did not give out.
enum class MediaStorageMode : std::uint8_t
{
    CreateNew = 0,     ///< maps it to a new file
    ReuseExisting = 1, ///< adopts the file of that name, where an earlier run left one in the folder
};

/// Media as flat files in one folder. An identifier is the name of its file, so that a document finds its
/// media again with nothing but the path of the folder.
///
///     LocalFSMediaStorage storage("book.media");
///     const std::string id = storage.saveMediaFromStream(stream, "image/png"); // "<UUID>.png"
///     storage.getFullPathForPublicId(id);                                      // "book.media/<UUID>.png"
///
/// The folder is made, with those above it, when it is first needed; construction touches no file. No file is
/// ever deleted, and an identifier that was given out stays known, also where the file could not be written.
///
/// Names come from the generator, so no identifier of a document leads a write out of the folder: only the
/// extension of an unknown identifier is kept ("../x.png" becomes "<UUID>.png"), and only plain file names
/// are adopted. An extension holds no separator. It is otherwise kept as it is, so who shows a name quotes
/// it.
///
/// Two names that the generator makes alike are one file; nothing asks it for another.
class FILTERUTILS_API LocalFSMediaStorage : public MediaStorage
{
public:
    /// Names are UUIDs, and unknown identifiers get new files, unless the other constructors are told
    /// otherwise.
    explicit LocalFSMediaStorage(const std::string& folder);
    LocalFSMediaStorage(const std::string& folder, MediaStorageMode mode);
    LocalFSMediaStorage(const std::string& folder, std::unique_ptr<IDGenerator> generator);

    /// @param generator null for that of UUIDs
    LocalFSMediaStorage(
        const std::string& folder, std::unique_ptr<IDGenerator> generator, MediaStorageMode mode);

    ~LocalFSMediaStorage() override;

    /// Copies the file at @p url under a new name that keeps its extension. Makes nothing where there is no
    /// file.
    std::string saveExternalURL(const std::string& url) override;

    /// The path of a known identifier, always the same; for any other a new name with the extension of @p id,
    /// known from now on, or the file that is adopted (see MediaStorageMode). So an identifier from elsewhere
    /// gets another path with each call.
    std::string getFullPathToID(const std::string& id) override;

    /// Looks the identifier up with getFullPathToID: one that is not known is mapped to a new name and has no
    /// content.
    std::shared_ptr<InputStream> openMediaForReading(const std::string& id) override;

    /// Copies @p stream, 1024 bytes at a time, to a new file with the extension of @p mimeType; with none
    /// where that is unknown. The generator is asked twice for each item. Asserts "stream", and returns
    /// nothing for a null pointer.
    ///
    /// Where the file cannot be opened for writing, an empty one stays behind. Where @p stream fails by an
    /// exception, what was read before it stays. What the system refuses while it is written (on a full disk)
    /// is not noticed: the file is shorter then.
    std::string saveMediaFromStream(
        std::shared_ptr<InputStream> stream, const std::string& mimeType) override;

    /// The folder's path joined with @p publicId. Pure work on text: nothing is looked up, nothing is
    /// checked, and "../x" leads out of the folder.
    std::string getFullPathForPublicId(const std::string& publicId);

    /// The generator's next name with the extension of @p id, its dot included. Nothing is remembered.
    std::string generatePublicFileNameForId(const std::string& id);

    /// The file that getFullPathToID leads to, or nothing where there is none.
    /// Throws boost::filesystem::filesystem_error where the system cannot tell.
    boost::optional<FileSystemBlob> createBlobForFileById(const std::string& id);

private:
    FileSystem::Path _folder;
    std::set<std::string> _publicNames;        // given out or adopted; only grows
    std::unique_ptr<IDGenerator> _idGenerator; // never null
    MediaStorageMode _mode;
};

} // namespace QV::FilterUtils
