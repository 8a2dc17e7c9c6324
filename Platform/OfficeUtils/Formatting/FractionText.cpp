#include <OfficeUtils/Formatting/FractionText.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include <OfficeUtils/Formatting/Decimal.h>
#include <OfficeUtils/Public/NumberParsing.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;

constexpr int DenominatorDigitsMax = 9;

/// The parts of a section: what stands before the numerator, and the digits around the bar.
struct FractionParts
{
    TokenRange whole;
    TokenRange numerator;
    TokenRange denominator;
    TokenRange rest;
    bool hasWhole;
};

bool isDigit(const Token& token)
{
    return token.kind == TokenKind::Digit;
}

FractionParts findParts(const Rule& rule)
{
    const TokenRange all = getTokens(rule);
    const Token* const bar = std::find_if(
        all.begin(), all.end(), [](const Token& token) { return token.kind == TokenKind::FractionBar; });
    const Token* numerator = bar;
    while (numerator != all.begin() && isDigit(numerator[-1]))
        --numerator;
    const Token* const denominator = bar == all.end() ? bar : bar + 1;
    const Token* end = std::find_if_not(denominator, all.end(), isDigit);
    if (end == denominator && end != all.end() && end->kind == TokenKind::Denominator)
        ++end;
    const bool hasWhole = std::any_of(all.begin(), numerator, isDigit);
    return {
        {all.begin(), numerator},
        {numerator,   bar      },
        {denominator, end      },
        {end,         all.end()},
        hasWhole
    };
}

/// The fixed denominator of a section; 0 where it has placeholders.
double getFixedDenominator(const FractionParts& parts)
{
    const bool isFixed =
        parts.denominator.begin() != parts.denominator.end() && !isDigit(*parts.denominator.begin());
    return isFixed ? stringToDouble(parts.denominator.begin()->text).value_or(1) : 0;
}

Fraction findFraction(double number, const FractionParts& parts)
{
    const double fixed = getFixedDenominator(parts);
    if (fixed > 0)
        return {std::floor(number * fixed + 0.5), fixed};
    const auto places = static_cast<int>(parts.denominator.end() - parts.denominator.begin());
    return findNearestFraction(number, std::pow(10.0, std::min(places, DenominatorDigitsMax)) - 1);
}

/// A zero is seen, whatever its place is for.
std::string formatNumerator(double numerator, TokenRange places)
{
    std::string text;
    appendNumber(Decimal(numerator), places, text);
    if (text.empty())
        text = "0";
    else if (text.back() == ' ')
        text.back() = '0';
    return text;
}

/// Digits from the left, with blanks where the rest of the places are for blanks.
std::string formatDenominator(double denominator, TokenRange places)
{
    if (!isDigit(*places.begin()))
        return places.begin()->text;
    std::string text = Decimal(denominator).getWhole();
    const auto width = static_cast<std::size_t>(places.end() - places.begin());
    if (places.begin()->text == "0" && text.size() < width)
        text.insert(0, width - text.size(), '0');
    else if (places.begin()->text == "?" && text.size() < width)
        text.append(width - text.size(), ' ');
    return text;
}

} // namespace

Fraction findNearestFraction(double number, double denominatorMax)
{
    // Continued fractions, and a last step that goes as far as the limit lets it.
    Fraction before = {1, 0};
    Fraction best = {0, 1};
    double rest = number;
    while (rest > 0) {
        const double inverse = 1 / rest;
        double quotient = std::floor(inverse);
        if (quotient * best.denominator + before.denominator > denominatorMax) {
            quotient = std::floor((denominatorMax - before.denominator) / best.denominator);
            const Fraction last = {quotient * best.numerator + before.numerator,
                quotient * best.denominator + before.denominator};
            const bool isNearer =
                last.denominator > 0 && std::fabs(last.numerator / last.denominator - number) <
                                            std::fabs(best.numerator / best.denominator - number);
            return isNearer ? last : best;
        }
        const Fraction next = {
            quotient * best.numerator + before.numerator, quotient * best.denominator + before.denominator};
        before = best;
        best = next;
        rest = inverse - quotient;
        if (best.numerator / best.denominator == number)
            break;
    }
    return best;
}

Magnitude formatFraction(double number, const Rule& rule)
{
    const FractionParts parts = findParts(rule);
    if (parts.denominator.begin() == parts.denominator.end())
        return formatDecimal(number, rule);
    const NumberShape shape = getShape(getTokens(rule));
    const double magnitude = std::fabs(number) * std::pow(10.0, shape.shift);
    double whole = std::floor(magnitude);
    Fraction fraction = findFraction(magnitude - whole, parts);
    if (fraction.numerator == fraction.denominator) {
        ++whole;
        fraction.numerator = 0;
    }
    if (!parts.hasWhole)
        fraction.numerator += whole * fraction.denominator;
    if (!std::isfinite(magnitude) || !std::isfinite(fraction.numerator)) // so great has it no fraction
        return formatDecimal(number, rule);

    const bool isWhole = parts.hasWhole && fraction.numerator == 0;
    const bool isZero = fraction.numerator == 0 && (!parts.hasWhole || whole == 0);
    std::string text;
    appendNumber(Decimal(parts.hasWhole ? whole : 0), parts.whole, text);
    std::string part = formatNumerator(fraction.numerator, parts.numerator);
    part += '/' + formatDenominator(fraction.denominator, parts.denominator);
    if (isWhole && parts.numerator.begin()->text != "0") {
        if (isZero && text.find('0') == std::string::npos)
            text.insert(0, "0");
        part.assign(part.size(), ' ');
    }
    text += part;
    appendNumber(Decimal(0), parts.rest, text);
    return {text, isZero};
}

} // namespace QV::OfficeUtils
