// convertLength: a value or one message, never both, never neither; the maximum holds and each type keeps its
// promise. convertPercentage: the same, and what follows the last sign changes nothing. isNumberString: true
// only for a text that reads as a number of points. Points and EMU: no length takes the conversion out of
// range.

#include <FilterUtils/FU_Lengths.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <boost/utility/string_ref.hpp>

#include <FilterUtils/FU_NumberText.h>
#include <Utils/Public/Assertions.h>
#include <Utils/Public/OperationReport.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using QV::FilterUtils::LengthType;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkLength(const std::string& text, LengthType type)
{
    constexpr float maximum = 1000.0F;
    QV::OperationReport report;
    const auto length = QV::FilterUtils::convertLength(report, text, maximum, type);
    require(report.getMessages().size() == (length ? 0 : 1));
    if (!length)
        return;
    require(*length <= maximum);
    require(type != QV::FilterUtils::positiveLength || *length > 0);
    require(type != QV::FilterUtils::nonNegativeLength || *length > -0x1p-20F);

    const auto free = QV::FilterUtils::convertLength(report, text, boost::none, type);
    require(free && (*free == *length || *free > maximum));
    const long long emu = QV::FilterUtils::convertPointsToEMU(*free);
    require(std::signbit(*free) ? emu <= 0 : emu >= 0);
}

void checkPercentage(const std::string& text)
{
    QV::OperationReport report;
    const auto fraction = QV::FilterUtils::convertPercentage(report, text);
    require(report.getMessages().size() == (fraction ? 0 : 1));
    if (text.find('%') != std::string::npos)
        require(QV::FilterUtils::convertPercentage(report, text + "tail") == fraction);
}

void checkNumber(const std::string& text)
{
    if (!QV::FilterUtils::isNumberString(text))
        return;
    QV::OperationReport report;
    require(QV::FilterUtils::convertLength(report, text + "pt", boost::none, QV::FilterUtils::anyLength)
                .has_value());
    const auto [cleaned, isRemoved] = QV::FilterUtils::removeZeroSymbol(text);
    require(cleaned == text && !isRemoved);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QV::setFailAssertHandler([](const char*, int, const char*, boost::string_ref) {}); // pixels fail one
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const LengthType type :
        {QV::FilterUtils::anyLength, QV::FilterUtils::positiveLength, QV::FilterUtils::nonNegativeLength})
        checkLength(text, type);
    checkPercentage(text);
    checkNumber(text);
    return 0;
}
