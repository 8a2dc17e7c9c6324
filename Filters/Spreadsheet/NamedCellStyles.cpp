#include <Filters/Spreadsheet/NamedCellStyles.h>

#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Document.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using Line = std::shared_ptr<const DOM::LineProps>;

constexpr const char* NormalStyleId = "0"; // among the styles that applications know

/// Whether a named style stands for that aspect of the cells. Unless it says otherwise, it does.
bool applies(const XMLElement& styleFormat, const char* attribute)
{
    const std::string text = styleFormat.getAttributeValue(attribute).value_or(FilterUtils::XSDTrueValue);
    return text != FilterUtils::XSDFalseValue && text != "false" && text != "off";
}

Format keepWhatApplies(Format format, const XMLElement& styleFormat)
{
    if (!applies(styleFormat, "applyFont"))
        format.font = nullptr;
    if (!applies(styleFormat, "applyFill"))
        format.fill = boost::none;
    if (!applies(styleFormat, "applyBorder"))
        format.lines = {};
    if (!applies(styleFormat, "applyNumberFormat"))
        format.numberFormat = nullptr;
    if (!applies(styleFormat, "applyAlignment")) {
        format.horizontalAlignment = boost::none;
        format.verticalAlignment = boost::none;
        format.isWrapping = false;
    }
    return format;
}

template <typename Props>
std::shared_ptr<const Props> keepUnlessEmpty(const Props& props)
{
    return DOM::isEmpty(props) ? nullptr : std::make_shared<Props>(props);
}

/// A line that takes the parent's away.
Line sayNone(const Line& own, const Line& parent)
{
    return !own && parent ? std::make_shared<DOM::LineProps>() : own;
}

std::shared_ptr<const DOM::BordersProps> sayNoBorders(
    const std::shared_ptr<const DOM::BordersProps>& own, const DOM::BordersProps& parent)
{
    auto borders = own ? std::make_shared<DOM::BordersProps>(*own) : std::make_shared<DOM::BordersProps>();
    borders->setLeft(sayNone(borders->getLeft(), parent.getLeft()));
    borders->setTop(sayNone(borders->getTop(), parent.getTop()));
    borders->setRight(sayNone(borders->getRight(), parent.getRight()));
    borders->setBottom(sayNone(borders->getBottom(), parent.getBottom()));
    return own && *own == *borders ? own : borders;
}

void sayNothingInCell(DOM::CellProps& own, const DOM::CellProps& parent)
{
    if (!own.getBackgroundColor() && parent.getBackgroundColor())
        own.setBackgroundColor(DOM::Color(DOM::Color::RGBA(0, 0, 0, 0)));
    if (parent.getBorders())
        own.setBorders(sayNoBorders(own.getBorders(), *parent.getBorders()));
    own.setDiagonalUp(sayNone(own.getDiagonalUp(), parent.getDiagonalUp()));
    own.setDiagonalDown(sayNone(own.getDiagonalDown(), parent.getDiagonalDown()));
    if (!own.getVerticalAlignment() && parent.getVerticalAlignment())
        own.setVerticalAlignment(DOM::VerticalAlignment::Bottom);
    if (!own.getTextWrapping() && parent.getTextWrapping())
        own.setTextWrapping(false);
    if (!own.getFormat() && parent.getFormat())
        own.setFormat(getGeneralFormat());
}

void sayNothingInFont(DOM::RunProps& own, const DOM::RunProps& parent)
{
    if (!own.getBold() && parent.getBold())
        own.setBold(false);
    if (!own.getItalic() && parent.getItalic())
        own.setItalic(false);
    if (!own.getColor() && parent.getColor())
        own.setColor(DOM::Color()); // the automatic one is black
}

} // namespace

