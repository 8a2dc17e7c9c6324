#pragma once

#include <string>

#include <DOM/Public/ShapeGeometry.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The outline of a preset shape (ECMA-376 Part 1, 20.1.10.56, and the definitions that belong to it), with
/// all of its adjust values at their defaults.
///
/// @param type without a mark, such as "roundRect"
/// @return null for a type that is not known
FILTERS_API const DOM::ShapeGeometry* findPresetGeometry(const std::string& type);

} // namespace QV::Filters
