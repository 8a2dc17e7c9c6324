#pragma once

/// @file
/// Outlines of drawn shapes (ECMA-376 Part 1, 20.1.9).

#include <memory>

#include <DOM/Public/ShapeGeometry.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// The outline of an spPr element: prstGeom with its adjust values or custGeom; null where there is none. The
/// names in formulas and coordinates are marked as ShapeGeometry describes: those of adjust values and of
/// guides that are there, wherever they stand. An adjust value goes before a guide of the same name.
///
/// What is wrong is left out, each with one message, of which at most a thousand of a kind are told; what is
/// longer than 1 KiB is wrong, and cut in its message:
///     - "Outline of a drawing has a bad formula {}": an unknown operation, too few or too many operands
///     - "Outline of a drawing has a bad coordinate {}": an empty one; also a size of a path that is none
///     - "Outline of a drawing has a bad command {}": with too few or too many points; its name
///     - "Outline of a drawing has more than {} guides": 10,000; the rest is left out; likewise "connection
///       sites": 10,000, and "commands": 100,000, where each path counts for one too
FILTERS_API std::shared_ptr<const DOM::ShapeGeometry> readGeometry(
    const FilterUtils::XMLElement& shapeProperties, OperationReport& report);

} // namespace QV::Filters
