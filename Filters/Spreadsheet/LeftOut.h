#pragma once

/// @file
/// What of a workbook this version does not read, in words for a person.

namespace QV::Filters::LeftOut {

constexpr const char* AlternateSheets = "chart, dialog and macro sheets";
constexpr const char* Comments = "comments";
constexpr const char* ConditionalFormats = "conditional formats";
constexpr const char* DataConnections = "data connections";
constexpr const char* DataValidations = "data validations";
constexpr const char* Diagrams = "diagrams and other graphics in frames";
constexpr const char* EmbeddedObjects = "embedded objects and controls";
constexpr const char* Filters = "filters and sorting";
constexpr const char* HeadersFooters = "headers and footers";
constexpr const char* Macros = "macros";
constexpr const char* NewerCharts = "charts of newer kinds (treemaps, waterfalls and the like)";
constexpr const char* PatternFills = "pattern and gradient fills";
constexpr const char* PhoneticText = "phonetic text";
constexpr const char* PivotSources = "sources and fields of pivot tables";
constexpr const char* Protection = "protection";
constexpr const char* SheetBackgrounds = "background pictures of sheets";
constexpr const char* TableColumns = "columns of tables in formulas (kept as they are written)";
constexpr const char* TableStyleParts = "table styles of single rows, columns and stripes";

} // namespace QV::Filters::LeftOut
