#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// How much of a document a page shows. What lies beyond is counted, and the page says so.
struct PreviewLimits
{
    unsigned long columns = 1000;                  ///< of each sheet
    unsigned long cells = 200'000;                 ///< of each sheet, empty ones included
    std::size_t textBytes = std::size_t{32} << 20; ///< of the whole page, pictures not included
    std::size_t cellTextBytes = 4096;              ///< of one cell
    std::size_t frames = 1000;                     ///< of each sheet
};

/// Writes a workbook as one page of HTML that needs nothing else: its sheets as tabs, columns and rows in
/// their true sizes, merges, fills, borders, fonts, and pictures where their anchors put them.
///
/// The page has no scripts. Tabs are links, so that a keyboard switches sheets too; text is escaped, and
/// links lead to http, https and mailto, or to a sheet of the page. Pictures are those that the run's media
/// storage still has. One point of the model is one point of the page.
///
/// @param title of the page, such as the file's name
FILTERS_API void writeSpreadsheetPreview(
    FilterRun& run, const std::string& title, std::ostream& out, const PreviewLimits& limits = {});

} // namespace QV::Filters
