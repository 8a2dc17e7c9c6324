#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// How much of a text document a page shows. What lies beyond is counted, and the page says so.
struct TextPreviewLimits
{
    std::size_t blocks = 20'000;                   ///< paragraphs and tables, those in cells included
    std::size_t textBytes = std::size_t{32} << 20; ///< of the whole page, pictures not included
    std::size_t paragraphTextBytes = 64 << 10;     ///< of one paragraph
    std::size_t cells = 200'000;                   ///< of all tables, empty ones included
    std::size_t frames = 1000;
    std::size_t pictureBytes = std::size_t{128} << 20; ///< of all pictures as they stand in the page
    std::size_t repeatedBytes = std::size_t{16} << 20; ///< of pictures that stood in the page before
    std::size_t rules = 10'000;                        ///< of the style sheet; more looks are not shown
    unsigned nesting = 50;                             ///< of tables, text boxes and tables of contents
};

/// Writes a text document as one page of HTML that needs nothing else: its sections as sheets of paper of
/// their width, headers and footers at their ends, headings, paragraphs with the labels of their lists, runs
/// with their looks, tables, pictures and text boxes, notes at the end.
///
/// It is the final view: what tracked changes take away is left out and counted, what they put in is marked.
/// Hidden text is not there. The page has no scripts; text is escaped, and links lead to http, https and
/// mailto, or to a place of the page. Pictures are those that the run's media storage still has. One point of
/// the model is one point of the page; lengths that are no numbers, or are far out of proportion, do not get
/// there.
///
/// @param title of the page, such as the file's name
FILTERS_API void writeTextPreview(
    FilterRun& run, const std::string& title, std::ostream& out, const TextPreviewLimits& limits = {});

} // namespace QV::Filters
