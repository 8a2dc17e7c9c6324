#include <Filters/Text/TableFormats.h>

#include <utility>

#include <DOM/Public/BordersProps.h>
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
    props.setBackgroundColor(values.readFilling(tableProps));
    return shareTableFormat(props);
}

std::shared_ptr<const DOM::CellProps> readCellFormat(const XMLElement& cellProps, const FormatValues& values)
{
    DOM::CellProps props;
    const XMLElement borders = values.find(cellProps, "tcBorders");
    readTableBorders(borders, values, props);
    props.setDiagonalDown(values.readBorderLine(values.find(borders, "tl2br")));
    props.setDiagonalUp(values.readBorderLine(values.find(borders, "tr2bl")));
    props.setBackgroundColor(values.readFilling(cellProps));
    props.setVerticalAlignment(values.readName(CellAlignments, values.value(cellProps, "vAlign")));
    return shareTableFormat(props);
}

} // namespace QV::Filters
