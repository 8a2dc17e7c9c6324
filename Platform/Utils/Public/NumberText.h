#pragma once

/// @file
/// Whole numbers as text, independent of every locale.

#include <cstddef>
#include <string>

#include <boost/optional.hpp>

#include <Utils/Public/Export.h>

namespace QV {

/// Reads the number that @p text begins with, as std::stoul does in the "C" locale, without exceptions.
///
///     TEXT   ::= BLANK* ("+" | "-")? PREFIX? DIGIT+ anything
///     BLANK  ::= " " | "\t" | "\n" | "\v" | "\f" | "\r"
///     PREFIX ::= "0x" | "0X"       in base 16 or 0, and only where a hexadecimal digit follows
///
/// A number after "-" is negated in unsigned arithmetic: "-1" is the largest value.
///
///     std::size_t end = 0;
///     strToUlong("ff8000", &end, 16);  // 0xff8000, end is 6
///     strToUlong("12pt", &end, 10);    // 12, end is 2
///
/// @param position receives the count of characters read, blanks and sign included; may be null; keeps its
///     value where nothing is returned
/// @param base 2 to 36, or 0: the text's prefix decides between 16 ("0x"), 8 ("0") and 10
/// @return nothing where the text begins with no number, where the number is too large, and for any other
/// base
UTILS_API boost::optional<unsigned long> strToUlong(
    const std::string& text, std::size_t* position = nullptr, int base = 10);

} // namespace QV
