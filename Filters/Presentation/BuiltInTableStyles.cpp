#include <Filters/Presentation/BuiltInTableStyles.h>

#include <sstream>

#include <Filters/Package/Namespaces.h>
#include <fmt/format.h>

namespace QV::Filters {
namespace {

struct BuiltInTableStyle
{
    const char* identifier;
    const char* color; // of a medium style; null: no fills
    const char* lines; // the colour of those around and between all cells; null: none
};

// Files name the styles by these identifiers alone.
const BuiltInTableStyle BuiltInStyles[] = {
    {"{5C22544A-7EE6-4342-B048-85BDC9FD1C3A}", "accent1", "lt1"  },
    {"{21E4AEA4-8DFA-4A89-87EB-49C32662AFE0}", "accent2", "lt1"  },
    {"{F5AB1C69-6EDB-4FF4-983F-18BD219EF322}", "accent3", "lt1"  },
    {"{00A15C55-8517-42AA-B614-E9B94910E393}", "accent4", "lt1"  },
    {"{7DF18680-E054-41AD-8BC1-D1AEF772440D}", "accent5", "lt1"  },
    {"{93296810-A885-4BE3-A3E7-6D5BEEA58F35}", "accent6", "lt1"  },
    {"{073A0DAA-6AF3-43AB-8588-CEC1D06C72B9}", "dk1",     "lt1"  },
    {"{5940675A-B579-460E-94D1-54222C63F5DA}", nullptr,   "tx1"  },
    {"{2D5ABB26-0587-4C30-8999-92F81FD0307C}", nullptr,   nullptr},
};

std::string makeTableLine(const char* side, long width, const char* color)
{
    return fmt::format("<a:{0}><a:ln w=\"{1}\"><a:solidFill><a:schemeClr val=\"{2}\"/></a:solidFill></a:ln>"
                       "</a:{0}>",
        side, width, color);
}

std::string makeTableGrid(const char* color)
{
    std::string grid;
    for (const char* const side : {"left", "right", "top", "bottom", "insideH", "insideV"})
        grid += makeTableLine(side, 12700, color);
    return grid;
}

std::string makeTablePart(
    const char* name, const std::string& text, const std::string& borders, const std::string& fill)
{
    return fmt::format("<a:{0}>{1}<a:tcStyle><a:tcBdr>{2}</a:tcBdr>{3}</a:tcStyle></a:{0}>", name, text,
        borders, fill.empty() ? fill : "<a:fill><a:solidFill>" + fill + "</a:solidFill></a:fill>");
}

std::string makeMediumParts(const BuiltInTableStyle& style)
{
    const auto makeTint = [&](long tint) {
        return fmt::format(
            "<a:schemeClr val=\"{}\"><a:tint val=\"{}\"/></a:schemeClr>", style.color, tint * 1000);
    };
    const std::string full = fmt::format("<a:schemeClr val=\"{}\"/>", style.color);
    const std::string strong = "<a:tcTxStyle b=\"on\"><a:schemeClr val=\"lt1\"/></a:tcTxStyle>";
    constexpr long Thick = 38100;
    return makeTablePart("wholeTbl", "<a:tcTxStyle><a:schemeClr val=\"dk1\"/></a:tcTxStyle>",
               makeTableGrid(style.lines), makeTint(20)) +
           makeTablePart("band1H", {}, {}, makeTint(40)) + makeTablePart("band1V", {}, {}, makeTint(40)) +
           makeTablePart("lastCol", strong, {}, full) + makeTablePart("firstCol", strong, {}, full) +
           makeTablePart("lastRow", strong, makeTableLine("top", Thick, style.lines), full) +
           makeTablePart("firstRow", strong, makeTableLine("bottom", Thick, style.lines), full);
}

std::string makeParts(const BuiltInTableStyle& style)
{
    if (style.color)
        return makeMediumParts(style);
    const std::string text = "<a:tcTxStyle><a:schemeClr val=\"tx1\"/></a:tcTxStyle>";
    return makeTablePart("wholeTbl", text, style.lines ? makeTableGrid(style.lines) : std::string(), {});
}

} // namespace

FilterUtils::XMLElement makeBuiltInTableStyle(const std::string& identifier)
{
    for (const BuiltInTableStyle& style : BuiltInStyles) {
        if (identifier != style.identifier)
            continue;
        std::istringstream xml(fmt::format("<a:tblStyle xmlns:a=\"{}\">{}</a:tblStyle>",
            getNamespace(Vocabulary::Drawing, Dialect::Transitional), makeParts(style)));
        return FilterUtils::XMLElement::getRootElement(xml, boost::none);
    }
    return {};
}

} // namespace QV::Filters
