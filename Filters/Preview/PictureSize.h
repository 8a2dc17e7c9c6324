#pragma once

/// @file
/// How large pictures are by their own account.

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <Filters/Package/Export.h>
#include <Utils/Public/Size2D.h>

namespace QV::Filters {

/// The size in points of a PNG, JPEG, GIF or BMP picture, by its pixels and its resolution; a pixel is a 96th
/// of an inch where no resolution is said.
///
/// @param bytes its content, or as much of its begin as there is
/// @return nothing for any other content, and where the sizes are not in the bytes or are zero
FILTERS_API boost::optional<Size2D<float>> readPictureSize(boost::string_ref bytes);

} // namespace QV::Filters
