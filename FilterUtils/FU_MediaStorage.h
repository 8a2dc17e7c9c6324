#pragma once

#include <memory>
#include <string>

#include <FilterUtils/FU_Export.h>

namespace QV {
class InputStream;
}

namespace QV::FilterUtils {

/// Keeps the pictures and other media of one document while it is read or written. The document model holds
/// nothing of them but the identifiers that are given out here.
///
/// Failure is told by an empty result alone. One thread at a time.
class FILTERUTILS_API MediaStorage
{
public:
    virtual ~MediaStorage();

    /// Keeps a copy of the local file at the path @p url, which is no URL with a scheme.
    /// @return its identifier; empty where there is no such file or it cannot be copied
    virtual std::string saveExternalURL(const std::string& url) = 0;

    /// The path of the file that holds an item. For an identifier that is not known, a path that is free for
    /// the caller to write to.
    /// @return empty where no place can be made for the file
    virtual std::string getFullPathToID(const std::string& id) = 0;

    /// The content of an item, from its begin.
    /// @return null where there is none
    virtual std::shared_ptr<InputStream> openMediaForReading(const std::string& id) = 0;

    /// Keeps what @p stream gives until its end.
    /// @param mimeType decides the extension of the file; may be empty or unknown
    /// @return its identifier; empty where it cannot be kept
    virtual std::string saveMediaFromStream(
        std::shared_ptr<InputStream> stream, const std::string& mimeType) = 0;
};

} // namespace QV::FilterUtils
