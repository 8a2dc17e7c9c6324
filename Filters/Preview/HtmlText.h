#pragma once

/// @file
/// Text from strangers on its way into a page.

#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Makes a text fit for an element's content or a quoted attribute: markup characters become references, and
/// what HTML does not allow (control characters, bytes that are no UTF-8) becomes U+FFFD. Line ends of
/// any kind become line feeds; a carriage return at the end of a text goes, since the line feed follows it
/// elsewhere.
FILTERS_API std::string escapeHtml(const std::string& text);

/// A name as a quoted string of CSS, fit for a style sheet inside a page.
FILTERS_API std::string quoteCss(const std::string& text);

} // namespace QV::Filters
