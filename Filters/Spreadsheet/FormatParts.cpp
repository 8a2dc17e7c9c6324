#include <Filters/Spreadsheet/FormatParts.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

template <typename Value>
struct NamedValue
{
    const char* name;
    Value value;
};

const NamedValue<DOM::HorizontalAlignment> HorizontalAlignments[] = {
    {"general",          DOM::HorizontalAlignment::General         },
    {"left",             DOM::HorizontalAlignment::Left            },
    {"center",           DOM::HorizontalAlignment::Center          },
    {"right",            DOM::HorizontalAlignment::Right           },
    {"fill",             DOM::HorizontalAlignment::Fill            },
    {"justify",          DOM::HorizontalAlignment::Justify         },
    {"centerContinuous", DOM::HorizontalAlignment::CenterContinuous},
    {"distributed",      DOM::HorizontalAlignment::Distributed     },
};

const NamedValue<DOM::VerticalAlignment> VerticalAlignments[] = {
    {"top",         DOM::VerticalAlignment::Top        },
    {"center",      DOM::VerticalAlignment::Center     },
    {"bottom",      DOM::VerticalAlignment::Bottom     },
    {"justify",     DOM::VerticalAlignment::Justify    },
    {"distributed", DOM::VerticalAlignment::Distributed},
};

/// The value that an attribute names; nothing where it is absent, or names none, which is reported.
template <typename Value, std::size_t Size>
boost::optional<Value> readNamed(const NamedValue<Value> (&values)[Size], const XMLElement& element,
    const char* attribute, OperationReport& report)
{
    const auto text = element.getAttributeValue(attribute);
    if (!text)
        return boost::none;
    const auto found = std::find_if(
        std::begin(values), std::end(values), [&](const auto& value) { return value.name == *text; });
    if (found != std::end(values))
        return found->value;
    report.emplace_back("Unknown {} alignment {}", attribute, *text);
    return boost::none;
}

/// What a switch says; nothing where there is no text, or it says neither.
boost::optional<bool> readSwitchText(const boost::optional<std::string>& text, OperationReport& report)
{
    if (!text)
        return boost::none;
    if (*text == FilterUtils::XSDTrueValue || *text == "true" || *text == "on")
        return true;
    if (*text == FilterUtils::XSDFalseValue || *text == "false" || *text == "off")
        return false;
    report.emplace_back("Can't parse boolean value {}", *text);
    return boost::none;
}

/// An element that switches something on by being there, unless its "val" says otherwise.
boost::optional<bool> readSwitch(const XMLElement& element, OperationReport& report)
{
    if (!element.isValid())
        return boost::none;
    const auto value = element.getAttributeValue("val");
    return value ? readSwitchText(value, report) : boost::optional<bool>(true);
}

boost::optional<float> readFontSize(const XMLElement& element, OperationReport& report)
{
    const auto text = element.getAttributeValue("val");
    if (!text)
        return boost::none;
    const auto points = OfficeUtils::stringToDouble(*text);
    constexpr double MaxFontSize = 409.55;
    if (!points || !(*points > 0) || *points > MaxFontSize) {
        report.emplace_back("Unexpected font size {}", *text);
        return boost::none;
    }
    return static_cast<float>(*points);
}

/// The colour that fills the cells: the foreground of a solid pattern. A differential format has its colour
/// in the background, and need not name the pattern.
boost::optional<DOM::Color> readFill(
    const XMLElement& fill, bool isDifferential, const Names& names, const Colors& colors, FilterRun& run)
{
    const XMLElement pattern = fill.getElement(names(Vocabulary::Spreadsheet, "patternFill"));
    const auto type = pattern.getAttributeValue("patternType");
    const bool isSolid = type ? *type == "solid" : isDifferential;
    if (isSolid)
        return colors.readColor(
            pattern.getElement(names(Vocabulary::Spreadsheet, isDifferential ? "bgColor" : "fgColor")),
            run.getReport());
    const bool isGradient = fill.getElement(names(Vocabulary::Spreadsheet, "gradientFill")).isValid();
    // Each workbook lists the pattern "gray125", whether it uses it or not.
    if (isGradient || (type && *type != "none" && *type != "gray125"))
        run.leaveOut(LeftOut::PatternFills);
    return boost::none;
}

