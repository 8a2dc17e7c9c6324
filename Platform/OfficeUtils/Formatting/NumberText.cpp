#include <OfficeUtils/Formatting/NumberText.h>

#include <algorithm>
#include <cmath>

#include <OfficeUtils/Formatting/Decimal.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;

constexpr std::size_t GroupSize = 3;

/// Shows one number over the digits of a range.
class NumberWriter
{
public:
    NumberWriter(const Decimal& number, TokenRange tokens, std::string& text)
        : _whole(number.getWhole())
        , _fraction(number.getFraction())
        , _text(text)
    {
        for (const Token& token : tokens) {
            if (token.kind == TokenKind::DecimalPoint)
                break;
            _wholePlaces += token.kind == TokenKind::Digit;
            _isGrouped = _isGrouped || token.kind == TokenKind::GroupComma;
        }
    }

    void write(const Token& token)
    {
        switch (token.kind) {
        case TokenKind::Digit:
            if (_isInFraction)
                writeDecimal(token.text.front());
            else
                writeWhole(token.text.front());
            return;
        case TokenKind::DecimalPoint:
            if (_wholePlaces == 0)
                _text += _whole; // which has no place
            _isInFraction = true;
            _text += '.';
            return;
        case TokenKind::GroupComma:
        case TokenKind::ScaleComma:
            return;
        default:
            appendPlain(token, _text);
        }
    }

private:
    void writeWhole(char placeholder)
    {
        const std::size_t place = _wholePlaces - 1 - _placesPassed;
        if (_placesPassed == 0)
            for (std::size_t i = _whole.size(); i > _wholePlaces; --i)
                writeDigit(_whole[_whole.size() - i], i - 1);
        ++_placesPassed;
        if (place < _whole.size())
            writeDigit(_whole[_whole.size() - 1 - place], place);
        else if (placeholder == '0')
            writeDigit('0', place);
        else if (placeholder == '?')
            _text += isBeforeComma(place) ? "  " : " ";
    }

    void writeDigit(char digit, std::size_t place)
    {
        _text += digit;
        if (isBeforeComma(place))
            _text += ',';
    }

    bool isBeforeComma(std::size_t place) const { return _isGrouped && place > 0 && place % GroupSize == 0; }

    void writeDecimal(char placeholder)
    {
        if (_decimalsPassed < _fraction.size())
            _text += _fraction[_decimalsPassed];
        else if (placeholder == '0')
            _text += '0';
        else if (placeholder == '?')
            _text += ' ';
        ++_decimalsPassed;
    }

    std::string _whole;
    std::string _fraction;
    std::string& _text;
    std::size_t _wholePlaces = 0;
    bool _isGrouped = false;
    bool _isInFraction = false;
    std::size_t _placesPassed = 0;
    std::size_t _decimalsPassed = 0;
};

int floorToMultiple(int number, int step)
{
    const int rest = number % step;
    return number - (rest < 0 ? rest + step : rest);
}

} // namespace

TokenRange getTokens(const Rule& rule)
{
    const Token* const first = rule.getTokens().data();
    return {first, first + rule.getTokens().size()};
}

void appendPlain(const Token& token, std::string& text)
{
    switch (token.kind) {
    case TokenKind::Literal:
    case TokenKind::Percent:
        text += token.text;
        break;
    case TokenKind::Skip:
        text += ' ';
        break;
    case TokenKind::Mark: { // "[$", the symbol, "-" and the locale, "]"
        const std::size_t end = std::min(token.text.find('-'), token.text.size() - 1);
        text.append(token.text, 2, end - 2);
        break;
    }
    default:
        break;
    }
}

void appendNumber(const Decimal& number, TokenRange tokens, std::string& text)
{
    NumberWriter writer(number, tokens, text);
    for (const Token& token : tokens)
        writer.write(token);
}

NumberShape getShape(TokenRange tokens)
{
    NumberShape shape;
    bool isInFraction = false;
    for (const Token& token : tokens)
        switch (token.kind) {
        case TokenKind::Digit:
            ++(isInFraction ? shape.decimals : shape.wholeDigits);
            break;
        case TokenKind::DecimalPoint:
            isInFraction = true;
            break;
        case TokenKind::Percent:
            shape.shift += 2;
            break;
        case TokenKind::ScaleComma:
            shape.shift -= 3;
            break;
        default:
            break;
        }
    return shape;
}

Magnitude formatDecimal(double number, const Rule& rule)
{
    const TokenRange tokens = getTokens(rule);
    const NumberShape shape = getShape(tokens);
    Decimal decimal(number);
    decimal.shift(shape.shift);
    decimal.round(shape.decimals);
    Magnitude shown = {std::string(), decimal.isZero() || shape.wholeDigits + shape.decimals == 0};
    appendNumber(decimal, tokens, shown.text);
    return shown;
}

Magnitude formatScientific(double number, const Rule& rule)
{
    const TokenRange tokens = getTokens(rule);
    const Token* const mark = std::find_if(
        tokens.begin(), tokens.end(), [](const Token& token) { return token.kind == TokenKind::Exponent; });
    if (mark == tokens.end())
        return formatDecimal(number, rule);
    const TokenRange mantissa = {tokens.begin(), mark};
    const NumberShape shape = getShape(mantissa);
    Decimal decimal(number);
    decimal.shift(shape.shift);

    // The exponent is a multiple of the digits before the point; rounding may make it the next one.
    int exponent = 0;
    for (int pass = 0; pass < 2; ++pass) {
        const int first = decimal.getExponent();
        exponent = decimal.isZero()        ? 0
                   : shape.wholeDigits > 0 ? floorToMultiple(first, shape.wholeDigits)
                                           : first + 1;
        decimal.round(shape.decimals - exponent);
    }
    decimal.shift(-exponent);

    Magnitude shown = {std::string(), decimal.isZero()};
    std::string& text = shown.text;
    appendNumber(decimal, mantissa, text);
    text += mark->text.front();
    if (exponent < 0)
        text += '-';
    else if (mark->text.back() == '+')
        text += '+';
    appendNumber(Decimal(exponent), {mark + 1, tokens.end()}, text);
    return shown;
}

} // namespace QV::OfficeUtils
