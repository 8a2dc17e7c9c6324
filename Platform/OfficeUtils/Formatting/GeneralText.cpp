// Numbers without a format, in the width that spreadsheets give them.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include <OfficeUtils/Formatting/Decimal.h>
#include <OfficeUtils/Public/CellFormatter.h>

namespace QV::OfficeUtils {
namespace {

constexpr std::size_t WidthMax = 11;
constexpr int DigitsMax = 10;
constexpr int ExponentMax = 10;
constexpr int ExponentMin = -9;
constexpr int ScientificDecimals = 5;

std::string writePlain(Decimal number, int decimals)
{
    number.round(decimals);
    std::string text = number.getWhole();
    if (text.empty())
        text = "0";
    const std::string fraction = number.getFraction();
    return fraction.empty() ? text : text + '.' + fraction;
}

std::string writeScientific(Decimal number)
{
    number.round(ScientificDecimals - number.getExponent());
    const int exponent = number.getExponent();
    number.shift(-exponent);
    const std::string power = std::to_string(std::abs(exponent));
    return writePlain(number, ScientificDecimals) + (exponent < 0 ? "E-" : "E+") +
           (power.size() < 2 ? "0" : "") + power;
}

std::string writeMagnitude(const Decimal& number)
{
    constexpr int AllDecimals = 12; // that could fit
    const int exponent = number.getExponent();
    if (exponent > ExponentMax)
        return writeScientific(number);
    if (exponent >= ExponentMin) {
        std::string text = writePlain(number, AllDecimals);
        if (text.size() <= WidthMax)
            return text;
        // "0." and zeros take their part of the width, and the first digits stay.
        const bool isSmall = exponent < 0;
        if (!isSmall || exponent >= -4) {
            text = writePlain(number, isSmall ? DigitsMax - 1 : std::max(DigitsMax - 1 - exponent, 0));
            if (text.size() <= WidthMax)
                return text;
        }
    }
    return writeScientific(number);
}

} // namespace

std::string formatGeneral(double number)
{
    if (!std::isfinite(number))
        return "#NUM!";
    const std::string text = writeMagnitude(Decimal(number));
    return number < 0 ? '-' + text : text;
}

const char* formatBoolean(bool value)
{
    return value ? "TRUE" : "FALSE";
}

} // namespace QV::OfficeUtils
