#pragma once

/// @file
/// Column letters of A1 references.

#include <string>

#include <Formulas/Public/Export.h>

namespace QV::Formulas::Utils {

/// The letters of a zero-based column: 0 is "A", 25 is "Z", 26 is "AA", 16383 is "XFD".
FORMULAS_API std::string convertIndexToAlphaIndex(unsigned long column);

} // namespace QV::Formulas::Utils
