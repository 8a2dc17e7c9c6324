#pragma once

/// @file
/// Text from strangers on its way into a page, and how every page begins.

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

/// The begin of a page up to its style sheet, which the caller goes on with: a page loads nothing, and says
/// what wrote it.
///
/// @param title as it stands in the document; may hold anything
FILTERS_API std::string makePageHead(const std::string& title);

} // namespace QV::Filters
