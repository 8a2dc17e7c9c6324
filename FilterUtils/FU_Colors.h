#pragma once

/// @file
/// Colours: hexadecimal and functional text of outside formats <-> bytes of the document model.

#include <string>

#include <boost/optional.hpp>

#include <FilterUtils/FU_Export.h>
#include <cinder/Color.h>

namespace QV {
class OperationReport;
}

namespace QV::FilterUtils {

/// Reads a colour with its opacity.
///
///     COLOUR     ::= "#"? HEX | FUNCTIONAL
///     HEX        ::= what std::stoul reads in base 16: blanks, a sign and "0x" may precede the digits
///     FUNCTIONAL ::= ("rgb" | "rgba") anything "(" CHANNELS ")" anything
///     CHANNELS   ::= RED "," GREEN "," BLUE ("," ALPHA ("," anything)?)?    empty items do not count
///     RED, GREEN, BLUE ::= ("+" | "-")? [0-9]+       a 64-bit number, of which the low 8 bits count
///     ALPHA      ::= a decimal number, or ("+" | "-")? "nan" | "inf" | "infinity" in any letter case
///
/// HEX is RRGGBB, or RRGGBBAA where it has seven characters or more; "FFF" is 000FFF. No blanks in CHANNELS.
/// ALPHA counts for "rgba" only: the low 8 bits of 255 times the number, towards zero; infinities are 255
/// and, below zero, 0; NaN is 0. Without it the colour is opaque. Colours have no names.
///
///     convertToRGBAColor(report, "#FF000080");              // 255, 0, 0, 128
///     convertToRGBAColor(report, "rgba(300,0,0,0.5)");      // 44, 0, 0, 127
///
/// @param reportErrors whether a message is added at all
/// @return nothing where the text is no colour; after adding the message "Incorrect color value: {0}" with
///     @p text where hexadecimal digits are followed by other characters, and silently otherwise
///
/// Bad text never throws.
FILTERUTILS_API boost::optional<cinder::ColorAT<unsigned char>> convertToRGBAColor(
    OperationReport& report, const std::string& text, bool reportErrors);

/// The same, with messages.
FILTERUTILS_API boost::optional<cinder::ColorAT<unsigned char>> convertToRGBAColor(
    OperationReport& report, const std::string& text);

/// Reads an opaque colour RRGGBB, as strToUlong() reads a number in base 16; higher digits are ignored. No
/// "#".
///
/// @return nothing, after adding the message "Incorrect color: {0}" with @p text, where the text is not
///     wholly hexadecimal
///
/// Throws BadNumCastError for a number above 4294967295.
FILTERUTILS_API boost::optional<cinder::ColorAT<unsigned char>> convertToRGBColor(
    OperationReport& report, const std::string& text);

/// Writes RRGGBB in upper case; the opacity is lost: red 10, green 11, blue 255 is "0A0BFF".
FILTERUTILS_API std::string convertRGBColor(const cinder::ColorAT<unsigned char>& color);

} // namespace QV::FilterUtils
