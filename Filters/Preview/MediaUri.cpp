#include <Filters/Preview/MediaUri.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <fmt/format.h>

#include <DOM/Public/GraphicalObject.h>
#include <FilterUtils/FU_MediaStorage.h>
#include <Filters/Preview/PictureSize.h>
#include <Utils/Public/Base64.h>
#include <Utils/Public/InputStream.h>

namespace QV::Filters {
namespace {

constexpr std::size_t SizedBytesMax = 1U << 20U;

/// What a browser may be given as a picture: no types that it would run or not know.
bool isShownByBrowsers(const std::string& mimeType)
{
    const char* const types[] = {
        "image/png", "image/jpeg", "image/gif", "image/bmp", "image/webp", "image/svg+xml"};
    return std::find(std::begin(types), std::end(types), mimeType) != std::end(types);
}

/// @param bytesMax where reading ends, or soon after it
std::string readMedia(InputStream& stream, std::size_t bytesMax = std::string::npos)
{
    std::string bytes;
    char buffer[1 << 16];
    while (bytes.size() < bytesMax) {
        const std::size_t size = stream.read(buffer, sizeof(buffer), 0);
        if (size == 0)
            break;
        bytes.append(buffer, size);
    }
    return bytes;
}

} // namespace

const std::string& PictureUris::getUri(const DOM::Picture& picture)
{
    const auto added = _uris.emplace(picture.getMediaId(), std::string());
    std::string& uri = added.first->second;
    if (added.second && isShownByBrowsers(picture.getMimeType()))
        if (const auto stream = _storage.openMediaForReading(picture.getMediaId()))
            uri = fmt::format("data:{};base64,{}", picture.getMimeType(), base64Encode(readMedia(*stream)));
    return uri;
}

boost::optional<Size2D<float>> PictureUris::findSize(const DOM::Picture& picture)
{
    const auto added = _sizes.emplace(picture.getMediaId(), boost::none);
    if (added.second)
        if (const auto stream = _storage.openMediaForReading(picture.getMediaId()))
            added.first->second = readPictureSize(readMedia(*stream, SizedBytesMax));
    return added.first->second;
}

} // namespace QV::Filters
