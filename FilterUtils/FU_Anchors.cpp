#include <FilterUtils/FU_Anchors.h>

#include <cmath>
#include <cstddef>

#include <FilterUtils/FU_AnchorsRules.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>

namespace QV::FilterUtils {
namespace {

/// The conversions in the form that frames ask for.
struct Conversions
{
    DOM::TableOffset toOffset(const cinder::Vec2<float>& point) const
    {
        return convertToTableOffset(point, dimensions);
    }
    cinder::Vec2<float> toPoint(const DOM::TableOffset& offset) const
    {
        return convertTableOffsetToPoint(offset, dimensions);
    }
    Size2D<float> toSize(const DOM::TableOffset& from, const DOM::TableOffset& to) const
    {
        return convertTableOffsetsToSize(from, to, dimensions);
    }

    const TableDimensionsInfo& dimensions;
};

} // namespace

template <typename Sizes>
std::pair<unsigned long, float> convertToCellIndexAndInCellOffset(
    const float& distance, const Sizes& sizes, const float& defaultSize)
{
    float remainder = std::fabs(distance);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        if (sizes[i] > remainder)
            return {i, remainder};
        remainder -= sizes[i];
    }
    return findCellPastSizes(sizes.size(), remainder, defaultSize);
}

template <typename Sizes>
float convertToDistance(const unsigned long& index1, const float& offset1, const unsigned long& index2,
    const float& offset2, const Sizes& sizes, const float& defaultSize)
{
    const auto sumSizes = [&sizes](std::size_t begin, std::size_t end) {
        double sum = 0;
        for (std::size_t i = begin; i < end; ++i)
            sum += static_cast<double>(sizes[i]);
        return sum;
    };
    return measureDistance(index1, offset1, index2, offset2, sizes.size(), defaultSize, sumSizes);
}

template FILTERUTILS_API std::pair<unsigned long, float> convertToCellIndexAndInCellOffset(
    const float& distance, const std::vector<float>& sizes, const float& defaultSize);
template FILTERUTILS_API float convertToDistance(const unsigned long& index1, const float& offset1,
    const unsigned long& index2, const float& offset2, const std::vector<float>& sizes,
    const float& defaultSize);

DOM::TableOffset convertToTableOffset(const cinder::Vec2<float>& point, const TableDimensionsInfo& dimensions)
{
    const auto column = convertToCellIndexAndInCellOffset(
        point.x, dimensions.getColumnsWidth(), dimensions.getDefaultColumnWidth());
    const auto row = convertToCellIndexAndInCellOffset(
        point.y, dimensions.getRowsHeight(), dimensions.getDefaultRowHeight());
    return {ColumnIndex(column.first), column.second, RowIndex(row.first), row.second};
}

cinder::Vec2<float> convertTableOffsetToPoint(
    const DOM::TableOffset& offset, const TableDimensionsInfo& dimensions)
{
    const Size2D<float> size = convertTableOffsetsToSize(DOM::TableOffset(), offset, dimensions);
    return {size.getWidth(), size.getHeight()};
}

Size2D<float> convertTableOffsetsToSize(
    const DOM::TableOffset& from, const DOM::TableOffset& to, const TableDimensionsInfo& dimensions)
{
    return {convertToDistance(from.getColumnIndex().get(), from.getColumnOffset(), to.getColumnIndex().get(),
                to.getColumnOffset(), dimensions.getColumnsWidth(), dimensions.getDefaultColumnWidth()),
        convertToDistance(from.getRowIndex().get(), from.getRowOffset(), to.getRowIndex().get(),
            to.getRowOffset(), dimensions.getRowsHeight(), dimensions.getDefaultRowHeight())};
}

DOM::Frame convertToAbsoluteAnchor(const DOM::Frame& frame, const TableDimensionsInfo& dimensions)
{
    return changeFrame<FrameToAbsoluteAnchor>(frame, Conversions{dimensions});
}

DOM::Frame turnFrameOXMLSpecificWay(const DOM::Frame& frame, const TableDimensionsInfo& dimensions)
{
    return changeFrame<FrameTurn>(frame, Conversions{dimensions});
}

} // namespace QV::FilterUtils
