#pragma once

/// @file
/// Numbers laid out over the digits of a section.

#include <cstddef>
#include <string>

#include <DOM/Public/CellFormatModel.h>

namespace QV::OfficeUtils {

class Decimal;

/// A piece of a section.
struct TokenRange
{
    const DOM::CellFormatModel::Token* first;
    const DOM::CellFormatModel::Token* last;

    const DOM::CellFormatModel::Token* begin() const { return first; }
    const DOM::CellFormatModel::Token* end() const { return last; }
};

/// All tokens of a section.
TokenRange getTokens(const DOM::CellFormatModel::Rule& rule);

/// Shows a token that has nothing to do with the value: texts, gaps, currency symbols.
void appendPlain(const DOM::CellFormatModel::Token& token, std::string& text);

/// Shows a number, already rounded, over the digits between other tokens. The first digit of the whole part
/// takes all digits that have no place.
void appendNumber(const Decimal& number, TokenRange tokens, std::string& text);

/// How a section of digits changes a number before it is shown, and what it is rounded to.
struct NumberShape
{
    int wholeDigits = 0;
    int decimals = 0;
    int shift = 0; ///< places, by "%" and by commas that scale
};

NumberShape getShape(TokenRange tokens);

/// What a section shows of a number without its sign.
struct Magnitude
{
    std::string text;
    bool isZero; ///< as it is shown, rounded; also where no digit is
};

/// Shows the magnitude of a number in a section for decimals, or with an exponent.
Magnitude formatDecimal(double number, const DOM::CellFormatModel::Rule& rule);
Magnitude formatScientific(double number, const DOM::CellFormatModel::Rule& rule);

} // namespace QV::OfficeUtils
