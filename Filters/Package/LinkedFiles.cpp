#include <Filters/Package/LinkedFiles.h>

#include <algorithm>

#include <boost/filesystem/operations.hpp>

#include <Filters/Package/PartNames.h>

namespace QV::Filters {
namespace {

namespace fs = boost::filesystem;

bool isBelow(const fs::path& path, const fs::path& folder)
{
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

} // namespace

boost::optional<fs::path> findLinkedFile(const std::string& documentFolder, const std::string& target)
{
    const std::string Scheme = "file://";
    const bool isUrl = target.compare(0, Scheme.size(), Scheme) == 0;
    const std::string path = decodePercents(isUrl ? target.substr(Scheme.size()) : target);
    if (documentFolder.empty() || path.empty() || path.find('\0') != std::string::npos)
        return boost::none;
    boost::system::error_code error;
    const fs::path folder = fs::canonical(documentFolder, error);
    if (error)
        return boost::none;
    const fs::path file = fs::canonical(fs::path(path), folder, error);
    if (error || !isBelow(file, folder) || !fs::is_regular_file(file, error))
        return boost::none;
    return file;
}

} // namespace QV::Filters
