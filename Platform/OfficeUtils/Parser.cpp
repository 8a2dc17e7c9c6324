#include <OfficeUtils/Public/Parser.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include <OfficeUtils/FormatCodes/CodePrinter.h>
#include <OfficeUtils/FormatCodes/LocalizedTokens.h>
#include <OfficeUtils/FormatCodes/SectionRule.h>
#include <OfficeUtils/FormatCodes/SectionScanner.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;

constexpr std::size_t SectionsMax = 4;

boost::optional<std::vector<Rule>> readSections(const std::string& code, Parser::ParserType type)
{
    SectionScanner scanner(code, type);
    std::vector<Rule> rules;
    do {
        auto section = scanner.readSection();
        if (!section || rules.size() == SectionsMax)
            return boost::none;
        auto rule = makeRule(std::move(*section));
        if (!rule)
            return boost::none;
        rules.push_back(std::move(*rule));
    } while (scanner.skipSeparator());
    return rules;
}

bool showsNoNumber(const Rule& rule)
{
    if (rule.getKind() == Rule::Kind::Text || rule.getKind() == Rule::Kind::General)
        return true;
    return std::all_of(rule.getTokens().begin(), rule.getTokens().end(), [](const Token& token) {
        return token.kind == TokenKind::Literal || token.kind == TokenKind::Skip ||
               token.kind == TokenKind::Fill || token.kind == TokenKind::Mark;
    });
}

/// Takes the section for texts off the end.
bool takeTextRule(std::vector<Rule>& rules, boost::optional<Rule>& textRule)
{
    if (rules.size() == SectionsMax || rules.back().getKind() == Rule::Kind::Text) {
        if (!showsNoNumber(rules.back()) || rules.back().getCondition())
            return false;
        textRule = std::move(rules.back());
        rules.pop_back();
    }
    return std::none_of(
        rules.begin(), rules.end(), [](const Rule& rule) { return rule.getKind() == Rule::Kind::Text; });
}

/// Says what sections for numbers leave unsaid: the first of two is for all but negative numbers, the first
/// of three for positive and the second for negative ones. Takes the section for all others off the end.
bool takeNumberRule(std::vector<Rule>& rules, boost::optional<Rule>& numberRule)
{
    using Operator = Condition::Operator;
    const std::size_t count = rules.size();
    if (count == 3 && rules[2].getCondition())
        return false;
    if (count >= 2 && !rules[0].getCondition())
        rules[0].setCondition(Condition{count == 2 ? Operator::GreaterOrEqual : Operator::Greater, 0, true});
    if (count == 3 && !rules[1].getCondition())
        rules[1].setCondition(Condition{Operator::Less, 0, true});
    if (count > 0 && !rules.back().getCondition()) {
        numberRule = std::move(rules.back());
        rules.pop_back();
    }
    return true;
}

} // namespace

boost::optional<Expression> Parser::parse(const std::string& code, ParserType type)
{
    if (code.empty() || code.size() > CodeLengthMax)
        return boost::none;
    auto rules = readSections(code, type);
    boost::optional<Rule> numberRule;
    boost::optional<Rule> textRule;
    if (!rules || !takeTextRule(*rules, textRule) || !takeNumberRule(*rules, numberRule))
        return boost::none;
    return Expression(std::move(*rules), std::move(numberRule), std::move(textRule));
}

std::string Parser::toRegEx(const Expression& expression, ParserType type)
{
    return printExpression(expression, type);
}

std::string Parser::toRegEx(const DateTimeLocalizedExpression& expression, const LocaleContext& context)
{
    Rule rule;
    rule.setKind(Rule::Kind::DateTime);
    rule.setTokens(makeLocalizedTokens(expression.getDateTimePatternTokenSet(), context));
    return printRule(rule, ParserType::Spreadsheet);
}

} // namespace QV::OfficeUtils
