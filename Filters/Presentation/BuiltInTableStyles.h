#pragma once

#include <string>

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The a:tblStyle element of a style that applications know without its being in the file: the medium style
/// of tables in each of the accent colours and in the text's, the plain grid, and no style at all. The
/// invalid view for any other identifier.
FILTERS_API FilterUtils::XMLElement makeBuiltInTableStyle(const std::string& identifier);

} // namespace QV::Filters
