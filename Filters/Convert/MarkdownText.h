#pragma once

/// @file
/// Text from strangers on its way into Markdown.

#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Makes a text read as it stands: characters with a meaning to Markdown get a backslash, line feeds and tabs
/// become blanks, and control characters U+FFFD.
///
/// @param text UTF-8
FILTERS_API std::string escapeMarkdown(const std::string& text);

/// The same for what begins a line, where further characters have a meaning ("#", "-", "1."): @p line has
/// been through escapeMarkdown. Blanks in front are dropped.
FILTERS_API std::string escapeMarkdownLine(const std::string& line);

/// The same for what ends a heading, where "#" behind a blank means nothing but its end.
FILTERS_API std::string escapeMarkdownHeadingEnd(const std::string& heading);

/// A link's target between "<" and ">".
FILTERS_API std::string quoteMarkdownTarget(const std::string& target);

} // namespace QV::Filters
