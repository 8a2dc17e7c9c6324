#include <FilterUtils/FU_PivotTables.h>

#include <limits>
#include <memory>
#include <ostream>
#include <string>

#include <boost/variant/get.hpp>

#include <gtest/gtest.h>

#include <DOM/Public/Formula.h>
#include <DOM/Public/PivotTable.h>
#include <DOM/Public/Table.h>
#include <Formulas/Public/TableContext.h>
#include <Formulas/Public/ValidRange.h>

namespace QV::FilterUtils {
namespace {

namespace Tree = DOM::FormulaSyntaxTree;

constexpr int Smallest = std::numeric_limits<int>::min();
constexpr int Largest = std::numeric_limits<int>::max();
constexpr unsigned long Wrapped = std::numeric_limits<unsigned long>::max();

struct PivotRow
{
    const char* name;
    int width;
    int height;
    unsigned long row;
    unsigned long column;
    unsigned long lastRow;
    unsigned long lastColumn;
    bool isValid; // as a range of cells
};

void PrintTo(const PivotRow& row, std::ostream* out)
{
    *out << row.name;
}

const PivotRow PivotRows[] = {
    {"ThreeByTwo",      3,        2,        4,       1,     5,          3,          true },
    {"OneCell",         1,        1,        0,       0,     0,          0,          true },
    {"WholeSheet",      16384,    1048576,  0,       0,     1048575,    16383,      true },
    {"LastCell",        1,        1,        1048575, 16383, 1048575,    16383,      true },
    {"TooHigh",         1,        2,        1048575, 16383, 1048576,    16383,      false},
    {"TooWide",         2,        1,        1048575, 16383, 1048575,    16384,      false},
    {"NoColumns",       0,        2,        4,       1,     5,          0,          false},
    {"NoRows",          3,        0,        4,       1,     3,          3,          false},
    {"NoColumnsAtZero", 0,        1,        0,       0,     0,          Wrapped,    false},
    {"NoRowsAtZero",    1,        0,        0,       0,     Wrapped,    0,          false},
    {"NegativeWidth",   -1,       1,        4,       1,     4,          4294967295, false},
    {"NegativeHeight",  1,        -3,       4,       1,     4294967296, 1,          false},
    {"Smallest",        Smallest, Smallest, 0,       0,     2147483647, 2147483647, false},
    {"Largest",         Largest,  Largest,  1,       1,     2147483647, 2147483647, false},
};

class ResolvePivotTableTargetRange : public testing::TestWithParam<PivotRow>
{
};

TEST_P(ResolvePivotTableTargetRange, KeepsRow)
{
    const PivotRow& row = GetParam();
    const DOM::Table table;
    DOM::PivotTable pivotTable("Totals");
    pivotTable.setSize({row.width, row.height});
    pivotTable.setLocation({RowIndex(77), ColumnIndex(77)}); // of no concern

    const Tree::CellRange range =
        resolvePivotTableTargetRange(table, pivotTable, {RowIndex(row.row), ColumnIndex(row.column)});
    EXPECT_EQ(range.getDocURL(), "");
    EXPECT_EQ(boost::get<UUID>(range.getFirstTableAddress()), table.getUUID());
    EXPECT_EQ(boost::get<std::string>(range.getSecondTableAddress()), "");
    EXPECT_EQ(range.getRows(), Tree::RowAxis(RowIndex(row.row), RowIndex(row.lastRow)));
    EXPECT_EQ(range.getColumns(), Tree::ColumnAxis(ColumnIndex(row.column), ColumnIndex(row.lastColumn)));

    Formulas::TableContext context;
    context.addTable(table.getUUID(), "Sheet1");
    EXPECT_EQ(
        Formulas::isValidRange(DOM::Formula(std::make_unique<Tree::CellRange>(range)), context), row.isValid);
}

INSTANTIATE_TEST_SUITE_P(Rows, ResolvePivotTableTargetRange, testing::ValuesIn(PivotRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::FilterUtils
