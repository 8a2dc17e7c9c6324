#include <OfficeUtils/Public/CellFormatter.h>

#include <cmath>
#include <utility>
#include <vector>

#include <OfficeUtils/FormatCodes/ColorNames.h>
#include <OfficeUtils/Formatting/DateTimeText.h>
#include <OfficeUtils/Formatting/FractionText.h>
#include <OfficeUtils/Formatting/NumberText.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;

constexpr const char* NoSuchDate = "########";

bool holds(const Condition& condition, double number)
{
    switch (condition.comparison) {
    case Condition::Operator::Less:
        return number < condition.limit;
    case Condition::Operator::LessOrEqual:
        return number <= condition.limit;
    case Condition::Operator::Equal:
        return number == condition.limit;
    case Condition::Operator::NotEqual:
        return number != condition.limit;
    case Condition::Operator::GreaterOrEqual:
        return number >= condition.limit;
    case Condition::Operator::Greater:
        return number > condition.limit;
    }
    return false;
}

bool isForNegativeAlone(const Condition& condition)
{
    switch (condition.comparison) {
    case Condition::Operator::Less:
    case Condition::Operator::LessOrEqual:
        return condition.limit <= 0;
    case Condition::Operator::Equal:
        return condition.limit < 0;
    default:
        return false;
    }
}

bool isForAllButNegative(const Condition& condition)
{
    switch (condition.comparison) {
    case Condition::Operator::GreaterOrEqual:
        return condition.limit <= 0;
    case Condition::Operator::Greater:
        return condition.limit < 0;
    default:
        return false;
    }
}

Magnitude formatMagnitude(double number, const Rule& rule)
{
    switch (rule.getKind()) {
    case Rule::Kind::Scientific:
        return formatScientific(number, rule);
    case Rule::Kind::Fraction:
        return formatFraction(number, rule);
    case Rule::Kind::General: {
        std::string text;
        for (const Token& token : rule.getTokens())
            if (token.kind == TokenKind::General)
                text += formatGeneral(std::fabs(number));
            else
                appendPlain(token, text);
        return {text, number == 0};
    }
    default:
        return formatDecimal(number, rule);
    }
}

boost::optional<DOM::Color> getColor(const Rule& rule)
{
    if (!rule.getColorNumber())
        return boost::none;
    return getPaletteColor(*rule.getColorNumber());
}

} // namespace

struct CellFormatter::Sections
{
    /// A section for numbers, ready for use.
    struct Section
    {
        Rule rule;
        std::shared_ptr<const DateNames> names;
        bool hidesSign;
    };

    std::vector<Section> conditional;
    boost::optional<Section> number;
    boost::optional<Rule> text;
    DOM::DateSystem system;

    const Section* find(double value) const
    {
        for (const Section& section : conditional)
            if (holds(*section.rule.getCondition(), value))
                return &section;
        return number.get_ptr();
    }
};

CellFormatter::CellFormatter(const Expression& expression, DOM::DateSystem system)
{
    auto sections = std::make_unique<Sections>();
    sections->system = system;
    sections->text = expression.getDefaultTextRule();
    bool isRestNegative = false; // what the sections up to here leave
    for (const Rule& rule : expression.getRules()) {
        if (!rule.getCondition())
            continue;
        const bool hidesSign = isRestNegative || isForNegativeAlone(*rule.getCondition());
        sections->conditional.push_back({rule, findDateNames(rule), hidesSign});
        isRestNegative = isRestNegative || isForAllButNegative(*rule.getCondition());
    }
    if (expression.getDefaultNumberRule())
        sections->number = Sections::Section{*expression.getDefaultNumberRule(),
            findDateNames(*expression.getDefaultNumberRule()), isRestNegative};
    _sections = std::move(sections);
}

CellFormatter::~CellFormatter() = default;
CellFormatter::CellFormatter(CellFormatter&& other) noexcept = default;
CellFormatter& CellFormatter::operator=(CellFormatter&& other) noexcept = default;

DisplayedValue CellFormatter::formatNumber(double number) const
{
    if (!std::isfinite(number))
        return {formatGeneral(number), boost::none};
    const Sections::Section* const section = _sections->find(number);
    if (!section) {
        const bool isText = _sections->conditional.empty() && _sections->text;
        return {formatGeneral(number), isText ? getColor(*_sections->text) : boost::none};
    }
    const Rule& rule = section->rule;
    const double signedNumber = section->hidesSign ? std::fabs(number) : number;
    if (rule.getKind() == Rule::Kind::DateTime) {
        auto text = formatDateTime(signedNumber, rule, _sections->system, *section->names);
        return {text ? std::move(*text) : NoSuchDate, getColor(rule)};
    }
    const Magnitude magnitude = formatMagnitude(number, rule);
    const bool hasSign = signedNumber < 0 && !magnitude.isZero;
    return {hasSign ? '-' + magnitude.text : magnitude.text, getColor(rule)};
}

DisplayedValue CellFormatter::formatText(boost::string_ref text) const
{
    const std::string plain(text.begin(), text.end());
    if (!_sections->text)
        return {plain, boost::none};
    DisplayedValue displayed = {std::string(), getColor(*_sections->text)};
    for (const Token& token : _sections->text->getTokens())
        if (token.kind == TokenKind::TextPlaceholder || token.kind == TokenKind::General)
            displayed.text += plain;
        else
            appendPlain(token, displayed.text);
    return displayed;
}

} // namespace QV::OfficeUtils
