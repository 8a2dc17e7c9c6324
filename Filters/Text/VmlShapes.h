#pragma once

#include <string>

#include <boost/optional.hpp>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The number of a built-in type of VML shapes, from the reference to it or from its own id; nothing for
/// types of other makers.
///
///     findVmlShapeType("#_x0000_t202");    // 202
FILTERS_API boost::optional<unsigned long> findVmlShapeType(const std::string& reference);

/// The preset geometry of DrawingML that a built-in type of VML shapes corresponds to ("rect", without a
/// marker); empty where there is none.
FILTERS_API std::string findVmlTypeGeometry(unsigned long type);

/// The same for an element that is a shape of its own, such as "oval"; empty for "shape", for lines through
/// many points, and for other names.
FILTERS_API std::string findVmlElementGeometry(const std::string& element);

} // namespace QV::Filters
