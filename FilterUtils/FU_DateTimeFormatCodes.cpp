#include <FilterUtils/FU_DateTimeFormatCodes.h>

#include <map>

#include <FilterUtils/FU_Errors.h>
#include <OfficeUtils/Public/CellFormatFactory.h>
#include <OfficeUtils/Public/LocaleContext.h>

namespace QV::FilterUtils {
namespace {

using namespace DOM::CellFormatModel;
using OfficeUtils::Parser;

constexpr unsigned long TimeLanguage = 0xF400;
constexpr unsigned long DateLanguage = 0xF800;

using SystemCodes = std::map<DateTimePatternItemSet, const char*>;

/// The codes that spreadsheets keep for the system's own formats.
const SystemCodes& getSystemCodes()
{
    using Part = DateTimePatternToken;
    static const SystemCodes codes = {
        {{{Part::Hour, 0}, {Part::Minute, 0}, {Part::Second, 0}},                 R"([$-F400]h:mm:ss\ AM/PM)"},
        {{{Part::Weekday, 0}, {Part::Month, 1}, {Part::Day, 0}, {Part::Year, 0}},
         R"([$-F800]dddd\,\ mmmm\ dd\,\ yyyy)"                                                               },
    };
    return codes;
}

} // namespace

const char* const DateLocalizationMark = "[$-F800]";
const char* const TimeLocalizationMark = "[$-F400]";

bool isMsLCIDLocalizedMark(unsigned long lcid)
{
    return lcid == TimeLanguage || lcid == DateLanguage;
}

std::string convertToValidParsedFormatCode(std::string const& formatCode, Parser::ParserType type)
{
    const auto expression = Parser::parse(formatCode, type);
    if (!expression)
        throw InternalFilterError("Invalid formatCode for formatting parser on save");
    return Parser::toRegEx(*expression, type);
}

std::string convertLocalizedDateTimeToFormatCode(
    DateTimeLocalizedExpression const& expression, Parser::ParserType type)
{
    std::string code;
    if (type == Parser::ParserType::Model)
        code = expression.getFormatType() == FormatType::Time ? TimeLocalizationMark : DateLocalizationMark;
    code += Parser::toRegEx(expression,
        OfficeUtils::LocaleContext::getDefaultLocaleContext(OfficeUtils::FormulaType::OfficeOpenXml));
    return convertToValidParsedFormatCode(code, type);
}

std::string convertLocalizedDateTimeToFormatCodeMsExcel(DateTimeLocalizedExpression const& expression)
{
    const auto found = getSystemCodes().find(expression.getDateTimePatternTokenSet());
    if (found != getSystemCodes().end())
        return convertToValidParsedFormatCode(found->second, Parser::ParserType::Spreadsheet);
    return convertLocalizedDateTimeToFormatCode(expression, Parser::ParserType::Spreadsheet);
}

boost::optional<DateTimeLocalizedExpression> convertCellFormatExpressionToLocalizedDateTime(
    Expression const& expression)
{
    const auto& rule = expression.getDefaultNumberRule();
    if (!rule || !expression.getRules().empty() || expression.getDefaultTextRule())
        return boost::none;
    if (!rule->getLanguage() || !isMsLCIDLocalizedMark(*rule->getLanguage()))
        return boost::none;
    const DateTimePatternItemSet items = convertDateTimeRuleToItemSet(*rule, false);
    if (items.empty())
        return boost::none;
    return OfficeUtils::CellFormatFactory::makeDateTimeFormat(items);
}

} // namespace QV::FilterUtils
