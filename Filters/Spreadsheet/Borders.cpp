#include <Filters/Spreadsheet/Borders.h>

#include <algorithm>
#include <iterator>
#include <string>

#include <DOM/Public/LineWidths.h>
#include <DOM/Public/Properties.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/Namespaces.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using Line = std::shared_ptr<const DOM::LineProps>;

struct LineKind
{
    const char* name;
    DOM::LineStyle style;
    float width;
};

// ISO/IEC 29500-1, 18.18.3.
constexpr LineKind LineKinds[] = {
    {"thin",             DOM::LineStyle::Solid,        DOM::ThinLineWidth  },
    {"medium",           DOM::LineStyle::Solid,        DOM::MediumLineWidth},
    {"thick",            DOM::LineStyle::Solid,        DOM::ThickLineWidth },
    {"double",           DOM::LineStyle::Double,       DOM::ThickLineWidth },
    {"hair",             DOM::LineStyle::Hair,         DOM::ThinLineWidth  },
    {"dotted",           DOM::LineStyle::Dotted,       DOM::ThinLineWidth  },
    {"dashed",           DOM::LineStyle::Dashed,       DOM::ThinLineWidth  },
    {"dashDot",          DOM::LineStyle::DashDot,      DOM::ThinLineWidth  },
    {"dashDotDot",       DOM::LineStyle::DashDotDot,   DOM::ThinLineWidth  },
    {"mediumDashed",     DOM::LineStyle::Dashed,       DOM::MediumLineWidth},
    {"mediumDashDot",    DOM::LineStyle::DashDot,      DOM::MediumLineWidth},
    {"mediumDashDotDot", DOM::LineStyle::DashDotDot,   DOM::MediumLineWidth},
    {"slantDashDot",     DOM::LineStyle::SlantDashDot, DOM::MediumLineWidth},
};

bool isTrue(const XMLElement& element, const char* attribute)
{
    const auto text = element.getAttributeValue(attribute);
    return text && (*text == FilterUtils::XSDTrueValue || *text == "true" || *text == "on");
}

class BorderReader
{
public:
    BorderReader(const XMLElement& border, const Names& names, const Colors& colors, OperationReport& report)
        : _border(border)
        , _names(names)
        , _colors(colors)
        , _report(report)
    {
    }

    Line readLine(const char* name) const
    {
        const XMLElement side = find(name);
        const std::string kindName = side.getAttributeValue("style").value_or("none");
        if (kindName == "none")
            return nullptr;
        const auto kind = std::find_if(std::begin(LineKinds), std::end(LineKinds),
            [&](const LineKind& candidate) { return candidate.name == kindName; });
        if (kind == std::end(LineKinds)) {
            _report.emplace_back("Unknown kind of line {}", kindName);
            return nullptr;
        }
        const auto color =
            _colors.readColor(side.getElement(_names(Vocabulary::Spreadsheet, "color")), _report);
        return std::make_shared<DOM::LineProps>(kind->style, kind->width, color);
    }

    /// A side that strict documents call otherwise.
    Line readLine(const char* name, const char* strictName) const
    {
        return readLine(find(name).isValid() ? name : strictName);
    }

private:
    XMLElement find(const char* name) const
    {
        return _border.getElement(_names(Vocabulary::Spreadsheet, name));
    }

    const XMLElement& _border;
    const Names& _names;
    const Colors& _colors;
    OperationReport& _report;
};

} // namespace

CellLines readBorder(
    const XMLElement& border, const Names& names, const Colors& colors, OperationReport& report)
{
    const BorderReader reader(border, names, colors, report);
    auto borders = std::make_shared<DOM::BordersProps>();
    borders->setLeft(reader.readLine("left", "start"));
    borders->setTop(reader.readLine("top"));
    borders->setRight(reader.readLine("right", "end"));
    borders->setBottom(reader.readLine("bottom"));
    borders->setVertical(reader.readLine("vertical"));
    borders->setHorizontal(reader.readLine("horizontal"));
    CellLines lines;
    if (!DOM::isEmpty(*borders))
        lines.borders = std::move(borders);
    const bool isUp = isTrue(border, "diagonalUp");
    const bool isDown = isTrue(border, "diagonalDown");
    const Line diagonal = isUp || isDown ? reader.readLine("diagonal") : nullptr;
    if (isUp)
        lines.diagonalUp = diagonal;
    if (isDown)
        lines.diagonalDown = diagonal;
    return lines;
}

} // namespace QV::Filters
