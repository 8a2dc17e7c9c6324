#include <Formulas/Public/ValidRange.h>

#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/FormulaSyntaxTree.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Table.h>
#include <Formulas/Public/References.h>
#include <Formulas/Public/TableContext.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

const UUID Known(1, 1);
const UUID Unknown(9, 9);

TableContext makeContext()
{
    TableContext context;
    context.addTable(Known, "Sheet1");
    context.addTable(UUID(2, 2), "My sheet");
    return context;
}

struct TextRow
{
    const char* name;
    const char* text;
    bool isValid;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.text;
}

const TextRow TextRows[] = {
    {"Cell",            "Sheet1!A1",                 true },
    {"LastCell",        "Sheet1!$XFD$1048576",       true },
    {"Range",           "'My sheet'!A1:B2",          true },
    {"OtherCase",       "SHEET1!A1",                 true },
    {"Columns",         "Sheet1!$A:$C",              true },
    {"Rows",            "Sheet1!1:1048576",          true },
    {"List",            "(Sheet1!A1,'My sheet'!B2)", true },
    {"TwoTables",       "'Sheet1:My sheet'!A1",      true },
    {"OwnDocument",     "[0]Sheet1!A1",              true },
    {"NoTable",         "A1",                        false},
    {"UnknownTable",    "Sheet2!A1",                 false},
    {"UnknownRange",    "Sheet2!A1:B2",              false},
    {"UnknownSecond",   "Sheet1:Sheet2!A1",          false},
    {"UnknownFirst",    "Sheet2:Sheet1!A1",          false},
    {"OtherDocument",   "[1]Sheet1!A1",              false},
    {"RangeInDocument", "[1]Sheet1!A1:B2",           false},
    {"Name",            "Sheet1!Rate",               false},
    {"Lost",            "Sheet1!#REF!",              false},
    {"OneOfListLost",   "(Sheet1!A1,#REF!)",         false},
    {"OneOfListBad",    "(Sheet1!A1,Sheet2!A1)",     false},
};

class IsValidRange : public testing::TestWithParam<TextRow>
{
};

TEST_P(IsValidRange, KeepsRow)
{
    const auto formula = parseReference(GetParam().text);
    ASSERT_TRUE(formula);
    EXPECT_EQ(isValidRange(*formula, makeContext()), GetParam().isValid);
}

INSTANTIATE_TEST_SUITE_P(Rows, IsValidRange, testing::ValuesIn(TextRows),
    [](const auto& row) { return std::string(row.param.name); });

struct IndicesRow
{
    const char* name;
    unsigned long firstColumn;
    unsigned long lastColumn;
    unsigned long firstRow;
    unsigned long lastRow;
    bool isValid;
};

void PrintTo(const IndicesRow& row, std::ostream* out)
{
    *out << row.name;
}

constexpr unsigned long Wrapped = static_cast<unsigned long>(-1); // what a range of no rows ends with

const IndicesRow IndicesRows[] = {
    {"OneCell",         0,     0,       0,       0,       true },
    {"LastColumn",      0,     16383,   0,       0,       true },
    {"BeyondColumns",   0,     16384,   0,       0,       false},
    {"LastRow",         0,     0,       0,       1048575, true },
    {"BeyondRows",      0,     0,       0,       1048576, false},
    {"LastCell",        16383, 16383,   1048575, 1048575, true },
    {"BeyondBoth",      16384, 16384,   1048576, 1048576, false},
    {"RowsReversed",    0,     0,       1,       0,       false},
    {"ColumnsReversed", 1,     0,       0,       0,       false},
    {"WrappedRow",      0,     0,       0,       Wrapped, false},
    {"WrappedColumn",   0,     Wrapped, 0,       0,       false},
};

class IsValidRangeOfIndices : public testing::TestWithParam<IndicesRow>
{
};

TEST_P(IsValidRangeOfIndices, KeepsRow)
{
    const IndicesRow& row = GetParam();
    const DOM::Formula formula(std::make_unique<CellRange>(EmptyDocumentAddress, Known, std::string(),
        ColumnAxis(ColumnIndex(row.firstColumn), ColumnIndex(row.lastColumn)),
        RowAxis(RowIndex(row.firstRow), RowIndex(row.lastRow))));
    EXPECT_EQ(isValidRange(formula, makeContext()), row.isValid);
}

