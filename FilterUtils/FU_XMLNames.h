#pragma once

/// @file
/// Which characters an XML name without a colon is made of.

#include <FilterUtils/FU_Export.h>

namespace QV::XMLSchemaPart2Year2004 {

/// Whether an NCName may begin with the character: "_" or a Letter of XML 1.0, Appendix B.
FILTERUTILS_API bool isXMLNCNameStartChar(char32_t character);

/// Whether an NCName may go on with the character: "-", ".", "_", or a Letter, a Digit, a CombiningChar or an
/// Extender of XML 1.0, Appendix B. Never ":".
FILTERUTILS_API bool isXMLNCNameChar(char32_t character);

} // namespace QV::XMLSchemaPart2Year2004
