#pragma once

/// @file
/// Places in a table: cells with offsets <-> points from the table's top-left corner, for a point, for a size
/// and for frames.
///
/// Each conversion walks the explicit sizes from the first one on, so many of them in a long table take
/// AnchorsConverter, which gives the same bits. Arithmetic is that of float, but where double is named.

#include <utility>

#include <DOM/Public/Frame.h>
#include <DOM/Public/TableOffset.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::FilterUtils {

class TableDimensionsInfo;

/// The cell of one axis that lies @p distance from the table's edge, and how far inside of it.
///
///     convertToCellIndexAndInCellOffset(9.5F, std::vector<float>{10, 20}, 5.0F);    // 0, 9.5
///     convertToCellIndexAndInCellOffset(10.0F, std::vector<float>{10, 20}, 5.0F);   // 1, 0
///     convertToCellIndexAndInCellOffset(42.0F, std::vector<float>{10, 20}, 5.0F);   // 4, 2
///
/// The sizes are subtracted one by one. What lies on an edge belongs to the cell after it, and what is past
/// all sizes is divided by the default one; the index is summed as a float, so very large ones lose digits.
///
/// @param distance in points; its sign is ignored
/// @param sizes of the first cells, in points
/// @param defaultSize of all cells after them. Where the index past the sizes is not within unsigned long (a
///     default of 0, a distance that is infinite or NaN), the cell after the sizes comes back, with all that
///     remains
template <typename Sizes>
FILTERUTILS_API std::pair<unsigned long, float> convertToCellIndexAndInCellOffset(
    const float& distance, const Sizes& sizes, const float& defaultSize);

/// The way from one place of an axis to another one, in points: from the lower index to the higher one, in
/// whichever order they come. Of two places in one cell, from the first to the second, so it may be negative.
///
/// Explicit sizes are summed in double.
template <typename Sizes>
FILTERUTILS_API float convertToDistance(const unsigned long& index1, const float& offset1,
    const unsigned long& index2, const float& offset2, const Sizes& sizes, const float& defaultSize);

extern template FILTERUTILS_API std::pair<unsigned long, float> convertToCellIndexAndInCellOffset(
    const float& distance, const std::vector<float>& sizes, const float& defaultSize);
extern template FILTERUTILS_API float convertToDistance(const unsigned long& index1, const float& offset1,
    const unsigned long& index2, const float& offset2, const std::vector<float>& sizes,
    const float& defaultSize);

/// The cell where @p point lies, by convertToCellIndexAndInCellOffset on each axis: a negative coordinate
/// counts as if positive.
FILTERUTILS_API DOM::TableOffset convertToTableOffset(
    const cinder::Vec2<float>& point, const TableDimensionsInfo& dimensions);

/// The point where @p offset lies, by convertToDistance from the table's corner.
FILTERUTILS_API cinder::Vec2<float> convertTableOffsetToPoint(
    const DOM::TableOffset& offset, const TableDimensionsInfo& dimensions);

/// The size of the box between two places, by convertToDistance on each axis.
FILTERUTILS_API Size2D<float> convertTableOffsetsToSize(
    const DOM::TableOffset& from, const DOM::TableOffset& to, const TableDimensionsInfo& dimensions);

/// A copy of @p frame that is anchored to cells no more: with an absolute anchor at the point where it was,
/// and its size as its extent. A text anchor and an absolute one stay, and the extent with them.
FILTERUTILS_API DOM::Frame convertToAbsoluteAnchor(
    const DOM::Frame& frame, const TableDimensionsInfo& dimensions);

/// A copy of @p frame whose box has its width and height exchanged about the same centre: the box that
/// DrawingML keeps of a frame that is turned by about a quarter. Which frames these are is for callers to
/// say; no angle is looked at.
///
/// The size is the frame's extent under an absolute and a one-cell anchor (not that anchor's own; none is 0
/// by 0), and the way between the cells under a two-cell one. It goes to where the anchor keeps it: the
/// extent of the frame, of the one-cell anchor, or the second cell. A text anchor stays. The point may become
/// negative, which an absolute anchor keeps, and convertToTableOffset ignores.
FILTERUTILS_API DOM::Frame turnFrameOXMLSpecificWay(
    const DOM::Frame& frame, const TableDimensionsInfo& dimensions);

} // namespace QV::FilterUtils
