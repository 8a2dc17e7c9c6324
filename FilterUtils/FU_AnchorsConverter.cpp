#include <FilterUtils/FU_AnchorsConverter.h>

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include <FilterUtils/FU_AnchorsRules.h>
#include <FilterUtils/FU_RoundedSums.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>

namespace QV::FilterUtils {

class AnchorsConverter::Axis
{
public:
    Axis(const std::vector<float>& sizes, float defaultSize)
        : _sizes(sizes)
        , _defaultSize(defaultSize)
    {
    }

    std::pair<unsigned long, float> findCell(float distance)
    {
        const auto found = _differences.subtract(std::fabs(distance));
        return found.first < _sizes.size() ? std::pair<unsigned long, float>(found)
                                           : findCellPastSizes(found.first, found.second, _defaultSize);
    }

    float measure(unsigned long index1, float offset1, unsigned long index2, float offset2)
    {
        return measureDistance(index1, offset1, index2, offset2, _sizes.size(), _defaultSize,
            [this](std::size_t begin, std::size_t end) { return _sums.add(begin, end); });
    }

private:
    const std::vector<float> _sizes;
    const float _defaultSize;
    RoundedSums<float> _differences{_sizes};
    RoundedSums<double> _sums{_sizes};
};

/// The conversions in the form that frames ask for.
struct AnchorsConverter::Conversions
{
    DOM::TableOffset toOffset(const cinder::Vec2<float>& point)
    {
        return converter.convertToTableOffset(point);
    }
    cinder::Vec2<float> toPoint(const DOM::TableOffset& offset)
    {
        return converter.convertTableOffsetToPoint(offset);
    }
    Size2D<float> toSize(const DOM::TableOffset& from, const DOM::TableOffset& to)
    {
        return converter.convertTableOffsetsToSize(from, to);
    }

    AnchorsConverter& converter;
};

AnchorsConverter::AnchorsConverter(const TableDimensionsInfo& dimensions)
    : _columns(std::make_unique<Axis>(dimensions.getColumnsWidth(), dimensions.getDefaultColumnWidth()))
    , _rows(std::make_unique<Axis>(dimensions.getRowsHeight(), dimensions.getDefaultRowHeight()))
{
}

AnchorsConverter::~AnchorsConverter() = default;

DOM::TableOffset AnchorsConverter::convertToTableOffset(const cinder::Vec2<float>& point)
{
    const auto column = _columns->findCell(point.x);
    const auto row = _rows->findCell(point.y);
    return {ColumnIndex(column.first), column.second, RowIndex(row.first), row.second};
}

cinder::Vec2<float> AnchorsConverter::convertTableOffsetToPoint(const DOM::TableOffset& offset)
{
    const Size2D<float> size = convertTableOffsetsToSize(DOM::TableOffset(), offset);
    return {size.getWidth(), size.getHeight()};
}

Size2D<float> AnchorsConverter::convertTableOffsetsToSize(
    const DOM::TableOffset& from, const DOM::TableOffset& to)
{
    return {_columns->measure(from.getColumnIndex().get(), from.getColumnOffset(), to.getColumnIndex().get(),
                to.getColumnOffset()),
        _rows->measure(
            from.getRowIndex().get(), from.getRowOffset(), to.getRowIndex().get(), to.getRowOffset())};
}

DOM::Frame AnchorsConverter::convertToAbsoluteAnchor(const DOM::Frame& frame)
{
    return changeFrame<FrameToAbsoluteAnchor>(frame, Conversions{*this});
}

DOM::Frame AnchorsConverter::turnFrameOXMLSpecificWay(const DOM::Frame& frame)
{
    return changeFrame<FrameTurn>(frame, Conversions{*this});
}

} // namespace QV::FilterUtils