INSTANTIATE_TEST_SUITE_P(Rows, IsValidRangeOfIndices, testing::ValuesIn(IndicesRows),
    [](const auto& row) { return std::string(row.param.name); });

bool isValidCell(TableAddress table, unsigned long column, unsigned long row)
{
    return isValidRange(DOM::Formula(std::make_unique<CellAddress>(EmptyDocumentAddress, std::move(table),
                            ColumnAxisIndex(ColumnIndex(column)), RowAxisIndex(RowIndex(row)))),
        makeContext());
}

TEST(IsValidRangeOfCells, LooksAtTableAndLimits)
{
    EXPECT_TRUE(isValidCell(Known, 0, 0));
    EXPECT_FALSE(isValidCell(Unknown, 0, 0));
    EXPECT_FALSE(isValidCell(UUID(), 0, 0));
    EXPECT_TRUE(isValidCell(Known, 16383, 1048575));
    EXPECT_FALSE(isValidCell(Known, 16384, 0));
    EXPECT_FALSE(isValidCell(Known, 0, 1048576));
    EXPECT_FALSE(isValidCell(std::string(), 0, 0));
}

TEST(IsValidRangeOfTrees, TakesNothingButLists)
{
    const TableContext context = makeContext();
    const auto makeCell = [] {
        return std::make_unique<CellAddress>(
            EmptyDocumentAddress, Known, ColumnAxisIndex(ColumnIndex(0)), RowAxisIndex(RowIndex(0)));
    };
    EXPECT_FALSE(isValidRange(DOM::Formula(std::make_unique<Number>(1)), context));
    EXPECT_FALSE(isValidRange(DOM::Formula(std::make_unique<Empty>()), context));
    EXPECT_FALSE(isValidRange(DOM::Formula(std::make_unique<ArgumentsList>()), context));
    EXPECT_FALSE(
        isValidRange(DOM::Formula(std::make_unique<BinaryOp<RangeOp>>(makeCell(), makeCell())), context));
    EXPECT_FALSE(isValidRange(DOM::Formula(std::make_unique<UnaryOp<UnaryPlus>>(makeCell())), context));
    auto array = std::make_unique<Array>(1);
    array->appendChild(makeCell());
    EXPECT_FALSE(isValidRange(DOM::Formula(std::move(array)), context));
}

TEST(IsValidRangeOfTrees, DeepListsNeedNoStack)
{
    std::unique_ptr<Expr> tree = std::make_unique<CellAddress>(
        EmptyDocumentAddress, Known, ColumnAxisIndex(ColumnIndex(0)), RowAxisIndex(RowIndex(0)));
    for (int i = 0; i < 100000; ++i) {
        auto outer = std::make_unique<ArgumentsList>();
        outer->appendChild(std::move(tree));
        tree = std::move(outer);
    }
    EXPECT_TRUE(isValidRange(DOM::Formula(std::move(tree)), makeContext()));
}

TEST(TableContext, IsMadeForADocument)
{
    DOM::Document document;
    auto table = std::make_unique<DOM::Table>();
    table->setName("Sheet1");
    const UUID uuid = table->getUUID();
    document.getBlocks().append(std::make_unique<DOM::Paragraph>());
    document.getBlocks().append(std::move(table));
    const TableContext context = TableContext::makeFor(document);
    ASSERT_NE(context.findTable("Sheet1"), nullptr);
    EXPECT_EQ(*context.findTable("Sheet1"), uuid);
}

TEST(TableContext, FindsTheFirstOfAName)
{
    TableContext context;
    context.addTable(Known, "Sheet1");
    context.addTable(Unknown, "sheet1");
    context.addTable(UUID(3, 3), "");
    ASSERT_NE(context.findTable("SHEET1"), nullptr);
    EXPECT_EQ(*context.findTable("SHEET1"), Known);
    EXPECT_EQ(context.findTable(""), nullptr);
    EXPECT_EQ(context.findTable("Sheet2"), nullptr);
    ASSERT_NE(context.findName(Unknown), nullptr);
    EXPECT_EQ(*context.findName(Unknown), "sheet1");
    EXPECT_EQ(*context.findName(UUID(3, 3)), "");
    EXPECT_EQ(context.findName(UUID()), nullptr);
    EXPECT_EQ(context.getMaxRow().get(), 1048575U);
    EXPECT_EQ(context.getMaxColumn().get(), 16383U);
}

} // namespace
} // namespace QV::Formulas
