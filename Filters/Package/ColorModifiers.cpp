#include <Filters/Package/ColorModifiers.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace QV::Filters {
namespace {

constexpr double ByteMax = 255;

struct HslShares
{
    double hue = 0; // in turns, from 0 to below 1
    double saturation = 0;
    double luminance = 0;
};

double clampShare(double share)
{
    return share > 0 ? std::min(share, 1.0) : 0.0; // what is no number is 0
}

// IEC 61966-2-1.
double encodeLight(double linear)
{
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

double decodeLight(double share)
{
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

/// Puts what @p function makes of each channel in its place.
template <typename Function>
void changeChannels(ColorShares& color, const Function& function)
{
    for (double ColorShares::*const channel : {&ColorShares::red, &ColorShares::green, &ColorShares::blue})
        color.*channel = clampShare(function(color.*channel));
}

HslShares convertToHsl(const ColorShares& color)
{
    const double high = std::max({color.red, color.green, color.blue});
    const double low = std::min({color.red, color.green, color.blue});
    const double spread = high - low;
    HslShares hsl{0, 0, (high + low) / 2};
    if (!(spread > 0))
        return hsl;
    hsl.saturation = spread / (1 - std::fabs(2 * hsl.luminance - 1));
    double sixths = 0;
    if (!(color.red < high))
        sixths = (color.green - color.blue) / spread;
    else if (!(color.green < high))
        sixths = 2 + (color.blue - color.red) / spread;
    else
        sixths = 4 + (color.red - color.green) / spread;
    hsl.hue = sixths < 0 ? sixths / 6 + 1 : sixths / 6;
    return hsl;
}

/// Whatever the hue's turn; the other shares end at 0 and 1.
ColorShares convertFromHsl(const HslShares& hsl)
{
    const double luminance = clampShare(hsl.luminance);
    const double spread = (1 - std::fabs(2 * luminance - 1)) * clampShare(hsl.saturation);
    const double hue = (hsl.hue - std::floor(hsl.hue)) * 6;
    const auto getChannel = [&](double peak) {
        const double distance = std::fabs(std::remainder(hue - peak, 6));
        return clampShare(luminance + spread * (std::clamp(2 - distance, 0.0, 1.0) - 0.5));
    };
    return {getChannel(0), getChannel(2), getChannel(4), 1};
}

template <double ColorShares::*Channel>
void setChannel(double value, ColorShares& color)
{
    color.*Channel = clampShare(value);
}

template <double ColorShares::*Channel>
void offsetChannel(double value, ColorShares& color)
{
    color.*Channel = clampShare(color.*Channel + value);
}

template <double ColorShares::*Channel>
void multiplyChannel(double value, ColorShares& color)
{
    color.*Channel = clampShare(color.*Channel * value);
}

template <typename Function>
void changeHsl(ColorShares& color, const Function& function)
{
    HslShares hsl = convertToHsl(color);
    function(hsl);
    const double alpha = color.alpha;
    color = convertFromHsl(hsl);
    color.alpha = alpha;
}

template <double HslShares::*Part>
void setHslPart(double value, ColorShares& color)
{
    changeHsl(color, [&](HslShares& hsl) { hsl.*Part = value; });
}

template <double HslShares::*Part>
void offsetHslPart(double value, ColorShares& color)
{
    changeHsl(color, [&](HslShares& hsl) { hsl.*Part += value; });
}

template <double HslShares::*Part>
void multiplyHslPart(double value, ColorShares& color)
{
    changeHsl(color, [&](HslShares& hsl) { hsl.*Part *= value; });
}

void tintColor(double value, ColorShares& color)
{
    const double kept = clampShare(value);
    changeChannels(color, [&](double share) { return encodeLight(decodeLight(share) * kept + (1 - kept)); });
}

void shadeColor(double value, ColorShares& color)
{
    const double kept = clampShare(value);
    changeChannels(color, [&](double share) { return encodeLight(decodeLight(share) * kept); });
}

void complementColor(double, ColorShares& color)
{
    offsetHslPart<&HslShares::hue>(0.5, color);
}

void invertColor(double, ColorShares& color)
{
    changeChannels(color, [](double share) { return 1 - share; });
}

void grayColor(double, ColorShares& color)
{
    // The weights of the primaries: IEC 61966-2-1.
    const double light = 0.2126 * decodeLight(color.red) + 0.7152 * decodeLight(color.green) +
                         0.0722 * decodeLight(color.blue);
    changeChannels(color, [&](double) { return encodeLight(light); });
}

void encodeColor(double, ColorShares& color)
{
    changeChannels(color, encodeLight);
}

void decodeColor(double, ColorShares& color)
{
    changeChannels(color, decodeLight);
}

struct ColorModifier
{
    std::string_view name;
    ModifierValue value;
    void (*apply)(double value, ColorShares& color);
};

constexpr ColorModifier ColorModifiers[] = {
    {"tint",     ModifierValue::Share, tintColor                              },
    {"shade",    ModifierValue::Share, shadeColor                             },
    {"comp",     ModifierValue::None,  complementColor                        },
    {"inv",      ModifierValue::None,  invertColor                            },
    {"gray",     ModifierValue::None,  grayColor                              },
    {"gamma",    ModifierValue::None,  encodeColor                            },
    {"invGamma", ModifierValue::None,  decodeColor                            },
    {"alpha",    ModifierValue::Share, setChannel<&ColorShares::alpha>        },
    {"alphaOff", ModifierValue::Share, offsetChannel<&ColorShares::alpha>     },
    {"alphaMod", ModifierValue::Share, multiplyChannel<&ColorShares::alpha>   },
    {"hue",      ModifierValue::Angle, setHslPart<&HslShares::hue>            },
    {"hueOff",   ModifierValue::Angle, offsetHslPart<&HslShares::hue>         },
    {"hueMod",   ModifierValue::Share, multiplyHslPart<&HslShares::hue>       },
    {"sat",      ModifierValue::Share, setHslPart<&HslShares::saturation>     },
    {"satOff",   ModifierValue::Share, offsetHslPart<&HslShares::saturation>  },
    {"satMod",   ModifierValue::Share, multiplyHslPart<&HslShares::saturation>},
    {"lum",      ModifierValue::Share, setHslPart<&HslShares::luminance>      },
    {"lumOff",   ModifierValue::Share, offsetHslPart<&HslShares::luminance>   },
    {"lumMod",   ModifierValue::Share, multiplyHslPart<&HslShares::luminance> },
    {"red",      ModifierValue::Share, setChannel<&ColorShares::red>          },
    {"redOff",   ModifierValue::Share, offsetChannel<&ColorShares::red>       },
    {"redMod",   ModifierValue::Share, multiplyChannel<&ColorShares::red>     },
    {"green",    ModifierValue::Share, setChannel<&ColorShares::green>        },
    {"greenOff", ModifierValue::Share, offsetChannel<&ColorShares::green>     },
    {"greenMod", ModifierValue::Share, multiplyChannel<&ColorShares::green>   },
    {"blue",     ModifierValue::Share, setChannel<&ColorShares::blue>         },
    {"blueOff",  ModifierValue::Share, offsetChannel<&ColorShares::blue>      },
    {"blueMod",  ModifierValue::Share, multiplyChannel<&ColorShares::blue>    },
};

const ColorModifier* findColorModifier(const std::string& name)
{
    for (const ColorModifier& modifier : ColorModifiers)
        if (modifier.name == name)
            return &modifier;
    return nullptr;
}

unsigned char roundShare(double share)
{
    // A share that is a half of a byte but for the last bits is one.
    constexpr double Allowance = 1e-9;
    return static_cast<unsigned char>(std::floor(clampShare(share) * ByteMax + 0.5 + Allowance));
}

} // namespace

ColorShares makeSharesFromHsl(double hue, double saturation, double luminance)
{
    return convertFromHsl({hue, saturation, luminance});
}

ColorShares makeSharesFromLinear(double red, double green, double blue)
{
    ColorShares color{clampShare(red), clampShare(green), clampShare(blue), 1};
    changeChannels(color, encodeLight);
    return color;
}

ColorShares makeShares(const DOM::Color::RGBA& color)
{
    return {color.r / ByteMax, color.g / ByteMax, color.b / ByteMax, color.a / ByteMax};
}

DOM::Color::RGBA roundShares(const ColorShares& shares)
{
    return {
        roundShare(shares.red), roundShare(shares.green), roundShare(shares.blue), roundShare(shares.alpha)};
}

boost::optional<ModifierValue> findModifierValue(const std::string& name)
{
    const ColorModifier* const modifier = findColorModifier(name);
    return modifier ? boost::make_optional(modifier->value) : boost::none;
}

void applyColorModifier(const std::string& name, double value, ColorShares& color)
{
    if (const ColorModifier* const modifier = findColorModifier(name))
        modifier->apply(value, color);
}

} // namespace QV::Filters
