#include <Filters/Package/Utf8Cut.h>

namespace QV::Filters {

bool cutUtf8(std::string& text, std::size_t bytesMax)
{
    if (text.size() <= bytesMax)
        return false;
    std::size_t end = bytesMax;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    text.resize(end);
    return true;
}

} // namespace QV::Filters