/// The index that an attribute gives into a list; 0 where the attribute is absent, nothing where it points
/// outside.
boost::optional<std::size_t> readIndex(
    const XMLElement& element, const char* attribute, std::size_t listSize, OperationReport& report)
{
    const auto text = element.getAttributeValue(attribute);
    if (!text)
        return boost::make_optional(listSize > 0, std::size_t(0));
    std::size_t position = 0;
    const auto index = strToUlong(*text, &position, 10);
    if (index && position == text->size() && *index < listSize)
        return *index;
    report.emplace_back("Cell format has an unknown {} {}", attribute, *text);
    return boost::none;
}

} // namespace

std::shared_ptr<const DOM::RunProps> readFont(
    const XMLElement& font, const Names& names, const Colors& colors, OperationReport& report)
{
    const auto child = [&](const char* name) {
        return font.getElement(names(Vocabulary::Spreadsheet, name));
    };
    auto props = std::make_shared<DOM::RunProps>();
    props->setBold(readSwitch(child("b"), report));
    props->setItalic(readSwitch(child("i"), report));
    props->setFontSize(readFontSize(child("sz"), report));
    props->setColor(colors.readColor(child("color"), report));
    XMLElement name = child("name");
    if (!name.isValid())
        name = child("rFont");
    props->setFontName(name.getAttributeValue("val"));
    return props;
}

FormatParts::FormatParts(
    const XMLElement& styleSheet, const Names& names, const Colors& colors, FilterRun& run)
    : _names(names)
    , _colors(colors)
    , _run(run)
    , _numberFormats(styleSheet, names, run.getReport())
{
    const auto named = [&](const char* name) { return names(Vocabulary::Spreadsheet, name); };
    styleSheet.getElement(named("fonts")).processElements(named("font"), [&](const XMLElement& font) {
        _fonts.push_back(readFont(font, names, colors, run.getReport()));
    });
    styleSheet.getElement(named("fills")).processElements(named("fill"), [&](const XMLElement& fill) {
        _fills.push_back(readFill(fill, false, names, colors, run));
    });
    styleSheet.getElement(named("borders")).processElements(named("border"), [&](const XMLElement& border) {
        _borders.push_back(readBorder(border, names, colors, run.getReport()));
    });
}

Format FormatParts::readFormat(const XMLElement& xf) const
{
    OperationReport& report = _run.getReport();
    Format format;
    if (const auto font = readIndex(xf, "fontId", _fonts.size(), report))
        format.font = _fonts[*font];
    if (const auto fill = readIndex(xf, "fillId", _fills.size(), report))
        format.fill = _fills[*fill];
    if (const auto border = readIndex(xf, "borderId", _borders.size(), report))
        format.lines = _borders[*border];
    readAlignment(xf, format);
    format.numberFormat = _numberFormats.find(xf, report);
    return format;
}

Format FormatParts::readDifferentialFormat(const XMLElement& dxf) const
{
    const auto child = [&](const char* name) {
        return dxf.getElement(_names(Vocabulary::Spreadsheet, name));
    };
    Format format;
    if (child("font").isValid())
        format.font = readFont(child("font"), _names, _colors, _run.getReport());
    format.fill = readFill(child("fill"), true, _names, _colors, _run);
    format.lines = readBorder(child("border"), _names, _colors, _run.getReport());
    readAlignment(dxf, format);
    format.numberFormat = makeNumberFormat(child("numFmt"), _run.getReport());
    return format;
}

void FormatParts::readAlignment(const XMLElement& format, Format& result) const
{
    OperationReport& report = _run.getReport();
    const XMLElement alignment = format.getElement(_names(Vocabulary::Spreadsheet, "alignment"));
    result.horizontalAlignment = readNamed(HorizontalAlignments, alignment, "horizontal", report);
    if (result.horizontalAlignment == DOM::HorizontalAlignment::General)
        result.horizontalAlignment = boost::none; // many files say it of each cell
    result.verticalAlignment = readNamed(VerticalAlignments, alignment, "vertical", report);
    if (result.verticalAlignment == DOM::VerticalAlignment::Bottom)
        result.verticalAlignment = boost::none;
    result.isWrapping = readSwitchText(alignment.getAttributeValue("wrapText"), report).value_or(false);
}

} // namespace QV::Filters
