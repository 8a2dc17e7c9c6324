#pragma once

/// @file
/// Column letters of A1 references.

#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <Formulas/Public/Export.h>

namespace QV::Formulas::Utils {

/// The letters of a zero-based column: 0 is "A", 25 is "Z", 26 is "AA", 16383 is "XFD".
FORMULAS_API std::string convertIndexToAlphaIndex(unsigned long column);

/// The zero-based column of letters of either case: the inverse of convertIndexToAlphaIndex.
/// @return nothing for the empty text, for anything but letters, and for a number that is too large
FORMULAS_API boost::optional<unsigned long> convertAlphaIndexToIndex(boost::string_ref letters);

} // namespace QV::Formulas::Utils
