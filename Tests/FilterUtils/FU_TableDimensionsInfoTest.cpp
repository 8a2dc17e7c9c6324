#include <FilterUtils/FU_TableDimensionsInfo.h>

#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Table.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TableDimensionsInfo, BeginsWithNothing)
{
    const TableDimensionsInfo info;
    EXPECT_EQ(info.getDefaultColumnWidth(), 0);
    EXPECT_EQ(info.getDefaultRowHeight(), 0);
    EXPECT_THAT(info.getRowsHeight(), IsEmpty());
    EXPECT_THAT(info.getColumnsWidth(), IsEmpty());
}

TEST(TableDimensionsInfo, KeepsRowsAndColumnsApart)
{
    TableDimensionsInfo info;
    info.setDefaultColumnWidth(1);
    info.setDefaultRowHeight(2);
    info.setColumnsWidths({3, 4});
    info.setRowsHeight({5});
    info.getRowsHeight().push_back(6);
    info.getColumnsWidth().front() = 7;
    EXPECT_EQ(info.getDefaultColumnWidth(), 1);
    EXPECT_EQ(info.getDefaultRowHeight(), 2);
    EXPECT_THAT(info.getColumnsWidth(), ElementsAre(7, 4));
    EXPECT_THAT(std::as_const(info).getRowsHeight(), ElementsAre(5, 6));
}

TEST(TableDimensionsInfo, TakesTheVectorOver)
{
    std::vector<float> heights{5, 6};
    const float* const data = heights.data();
    TableDimensionsInfo info;
    info.setRowsHeight(std::move(heights));
    EXPECT_EQ(info.getRowsHeight().data(), data);
}

DOM::RowProps makeRow(const boost::optional<float>& height, bool isHidden)
{
    DOM::RowProps props;
    props.setHeight(height);
    props.setHidden(isHidden);
    return props;
}

DOM::ColumnProps makeColumn(const boost::optional<float>& width, bool isHidden)
{
    DOM::ColumnProps props;
    props.setWidth(width);
    props.setHidden(isHidden);
    return props;
}

TEST(TableDimensionsInfoOfATable, HasAllUpToTheLastWithProperties)
{
    DOM::Table table;
    table.setDefaultRowHeight(15);
    table.setDefaultColumnWidth(48);
    table.ensureSize(100, 100);
    table.setRowProps(RowIndex(1), makeRow(20.5F, false));
    table.setRowProps(RowIndex(2), makeRow(20.5F, true));
    table.setRowProps(RowIndex(4), makeRow(boost::none, true));
    table.setColumnsProps({ColumnIndex(1), ColumnIndex(3)}, makeColumn(10, false));
    table.setColumnsProps({ColumnIndex(3), ColumnIndex(4)}, makeColumn(10, true));
    table.setColumnsProps({ColumnIndex(5), ColumnIndex(6)}, makeColumn(boost::none, false));

    const TableDimensionsInfo info = getTableDimensionsInfo(table);
    EXPECT_EQ(info.getDefaultRowHeight(), 15);
    EXPECT_EQ(info.getDefaultColumnWidth(), 48);
    EXPECT_THAT(info.getRowsHeight(), ElementsAre(15, 20.5F, 0, 15, 0));
    EXPECT_THAT(info.getColumnsWidth(), ElementsAre(48, 10, 10, 0, 48, 48));
}

TEST(TableDimensionsInfoOfATable, IsEmptyWithoutProperties)
{
    DOM::Table table;
    table.setDefaultRowHeight(15);
    table.getOrMakeCell(RowIndex(9), ColumnIndex(9)).setNumber(1);
    EXPECT_THAT(getTableDimensionsInfo(table).getRowsHeight(), IsEmpty());
    EXPECT_THAT(getTableDimensionsInfo(table).getColumnsWidth(), IsEmpty());
}

TEST(TableDimensionsInfoOfATable, ReachesTheLastRow)
{
    DOM::Table table;
    table.setDefaultRowHeight(15);
    table.setRowProps(MaxRowIndex, makeRow(20, false));
    const TableDimensionsInfo info = getTableDimensionsInfo(table);
    ASSERT_EQ(info.getRowsHeight().size(), 1048576U);
    EXPECT_EQ(info.getRowsHeight().front(), 15);
    EXPECT_EQ(info.getRowsHeight().back(), 20);
}

} // namespace
} // namespace QV::FilterUtils
