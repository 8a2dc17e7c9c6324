#pragma once

#include <memory>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/LineProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}
namespace QV::Filters {
class Names;
}

namespace QV::Filters {

class Colors;

/// The lines of one border format.
struct CellLines
{
    std::shared_ptr<const DOM::BordersProps> borders; ///< null where no side has a line
    std::shared_ptr<const DOM::LineProps> diagonalUp;
    std::shared_ptr<const DOM::LineProps> diagonalDown;
};

/// Reads a "border" element: its sides in either dialect's names, the lines inside that differential formats
/// have, and the diagonals. A side whose kind is "none", or that there is not, has no line; a line of an
/// unknown kind is reported and left out.
FILTERS_API CellLines readBorder(
    const FilterUtils::XMLElement& border, const Names& names, const Colors& colors, OperationReport& report);

} // namespace QV::Filters
