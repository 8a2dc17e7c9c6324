#pragma once

#include <cstddef>
#include <string>

#include <DOM/Public/NumberedList.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class FormatReader;

/// One level of a list as a part of lists has it.
struct ListLevel
{
    DOM::NumberingLevel level;
    std::string styleId; ///< of the paragraph style that stands for the level; empty for none
};

/// How many levels a list has.
constexpr std::size_t ListLevelsCount = 9;

/// Reads a "lvl" element. What cannot be read is reported as FormatValues says; besides
/// "Label of a list is cut at {} bytes".
FILTERS_API ListLevel readListLevel(const FilterUtils::XMLElement& level, const FormatReader& formats);

/// What a level is that a list does not define: numbered "1.".
/// @param number 0 for the outermost level
FILTERS_API ListLevel makeUsualListLevel(std::size_t number);

} // namespace QV::Filters
