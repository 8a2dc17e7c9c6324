#pragma once

/// @file
/// Base64 text -> bytes.

#include <string>

#include <boost/utility/string_ref.hpp>

#include <Utils/Public/Export.h>

namespace QV {

/// The bytes that @p text encodes (RFC 4648, section 4).
///
///     TEXT ::= (C C C C)* (C C "=" "=" | C C C "=")?        C ::= one of A-Z a-z 0-9 + /
///
/// Strict: padding is required, blanks and line ends are refused, and the bits that padding leaves over are
/// zero, so that each byte string has exactly one text. The empty text has no bytes.
///
/// Throws std::invalid_argument for any other text.
UTILS_API std::string base64Decode(boost::string_ref text);

/// The text that base64Decode takes back to @p bytes.
UTILS_API std::string base64Encode(boost::string_ref bytes);

} // namespace QV
