#include <Filters/Presentation/SlideTableLines.h>

#include <boost/variant.hpp>

#include <DOM/Public/ShapeProps.h>

namespace QV::Filters {
namespace {

constexpr float UsualLineWidth = 1; // ECMA-376 Part 1, 20.1.2.2.24: 12,700 EMU

class TableColorFinder : public boost::static_visitor<boost::optional<DOM::Color>>
{
public:
    boost::optional<DOM::Color> operator()(const DOM::NoFill&) const
    {
        return DOM::Color(DOM::Color::RGBA(0, 0, 0, 0));
    }
    boost::optional<DOM::Color> operator()(const DOM::SolidFill& fill) const { return fill.color; }
    boost::optional<DOM::Color> operator()(const DOM::GradientFill& fill) const
    {
        return boost::make_optional(
            !fill.stops.empty(), fill.stops.empty() ? DOM::Color() : fill.stops.front().color);
    }
    boost::optional<DOM::Color> operator()(const DOM::PictureFill&) const { return boost::none; }
    boost::optional<DOM::Color> operator()(const DOM::PatternFill& fill) const { return fill.foreground; }
};

DOM::LineStyle getTableLineStyle(DOM::LineDash dash)
{
    switch (dash) {
    case DOM::LineDash::Dot:
    case DOM::LineDash::SystemDot:
        return DOM::LineStyle::Dotted;
    case DOM::LineDash::Dash:
    case DOM::LineDash::LongDash:
    case DOM::LineDash::SystemDash:
        return DOM::LineStyle::Dashed;
    case DOM::LineDash::DashDot:
    case DOM::LineDash::LongDashDot:
    case DOM::LineDash::SystemDashDot:
        return DOM::LineStyle::DashDot;
    case DOM::LineDash::LongDashDotDot:
    case DOM::LineDash::SystemDashDotDot:
        return DOM::LineStyle::DashDotDot;
    case DOM::LineDash::Solid:
        break;
    }
    return DOM::LineStyle::Solid;
}

} // namespace

boost::optional<DOM::Color> findTableColor(const DOM::ShapeFill& fill)
{
    return boost::apply_visitor(TableColorFinder(), fill);
}

std::shared_ptr<const DOM::LineProps> readTableLine(
    const FilterUtils::XMLElement& line, const DrawingScope& scope)
{
    if (!line.isValid())
        return nullptr;
    DOM::ShapeProps props;
    readLine(line, scope, props);
    if (!props.getLineFill())
        return nullptr;
    if (boost::get<DOM::NoFill>(&*props.getLineFill()))
        return std::make_shared<const DOM::LineProps>();
    const bool isDouble = line.getAttributeValue("cmpd").value_or("sng") == "dbl";
    const auto style = getTableLineStyle(props.getLineDash().value_or(DOM::LineDash::Solid));
    return std::make_shared<const DOM::LineProps>(isDouble ? DOM::LineStyle::Double : style,
        props.getLineWidth().value_or(UsualLineWidth), findTableColor(*props.getLineFill()));
}

} // namespace QV::Filters
