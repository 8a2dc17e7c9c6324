#pragma once

/// @file
/// What of a text document this version does not read, in words for a person.

namespace QV::Filters::TextLeftOut {

constexpr const char* AltChunks = "embedded documents in other formats";
constexpr const char* Charts = "charts";
constexpr const char* Columns = "columns of text and kinds of section breaks";
constexpr const char* Diagrams = "diagrams and other graphics in frames";
constexpr const char* EmbeddedObjects = "embedded objects and controls";
constexpr const char* Macros = "macros";
constexpr const char* ChangedTables = "tracked rows and cells of tables";
constexpr const char* Math = "layout of formulas (their text is kept)";
constexpr const char* PhoneticText = "phonetic text";
constexpr const char* TabLeaders = "leaders of tabs";

} // namespace QV::Filters::TextLeftOut
