#include <Filters/Package/CellDisplays.h>

#include <utility>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_DateTimeFormatCodes.h>
#include <OfficeUtils/Public/Parser.h>

namespace QV::Filters {
namespace {

using namespace DOM::CellFormatModel;

/// What a format shows to a reader of US English, whose own dates and times are those of that language.
Expression makeExpression(const DOM::CellFormat& format)
{
    if (format.getLocalizedDateTime())
        return OfficeUtils::Parser::parse(
            FilterUtils::convertLocalizedDateTimeToFormatCode(
                *format.getLocalizedDateTime(), OfficeUtils::Parser::ParserType::Spreadsheet),
            OfficeUtils::Parser::ParserType::Spreadsheet)
            .value_or(Expression());
    return format.getExpression().value_or(Expression());
}

/// Whether a section for texts is no more than their placeholder.
bool isPlain(const boost::optional<Rule>& textRule)
{
    return !textRule || (textRule->getTokens().size() == 1 && !textRule->getColorNumber() &&
                            textRule->getTokens().front().kind == TokenKind::TextPlaceholder);
}

} // namespace

CellDisplays::CellDisplays(const DOM::Document& document)
    : _document(document)
{
}

const DOM::CellFormat* CellDisplays::findFormat(const DOM::CellStyle& style) const
{
    if (style.getCellProps() && style.getCellProps()->getFormat())
        return style.getCellProps()->getFormat().get();
    if (!style.getParentUUID())
        return nullptr;
    const auto& styles = _document.getStyles().getTableStyles();
    const auto parent = styles.find(style.getParentUUID());
    if (parent == styles.end() || !parent->second.getCellProps())
        return nullptr;
    return parent->second.getCellProps()->getFormat().get();
}

OfficeUtils::DisplayedValue CellDisplays::displayNumber(double number, const DOM::CellFormat* format)
{
    if (!format)
        return {OfficeUtils::formatGeneral(number), boost::none};
    return getDisplay(*format).formatter.formatNumber(number);
}

boost::optional<OfficeUtils::DisplayedValue> CellDisplays::displayText(
    const std::string& text, const DOM::CellFormat* format)
{
    if (!format)
        return boost::none;
    const Display& display = getDisplay(*format);
    if (display.showsTextAsItStands)
        return boost::none;
    return display.formatter.formatText(text);
}

const CellDisplays::Display& CellDisplays::getDisplay(const DOM::CellFormat& format)
{
    const auto known = _displays.find(&format);
    if (known != _displays.end())
        return known->second;
    const Expression expression = makeExpression(format);
    Display display = {OfficeUtils::CellFormatter(expression, _document.getDateSystem()),
        isPlain(expression.getDefaultTextRule())};
    return _displays.emplace(&format, std::move(display)).first->second;
}

} // namespace QV::Filters
