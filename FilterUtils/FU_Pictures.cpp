#include <FilterUtils/FU_Pictures.h>

#include <algorithm>
#include <iterator>
#include <ostream>

#include <boost/optional.hpp>

#include <Utils/Public/FileSystem.h>
#include <Utils/Public/InputStream.h>
#include <Utils/Public/MIME.h>
#include <Utils/Public/StreamAdapterFactory.h>

#include <FilterUtils/FU_MediaStorage.h>

namespace QV::FilterUtils {

std::shared_ptr<std::string> savePictureToMediaStorage(
    std::istream& in, MediaStorage& storage, const std::string& extension)
{
    boost::optional<std::string> mimeType = detectMIMETypePreservingStream(in);
    if (!mimeType)
        mimeType = getMIMETypeByExtension(extension);
    const std::shared_ptr<InputStream> stream = StreamAdapterFactory::convertToInputStream(in);
    return std::make_shared<std::string>(
        storage.saveMediaFromStream(stream, mimeType.value_or(std::string())));
}

std::string getPathForPictureInPackage(const std::string& mimeType, const std::string& folder,
    const std::string& baseName, const std::string& fallbackExtension)
{
    if (mimeType.empty())
        return folder + baseName + fallbackExtension;
    const boost::optional<std::string> extension = getFileExtensionByMIMEType(mimeType);
    return folder + baseName + (extension ? "." + *extension : std::string());
}

void saveStreamToLocalFile(std::istream& in, const std::string& path)
{
    if (!in.good())
        return;
    const std::unique_ptr<std::ostream> out = FileSystem::Path(path).createOutputFileStream();
    if (in.rdbuf() && out->rdbuf())
        std::copy(std::istreambuf_iterator<char>(in.rdbuf()), std::istreambuf_iterator<char>(),
            std::ostreambuf_iterator<char>(out->rdbuf()));
}

} // namespace QV::FilterUtils
