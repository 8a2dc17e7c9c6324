#include <OfficeUtils/FormatCodes/SectionRule.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;
using Kind = TokenKind;
using Tokens = std::vector<Token>;

constexpr std::size_t SecondDigitsMax = 9;
constexpr std::size_t DenominatorDigitsMax = 9;

bool isDateTime(Kind kind)
{
    return Kind::Weekday <= kind && kind <= Kind::Calendar;
}

bool has(const Tokens& tokens, Kind kind)
{
    return std::any_of(tokens.begin(), tokens.end(), [kind](const Token& t) { return t.kind == kind; });
}

bool isAt(const Tokens& tokens, std::size_t index, Kind kind)
{
    return index < tokens.size() && tokens[index].kind == kind;
}

/// Signs that other tokens give a meaning stand for themselves beside these.
bool takeSignsAsText(Tokens& tokens)
{
    for (Token& token : tokens)
        switch (token.kind) {
        case Kind::GroupComma:
        case Kind::FractionBar:
        case Kind::DecimalPoint:
        case Kind::Denominator:
            token.kind = Kind::Literal;
            break;
        case Kind::Digit:
        case Kind::Percent:
        case Kind::Exponent:
            return false;
        default:
            break;
        }
    return true;
}

/// "." and zeros after seconds become one token.
bool joinSecondFractions(Tokens& tokens)
{
    Tokens joined;
    joined.reserve(tokens.size());
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool isAfterSeconds = !joined.empty() && (joined.back().kind == Kind::Second ||
                                                           joined.back().kind == Kind::ElapsedSeconds);
        if (!isAfterSeconds || tokens[i].kind != Kind::DecimalPoint || !isAt(tokens, i + 1, Kind::Digit)) {
            joined.push_back(std::move(tokens[i]));
            continue;
        }
        Token fraction{Kind::SecondFraction, "."};
        for (; isAt(tokens, i + 1, Kind::Digit) && tokens[i + 1].text == "0"; ++i)
            fraction.text += '0';
        if (fraction.text.size() < 2 || fraction.text.size() > SecondDigitsMax + 1)
            return false;
        joined.push_back(std::move(fraction));
    }
    tokens = std::move(joined);
    return true;
}

/// "m" and "mm" are minutes after hours and before seconds, whatever stands between that is no date.
void findMinutes(Tokens& tokens)
{
    Token* undecided = nullptr; // a month, unless seconds follow
    Kind last = Kind::Literal;
    for (Token& token : tokens) {
        if (!isDateTime(token.kind) || token.kind == Kind::DayPart || token.kind == Kind::Calendar)
            continue;
        if (undecided && (token.kind == Kind::Second || token.kind == Kind::ElapsedSeconds))
            undecided->kind = Kind::Minute;
        undecided = nullptr;
        if (token.kind == Kind::Month && token.text.size() <= 2) {
            if (last == Kind::Hour || last == Kind::ElapsedHours)
                token.kind = Kind::Minute;
            else
                undecided = &token;
        }
        last = token.kind;
    }
}

bool resolveDateTime(Tokens& tokens)
{
    if (!joinSecondFractions(tokens) || !takeSignsAsText(tokens))
        return false;
    findMinutes(tokens);
    return true;
}

/// Which part of a number a token stands in.
enum class Part
{
    Whole,
    Fraction, // after the decimal point
    Exponent,
};

/// Finds out about the commas of a section, from its end: those with digits after them in their part group,
/// others scale if they follow digits, and else stand for themselves.
void resolveCommas(Tokens& tokens)
{
    bool areDigitsAfter = false;
    for (std::size_t i = tokens.size(); i-- > 0;) {
        const Kind kind = tokens[i].kind;
        if (kind == Kind::Digit)
            areDigitsAfter = true;
        else if (kind == Kind::DecimalPoint || kind == Kind::Exponent)
            areDigitsAfter = false;
        else if (kind == Kind::GroupComma && !areDigitsAfter)
            tokens[i].kind = Kind::ScaleComma;
    }
    bool isAfterDigit = false;
    bool isInExponent = false;
    for (Token& token : tokens) {
        const bool isComma = token.kind == Kind::GroupComma || token.kind == Kind::ScaleComma;
        if (isComma && (!isAfterDigit || isInExponent)) {
            token.kind = Kind::Literal;
            isAfterDigit = false;
        } else if (!isComma) {
            isAfterDigit = token.kind == Kind::Digit || token.kind == Kind::DecimalPoint;
            isInExponent = isInExponent || token.kind == Kind::Exponent;
        }
    }
}

