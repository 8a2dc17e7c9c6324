#pragma once

/// @file
/// Markers at the front of names within a shape's geometry, and of types of shapes.
///
///     MODIFIER ::= "$" NAME        FORMULA ::= "?" NAME        PRESET ::= "ooxml-" TYPE
///
/// A text without a marker is plain: a name that is neither, or a type of the document model's own.

#include <string>

#include <boost/utility/string_ref.hpp>

#include <FilterUtils/FU_Export.h>

namespace QV::FilterUtils {

/// Whether @p name begins with "$".
FILTERUTILS_API bool looksLikeModifierReference(boost::string_ref name);

/// "$" and @p name, also where that has a marker: "$adj" becomes "$$adj".
FILTERUTILS_API std::string makeModifierReference(boost::string_ref name);

/// @p name without its first character. Asserts "looksLikeModifierReference(name)"; where that fails and the
/// handler returns, the first character goes all the same, and the empty name stays empty.
FILTERUTILS_API std::string makeModifierPlainName(boost::string_ref name);

/// Whether @p name begins with "?".
FILTERUTILS_API bool looksLikeFormulaReference(boost::string_ref name);

/// "?" and @p name, also where that has a marker.
FILTERUTILS_API std::string makeFormulaReference(boost::string_ref name);

/// @p name without its first character. Asserts "looksLikeFormulaReference(name)", and goes on as
/// makeModifierPlainName does.
FILTERUTILS_API std::string makeFormulaPlainName(boost::string_ref name);

/// "ooxml-" and @p type, also where that has a marker.
///
///     makeOOXMLPresetType("rect");    // "ooxml-rect"
FILTERUTILS_API std::string makeOOXMLPresetType(boost::string_ref type);

/// Whether @p type begins with "ooxml-", byte by byte.
FILTERUTILS_API bool looksLikeOOXMLPresetType(boost::string_ref type);

/// @p type without its first six characters, as long as the marker is. Asserts
/// "looksLikeOOXMLPresetType(type)"; where that fails and the handler returns, they go all the same, and a
/// shorter type becomes empty.
FILTERUTILS_API std::string makePlainPresetType(boost::string_ref type);

} // namespace QV::FilterUtils
