#include <ShownText.h>

#include <algorithm>
#include <utility>

#include <boost/algorithm/string/replace.hpp>

#include <Filters/Package/PackageError.h>

namespace QV::Tool {

ShownText makeShownText(const std::string& text, std::size_t charactersMax)
{
    const auto isFirstByte = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    std::string shown = Filters::makePrintable(text);
    boost::replace_all(shown, "\\x22", "\""); // which harm no terminal, and are no part of a message here
    boost::replace_all(shown, "\\x5C", "\\");
    auto width = static_cast<std::size_t>(std::count_if(shown.begin(), shown.end(), isFirstByte));
    if (width > charactersMax) {
        std::size_t end = 0;
        for (width = 0; width < charactersMax - 1 || !isFirstByte(shown[end]); ++end)
            width += isFirstByte(shown[end]) ? 1 : 0;
        shown = shown.substr(0, end) + "\xE2\x80\xA6"; // an ellipsis
        width = charactersMax;
    }
    return {std::move(shown), width};
}

} // namespace QV::Tool
