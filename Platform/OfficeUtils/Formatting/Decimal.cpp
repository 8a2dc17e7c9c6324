#include <OfficeUtils/Formatting/Decimal.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace QV::OfficeUtils {
namespace {

constexpr int SignificantDigits = 15;

} // namespace

Decimal::Decimal(double magnitude)
{
    if (magnitude == 0 || !std::isfinite(magnitude))
        return;
    char text[32]; // "d.ddddddddddddddddde-ddd"
    const char* const end =
        std::to_chars(std::begin(text), std::end(text), std::fabs(magnitude), std::chars_format::scientific)
            .ptr;
    const char* const mark = std::find(text, text + (end - text), 'e');
    for (const char* c = text; c != mark; ++c)
        if (*c != '.')
            _digits += *c;
    const char* const sign = mark + 1;
    int exponent = 0;
    std::from_chars(sign + 1, end, exponent); // std::from_chars takes no "+"
    _point = (*sign == '-' ? -exponent : exponent) + 1;
    stripZeros();
    round(SignificantDigits - _point);
}

void Decimal::shift(int places)
{
    if (!isZero())
        _point += places;
}

void Decimal::round(int decimals)
{
    const int kept = _point + decimals;
    if (kept >= static_cast<int>(_digits.size()))
        return;
    const bool isUp = kept >= 0 && _digits[static_cast<std::size_t>(kept)] >= '5';
    _digits.resize(static_cast<std::size_t>(std::max(kept, 0)));
    if (isUp) {
        while (!_digits.empty() && _digits.back() == '9')
            _digits.pop_back();
        if (_digits.empty()) {
            _digits = "1";
            ++_point;
            return;
        }
        ++_digits.back();
    }
    stripZeros();
}

std::string Decimal::getWhole() const
{
    if (_point <= 0)
        return {};
    const auto places = static_cast<std::size_t>(_point);
    std::string whole = _digits.substr(0, places);
    whole.resize(isZero() ? 0 : places, '0');
    return whole;
}

std::string Decimal::getFraction() const
{
    if (isZero())
        return {};
    if (_point <= 0)
        return std::string(static_cast<std::size_t>(-_point), '0') + _digits;
    const auto places = static_cast<std::size_t>(_point);
    return places < _digits.size() ? _digits.substr(places) : std::string();
}

void Decimal::stripZeros()
{
    while (!_digits.empty() && _digits.back() == '0')
        _digits.pop_back();
    if (_digits.empty())
        _point = 0;
}

} // namespace QV::OfficeUtils
