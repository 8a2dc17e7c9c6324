#pragma once

/// @file
/// UTF-16 of the XML parser <-> UTF-8 of everybody else. Private to the library.

#include <string>
#include <string_view>
#include <type_traits>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>
#include <xercesc/util/XercesDefs.hpp>

namespace QV::FilterUtils {

static_assert(std::is_same_v<XMLCh, char16_t>, "the parser's text is looked at through std::u16string_view");

/// What a null pointer and an empty text have in common.
inline std::u16string_view view(const XMLCh* text)
{
    return text ? std::u16string_view(text) : std::u16string_view();
}

/// Appends @p text as UTF-8; an unpaired surrogate becomes U+FFFD.
void appendUtf8(std::string& result, std::u16string_view text);

inline std::string toUtf8(const XMLCh* text)
{
    std::string result;
    appendUtf8(result, view(text));
    return result;
}

/// Writes the text as UTF-16, at most one unit for each byte, and returns the end of what was written; or
/// null, where it is not UTF-8 (surrogates and overlong forms are not).
char16_t* writeUtf16(char16_t* result, boost::string_ref text);

/// The text as UTF-16; or nothing, where it is not UTF-8.
boost::optional<std::u16string> convertUtf8ToUtf16(boost::string_ref text);

} // namespace QV::FilterUtils
