#pragma once

#include <cstddef>
#include <string>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Cuts UTF-8 text after @p bytesMax bytes, or before the character that lies across that place. Returns
/// whether anything was cut.
FILTERS_API bool cutUtf8(std::string& text, std::size_t bytesMax);

} // namespace QV::Filters
