#include <Filters/Package/Colors.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include <FilterUtils/FU_Colors.h>
#include <FilterUtils/FU_Errors.h>
#include <Filters/Package/ColorTint.h>
#include <Filters/Package/Namespaces.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using RGBA = DOM::Color::RGBA;

// ECMA-376 Part 1, 18.8.27: indices 0 to 63.
constexpr std::uint32_t StandardPalette[] = {0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00,
    0xFF00FF, 0x00FFFF, 0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,
    0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080, 0x9999FF, 0x993366,
    0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF, 0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF,
    0x800080, 0x800000, 0x008080, 0x0000FF, 0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC,
    0xCC99FF, 0xFFCC99, 0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696,
    0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};
constexpr unsigned long SystemForeground = 64;
constexpr unsigned long SystemBackground = 65;

/// The slots of a theme, in the order in which cells number them: light comes before dark, unlike in the
/// theme part.
struct ThemeSlot
{
    const char* name;
    std::uint32_t standard;
};
constexpr ThemeSlot ThemeSlots[] = {
    {"lt1",      0xFFFFFF},
    {"dk1",      0x000000},
    {"lt2",      0xEEECE1},
    {"dk2",      0x1F497D},
    {"accent1",  0x4F81BD},
    {"accent2",  0xC0504D},
    {"accent3",  0x9BBB59},
    {"accent4",  0x8064A2},
    {"accent5",  0x4BACC6},
    {"accent6",  0xF79646},
    {"hlink",    0x0000FF},
    {"folHlink", 0x800080}
};

/// What drawings call these slots, by the usual mapping.
const std::pair<const char*, const char*> ThemeAliases[] = {
    {"bg1", "lt1"},
    {"tx1", "dk1"},
    {"bg2", "lt2"},
    {"tx2", "dk2"},
};

RGBA makeColor(std::uint32_t rgb)
{
    return {static_cast<unsigned char>(rgb >> 16U), static_cast<unsigned char>(rgb >> 8U & 0xFFU),
        static_cast<unsigned char>(rgb & 0xFFU), 255};
}

/// Eight digits give the opacity first. Files state it as they please, and applications show the colour
/// opaque.
boost::optional<RGBA> convertARGB(const std::string& text, OperationReport& report)
{
    try {
        return FilterUtils::convertToRGBColor(report, text);
    } catch (const BadNumCastError&) {
        report.emplace_back("Incorrect color: {0}", text);
        return boost::none;
    }
}

boost::optional<unsigned long> readNumber(const std::string& text, std::size_t end)
{
    std::size_t position = 0;
    const auto number = strToUlong(text, &position, 10);
    return number && position == text.size() && *number < end ? number : boost::none;
}

} // namespace

Colors::Colors()
{
    for (const ThemeSlot& slot : ThemeSlots)
        _theme.push_back(makeColor(slot.standard));
    for (const std::uint32_t rgb : StandardPalette)
        _palette.push_back(makeColor(rgb));
}

void Colors::readTheme(const XMLElement& theme, OperationReport& report)
{
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict}) { // whatever the workbook's own is
        const Names names(dialect);
        const auto named = [&](const char* name) { return names(Vocabulary::Drawing, name); };
        const XMLElement scheme = theme.getElement(named("themeElements")).getElement(named("clrScheme"));
        for (std::size_t i = 0; i < std::size(ThemeSlots); ++i) {
            const XMLElement slot = scheme.getElement(named(ThemeSlots[i].name));
            auto text = slot.getElement(named("srgbClr")).getAttributeValue("val");
            if (!text)
                text = slot.getElement(named("sysClr")).getAttributeValue("lastClr");
            const auto color = text ? convertARGB(*text, report) : boost::none;
            if (color)
                _theme[i] = *color;
        }
    }
}

void Colors::readPalette(const XMLElement& colors, const Names& names, OperationReport& report)
{
    std::size_t index = 0;
    const XMLElement indexed = colors.getElement(names(Vocabulary::Spreadsheet, "indexedColors"));
    indexed.processElements(names(Vocabulary::Spreadsheet, "rgbColor"), [&](const XMLElement& element) {
        const auto text = element.getAttributeValue("rgb");
        const auto color = text ? convertARGB(*text, report) : boost::none;
        if (color && index < _palette.size())
            _palette[index] = *color;
        ++index;
    });
}

boost::optional<DOM::Color> Colors::readColor(const XMLElement& element, OperationReport& report) const
{
    boost::optional<RGBA> color;
    if (const auto rgb = element.getAttributeValue("rgb")) {
        color = convertARGB(*rgb, report);
    } else if (const auto theme = element.getAttributeValue("theme")) {
        const auto index = readNumber(*theme, _theme.size());
        if (!index)
            report.emplace_back("Unknown theme color {}", *theme);
        else
            color = _theme[*index];
    } else if (const auto indexed = element.getAttributeValue("indexed")) {
        const auto index = readNumber(*indexed, SystemBackground + 1);
        if (!index)
            report.emplace_back("Unknown indexed color {}", *indexed);
        else if (*index < _palette.size())
            color = _palette[*index];
        else
            color = makeColor(*index == SystemForeground ? 0x000000 : 0xFFFFFF);
    }
    if (!color)
        return boost::none;

    if (const auto text = element.getAttributeValue("tint")) {
        const auto tint = OfficeUtils::stringToDouble(*text);
        if (!tint)
            report.emplace_back("Can't parse color tint {}", *text);
        else
            color = applyTint(*color, *tint);
    }
    return DOM::Color(*color);
}

boost::optional<DOM::Color::RGBA> Colors::findThemeColor(const std::string& name) const
{
    std::string slot = name;
    for (const auto& alias : ThemeAliases)
        if (name == alias.first)
            slot = alias.second;
    for (std::size_t i = 0; i < std::size(ThemeSlots); ++i)
        if (slot == ThemeSlots[i].name)
            return _theme[i];
    return boost::none;
}

} // namespace QV::Filters
