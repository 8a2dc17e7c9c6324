#include <Filters/Spreadsheet/CellReferences.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <FilterUtils/FU_TableIndices.h>
#include <Tests/Support/Printers.h>

namespace QV::Filters {
namespace {

CellIndex at(unsigned long row, unsigned long column)
{
    return CellIndex(RowIndex(row), ColumnIndex(column));
}

struct CellRow
{
    const char* name;
    std::u16string text;
    boost::optional<CellIndex> cell;
};

void PrintTo(const CellRow& row, std::ostream* out)
{
    *out << row.name;
}

const CellRow CellRows[] = {
    {"First",         u"A1",      at(0,                      0)},
    {"Last",               u"XFD1048576",                    at(1048575,                  16383)},
    {"LowerCase",         u"ab10",                   at(9,                 27)},
    {"Absolute",           u"$C$7",at(6,         2)},
    {"BeyondTheGrid",u"XFE1048577",     at(1048576,                    16384)},
    {"LargestRow", u"A4294967295", at(4294967294,            0)},
    {"RowTooLarge",               u"A4294967296",              boost::none                        },
    {"RowFarTooLarge",             u"A99999999999999999999999",                       boost::none                        },
    {"ColumnTooLarge",    u"AAAAAAAAAAAAAAAAAAAA1", boost::none},
    {"Empty",    u"",boost::none},
    {"NoRow",    u"A",              boost::none                                              },
    {"NoColumn",    u"1",                       boost::none                                                                },
    {"RowZero",    u"A0", boost::none},
    {"LeadingZero",    u"A01",boost::none},
    {"Blank",    u"A 1",              boost::none                                                        },
    {"BlankAfter",    u"A1 ",                       boost::none                                                                                                 },
    {"Negative",    u"A-1", boost::none},
    {"Range",    u"A1:B2",boost::none},
    {"NotALetter",    u"\u00C41",              boost::none                                                                          },
    {"BacktickIsNoLetter",    u"`1",                       boost::none                                                                                                                              },
    {"BraceIsNoLetter",    u"{1", boost::none},
    {"AtIsNoLetter",    u"@1",boost::none},
    {"FullWidthDigit",    u"A\uFF11",              boost::none                                                                                             },
    {"DollarAlone",    u"$",                       boost::none                                                                                                                                                              },
    {"TwoDollars",    u"$$A1", boost::none},
};

class ParseCellReference : public testing::TestWithParam<CellRow>
{
};

TEST_P(ParseCellReference, KeepsRow)
{
    EXPECT_EQ(parseCellReference(GetParam().text), GetParam().cell);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParseCellReference, testing::ValuesIn(CellRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ParseCellReference, UndoesToAlphaIndexForEveryColumn)
{
    for (unsigned long column = 0; column <= 16384; ++column) {
        const std::string name = FilterUtils::toAlphaIndex(RowIndex(column * 63), ColumnIndex(column));
        ASSERT_EQ(parseCellReference(std::u16string(name.begin(), name.end())), at(column * 63, column))
            << name;
    }
}

TEST(ParseRangeReference, TakesCornersInAnyOrder)
{
    EXPECT_EQ(parseRangeReference(u"A1:C3"), TableRange(0, 0, 3, 3));
    EXPECT_EQ(parseRangeReference(u"C3:A1"), TableRange(0, 0, 3, 3));
    EXPECT_EQ(parseRangeReference(u"C1:A3"), TableRange(0, 0, 3, 3));
    EXPECT_EQ(parseRangeReference(u"$B$2"), TableRange(1, 1, 2, 2));
    EXPECT_EQ(parseRangeReference(u"A1:XFD1048576"), TableRange(0, 0, 1048576, 16384));
}

TEST(ParseRangeReference, RefusesWhatIsNoRectangle)
{
    for (const char16_t* const text :
        {u"", u":", u"A1:", u":A1", u"A1:B2:C3", u"A1 B2", u"A:C", u"1:3", u"#REF!"})
        EXPECT_FALSE(parseRangeReference(text));
}

TEST(IsInGrid, EndsAtTheLastCell)
{
    EXPECT_TRUE(isInGrid(at(1048575, 16383)));
    EXPECT_FALSE(isInGrid(at(1048576, 0)));
    EXPECT_FALSE(isInGrid(at(0, 16384)));
}

} // namespace
} // namespace QV::Filters
