#include <Filters/Package/SafeLink.h>

#include <algorithm>

#include <boost/algorithm/string/predicate.hpp>

namespace QV::Filters {

bool isSafeLink(const std::string& url)
{
    const bool isPlain = std::none_of(
        url.begin(), url.end(), [](char c) { return static_cast<unsigned char>(c) <= 0x20 || c == 0x7F; });
    return isPlain && (boost::istarts_with(url, "http://") || boost::istarts_with(url, "https://") ||
                          boost::istarts_with(url, "mailto:"));
}

} // namespace QV::Filters
