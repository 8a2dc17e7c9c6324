#include <Filters/Spreadsheet/CellFormats.h>

#include <cstddef>

#include <boost/optional.hpp>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

/// An element that switches something on by being there, unless its "val" says otherwise.
boost::optional<bool> readSwitch(const XMLElement& element, OperationReport& report)
{
    if (!element.isValid())
        return boost::none;
    const auto value = element.getAttributeValue("val");
    if (!value || *value == FilterUtils::XSDTrueValue || *value == "true" || *value == "on")
        return true;
    if (*value != FilterUtils::XSDFalseValue && *value != "false" && *value != "off") {
        report.emplace_back("Can't parse boolean value {}", *value);
        return boost::none;
    }
    return false;
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

/// The colour that fills the cells: the foreground of a solid pattern.
boost::optional<DOM::Color> readFill(
    const XMLElement& fill, const Names& names, const Colors& colors, FilterRun& run)
{
    const XMLElement pattern = fill.getElement(names(Vocabulary::Spreadsheet, "patternFill"));
    const auto type = pattern.getAttributeValue("patternType");
    if (type && *type == "solid")
        return colors.readColor(
            pattern.getElement(names(Vocabulary::Spreadsheet, "fgColor")), run.getReport());
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

void noteLeftOut(const XMLElement& format, FilterRun& run)
{
    if (format.getAttributeValue("numFmtId").value_or("0") != "0")
        run.leaveOut(LeftOut::NumberFormats);
    if (format.getAttributeValue("borderId").value_or("0") != "0")
        run.leaveOut(LeftOut::Borders);
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

void CellFormats::read(const XMLElement& styleSheet, const Names& names, Colors& colors, FilterRun& run)
{
    OperationReport& report = run.getReport();
    const auto named = [&](const char* name) { return names(Vocabulary::Spreadsheet, name); };
    const auto child = [&](const char* name) { return styleSheet.getElement(named(name)); };
    colors.readPalette(child("colors"), names, report);

    std::vector<std::shared_ptr<const DOM::RunProps>> fonts;
    child("fonts").processElements(named("font"),
        [&](const XMLElement& font) { fonts.push_back(readFont(font, names, colors, report)); });
    std::vector<std::shared_ptr<const DOM::CellProps>> fills;
    child("fills").processElements(named("fill"), [&](const XMLElement& fill) {
        auto props = std::make_shared<DOM::CellProps>();
        props->setBackgroundColor(readFill(fill, names, colors, run));
        fills.push_back(DOM::isEmpty(*props) ? nullptr : props);
    });

    boost::optional<std::size_t> defaultFont;
    child("cellXfs").processElements(named("xf"), [&](const XMLElement& format) {
        const auto font = readIndex(format, "fontId", fonts.size(), report);
        const auto fill = readIndex(format, "fillId", fills.size(), report);
        if (_styles.empty() && font) {
            defaultFont = font;
            _defaultFont = fonts[*font];
        }
        DOM::CellStyle style;
        if (font && font != defaultFont)
            style.setRunProps(fonts[*font]);
        if (fill)
            style.setCellProps(fills[*fill]);
        _styles.push_back(
            style.isEmpty() ? nullptr : run.getDocument().getSharedObjectFactory().getShared(style));
        noteLeftOut(format, run);
    });
}

} // namespace QV::Filters
