#include <DOM/Public/Adapter/TableDimensions.h>

#include <gtest/gtest.h>

#include <DOM/Public/Table.h>

namespace QV::Adapter {
namespace {

TEST(TableDimensions, TellsTheSizeOfWhatIsHidden)
{
    DOM::Table table;
    table.setDefaultRowHeight(15);
    table.setDefaultColumnWidth(48);
    DOM::RowProps row;
    row.setHidden(true);
    table.setRowProps(RowIndex(0), row);
    row.setHeight(20.0F);
    table.setRowProps(RowIndex(2), row);
    DOM::ColumnProps column;
    column.setHidden(true);
    column.setWidth(7.0F);
    table.setColumnsProps({ColumnIndex(1), ColumnIndex(2)}, column);

    const TableDimensions dimensions = getTableDimensionsInfo(table);
    EXPECT_EQ(dimensions.getDefaultRowHeight(), 15);
    EXPECT_EQ(dimensions.getDefaultColumnWidth(), 48);
    ASSERT_EQ(dimensions.getRowsProps().size(), 3U);
    EXPECT_TRUE(dimensions.getRowsProps()[0].isHidden());
    EXPECT_EQ(dimensions.getRowsProps()[0].getHeight().getValue(), 15);
    EXPECT_FALSE(dimensions.getRowsProps()[1].isHidden());
    EXPECT_EQ(dimensions.getRowsProps()[1].getHeight().getValue(), 15);
    EXPECT_TRUE(dimensions.getRowsProps()[2].isHidden());
    EXPECT_EQ(dimensions.getRowsProps()[2].getHeight().getValue(), 20);
    ASSERT_EQ(dimensions.getColumnsProps().size(), 2U);
    EXPECT_FALSE(dimensions.getColumnsProps()[0].isHidden());
    EXPECT_EQ(dimensions.getColumnsProps()[0].getWidth(), 48);
    EXPECT_TRUE(dimensions.getColumnsProps()[1].isHidden());
    EXPECT_EQ(dimensions.getColumnsProps()[1].getWidth(), 7);
}

TEST(TableDimensions, LeaveOutRowsThatHaveAStyleAlone)
{
    DOM::RowProps styled;
    styled.setSharedCellStyle(new DOM::CellStyle);
    DOM::Table table;
    table.setRowProps(RowIndex(4), styled);
    EXPECT_TRUE(getTableDimensionsInfo(table).getRowsProps().empty());

    DOM::RowProps sized;
    sized.setHeight(20.0F);
    table.setRowProps(RowIndex(0), sized);
    table.setRowProps(RowIndex(499), styled);
    const TableDimensions dimensions = getTableDimensionsInfo(table);
    ASSERT_EQ(dimensions.getRowsProps().size(), 1U);
    EXPECT_EQ(dimensions.getRowsProps()[0].getHeight().getValue(), 20);
}

} // namespace
} // namespace QV::Adapter
