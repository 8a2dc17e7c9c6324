#include <Filters/Text/TableFormats.h>

#include <string>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/Properties.h>
#include <Filters/Text/FormatValues.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr FormatName<DOM::VerticalAlignment> CellAlignments[] = {
    {"top",    DOM::VerticalAlignment::Top    },
    {"center", DOM::VerticalAlignment::Center },
    {"bottom", DOM::VerticalAlignment::Bottom },
    {"both",   DOM::VerticalAlignment::Justify},
};

/// A side that newer files call otherwise, since tables may run from right to left.
DOM::BordersProps::Line readTableSide(
    const XMLElement& borders, const FormatValues& values, const char* name, const char* newerName)
{
    const XMLElement side = values.find(borders, name);
    return values.readBorderLine(side.isValid() ? side : values.find(borders, newerName));
}

void readTableBorders(const XMLElement& element, const FormatValues& values, DOM::CellProps& props)
{
    auto borders = std::make_shared<DOM::BordersProps>();
    borders->setLeft(readTableSide(element, values, "left", "start"));
    borders->setTop(values.readBorderLine(values.find(element, "top")));
    borders->setRight(readTableSide(element, values, "right", "end"));
    borders->setBottom(values.readBorderLine(values.find(element, "bottom")));
    borders->setVertical(values.readBorderLine(values.find(element, "insideV")));
    borders->setHorizontal(values.readBorderLine(values.find(element, "insideH")));
    if (!DOM::isEmpty(*borders))
        props.setBorders(std::move(borders));
}

/// A filling that is set to none takes away that of a style.
boost::optional<DOM::Color> readTableFilling(const XMLElement& element, const FormatValues& values)
{
    const XMLElement shading = values.find(element, "shd");
    const auto color = values.readShading(shading);
    const bool isNone = values.attribute(shading, "val").text == std::string("nil") ||
                        values.attribute(shading, "fill").text == std::string("auto");
    if (color || !isNone)
        return color;
    return DOM::Color(DOM::Color::RGBA(255, 255, 255, 0));
}

std::shared_ptr<const DOM::CellProps> shareTableFormat(const DOM::CellProps& props)
{
    return DOM::isEmpty(props) ? nullptr : std::make_shared<const DOM::CellProps>(props);
}

} // namespace

std::shared_ptr<const DOM::CellProps> readTableFormat(
    const XMLElement& tableProps, const FormatValues& values)
{
    DOM::CellProps props;
    readTableBorders(values.find(tableProps, "tblBorders"), values, props);
    props.setBackgroundColor(readTableFilling(tableProps, values));
    return shareTableFormat(props);
}

std::shared_ptr<const DOM::CellProps> readTableFormat(const XMLElement& tableProps, const Names& names,
    const Colors& colors, const TextTheme& theme, OperationReport& report)
{
    return readTableFormat(tableProps, FormatValues(names, colors, theme, report));
}

std::shared_ptr<const DOM::CellProps> readCellFormat(const XMLElement& cellProps, const FormatValues& values)
{
    DOM::CellProps props;
    const XMLElement borders = values.find(cellProps, "tcBorders");
    readTableBorders(borders, values, props);
    props.setDiagonalDown(values.readBorderLine(values.find(borders, "tl2br")));
    props.setDiagonalUp(values.readBorderLine(values.find(borders, "tr2bl")));
    props.setBackgroundColor(readTableFilling(cellProps, values));
    props.setVerticalAlignment(values.readName(CellAlignments, values.value(cellProps, "vAlign")));
    return shareTableFormat(props);
}

std::shared_ptr<const DOM::CellProps> readCellFormat(const XMLElement& cellProps, const Names& names,
    const Colors& colors, const TextTheme& theme, OperationReport& report)
{
    return readCellFormat(cellProps, FormatValues(names, colors, theme, report));
}

} // namespace QV::Filters
