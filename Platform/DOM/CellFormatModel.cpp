#include <DOM/Public/CellFormatModel.h>

#include <algorithm>
#include <cstddef>

namespace QV::DOM::CellFormatModel {
namespace {

constexpr std::uint8_t AsReaderCounts = 0;
constexpr std::uint8_t From0To23 = 1;
constexpr std::uint8_t From1To12 = 2;

/// The variant of a name by the number of letters that stand for it: "mmm" is short, "mmmmm" an initial.
std::uint8_t getMonthVariant(std::size_t letters)
{
    switch (letters) {
    case 3:
        return 2;
    case 4:
        return 1;
    case 5:
        return 3;
    default:
        return 0;
    }
}

/// The item of a token that has one.
boost::optional<DateTimePatternItem> makeItem(const Token& token, std::uint8_t hourVariant)
{
    using Part = DateTimePatternToken;
    const std::size_t letters = token.text.size();
    switch (token.kind) {
    case TokenKind::Weekday:
        return DateTimePatternItem{Part::Weekday, static_cast<std::uint8_t>(letters == 4 ? 0 : 1)};
    case TokenKind::Month:
        return DateTimePatternItem{Part::Month, getMonthVariant(letters)};
    case TokenKind::Day:
        return DateTimePatternItem{Part::Day, 0};
    case TokenKind::Year:
        return DateTimePatternItem{Part::Year, static_cast<std::uint8_t>(letters == 4 ? 0 : 1)};
    case TokenKind::Hour:
        return DateTimePatternItem{Part::Hour, hourVariant};
    case TokenKind::Minute:
        return DateTimePatternItem{Part::Minute, 0};
    case TokenKind::Second:
        return DateTimePatternItem{Part::Second, 0};
    default:
        return boost::none;
    }
}

/// Whether a token adds nothing that items would have to say.
bool isSilent(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Literal:
    case TokenKind::Skip:
    case TokenKind::Fill:
    case TokenKind::Mark:
    case TokenKind::DayPart:
        return true;
    default:
        return false;
    }
}

} // namespace

bool operator==(const Rule& a, const Rule& b)
{
    return a._kind == b._kind && a._tokens == b._tokens && a._condition == b._condition &&
           a._colorNumber == b._colorNumber && a._language == b._language;
}

Expression::Expression(
    std::vector<Rule> rules, boost::optional<Rule> defaultNumberRule, boost::optional<Rule> defaultTextRule)
    : _rules(std::move(rules))
    , _defaultNumberRule(std::move(defaultNumberRule))
    , _defaultTextRule(std::move(defaultTextRule))
{
}

bool operator==(const Expression& a, const Expression& b)
{
    return a._rules == b._rules && a._defaultNumberRule == b._defaultNumberRule &&
           a._defaultTextRule == b._defaultTextRule;
}

bool operator==(const DateTimeLocalizedExpression& a, const DateTimeLocalizedExpression& b)
{
    return a._type == b._type && a._items == b._items;
}

DateTimePatternItemSet convertDateTimeRuleToItemSet(const Rule& rule, bool isHourCycleKept)
{
    const std::vector<Token>& tokens = rule.getTokens();
    const bool hasDayPart = std::any_of(
        tokens.begin(), tokens.end(), [](const Token& token) { return token.kind == TokenKind::DayPart; });
    const std::uint8_t hourVariant = !isHourCycleKept ? AsReaderCounts : hasDayPart ? From1To12 : From0To23;
    DateTimePatternItemSet items;
    for (const Token& token : tokens) {
        const auto item = makeItem(token, hourVariant);
        if (item)
            items.insert(*item);
        else if (!isSilent(token.kind))
            return {};
    }
    return items;
}

} // namespace QV::DOM::CellFormatModel
