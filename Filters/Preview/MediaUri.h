#pragma once

#include <map>
#include <string>

#include <boost/optional.hpp>

#include <Filters/Package/Export.h>
#include <Utils/Public/Size2D.h>

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

    /// The size in points, as far as readPictureSize finds it in the first megabyte.
    boost::optional<Size2D<float>> findSize(const DOM::Picture& picture);

private:
    FilterUtils::MediaStorage& _storage;
    std::map<std::string, std::string> _uris; // by the pictures' ids
    std::map<std::string, boost::optional<Size2D<float>>> _sizes;
};

} // namespace QV::Filters
