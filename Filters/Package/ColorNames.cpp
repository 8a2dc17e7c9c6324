#include <Filters/Package/ColorNames.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace QV::Filters {
namespace {

struct NamedColor
{
    std::string_view name;
    std::uint32_t rgb;
};

constexpr NamedColor PresetColors[] = {
    {"aliceBlue",            0xF0F8FF},
    {"antiqueWhite",         0xFAEBD7},
    {"aqua",                 0x00FFFF},
    {"aquamarine",           0x7FFFD4},
    {"azure",                0xF0FFFF},
    {"beige",                0xF5F5DC},
    {"bisque",               0xFFE4C4},
    {"black",                0x000000},
    {"blanchedAlmond",       0xFFEBCD},
    {"blue",                 0x0000FF},
    {"blueViolet",           0x8A2BE2},
    {"brown",                0xA52A2A},
    {"burlyWood",            0xDEB887},
    {"cadetBlue",            0x5F9EA0},
    {"chartreuse",           0x7FFF00},
    {"chocolate",            0xD2691E},
    {"coral",                0xFF7F50},
    {"cornflowerBlue",       0x6495ED},
    {"cornsilk",             0xFFF8DC},
    {"crimson",              0xDC143C},
    {"cyan",                 0x00FFFF},
    {"darkBlue",             0x00008B},
    {"darkCyan",             0x008B8B},
    {"darkGoldenrod",        0xB8860B},
    {"darkGray",             0xA9A9A9},
    {"darkGreen",            0x006400},
    {"darkKhaki",            0xBDB76B},
    {"darkMagenta",          0x8B008B},
    {"darkOliveGreen",       0x556B2F},
    {"darkOrange",           0xFF8C00},
    {"darkOrchid",           0x9932CC},
    {"darkRed",              0x8B0000},
    {"darkSalmon",           0xE9967A},
    {"darkSeaGreen",         0x8FBC8F},
    {"darkSlateBlue",        0x483D8B},
    {"darkSlateGray",        0x2F4F4F},
    {"darkTurquoise",        0x00CED1},
    {"darkViolet",           0x9400D3},
    {"deepPink",             0xFF1493},
    {"deepSkyBlue",          0x00BFFF},
    {"dimGray",              0x696969},
    {"dodgerBlue",           0x1E90FF},
    {"firebrick",            0xB22222},
    {"floralWhite",          0xFFFAF0},
    {"forestGreen",          0x228B22},
    {"fuchsia",              0xFF00FF},
    {"gainsboro",            0xDCDCDC},
    {"ghostWhite",           0xF8F8FF},
    {"gold",                 0xFFD700},
    {"goldenrod",            0xDAA520},
    {"gray",                 0x808080},
    {"green",                0x008000},
    {"greenYellow",          0xADFF2F},
    {"honeydew",             0xF0FFF0},
    {"hotPink",              0xFF69B4},
    {"indianRed",            0xCD5C5C},
    {"indigo",               0x4B0082},
    {"ivory",                0xFFFFF0},
    {"khaki",                0xF0E68C},
    {"lavender",             0xE6E6FA},
    {"lavenderBlush",        0xFFF0F5},
    {"lawnGreen",            0x7CFC00},
    {"lemonChiffon",         0xFFFACD},
    {"lightBlue",            0xADD8E6},
    {"lightCoral",           0xF08080},
    {"lightCyan",            0xE0FFFF},
    {"lightGoldenrodYellow", 0xFAFAD2},
    {"lightGray",            0xD3D3D3},
    {"lightGreen",           0x90EE90},
    {"lightPink",            0xFFB6C1},
    {"lightSalmon",          0xFFA07A},
    {"lightSeaGreen",        0x20B2AA},
    {"lightSkyBlue",         0x87CEFA},
    {"lightSlateGray",       0x778899},
    {"lightSteelBlue",       0xB0C4DE},
    {"lightYellow",          0xFFFFE0},
    {"lime",                 0x00FF00},
    {"limeGreen",            0x32CD32},
    {"linen",                0xFAF0E6},
    {"magenta",              0xFF00FF},
    {"maroon",               0x800000},
    {"mediumAquamarine",     0x66CDAA},
    {"mediumBlue",           0x0000CD},
    {"mediumOrchid",         0xBA55D3},
    {"mediumPurple",         0x9370DB},
    {"mediumSeaGreen",       0x3CB371},
    {"mediumSlateBlue",      0x7B68EE},
    {"mediumSpringGreen",    0x00FA9A},
    {"mediumTurquoise",      0x48D1CC},
    {"mediumVioletRed",      0xC71585},
    {"midnightBlue",         0x191970},
    {"mintCream",            0xF5FFFA},
    {"mistyRose",            0xFFE4E1},
    {"moccasin",             0xFFE4B5},
    {"navajoWhite",          0xFFDEAD},
    {"navy",                 0x000080},
    {"oldLace",              0xFDF5E6},
    {"olive",                0x808000},
    {"oliveDrab",            0x6B8E23},
    {"orange",               0xFFA500},
    {"orangeRed",            0xFF4500},
    {"orchid",               0xDA70D6},
    {"paleGoldenrod",        0xEEE8AA},
    {"paleGreen",            0x98FB98},
    {"paleTurquoise",        0xAFEEEE},
    {"paleVioletRed",        0xDB7093},
    {"papayaWhip",           0xFFEFD5},
    {"peachPuff",            0xFFDAB9},
    {"peru",                 0xCD853F},
    {"pink",                 0xFFC0CB},
    {"plum",                 0xDDA0DD},
    {"powderBlue",           0xB0E0E6},
    {"purple",               0x800080},
    {"red",                  0xFF0000},
    {"rosyBrown",            0xBC8F8F},
    {"royalBlue",            0x4169E1},
    {"saddleBrown",          0x8B4513},
    {"salmon",               0xFA8072},
    {"sandyBrown",           0xF4A460},
    {"seaGreen",             0x2E8B57},
    {"seaShell",             0xFFF5EE},
    {"sienna",               0xA0522D},
    {"silver",               0xC0C0C0},
    {"skyBlue",              0x87CEEB},
    {"slateBlue",            0x6A5ACD},
    {"slateGray",            0x708090},
    {"snow",                 0xFFFAFA},
    {"springGreen",          0x00FF7F},
    {"steelBlue",            0x4682B4},
    {"tan",                  0xD2B48C},
    {"teal",                 0x008080},
    {"thistle",              0xD8BFD8},
    {"tomato",               0xFF6347},
    {"turquoise",            0x40E0D0},
    {"violet",               0xEE82EE},
    {"wheat",                0xF5DEB3},
    {"white",                0xFFFFFF},
    {"whiteSmoke",           0xF5F5F5},
    {"yellow",               0xFFFF00},
    {"yellowGreen",          0x9ACD32},
};

// Black on white, and the greys of plain windows.
constexpr NamedColor SystemColors[] = {
    {"scrollBar",               0xC8C8C8},
    {"background",              0x000000},
    {"activeCaption",           0x99B4D1},
    {"inactiveCaption",         0xBFCDDB},
    {"menu",                    0xF0F0F0},
    {"window",                  0xFFFFFF},
    {"windowFrame",             0x646464},
    {"menuText",                0x000000},
    {"windowText",              0x000000},
    {"captionText",             0x000000},
    {"activeBorder",            0xB4B4B4},
    {"inactiveBorder",          0xF4F7FC},
    {"appWorkspace",            0xABABAB},
    {"highlight",               0x0078D7},
    {"highlightText",           0xFFFFFF},
    {"btnFace",                 0xF0F0F0},
    {"btnShadow",               0xA0A0A0},
    {"grayText",                0x6D6D6D},
    {"btnText",                 0x000000},
    {"inactiveCaptionText",     0x000000},
    {"btnHighlight",            0xFFFFFF},
    {"3dDkShadow",              0x696969},
    {"3dLight",                 0xE3E3E3},
    {"infoText",                0x000000},
    {"infoBk",                  0xFFFFE1},
    {"hotLight",                0x0066CC},
    {"gradientActiveCaption",   0xB9D1EA},
    {"gradientInactiveCaption", 0xD7E4F2},
    {"menuHighlight",           0x3399FF},
    {"menuBar",                 0xF0F0F0},
};

struct ShortForm
{
    std::string_view text;
    std::string_view meaning;
};
constexpr ShortForm ShortForms[] = {
    {"dk",  "dark"  },
    {"lt",  "light" },
    {"med", "medium"},
};

bool isUpperCaseLetter(char character)
{
    return character >= 'A' && character <= 'Z';
}

/// The long form, and one spelling of grey.
std::string makeFullColorName(const std::string& name)
{
    std::string full = name;
    for (const ShortForm& form : ShortForms)
        if (name.size() > form.text.size() &&
            std::string_view(name).substr(0, form.text.size()) == form.text &&
            isUpperCaseLetter(name[form.text.size()])) {
            full.replace(0, form.text.size(), form.meaning);
            break;
        }
    const std::size_t grey = full.size() >= 4 ? full.size() - 4 : 0;
    if (full.compare(grey, 4, "Grey") == 0 || full == "grey")
        full[grey + 2] = 'a';
    return full;
}

template <std::size_t Count>
boost::optional<DOM::Color::RGBA> findNamedColor(const NamedColor (&colors)[Count], std::string_view name)
{
    for (const NamedColor& color : colors)
        if (color.name == name)
            return DOM::Color::RGBA(static_cast<unsigned char>(color.rgb >> 16U),
                static_cast<unsigned char>(color.rgb >> 8U & 0xFFU),
                static_cast<unsigned char>(color.rgb & 0xFFU), 255);
    return boost::none;
}

} // namespace

boost::optional<DOM::Color::RGBA> findPresetColor(const std::string& name)
{
    constexpr std::size_t LongestName = 32;
    return name.size() > LongestName ? boost::none : findNamedColor(PresetColors, makeFullColorName(name));
}

boost::optional<DOM::Color::RGBA> findSystemColor(const std::string& name)
{
    return findNamedColor(SystemColors, name);
}

} // namespace QV::Filters
