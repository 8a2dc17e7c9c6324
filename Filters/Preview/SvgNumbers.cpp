#include <Filters/Preview/SvgNumbers.h>

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

namespace QV::Filters {
namespace {

constexpr double SvgNumberMax = 1'000'000;

std::string formatDecimals(double number, int decimals)
{
    if (!std::isfinite(number))
        return "0";
    std::string text = fmt::format("{:.{}f}", std::clamp(number, -SvgNumberMax, SvgNumberMax), decimals);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text == "-0" ? "0" : text;
}

} // namespace

std::string formatSvgNumber(double number)
{
    return formatDecimals(number, 3);
}

std::string formatSvgShare(double number)
{
    return formatDecimals(number, 6);
}

} // namespace QV::Filters
