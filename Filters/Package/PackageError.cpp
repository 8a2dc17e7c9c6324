#include <Filters/Package/PackageError.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include <fmt/format.h>

namespace QV::Filters {
namespace {

constexpr std::size_t MaximumPrintableSize = 200;

bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0U) == 0x80U;
}

// The size of the printable character at the offset: 0 where a control character (C0, DEL or C1), a quote, a
// backslash or invalid UTF-8 (Unicode 15, table 3-7, but for the narrower second bytes) stands there.
std::size_t findPrintableSize(const std::string& text, std::size_t offset)
{
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : static_cast<unsigned char>(0);
    };
    const unsigned char lead = byte(offset);
    if (lead < 0x80U)
        return lead >= 0x20U && lead != 0x7FU && lead != '"' && lead != '\\' ? 1 : 0;
    const std::size_t size = lead >= 0xC2U && lead <= 0xDFU   ? 2
                             : lead >= 0xE0U && lead <= 0xEFU ? 3
                             : lead >= 0xF0U && lead <= 0xF4U ? 4
                                                              : 0;
    for (std::size_t i = 1; i < size; ++i)
        if (!isContinuation(byte(offset + i)))
            return 0;
    const bool isC1 = lead == 0xC2U && byte(offset + 1) < 0xA0U;
    return isC1 ? 0 : size;
}

} // namespace

PackageError::PackageError(Kind kind, const std::string& message, std::string part)
    : BaseRuntimeError(message.c_str())
    , _kind(kind)
    , _part(std::move(part))
{
}

PackageError::~PackageError() = default;

std::string makePrintable(const std::string& text)
{
    std::string printable;
    for (std::size_t i = 0; i < text.size();) {
        if (printable.size() >= MaximumPrintableSize)
            return printable + "...";
        const std::size_t size = findPrintableSize(text, i);
        if (size == 0)
            printable += fmt::format("\\x{:02X}", static_cast<unsigned>(static_cast<unsigned char>(text[i])));
        else
            printable.append(text, i, size);
        i += std::max<std::size_t>(size, 1);
    }
    return printable;
}

} // namespace QV::Filters
