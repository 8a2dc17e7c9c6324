#include <FilterUtils/FU_LocalFSMediaStorage.h>

#include <array>
#include <cstddef>
#include <ios>
#include <ostream>
#include <utility>

#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>

#include <Utils/Public/Assertions.h>
#include <Utils/Public/InputStream.h>
#include <Utils/Public/MIME.h>

#include <FilterUtils/FU_Errors.h>

namespace QV::FilterUtils {
namespace {

// Runs an operation of the storage. Callers go on without a medium that could not be kept, so a failure of
// the file system or of a filter's stream becomes the empty result; every other exception is a defect and
// passes.
template <typename Operation>
auto emptyOnFailure(Operation operation) -> decltype(operation())
{
    try {
        return operation();
    } catch (const boost::filesystem::filesystem_error& error) {
        static_cast<void>(error.what());
    } catch (const BaseRuntimeError& error) {
        static_cast<void>(error.what());
    }
    return {};
}

// Whether a name stays in the folder that it is joined with, and is the one that the system sees: for it, a
// NUL would end the name.
bool isPlainFileName(const std::string& name)
{
    constexpr char SeparatorAndNul[] = {'/', '\0'};
    const boost::string_ref forbidden(SeparatorAndNul, sizeof(SeparatorAndNul));
    return !name.empty() && name != "." && name != ".." &&
           boost::string_ref(name).find_first_of(forbidden) == boost::string_ref::npos;
}

// Whether an earlier run left a file of that name. Names that lead out of the folder are not looked at, so a
// document learns nothing of other files.
bool canAdopt(const FileSystem::Path& folder, const std::string& id)
{
    return isPlainFileName(id) && FileSystem::exists(folder / id);
}

// The end of the names of files of one type, with its dot; empty for a type that is not known.
std::string makeSuffix(const std::string& mimeType)
{
    const boost::optional<std::string> extension = getFileExtensionByMIMEType(mimeType);
    return extension ? "." + *extension : std::string();
}

// One fixed buffer, so that a film costs no more memory than an icon. Whether a write succeeds is not asked:
// the identifier holds for a file that a full disk cut short, and who opens it finds less.
void copyAll(InputStream& from, std::ostream& to)
{
    constexpr std::size_t BufferSize = 1024;
    std::array<char, BufferSize> buffer;
    while (const std::size_t size = from.read(buffer.data(), buffer.size(), 0))
        to.write(buffer.data(), static_cast<std::streamsize>(size));
}

// False where the file cannot be opened. The file is complete when this returns.
bool replaceContent(const FileSystem::Path& path, InputStream& content)
{
    FileSystemBlob blob(path);
    const std::shared_ptr<std::ostream> file = blob.openStdOutputStream();
    if (!file)
        return false;
    copyAll(content, *file);
    return true;
}

} // namespace

LocalFSMediaStorage::LocalFSMediaStorage(const std::string& folder)
    : LocalFSMediaStorage(folder, nullptr, MediaStorageMode::CreateNew)
{
}

LocalFSMediaStorage::LocalFSMediaStorage(const std::string& folder, MediaStorageMode mode)
    : LocalFSMediaStorage(folder, nullptr, mode)
{
}

LocalFSMediaStorage::LocalFSMediaStorage(const std::string& folder, std::unique_ptr<IDGenerator> generator)
    : LocalFSMediaStorage(folder, std::move(generator), MediaStorageMode::CreateNew)
{
}

LocalFSMediaStorage::LocalFSMediaStorage(
    const std::string& folder, std::unique_ptr<IDGenerator> generator, MediaStorageMode mode)
    : _folder(folder)
    , _idGenerator(generator ? std::move(generator) : makeUUIDIDGenerator())
    , _mode(mode)
{
}

LocalFSMediaStorage::~LocalFSMediaStorage() = default;

std::string LocalFSMediaStorage::getFullPathForPublicId(const std::string& publicId)
{
    FileSystem::Path path = _folder;
    path /= publicId;
    return path.string(FileSystem::Path::getCvt());
}

std::string LocalFSMediaStorage::generatePublicFileNameForId(const std::string& id)
{
    return _idGenerator->generateId() + FileSystem::Path(id).extension().string();
}

boost::optional<FileSystemBlob> LocalFSMediaStorage::createBlobForFileById(const std::string& id)
{
    const std::string path = getFullPathToID(id);
    if (path.empty()) // the folder could not be made
        return boost::none;
    if (!FileSystem::exists(path)) // the name is reserved, and nothing was written yet
        return boost::none;
    return FileSystemBlob(path);
}

std::string LocalFSMediaStorage::getFullPathToID(const std::string& id)
{
    return emptyOnFailure([&] {
        FileSystem::create_directories(_folder);
        if (_publicNames.count(id) != 0)
            return getFullPathForPublicId(id);
        // What a document calls its media becomes no name here, unless such a file is there already: two
        // documents say "image1.png", and a third says "../image1.png".
        const bool canReuse = _mode == MediaStorageMode::ReuseExisting && canAdopt(_folder, id);
        const std::string publicName = canReuse ? id : generatePublicFileNameForId(id);
        _publicNames.insert(publicName);
        return getFullPathForPublicId(publicName);
    });
}

std::shared_ptr<InputStream> LocalFSMediaStorage::openMediaForReading(const std::string& id)
{
    return emptyOnFailure([&]() -> std::shared_ptr<InputStream> {
        const boost::optional<FileSystemBlob> blob = createBlobForFileById(id);
        return blob ? blob->openInputStream() : nullptr;
    });
}

std::string LocalFSMediaStorage::saveExternalURL(const std::string& url)
{
    return emptyOnFailure([&]() -> std::string {
        // Before all else, so that a link to nothing neither draws a name nor makes the folder.
        if (!FileSystem::exists(url))
            return std::string();
        const std::string name = generatePublicFileNameForId(url);
        _publicNames.insert(name);
        const FileSystem::Path target = getFullPathToID(name);
        FileSystem::create_directories(_folder);
        // A generator that counts makes the names of an earlier run again; what that left is replaced, as it
        // is by a stream.
        FileSystem::copy_file(url, target, boost::filesystem::copy_option::overwrite_if_exists);
        return name;
    });
}

std::string LocalFSMediaStorage::saveMediaFromStream(
    std::shared_ptr<InputStream> stream, const std::string& mimeType)
{
    QV_ASSERT(stream);
    if (!stream)
        return std::string();
    return emptyOnFailure([&]() -> std::string {
        // The first identifier only lends its extension, and generated ones have none. Drawing it makes a
        // counting generator go on by two for each item, and the names that result are relied on.
        const std::string id = _idGenerator->generateId();
        const std::string name = generatePublicFileNameForId(id) + makeSuffix(mimeType);
        _publicNames.insert(name);
        const FileSystem::Path path = getFullPathToID(name);
        FileSystem::create_directories(_folder);
        FileSystem::touch(path); // stays behind where it cannot be written to: its name is given away
        return replaceContent(path, *stream) ? name : std::string();
    });
}

} // namespace QV::FilterUtils
