#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;

/// How much of a presentation a page shows. What lies beyond is counted, and the page says so.
struct SlidePreviewLimits
{
    std::size_t slides = 2'000;
    std::size_t shapes = 100'000;                      ///< of all slides, those of masters each time
    std::size_t pageBytes = std::size_t{64} << 20;     ///< of the whole page, pictures not included
    std::size_t pictureBytes = std::size_t{128} << 20; ///< of all pictures as they stand in the page
    std::size_t outlineSteps = 5'000'000;              ///< guides and commands of all outlines of their own
    unsigned nesting = 50;                             ///< of groups
};

/// Writes a presentation as one page of HTML that needs nothing else: each slide as an SVG picture, one point
/// of the slide being one unit of it, with the background and the shapes of its master and layout below its
/// own; then the speaker's notes. Hidden slides are there, and marked.
///
/// A picture stands once in the page, however many slides show it. The page has no scripts; text is escaped,
/// and links lead to http, https and mailto alone. Pictures are those that the run's media storage still has.
///
/// @param title of the page, such as the file's name
FILTERS_API void writePresentationPreview(
    FilterRun& run, const std::string& title, std::ostream& out, const SlidePreviewLimits& limits = {});

} // namespace QV::Filters
