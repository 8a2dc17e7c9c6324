// The readers of FormatValues for colours, fillings and lines.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_Errors.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/ColorTint.h>
#include <Filters/Text/FormatValues.h>
#include <Filters/Text/TextTheme.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr long NoHighlight = -1;

// ECMA-376 Part 1, 17.18.40.
constexpr FormatName<long> HighlightColors[] = {
    {"black",       0x000000   },
    {"blue",        0x0000FF   },
    {"cyan",        0x00FFFF   },
    {"darkBlue",    0x000080   },
    {"darkCyan",    0x008080   },
    {"darkGray",    0x808080   },
    {"darkGreen",   0x008000   },
    {"darkMagenta", 0x800080   },
    {"darkRed",     0x800000   },
    {"darkYellow",  0x808000   },
    {"green",       0x00FF00   },
    {"lightGray",   0xC0C0C0   },
    {"magenta",     0xFF00FF   },
    {"red",         0xFF0000   },
    {"white",       0xFFFFFF   },
    {"yellow",      0xFFFF00   },
    {"none",        NoHighlight},
};

// How much of a pattern its lines cover: ECMA-376 Part 1, 17.18.78. Those of stripes are what they look like
// from far away.
constexpr FormatName<double> ShadingPatterns[] = {
    {"nil",                   0    },
    {"clear",                 0    },
    {"solid",                 1    },
    {"pct5",                  0.05 },
    {"pct10",                 0.1  },
    {"pct12",                 0.125},
    {"pct15",                 0.15 },
    {"pct20",                 0.2  },
    {"pct25",                 0.25 },
    {"pct30",                 0.3  },
    {"pct35",                 0.35 },
    {"pct37",                 0.375},
    {"pct40",                 0.4  },
    {"pct45",                 0.45 },
    {"pct50",                 0.5  },
    {"pct55",                 0.55 },
    {"pct60",                 0.6  },
    {"pct62",                 0.625},
    {"pct65",                 0.65 },
    {"pct70",                 0.7  },
    {"pct75",                 0.75 },
    {"pct80",                 0.8  },
    {"pct85",                 0.85 },
    {"pct87",                 0.875},
    {"pct90",                 0.9  },
    {"pct95",                 0.95 },
    {"horzStripe",            0.5  },
    {"vertStripe",            0.5  },
    {"reverseDiagStripe",     0.5  },
    {"diagStripe",            0.5  },
    {"horzCross",             0.75 },
    {"diagCross",             0.75 },
    {"thinHorzStripe",        0.25 },
    {"thinVertStripe",        0.25 },
    {"thinReverseDiagStripe", 0.25 },
    {"thinDiagStripe",        0.25 },
    {"thinHorzCross",         0.5  },
    {"thinDiagCross",         0.5  },
};

// ECMA-376 Part 1, 17.18.2: those that are no plain line. Lines of three dimensions and pictures become
// solid.
constexpr FormatName<DOM::LineStyle> BorderStyles[] = {
    {"nil",                    DOM::LineStyle::None        },
    {"none",                   DOM::LineStyle::None        },
    {"double",                 DOM::LineStyle::Double      },
    {"triple",                 DOM::LineStyle::Double      },
    {"doubleWave",             DOM::LineStyle::Double      },
    {"thinThickSmallGap",      DOM::LineStyle::Double      },
    {"thickThinSmallGap",      DOM::LineStyle::Double      },
    {"thinThickThinSmallGap",  DOM::LineStyle::Double      },
    {"thinThickMediumGap",     DOM::LineStyle::Double      },
    {"thickThinMediumGap",     DOM::LineStyle::Double      },
    {"thinThickThinMediumGap", DOM::LineStyle::Double      },
    {"thinThickLargeGap",      DOM::LineStyle::Double      },
    {"thickThinLargeGap",      DOM::LineStyle::Double      },
    {"thinThickThinLargeGap",  DOM::LineStyle::Double      },
    {"dotted",                 DOM::LineStyle::Dotted      },
    {"dashed",                 DOM::LineStyle::Dashed      },
    {"dashSmallGap",           DOM::LineStyle::Dashed      },
    {"dotDash",                DOM::LineStyle::DashDot     },
    {"dotDotDash",             DOM::LineStyle::DashDotDot  },
    {"dashDotStroked",         DOM::LineStyle::SlantDashDot},
};

DOM::LineStyle findBorderStyle(const std::string& name)
{
    const auto* const found = std::find_if(std::begin(BorderStyles), std::end(BorderStyles),
        [&](const FormatName<DOM::LineStyle>& candidate) { return candidate.name == name; });
    return found == std::end(BorderStyles) ? DOM::LineStyle::Solid : found->value;
}

DOM::Color::RGBA makeOpaqueColor(std::uint32_t rgb)
{
    return {static_cast<unsigned char>(rgb >> 16U & 0xFFU), static_cast<unsigned char>(rgb >> 8U & 0xFFU),
        static_cast<unsigned char>(rgb & 0xFFU), 255};
}

DOM::Color mixColors(const DOM::Color& filling, const DOM::Color& pattern, double share)
{
    const auto mix = [share](unsigned char below, unsigned char above) {
        return static_cast<unsigned char>(std::lround(below * (1 - share) + above * share));
    };
    const DOM::Color::RGBA& below = filling.getRGBA();
    const DOM::Color::RGBA& above = pattern.getRGBA();
    return DOM::Color(
        DOM::Color::RGBA(mix(below.r, above.r), mix(below.g, above.g), mix(below.b, above.b), 255));
}

} // namespace

