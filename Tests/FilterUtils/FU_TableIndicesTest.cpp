#include <FilterUtils/FU_TableIndices.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace QV::FilterUtils {
namespace {

struct AlphaRow
{
    const char* name;
    unsigned long row;
    unsigned long column;
    const char* text;
};

void PrintTo(const AlphaRow& row, std::ostream* out)
{
    *out << "row " << row.row << ", column " << row.column;
}

const AlphaRow AlphaRows[] = {
    {"First",             0,       0,     "A1"        },
    {"LastOneLetter",     0,       25,    "Z1"        },
    {"FirstTwoLetters",   0,       26,    "AA1"       },
    {"RowNineColumn27",   9,       27,    "AB10"      },
    {"LastTwoLetters",    98,      701,   "ZZ99"      },
    {"FirstThreeLetters", 99,      702,   "AAA100"    },
    {"LastCellOfASheet",  1048575, 16383, "XFD1048576"},
    {"BeyondTheSheet",    1048576, 16384, "XFE1048577"},
};

class ToAlphaIndex : public testing::TestWithParam<AlphaRow>
{
};

TEST_P(ToAlphaIndex, NamesTheCell)
{
    const AlphaRow& row = GetParam();
    EXPECT_EQ(toAlphaIndex(RowIndex(row.row), ColumnIndex(row.column)), row.text);
    EXPECT_EQ(toAlphaIndex(CellIndex(RowIndex(row.row), ColumnIndex(row.column))), row.text);
}

INSTANTIATE_TEST_SUITE_P(Rows, ToAlphaIndex, testing::ValuesIn(AlphaRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::FilterUtils
