#pragma once

#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Whether what is made of a document may link to @p url: http, https and mailto, in any letter case, and
/// nothing else. Blanks and control characters, which browsers drop from a URL, do not hide another scheme.
FILTERS_API bool isSafeLink(const std::string& url);

} // namespace QV::Filters
