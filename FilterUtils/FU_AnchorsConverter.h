#pragma once

#include <memory>

#include <DOM/Public/Frame.h>
#include <DOM/Public/TableOffset.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::FilterUtils {

class TableDimensionsInfo;

/// The conversions of FU_Anchors.h for many anchors of one table: the same results to the last bit, but a
/// table of a million rows is walked a few dozen times in all, and not once for each anchor.
///
///     AnchorsConverter converter(getTableDimensionsInfo(table));
///     for (const auto& frame : table.getFrames())
///         show(converter.convertToAbsoluteAnchor(*frame));
///
/// Learns as it works, so its operations are not const. One thread at a time.
class FILTERUTILS_API AnchorsConverter
{
public:
    explicit AnchorsConverter(const TableDimensionsInfo& dimensions);
    ~AnchorsConverter();

    AnchorsConverter(const AnchorsConverter&) = delete;
    AnchorsConverter& operator=(const AnchorsConverter&) = delete;

    DOM::TableOffset convertToTableOffset(const cinder::Vec2<float>& point);
    cinder::Vec2<float> convertTableOffsetToPoint(const DOM::TableOffset& offset);
    Size2D<float> convertTableOffsetsToSize(const DOM::TableOffset& from, const DOM::TableOffset& to);
    DOM::Frame convertToAbsoluteAnchor(const DOM::Frame& frame);
    DOM::Frame turnFrameOXMLSpecificWay(const DOM::Frame& frame);

private:
    class Axis;
    struct Conversions;

    std::unique_ptr<Axis> _columns;
    std::unique_ptr<Axis> _rows;
};

} // namespace QV::FilterUtils
