#include <Filters/Package/ColorTint.h>

#include <algorithm>
#include <cmath>

namespace QV::Filters {
namespace {

constexpr int HlsMax = 240;
constexpr int RgbMax = 255;

struct Hls
{
    int hue;
    int luminance;
    int saturation;
};

int divideRounded(int dividend, int divisor)
{
    return (dividend + divisor / 2) / divisor;
}

Hls convertToHls(int red, int green, int blue)
{
    const int high = std::max({red, green, blue});
    const int low = std::min({red, green, blue});
    const int sum = high + low;
    const int spread = high - low;
    Hls hls{0, divideRounded(sum * HlsMax, 2 * RgbMax), 0};
    if (spread == 0)
        return hls;

    hls.saturation = divideRounded(spread * HlsMax, hls.luminance <= HlsMax / 2 ? sum : 2 * RgbMax - sum);
    const auto distance = [&](int channel) { return divideRounded((high - channel) * (HlsMax / 6), spread); };
    if (red == high)
        hls.hue = distance(blue) - distance(green);
    else if (green == high)
        hls.hue = HlsMax / 3 + distance(red) - distance(blue);
    else
        hls.hue = 2 * HlsMax / 3 + distance(green) - distance(red);
    hls.hue = (hls.hue + HlsMax) % HlsMax;
    return hls;
}

/// The channel whose hue lies at @p hue, between the least and the greatest value of the channels.
int getChannel(int least, int greatest, int hue)
{
    constexpr int Sixth = HlsMax / 6;
    hue = (hue + HlsMax) % HlsMax;
    if (hue < Sixth)
        return least + divideRounded((greatest - least) * hue, Sixth);
    if (hue < HlsMax / 2)
        return greatest;
    if (hue < 4 * Sixth)
        return least + divideRounded((greatest - least) * (4 * Sixth - hue), Sixth);
    return least;
}

unsigned char convertToByte(int channel)
{
    return static_cast<unsigned char>(std::min(std::max(divideRounded(channel * RgbMax, HlsMax), 0), RgbMax));
}

} // namespace

cinder::ColorAT<unsigned char> applyTint(const cinder::ColorAT<unsigned char>& color, double tint)
{
    if (!(std::fabs(tint) > 0)) // zero, and what is no number
        return color;
    const double bounded = std::min(std::max(tint, -1.0), 1.0);
    Hls hls = convertToHls(color.r, color.g, color.b);
    const double luminance = bounded < 0 ? hls.luminance * (1 + bounded)
                                         : hls.luminance * (1 - bounded) + (HlsMax - HlsMax * (1 - bounded));
    // Cut off, not rounded. Files state the share a little short (0.4 as 0.39998), which the allowance makes
    // up for.
    constexpr double Allowance = 0.1;
    hls.luminance = static_cast<int>(luminance + Allowance);

    const int greatest =
        hls.luminance <= HlsMax / 2
            ? divideRounded(hls.luminance * (HlsMax + hls.saturation), HlsMax)
            : hls.luminance + hls.saturation - divideRounded(hls.luminance * hls.saturation, HlsMax);
    const int least = 2 * hls.luminance - greatest;
    return {convertToByte(getChannel(least, greatest, hls.hue + HlsMax / 3)),
        convertToByte(getChannel(least, greatest, hls.hue)),
        convertToByte(getChannel(least, greatest, hls.hue - HlsMax / 3)), color.a};
}

cinder::ColorAT<unsigned char> changeLuminance(
    const cinder::ColorAT<unsigned char>& color, double scale, double offset)
{
    const double high = std::max({color.r, color.g, color.b}) / 255.0;
    const double low = std::min({color.r, color.g, color.b}) / 255.0;
    const double before = (high + low) / 2;
    const double after = std::clamp(before * scale + offset, 0.0, 1.0);
    // The distance between the greatest and the least channel of a colour that is saturated.
    const auto getWidest = [](double luminance) { return 1 - std::fabs(2 * luminance - 1); };
    const double spread = high > low ? (high - low) / getWidest(before) * getWidest(after) : 0;
    const auto change = [&](unsigned char channel) {
        const double place = high > low ? (channel / 255.0 - low) / (high - low) : 0;
        const double changed = after - spread / 2 + place * spread;
        // What word processors write beside such a colour was cut, and not rounded.
        return static_cast<unsigned char>(std::clamp(changed, 0.0, 1.0) * 255 + 1e-6);
    };
    return {change(color.r), change(color.g), change(color.b), color.a};
}

} // namespace QV::Filters