std::shared_ptr<const DOM::CellProps> makeCellProps(const Format& format)
{
    DOM::CellProps props;
    props.setBackgroundColor(format.fill);
    props.setBorders(format.lines.borders);
    props.setDiagonalUp(format.lines.diagonalUp);
    props.setDiagonalDown(format.lines.diagonalDown);
    props.setVerticalAlignment(format.verticalAlignment);
    if (format.isWrapping)
        props.setTextWrapping(true);
    props.setFormat(format.numberFormat);
    return keepUnlessEmpty(props);
}

std::shared_ptr<const DOM::ParaProps> makeParaProps(const Format& format)
{
    DOM::ParaProps props;
    props.setAlignment(format.horizontalAlignment);
    return keepUnlessEmpty(props);
}

DOM::CellStyle makeOwnStyle(const Format& format, const DOM::NamedTableStyle& parent,
    const std::shared_ptr<const DOM::RunProps>& defaultFont)
{
    DOM::CellStyle style;
    style.setParentUUID(parent.getUUID());
    style.setCellProps(makeCellProps(format));
    if (parent.getCellProps()) {
        DOM::CellProps props = style.getCellProps() ? *style.getCellProps() : DOM::CellProps();
        sayNothingInCell(props, *parent.getCellProps());
        style.setCellProps(keepUnlessEmpty(props));
    }
    style.setParaProps(makeParaProps(format));
    if (!style.getParaProps() && parent.getParaProps()) {
        DOM::ParaProps props;
        props.setAlignment(DOM::HorizontalAlignment::General);
        style.setParaProps(std::make_shared<DOM::ParaProps>(props));
    }
    const bool isParentPlain = !parent.getRunProps() || pointeesEqual(parent.getRunProps(), defaultFont);
    if (format.font != defaultFont || !isParentPlain)
        style.setRunProps(format.font);
    if (style.getRunProps() && parent.getRunProps()) {
        DOM::RunProps props = *format.font;
        sayNothingInFont(props, *parent.getRunProps());
        if (props != *format.font)
            style.setRunProps(std::make_shared<DOM::RunProps>(props));
    }
    return style;
}

void NamedCellStyles::read(
    const XMLElement& styleSheet, const Names& names, const FormatParts& parts, FilterRun& run)
{
    const auto named = [&](const char* name) { return names(Vocabulary::Spreadsheet, name); };
    std::unordered_map<std::string, XMLElement> formats; // by number, as cells write it
    styleSheet.getElement(named("cellStyleXfs")).processElements(named("xf"), [&](const XMLElement& format) {
        formats.emplace(std::to_string(formats.size()), format);
    });

    DOM::Styles& styles = run.getDocument().getStyles();
    _styles = &styles;
    styleSheet.getElement(named("cellStyles"))
        .processElements(named("cellStyle"), [&](const XMLElement& element) {
            const std::string name = element.getAttributeValue("name").value_or(std::string());
            const auto format = formats.find(element.getAttributeValue("xfId").value_or(std::string()));
            if (format == formats.end()) {
                run.getReport().emplace_back("Cell style {} has no format", name);
                return;
            }
            const Format all = keepWhatApplies(parts.readFormat(format->second), format->second);
            DOM::NamedTableStyle style;
            style.setName(name);
            style.setCellProps(makeCellProps(all));
            style.setParaProps(makeParaProps(all));
            if (all.font && !DOM::isEmpty(*all.font))
                style.setRunProps(all.font);
            const UUID uuid = style.getUUID();
            styles.getTableStyles().emplace(uuid, std::move(style));
            const bool isNormal = element.getAttributeValue("builtinId").value_or("") == NormalStyleId;
            _parents.emplace(format->first, isNormal ? UUID() : uuid); // several may share a format
        });
}

const DOM::NamedTableStyle* NamedCellStyles::findParent(const XMLElement& cellFormat) const
{
    const auto parent = _parents.find(cellFormat.getAttributeValue("xfId").value_or("0"));
    if (parent == _parents.end())
        return nullptr;
    const auto style = _styles->getTableStyles().find(parent->second);
    return style == _styles->getTableStyles().end() ? nullptr : &style->second;
}

} // namespace QV::Filters