/// A bar between digits makes a fraction; other bars, and numbers that are no denominators, are text.
bool resolveFraction(Tokens& tokens, bool& isFraction)
{
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].kind == Kind::FractionBar) {
            const bool isBetween =
                i > 0 && tokens[i - 1].kind == Kind::Digit &&
                (isAt(tokens, i + 1, Kind::Digit) || isAt(tokens, i + 1, Kind::Denominator));
            if (isBetween && isFraction)
                return false;
            isFraction = isFraction || isBetween;
            if (!isBetween)
                tokens[i].kind = Kind::Literal;
        } else if (tokens[i].kind == Kind::Denominator &&
                   (i == 0 || tokens[i - 1].kind != Kind::FractionBar)) {
            if (i > 0 && (tokens[i - 1].kind == Kind::Digit || tokens[i - 1].kind == Kind::Denominator))
                return false; // digits that are placeholders and digits that are shown, side by side
            tokens[i].kind = Kind::Literal;
        } else if (tokens[i].kind == Kind::Denominator) {
            if (tokens[i].text.size() > DenominatorDigitsMax || isAt(tokens, i + 1, Kind::Digit))
                return false;
        }
    }
    return true;
}

/// One decimal point, one exponent with digits after it and a number before it, and neither in a fraction.
bool isNumberWhole(const Tokens& tokens, bool isFraction)
{
    Part part = Part::Whole;
    bool hasDigits = false;
    for (const Token& token : tokens) {
        if (token.kind == Kind::DecimalPoint) {
            if (part != Part::Whole || isFraction)
                return false;
            part = Part::Fraction;
        } else if (token.kind == Kind::Exponent) {
            if (part == Part::Exponent || isFraction)
                return false;
            part = Part::Exponent;
            hasDigits = false;
        } else if (token.kind == Kind::Digit) {
            hasDigits = true;
        }
    }
    return part != Part::Exponent || hasDigits;
}

/// Points that follow the last digit of a number that has one already are text, as in "#.##.".
void takeLastPointsAsText(Tokens& tokens)
{
    const auto isPoint = [](const Token& token) { return token.kind == Kind::DecimalPoint; };
    const auto isDigit = [](const Token& token) { return token.kind == Kind::Digit; };
    const auto first = std::find_if(tokens.begin(), tokens.end(), isPoint);
    const auto last = std::find_if(tokens.rbegin(), tokens.rend(), isDigit).base();
    for (auto token = last; token != tokens.end(); ++token)
        if (token > first && isPoint(*token))
            token->kind = Kind::Literal;
}

bool resolveNumber(Tokens& tokens, Rule& rule)
{
    if (!has(tokens, Kind::Digit)) { // a number that shows no digits
        if (has(tokens, Kind::Exponent))
            return false;
        for (Token& token : tokens)
            if (token.kind == Kind::DecimalPoint)
                token.kind = Kind::Literal;
    }
    takeLastPointsAsText(tokens);
    bool isFraction = false;
    if (!resolveFraction(tokens, isFraction) || !isNumberWhole(tokens, isFraction))
        return false;
    resolveCommas(tokens);
    rule.setKind(isFraction                    ? Rule::Kind::Fraction
                 : has(tokens, Kind::Exponent) ? Rule::Kind::Scientific
                                               : Rule::Kind::Number);
    return true;
}

bool resolve(Tokens& tokens, Rule& rule)
{
    const auto count = [&tokens](Kind kind) {
        return std::count_if(tokens.begin(), tokens.end(), [kind](const Token& t) { return t.kind == kind; });
    };
    const bool isDate =
        std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return isDateTime(t.kind); });
    const bool isText = has(tokens, Kind::TextPlaceholder);
    const bool isGeneral = has(tokens, Kind::General);
    if (isDate + isText + isGeneral > 1 || count(Kind::General) > 1)
        return false;
    if (isDate) {
        rule.setKind(Rule::Kind::DateTime);
        return resolveDateTime(tokens);
    }
    if (isText || isGeneral) {
        rule.setKind(isText ? Rule::Kind::Text : Rule::Kind::General);
        return takeSignsAsText(tokens);
    }
    return resolveNumber(tokens, rule);
}

Tokens joinLiterals(Tokens tokens)
{
    Tokens joined;
    joined.reserve(tokens.size());
    for (Token& token : tokens) {
        if (token.kind == Kind::Literal && !joined.empty() && joined.back().kind == Kind::Literal)
            joined.back().text += token.text;
        else
            joined.push_back(std::move(token));
    }
    return joined;
}

} // namespace

boost::optional<Rule> makeRule(ScannedSection section)
{
    Rule rule;
    if (!resolve(section.tokens, rule))
        return boost::none;
    rule.setTokens(joinLiterals(std::move(section.tokens)));
    rule.setCondition(section.condition);
    rule.setColorNumber(section.colorNumber);
    rule.setLanguage(section.language);
    return rule;
}

} // namespace QV::OfficeUtils
