// convertToRGBAColor: no exception leaves it, a message comes only where there is no colour and errors are
// reported; a colour without "#" and without opacity reads the same in convertToRGBColor and after it was
// written.

#include <FilterUtils/FU_Colors.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <boost/utility/string_ref.hpp>

#include <FilterUtils/FU_Errors.h>
#include <Utils/Public/OperationReport.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Color = cinder::ColorAT<unsigned char>;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

boost::optional<Color> readRgba(const std::string& text)
{
    QV::OperationReport silent;
    const auto color = QV::FilterUtils::convertToRGBAColor(silent, text, false);
    require(silent.getMessages().empty());
    QV::OperationReport report;
    require(QV::FilterUtils::convertToRGBAColor(report, text) == color);
    require(report.getMessages().size() <= (color ? 0 : 1));
    return color;
}

void checkRgb(const std::string& text, const boost::optional<Color>& rgba)
{
    const bool isFunctional = boost::string_ref(text).starts_with("rgb");
    const bool hasHash = boost::string_ref(text).starts_with('#');
    QV::OperationReport report;
    try {
        const auto rgb = QV::FilterUtils::convertToRGBColor(report, text);
        require(report.getMessages().size() == (rgb ? 0 : 1));
        require(!rgb || rgb->a == 255);
        if (isFunctional || hasHash)
            require(!rgb);
        else
            require(rgb.has_value() == rgba.has_value() && (!rgb || text.size() >= 7 || *rgb == *rgba));
    } catch (const QV::BadNumCastError&) {
        require(!rgba && report.getMessages().empty());
    }
}

void checkWriting(const Color& color)
{
    const std::string text = QV::FilterUtils::convertRGBColor(color);
    QV::OperationReport report;
    const Color opaque(color.r, color.g, color.b, 255);
    require(text.size() == 6);
    require(QV::FilterUtils::convertToRGBColor(report, text) == opaque);
    require(QV::FilterUtils::convertToRGBAColor(report, '#' + text) == opaque);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto color = readRgba(text);
    checkRgb(text, color);
    if (color)
        checkWriting(*color);
    return 0;
}
