#pragma once

#include <memory>
#include <ostream>

#include <Utils/Public/Export.h>
#include <Utils/Public/FileSystem.h>
#include <Utils/Public/InputStream.h>

namespace QV {

/// Bytes that are kept somewhere and can be opened as often as needed.
class UTILS_API Blob
{
public:
    virtual ~Blob();

    /// The bytes from their begin, or null where they cannot be opened.
    virtual std::shared_ptr<InputStream> openInputStream() const = 0;

    /// A stream that replaces the bytes, complete when it is destroyed; null where it cannot be opened.
    virtual std::shared_ptr<std::ostream> openStdOutputStream() = 0;

protected:
    Blob() = default;
    Blob(const Blob&) = default;
    Blob& operator=(const Blob&) = default;
};

/// The bytes of a local file.
class UTILS_API FileSystemBlob final : public Blob
{
public:
    /// Touches no file.
    explicit FileSystemBlob(FileSystem::Path path);

    const FileSystem::Path& getPath() const { return _path; }

    /// Null also where the path leads to a folder.
    std::shared_ptr<InputStream> openInputStream() const override;

    /// Creates the file, or empties the one that is there.
    std::shared_ptr<std::ostream> openStdOutputStream() override;

private:
    FileSystem::Path _path;
};

} // namespace QV