boost::optional<DOM::Color> FormatValues::readColor(const XMLElement& element) const
{
    const auto color = readColor(element, {"val", "themeColor", "themeTint", "themeShade"});
    if (color || attribute(element, "val").text != std::string("auto"))
        return color;
    return DOM::Color(DOM::Color::RGBA(0, 0, 0, 0));
}

boost::optional<DOM::Color> FormatValues::readColor(
    const XMLElement& element, const ColorAttributes& attributes) const
{
    boost::optional<DOM::Color::RGBA> color = findThemeColor(attribute(element, attributes.theme));
    if (!color) {
        const auto text = attribute(element, attributes.value).text;
        color = text && *text != "auto" ? convertHexColor(*text) : boost::none;
        return color ? boost::make_optional(DOM::Color(*color)) : boost::none;
    }
    // What is written down is the share of the luminance that stays.
    if (const auto shade = readHexShare(attribute(element, attributes.shade)))
        color = changeLuminance(*color, *shade, 0);
    if (const auto tint = readHexShare(attribute(element, attributes.tint)))
        color = changeLuminance(*color, *tint, 1 - *tint);
    return DOM::Color(*color);
}

boost::optional<DOM::Color> FormatValues::readHighlight(const XMLElement& parent) const
{
    const auto rgb = readName(HighlightColors, value(parent, "highlight"));
    if (!rgb || *rgb == NoHighlight)
        return boost::none;
    return DOM::Color(makeOpaqueColor(static_cast<std::uint32_t>(*rgb)));
}

boost::optional<DOM::Color> FormatValues::readShading(const XMLElement& shading) const
{
    const auto filling = readColor(shading, {"fill", "themeFill", "themeFillTint", "themeFillShade"});
    const FormatText pattern{attribute(shading, "val").text, "shd"};
    if (pattern.text == std::string("nil"))
        return boost::none;
    const double share = readName(ShadingPatterns, pattern).value_or(0);
    if (!(share > 0))
        return filling;
    // The automatic colours are those of a page.
    const auto color = readColor(shading, {"color", "themeColor", "themeTint", "themeShade"});
    return mixColors(filling.value_or(DOM::Color(makeOpaqueColor(0xFFFFFF))),
        color.value_or(DOM::Color(makeOpaqueColor(0x000000))), share);
}

boost::optional<DOM::Color> FormatValues::readFilling(const XMLElement& parent) const
{
    const XMLElement shading = find(parent, "shd");
    const auto color = readShading(shading);
    const bool isNone = attribute(shading, "val").text == std::string("nil") ||
                        attribute(shading, "fill").text == std::string("auto");
    if (color || !isNone)
        return color;
    return DOM::Color(DOM::Color::RGBA(255, 255, 255, 0));
}

std::shared_ptr<const DOM::LineProps> FormatValues::readBorderLine(const XMLElement& border) const
{
    const auto name = attribute(border, "val").text;
    if (!name)
        return nullptr;
    const DOM::LineStyle style = findBorderStyle(*name);
    if (style == DOM::LineStyle::None)
        return std::make_shared<DOM::LineProps>(style, 0.0F);
    constexpr float EighthsPerPoint = 8;
    constexpr float MinWidth = 0.25F;
    constexpr float MaxWidth = 12;
    constexpr float UsualWidth = 0.5F;
    constexpr long MaxEighths = 65535; // more than any line has; wider lines than MaxWidth become as wide
    const auto eighths = readWhole(attribute(border, "sz"), 0, MaxEighths);
    const float width = eighths ? static_cast<float>(*eighths) / EighthsPerPoint : UsualWidth;
    return std::make_shared<DOM::LineProps>(style, std::clamp(width, MinWidth, MaxWidth),
        readColor(border, {"color", "themeColor", "themeTint", "themeShade"}));
}

boost::optional<DOM::Color::RGBA> FormatValues::findThemeColor(const FormatText& text) const
{
    if (!text.text || *text.text == "none")
        return boost::none;
    auto color = _theme.findColor(*text.text, _colors);
    if (!color)
        report("Unknown value {} of {}", *text.text, text.name);
    return color;
}

boost::optional<DOM::Color::RGBA> FormatValues::convertHexColor(const std::string& text) const
{
    OperationReport messages;
    boost::optional<DOM::Color::RGBA> color;
    try {
        color = FilterUtils::convertToRGBColor(messages, text);
    } catch (const BadNumCastError&) {
        messages.emplace_back("Incorrect color: {0}", text);
    }
    takeMessages(messages);
    return color;
}

boost::optional<double> FormatValues::readHexShare(const FormatText& text) const
{
    if (!text.text)
        return boost::none;
    constexpr double Whole = 255;
    const bool isHex = text.text->find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
    const auto number = isHex ? strToUlong(*text.text, nullptr, 16) : boost::none;
    if (number && *number <= 0xFF)
        return static_cast<double>(*number) / Whole;
    report("Unexpected value {} of {}", *text.text, text.name);
    return boost::none;
}

} // namespace QV::Filters
