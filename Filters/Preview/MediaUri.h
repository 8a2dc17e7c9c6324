#pragma once

#include <map>
#include <string>

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Picture;
}
namespace QV::FilterUtils {
class MediaStorage;
}

namespace QV::Filters {

/// The pictures of a document as data URIs (RFC 2397), each made once.
class FILTERS_API PictureUris
{
public:
    /// @param storage outlives this object
    explicit PictureUris(FilterUtils::MediaStorage& storage)
        : _storage(storage)
    {
    }

    /// Empty where the storage does not have the picture, or where its type is none that a browser shows and
    /// does not run. Valid as long as this object.
    const std::string& getUri(const DOM::Picture& picture);

private:
    FilterUtils::MediaStorage& _storage;
    std::map<std::string, std::string> _uris; // by the pictures' ids
};

} // namespace QV::Filters
