#pragma once

/// @file
/// Numbers as text: writing them, and telling them from other text.

#include <sstream>
#include <string>
#include <utility>

#include <boost/utility/string_ref.hpp>

#include <FilterUtils/FU_Export.h>

namespace QV {
class FloatNumber;
}

namespace QV::FilterUtils {

/// Writes @p value as a decimal of US English, without grouping and without trailing zeros:
/// `formatDoubleToString(2.375, 2)` is "2.38".
///
/// @param precision the most digits after the point; beyond them the number is rounded half to even
///
/// Throws BadNumCastError for a precision above the range of int.
FILTERUTILS_API std::string formatDoubleToString(double value, unsigned long precision);

/// Whether @p text is a finite number in the one form that a number is written in.
///
///     NUMBER   ::= "-"? ("0" | [1-9] [0-9]*) FRACTION?
///                | "-"? [1-9] FRACTION? ("e" | "E") ("+" | "-") [1-9] [0-9]*
///     FRACTION ::= "." [0-9]* [1-9]
///
/// Of the texts that stand for zero only "0" is one: "-0" is not, nor is a number too small for a double.
FILTERUTILS_API bool isNumberString(const std::string& text);

/// @return the text without its NUL bytes, and whether there were any
FILTERUTILS_API std::pair<std::string, bool> removeZeroSymbol(boost::string_ref text);

/// Writes numbers one after another, independent of every locale: whole ones without a fraction, others with
/// six digits after the point.
///
///     SeparatedClassicStream stream;
///     stream.append(2.0);
///     stream.append(0.5);
///     stream.str();    // "2 0.500000"
///
/// One thread at a time.
class FILTERUTILS_API SeparatedClassicStream
{
public:
    SeparatedClassicStream();

    /// Writes @p number, a float, a double or a FloatNumber, and nothing else.
    ///
    /// A number is whole where it equals its integral part in the document model's fuzzy comparison, which a
    /// number between -1 and 1 does only if it is zero, an infinity always, and NaN never.
    template <typename Number>
    void out(const Number& number);

    /// Writes a blank, except before the first number that is appended, and the number as out() does.
    template <typename Number>
    void append(const Number& number)
    {
        if (!_isFirst)
            _stream << ' ';
        _isFirst = false;
        out(number);
    }

    /// All that was written so far.
    std::string str() const { return _stream.str(); }

private:
    std::stringstream _stream; // fixed notation, and a precision of 0 between any two numbers
    bool _isFirst = true;
};

extern template FILTERUTILS_API void SeparatedClassicStream::out<float>(const float& number);
extern template FILTERUTILS_API void SeparatedClassicStream::out<double>(const double& number);
extern template FILTERUTILS_API void SeparatedClassicStream::out<FloatNumber>(const FloatNumber& number);

} // namespace QV::FilterUtils
