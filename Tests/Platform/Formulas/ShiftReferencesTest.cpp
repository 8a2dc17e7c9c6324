#include <Formulas/Public/ShiftReferences.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <Formulas/Public/FormulaText.h>
#include <Formulas/Public/TableContext.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::Formulas {
namespace {

struct ShiftRow
{
    const char* name;
    const char* text;
    long rows;
    long columns;
    const char* shifted;
};

void PrintTo(const ShiftRow& row, std::ostream* out)
{
    *out << row.text << " by " << row.rows << " and " << row.columns;
}

const ShiftRow ShiftRows[] = {
    {"Nowhere",          "A1+B2:C3",         0,       0,     "A1+B2:C3"        },
    {"Downwards",        "A1",               1,       0,     "A2"              },
    {"ToTheRight",       "A1",               0,       27,    "AB1"             },
    {"UpToTheLeft",      "C3",               -2,      -2,    "A1"              },
    {"AbsoluteStays",    "$A$1+$A1+A$1",     2,       1,     "$A$1+$A3+B$1"    },
    {"Nested",           "IF(A1,-B1,{1,2})", 1,       0,     "IF(A2,-B2,{1,2})"},
    {"Parentheses",      "(A1+B1)*(C1)",     1,       0,     "(A2+B2)*(C2)"    },
    {"Range",            "SUM(A1:B2)",       3,       1,     "SUM(B4:C5)"      },
    {"RangeGrows",       "SUM(A$1:A1)",      3,       0,     "SUM(A$1:A4)"     },
    {"RangeTurns",       "SUM(A$3:A4)",      -3,      0,     "SUM(A1:A$3)"     },
    {"WholeColumns",     "SUM(A:B)",         5,       1,     "SUM(B:C)"        },
    {"WholeRows",        "SUM($1:2)",        1,       5,     "SUM($1:3)"       },
    {"OtherTable",       "'My sheet'!A1",    1,       0,     "'My sheet'!A2"   },
    {"RowOfTables",      "Sheet1:Sheet2!A1", 1,       0,     "Sheet1:Sheet2!A2"},
    {"OtherDocument",    "[1]Sheet1!A1",     1,       0,     "[1]Sheet1!A2"    },
    {"Names",            "Rate+T[a]+F(1)",   1,       1,     "Rate+T[a]+F(1)"  },
    {"LastRow",          "A1",               1048575, 0,     "A1048576"        },
    {"BeyondLastRow",    "A1",               1048576, 0,     "#REF!"           },
    {"BeyondRowsInside", "A2+1",             1048575, 0,     "#REF!+1"         },
    {"FirstRow",         "A5",               -4,      0,     "A1"              },
    {"BeforeFirstRow",   "1+A5",             -5,      0,     "1+#REF!"         },
    {"LastColumn",       "A1",               0,       16383, "XFD1"            },
    {"BeyondLastColumn", "A1",               0,       16384, "#REF!"           },
    {"BeforeFirst",      "F(B1,C1)",         0,       -2,    "F(#REF!,A1)"     },
    {"RangeBeyond",      "SUM(A1:B2)",       1048575, 0,     "SUM(#REF!)"      },
};

class MakeShifted : public testing::TestWithParam<ShiftRow>
{
};

TEST_P(MakeShifted, KeepsRow)
{
    const ShiftRow& row = GetParam();
    const auto parsed = parseFormula(row.text);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(toText(makeShifted(parsed->formula, row.rows, row.columns), TableContext()), row.shifted);
    EXPECT_EQ(toText(parsed->formula, TableContext()), row.text) << "the formula itself stays";
}

INSTANTIATE_TEST_SUITE_P(Rows, MakeShifted, testing::ValuesIn(ShiftRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(MakeShiftedArrays, KeepTheirRanges)
{
    const TableRange cells(1, 1, 3, 2);
    for (const char* const text : {"A1", "A1:B2", "A1+1", "A1:A1048576"}) {
        auto parsed = parseFormula(text);
        ASSERT_TRUE(parsed);
        parsed->formula.setArrayRange(cells);
        EXPECT_TRUE(makeShifted(parsed->formula, 1, 0).getArrayRange() == cells) << text;
    }
    EXPECT_FALSE(makeShifted(parseFormula("A1")->formula, 1, 0).getArrayRange());
}

TEST(MakeShiftedDistances, AreTakenInAnySize)
{
    constexpr long Min = -9223372036854775807L - 1;
    const auto parsed = parseFormula("A1");
    EXPECT_EQ(toText(makeShifted(parsed->formula, Min, Min), TableContext()), "#REF!");
    EXPECT_EQ(toText(makeShifted(parsed->formula, -(Min + 1), 0), TableContext()), "#REF!");
}

TEST(MakeShiftedDepth, TakesDeepTrees)
{
    constexpr int Depth = 100000;
    std::string text;
    for (int i = 0; i < Depth; ++i)
        text += "F(";
    const std::string closing(Depth, ')');
    const auto parsed = parseFormula(text + "A1" + closing);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(toText(makeShifted(parsed->formula, 1, 1), TableContext()), text + "B2" + closing);
}

} // namespace
} // namespace QV::Formulas
