#pragma once

#include <string>

#include <boost/filesystem/path.hpp>
#include <boost/optional.hpp>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The file that a link of a document leads to, where it lies in the document's folder or below it: nothing
/// else is ever read for a document.
///
/// @param documentFolder empty for a document without a place
/// @param target a path, or a URL of the scheme "file"; percent-encoded characters are decoded
/// @return nothing for any other place, symbolic links considered, and where there is no such regular file
FILTERS_API boost::optional<boost::filesystem::path> findLinkedFile(
    const std::string& documentFolder, const std::string& target);

} // namespace QV::Filters
