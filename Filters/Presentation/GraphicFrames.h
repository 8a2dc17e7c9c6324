#pragma once

/// @file
/// What frames of a tree show that are no shapes: tables, charts, diagrams, objects of other programs.

#include <functional>
#include <memory>
#include <string>

#include <DOM/Public/GraphicalObject.h>
#include <Filters/Package/Export.h>
#include <Filters/Presentation/TreeElements.h>

namespace QV::Filters {

struct ShapeTreeScope;

/// Reads the drawing that the file keeps of a diagram, by the name of its part; null where it cannot be read.
using ReadDiagram = std::function<std::unique_ptr<DOM::GraphicalObject>(const std::string& part)>;

/// Reads what a graphicFrame element shows: a table, a chart, or an object: a diagram by @p readDiagram, any
/// other one by the picture that the file keeps of it. What is not read is left out by name, and an empty
/// object stands for it. Reported:
///     - "Chart {} of {} is missing": the frame is empty, as for a chart that readChart does not read
FILTERS_API std::unique_ptr<DOM::GraphicalObject> readGraphicFrame(const TreeObject& frame,
    const TreeSurroundings& surroundings, const ShapeTreeScope& scope, const ReadDiagram& readDiagram);

} // namespace QV::Filters
