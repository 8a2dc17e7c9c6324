#pragma once

#include <string>
#include <vector>

#include <DOM/Public/CellText.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class Colors;
class FilterRun;
class Package;

/// Reads the strings that cells refer to by number, as a stream. A part that is broken is reported, and gives
/// the strings before the damage.
FILTERS_API std::vector<DOM::CellTextStock> readSharedStrings(
    Package& package, const std::string& part, const Colors& colors, FilterRun& run);

} // namespace QV::Filters
