#include <Filters/Spreadsheet/LinkedFiles.h>

#include <algorithm>
#include <cstddef>

#include <boost/filesystem/operations.hpp>

namespace QV::Filters {
namespace {

namespace fs = boost::filesystem;

int readHexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string decodePercents(const std::string& text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? readHexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? readHexDigit(text[i + 2]) : -1;
        if (low < 0) {
            decoded += text[i];
            continue;
        }
        decoded += static_cast<char>(static_cast<unsigned char>(high * 16 + low));
        i += 2;
    }
    return decoded;
}

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
