#include <FilterUtils/FU_NumberText.h>

#include <algorithm>
#include <cmath>
#include <ios>
#include <iterator>
#include <limits>
#include <locale>
#include <utility>

#include <boost/regex.hpp>

#include <DOM/Public/FloatNumber.h>
#include <DOM/Public/FuzzyCompare.h>
#include <OfficeUtils/Public/ICUDecimalFormatWrapper.h>
#include <OfficeUtils/Public/LocaleContext.h>
#include <OfficeUtils/Public/NumberParsing.h>

#include <FilterUtils/FU_Errors.h>

namespace QV::FilterUtils {
namespace {

constexpr std::streamsize FractionDigits = 6;

float getPlain(float number)
{
    return number;
}

double getPlain(double number)
{
    return number;
}

double getPlain(FloatNumber number)
{
    return number.get();
}

} // namespace

std::string formatDoubleToString(double value, unsigned long precision)
{
    const int digits = numCast<int>(precision);
    OfficeUtils::ICUDecimalFormatWrapper format(
        OfficeUtils::LocaleContext::getDefaultLocaleContext(OfficeUtils::FormulaType::OfficeOpenXml));
    format.setPrecision(digits);
    return format.toString(value);
}

bool isNumberString(const std::string& text)
{
    static const boost::regex number(R"(([-]?(0|([1-9][0-9]*))(\.[0-9]*[1-9])?))"
                                     R"(|([-]?[1-9](\.[0-9]*[1-9])?[eE][+-][1-9][0-9]*))");
    if (!boost::regex_match(text, number))
        return false;
    const auto value = OfficeUtils::stringToDouble(text);
    if (!value)
        return false;
    if (*value == 0.0)
        return text == "0";
    return std::fabs(*value) <= std::numeric_limits<double>::max();
}

std::pair<std::string, bool> removeZeroSymbol(boost::string_ref text)
{
    std::string cleaned;
    cleaned.reserve(text.size());
    std::remove_copy(text.begin(), text.end(), std::back_inserter(cleaned), '\0');
    const bool isRemoved = cleaned.size() < text.size();
    return {std::move(cleaned), isRemoved};
}

SeparatedClassicStream::SeparatedClassicStream()
{
    _stream.imbue(std::locale::classic());
    _stream.setf(std::ios_base::fixed, std::ios_base::floatfield);
    _stream.precision(0);
}

template <typename Number>
void SeparatedClassicStream::out(const Number& number)
{
    const auto value = getPlain(number);
    const bool isWhole = DOM::isFuzzyEqual(value, std::trunc(value));
    _stream.precision(isWhole ? 0 : FractionDigits);
    _stream << static_cast<double>(value);
    _stream.precision(0);
}

template void SeparatedClassicStream::out<float>(const float& number);
template void SeparatedClassicStream::out<double>(const double& number);
template void SeparatedClassicStream::out<FloatNumber>(const FloatNumber& number);

} // namespace QV::FilterUtils
