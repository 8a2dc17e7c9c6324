#pragma once

#include <cstdint>
#include <string>

#include <boost/optional.hpp>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The character that a symbol font shows for a code, in UTF-8.
///
///     mapSymbol("Symbol", 0xF061);     // the Greek alpha
///     mapSymbol("Wingdings", 0xFC);    // a check mark
///     mapSymbol("Arial", 0x41);        // "A"
///
/// @param font in any case of ASCII letters: "Symbol", "Wingdings" and "Wingdings 2" are known
/// @param code 0x20 to 0xFF, or as files mostly have it, 0xF000 more
/// @return for other fonts, and for codes that are not known, the character of the code itself; empty where
///     the code is none of Unicode
FILTERS_API std::string mapSymbol(const std::string& font, std::uint32_t code);

/// @p text with each character mapped. Nothing where one of the private use area is left.
/// @param text UTF-8; bytes that are none stay as they are
FILTERS_API boost::optional<std::string> mapSymbols(const std::string& font, const std::string& text);

} // namespace QV::Filters
