#include <FilterUtils/FU_AnchorsConverter.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <FilterUtils/FU_Anchors.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>

#include <Tests/Support/FrameBuilder.h>

namespace QV::FilterUtils {
namespace {

bool areSame(const cinder::Vec2<float>& a, const cinder::Vec2<float>& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TableDimensionsInfo makeDimensions(std::mt19937& random, std::size_t rows, float scale)
{
    TableDimensionsInfo dimensions;
    dimensions.setDefaultColumnWidth(48);
    dimensions.setDefaultRowHeight(14.4F);
    for (std::size_t i = 0; i < rows; ++i)
        dimensions.getRowsHeight().push_back(
            random() % 10 == 0 ? 0 : static_cast<float>(random() % 4096) * scale);
    for (std::size_t i = 0; i < 300; ++i)
        dimensions.getColumnsWidth().push_back(static_cast<float>(random() % 300) * 0.75F);
    return dimensions;
}

// Everything that the free functions do, bit by bit, in tables of many rows.
TEST(AnchorsConverter, GivesTheBitsOfTheFreeFunctions)
{
    std::mt19937 random(1);
    const std::pair<std::size_t, float> tables[] = {
        {0,     1    },
        {100,   0.1F },
        {30000, 0.1F },
        {30000, 0.25F}
    };
    for (const auto& [rows, scale] : tables) {
        const TableDimensionsInfo dimensions = makeDimensions(random, rows, scale);
        AnchorsConverter converter(dimensions);
        const auto number = [&random](float limit) {
            return limit * static_cast<float>(static_cast<double>(random()) / 4294967296.0);
        };
        const float height = 250 * 4096 * scale * static_cast<float>(rows) / 256 + 5000;
        for (int i = 0; i < 700; ++i) {
            const cinder::Vec2<float> point(number(60000), number(height));
            const DOM::TableOffset from = convertToTableOffset(point, dimensions);
            ASSERT_EQ(converter.convertToTableOffset(point), from) << point;
            ASSERT_TRUE(areSame(
                converter.convertTableOffsetToPoint(from), convertTableOffsetToPoint(from, dimensions)))
                << from;
            const DOM::TableOffset to = convertToTableOffset({number(60000), number(height)}, dimensions);
            ASSERT_EQ(converter.convertTableOffsetsToSize(from, to),
                convertTableOffsetsToSize(from, to, dimensions))
                << from << " to " << to;
            const DOM::Frame frame = makeFrame(makeTwoCell(from, to));
            ASSERT_EQ(converter.convertToAbsoluteAnchor(frame), convertToAbsoluteAnchor(frame, dimensions))
                << frame;
            ASSERT_EQ(converter.turnFrameOXMLSpecificWay(frame), turnFrameOXMLSpecificWay(frame, dimensions))
                << frame;
        }
    }
}

TEST(AnchorsConverter, KeepsTheDimensionsThatItWasMadeFrom)
{
    TableDimensionsInfo dimensions;
    dimensions.setColumnsWidths({10});
    dimensions.setDefaultColumnWidth(5);
    dimensions.setDefaultRowHeight(5);
    AnchorsConverter converter(dimensions);
    dimensions.setColumnsWidths({});
    EXPECT_EQ(converter.convertToTableOffset({12, 0}), makeOffset(1, 2, 0, 0));
}

TEST(AnchorsConverter, TakesInfinitiesAsTheFreeFunctionsDo)
{
    TableDimensionsInfo dimensions;
    dimensions.setRowsHeight(std::vector<float>(1000, 3.5F));
    AnchorsConverter converter(dimensions);
    const cinder::Vec2<float> point(std::numeric_limits<float>::infinity(), 1e30F);
    EXPECT_EQ(converter.convertToTableOffset(point), convertToTableOffset(point, dimensions));
    EXPECT_EQ(converter.convertToTableOffset(point).getRowIndex(), RowIndex(1000));
}

} // namespace
} // namespace QV::FilterUtils
