#include <Filters/Text/TextTheme.h>

#include <initializer_list>
#include <utility>

#include <Filters/Package/Colors.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/Namespaces.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

struct ThemeNamePair
{
    const char* name;
    const char* meaning;
};

// Which font of a theme each kind of characters takes.
constexpr ThemeNamePair ThemeFontScripts[] = {
    {"Ascii",    "latin"},
    {"HAnsi",    "latin"},
    {"EastAsia", "ea"   },
    {"Bidi",     "cs"   },
};

// ECMA-376 Part 1, 17.18.97: names in text, and the attribute that maps each (17.15.1.20).
constexpr ThemeNamePair MappedColorNames[] = {
    {"background1",       "bg1"              },
    {"text1",             "t1"               },
    {"background2",       "bg2"              },
    {"text2",             "t2"               },
    {"accent1",           "accent1"          },
    {"accent2",           "accent2"          },
    {"accent3",           "accent3"          },
    {"accent4",           "accent4"          },
    {"accent5",           "accent5"          },
    {"accent6",           "accent6"          },
    {"hyperlink",         "hyperlink"        },
    {"followedHyperlink", "followedHyperlink"},
};

// What themes call the colours (17.18.103), and what names in text mean where no mapping says otherwise.
constexpr ThemeNamePair ThemeColorNames[] = {
    {"dark1",             "dk1"     },
    {"light1",            "lt1"     },
    {"dark2",             "dk2"     },
    {"light2",            "lt2"     },
    {"text1",             "dk1"     },
    {"background1",       "lt1"     },
    {"text2",             "dk2"     },
    {"background2",       "lt2"     },
    {"accent1",           "accent1" },
    {"accent2",           "accent2" },
    {"accent3",           "accent3" },
    {"accent4",           "accent4" },
    {"accent5",           "accent5" },
    {"accent6",           "accent6" },
    {"hyperlink",         "hlink"   },
    {"followedHyperlink", "folHlink"},
};

} // namespace

void TextTheme::readFonts(const XMLElement& theme)
{
    const XMLElement elements = findDrawingElement(theme, Vocabulary::Drawing, "themeElements");
    const XMLElement scheme = findDrawingElement(elements, Vocabulary::Drawing, "fontScheme");
    for (const auto& [kind, elementName] : {
             ThemeNamePair{"major", "majorFont"},
             ThemeNamePair{"minor", "minorFont"}
    }) {
        const XMLElement fonts = findDrawingElement(scheme, Vocabulary::Drawing, elementName);
        for (const auto& [script, fontName] : ThemeFontScripts) {
            auto font =
                findDrawingElement(fonts, Vocabulary::Drawing, fontName).getAttributeValue("typeface");
            if (font && !font->empty())
                _fonts[std::string(kind) + script] = std::move(*font);
        }
    }
}

void TextTheme::readColorMapping(const XMLElement& mapping, const Names& names)
{
    for (const auto& [name, attribute] : MappedColorNames)
        if (auto meaning = mapping.getAttributeValue(names(Vocabulary::WordProcessing, attribute)))
            _colorMapping[name] = std::move(*meaning);
}

boost::optional<std::string> TextTheme::findFont(const std::string& name) const
{
    const auto found = _fonts.find(name);
    return found == _fonts.end() ? boost::none : boost::make_optional(found->second);
}

boost::optional<DOM::Color::RGBA> TextTheme::findColor(const std::string& name, const Colors& colors) const
{
    const auto mapped = _colorMapping.find(name);
    const auto findSlot = [&](const std::string& meaning) -> boost::optional<DOM::Color::RGBA> {
        for (const ThemeNamePair& color : ThemeColorNames)
            if (meaning == color.name)
                return colors.findThemeColor(color.meaning);
        return boost::none;
    };
    // A mapping to what no theme has counts as none.
    const auto color = mapped == _colorMapping.end() ? boost::none : findSlot(mapped->second);
    return color ? color : findSlot(name);
}

} // namespace QV::Filters
