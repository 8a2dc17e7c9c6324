#include <DOM/Public/Adapter/TableCellIterator.h>

#include <string>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <DOM/Public/Adapter/ResolvedCellStyle.h>
#include <Tests/Support/StyledTable.h>

namespace QV::Adapter {
namespace {

using Tests::makeBorders;
using Tests::StyledTable;

TEST(TableCellIterator, WalksTheCellsThatExist)
{
    DOM::Table table;
    EXPECT_TRUE(getCellIterators(table).begin() == getCellIterators(table).end());
    table.getOrMakeCell(RowIndex(7), ColumnIndex(3)).setNumber(3);
    table.getOrMakeCell(RowIndex(0), ColumnIndex(5)).setNumber(1);
    table.getOrMakeCell(RowIndex(7), ColumnIndex(0)).setNumber(2);
    std::string walk;
    const ConstTableCellRange cells = getCellIterators(table);
    for (auto it = cells.begin(); it != cells.end(); ++it) {
        EXPECT_EQ(&it.getTable(), &table);
        const CellInfo info = it.getCellInfo();
        EXPECT_EQ(&info.getTable(), &table);
        EXPECT_EQ(&info.getCell(), &*it);
        EXPECT_EQ(info.getRowIndex(), it.getRowIndex());
        EXPECT_EQ(info.getColIndex(), it.getColIndex());
        walk += fmt::format("{},{}={} ", it.getRowIndex().get(), it.getColIndex().get(), it->getNumber());
    }
    EXPECT_EQ(walk, "0,5=1 7,0=2 7,3=3 ");
}

TEST(GetResolvedCellStyle, TakesTheCellsOwnElseTheRowsElseTheColumns)
{
    StyledTable styled(2, 2);
    for (unsigned long row : {0UL, 1UL})
        for (unsigned long column : {0UL, 1UL})
            styled.getTable().getOrMakeCell(RowIndex(row), ColumnIndex(column));
    const auto resolve = [&](unsigned long row, unsigned long column) -> const DOM::CellStyle& {
        return getResolvedCellStyle(styled.findCell(row, column).getCellInfo(), styled.getStyles());
    };
    EXPECT_TRUE(resolve(0, 0).isEmpty());
    styled.setColumnStyle(0, makeBorders({1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(&resolve(0, 0), styled.getTable().getColumnProps(ColumnIndex(0)).getSharedCellStyle().get());
    EXPECT_TRUE(resolve(0, 1).isEmpty());
    styled.setRowStyle(0, makeBorders({2, 0, 0, 0, 0, 0}));
    EXPECT_EQ(&resolve(0, 0), styled.getTable().getRowProps(RowIndex(0)).getSharedCellStyle().get());
    EXPECT_EQ(&resolve(1, 0), styled.getTable().getColumnProps(ColumnIndex(0)).getSharedCellStyle().get());
    styled.setCellStyle(0, 0, {}, nullptr);
    EXPECT_TRUE(resolve(0, 0).isEmpty()) << "an empty style of its own keeps those of row and column away";
}

TEST(GetCellMergeProps, OfNoCellReachesNowhere)
{
    EXPECT_EQ(DOM::getCellMergeProps(nullptr), DOM::MergeProps());
    DOM::Table table;
    table.setMergeProps(RowIndex(0), ColumnIndex(0), 2, 3);
    const DOM::MergeProps props = DOM::getCellMergeProps(table.findCell(RowIndex(0), ColumnIndex(0)));
    EXPECT_EQ(props.getCapturedRowsCount(), 2U);
    EXPECT_EQ(props.getCapturedColsCount(), 3U);
}

} // namespace
} // namespace QV::Adapter
