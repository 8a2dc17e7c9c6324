#pragma once

/// @file
/// Numbers of outside formats as text, independent of every locale.

#include <string>

#include <boost/optional.hpp>

#include <OfficeUtils/Public/Export.h>

namespace QV::OfficeUtils {

/// Reads a decimal number.
///
///     NUMBER   ::= SIGN? (DIGITS ("." DIGITS?)? | "." DIGITS) (("e" | "E") SIGN? DIGITS)?
///     SIGN     ::= "+" | "-"
///
/// The whole text must match: no blanks, no hexadecimal, no "inf" or "nan".
///
/// @return the nearest double; an infinity where the value is too large, a zero where it is too small;
///     nothing where the text does not match
OFFICEUTILS_API boost::optional<double> stringToDouble(const std::string& text);

} // namespace QV::OfficeUtils
