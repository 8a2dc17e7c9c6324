#pragma once

namespace QV::Filters {

class TextJsonState;

/// Writes an array with an object for each section: its "firstBlock", the size and "margins" of its pages in
/// points, and the blocks of its "headers" and "footers" by the pages that they stand on ("default", "first"
/// and "even").
///
/// Sections that share a header repeat its blocks, up to 16 MiB in all. Beyond that, "sameAs" within the
/// headers or footers gives the number of the section that has the blocks, by the pages.
void writeSectionsJson(TextJsonState& state);

} // namespace QV::Filters
