#pragma once

#include <iosfwd>
#include <string>

#include <Filters/Package/MainPart.h>

namespace QV::Filters {
class FilterRun;
}

namespace QV::Tool {

/// Writes the run's document, which is of this kind, as JSON.
void writeModelJson(Filters::DocumentKind kind, Filters::FilterRun& run, std::ostream& out);

/// Writes it as one page of HTML with this title.
void writePage(
    Filters::DocumentKind kind, Filters::FilterRun& run, const std::string& title, std::ostream& out);

/// What a page of this document is called: the file's name.
std::string makeTitle(const std::string& file);

} // namespace QV::Tool
