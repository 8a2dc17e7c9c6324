#pragma once

/// @file
/// Small texts of outside formats: key-value lists, pictures as data URIs, hyperlinks, names.

#include <string>

#include <boost/container/map.hpp>
#include <boost/utility/string_ref.hpp>

#include <FilterUtils/FU_Export.h>

namespace QV {
class OperationReport;
}
namespace QV::DOM {
class Hyperlink;
}

namespace QV::FilterUtils {

/// Takes a list of pairs apart, such as an inline style.
///
///     TEXT ::= PIECE (SEPARATOR+ PIECE)*      SEPARATOR ::= one character of pairSeparators
///     PIECE ::= KEY delimiter VALUE
///
///     parseKeyValueString("a=1;;b=2", ";", "=");    // a: "1", b: "2"
///     parseKeyValueString("a:1; b:2", ";", ":");    // a: "1", " b": "2"
///     parseKeyValueString("k:=v", ";", ":=");       // k: "=v"
///
/// The first delimiter of a piece counts; the value begins one character after the delimiter's begin, however
/// long the delimiter is. A piece without a delimiter, or whose delimiter begins with its last character, is
/// skipped; the key may be empty. Of pairs with the same key, the first one stays. Blanks are kept.
///
/// @return in byte order of the keys
FILTERUTILS_API boost::container::map<std::string, std::string> parseKeyValueString(
    const std::string& text, const std::string& pairSeparators, const std::string& delimiter);

/// The bytes of a picture in a data URI (RFC 2397).
///
///     URI ::= "data:" TYPE ";" BASE64 "," DATA     TYPE   ::= "image/" and at least one character, none ";"
///                                                  BASE64 ::= "base64" in any case
///
/// @param mimeType receives TYPE where the text before DATA is as above and DATA is not empty, even where
///     DATA cannot be decoded; is left alone otherwise
/// @return empty for any other text, and where base64Decode refuses DATA
///
/// Never throws over a bad text.
FILTERUTILS_API std::string getRawImageData(boost::string_ref uri, std::string& mimeType);

/// The link as one text: its URL, and its anchor after "#" where it has one.
FILTERUTILS_API std::string joinHyperlink(const DOM::Hyperlink& link);

/// What documents say about the application that wrote them: "Quillbox-NAME-Linux/VERSION". VERSION is the
/// whole version of a release, and only the major number of any other build.
FILTERUTILS_API std::string getApplicationFullNameAndVersion(const std::string& name);

/// A name that a table may have: @p name itself where DOM::validateTableName accepts it; else what
/// DOM::fixTableNameIfNeed makes of it, after adding the message
/// "Table name '{}' is invalid. Fixed table name is '{}'." with both.
FILTERUTILS_API std::string fixTableNameIfNeed(OperationReport& report, std::string name);

} // namespace QV::FilterUtils
