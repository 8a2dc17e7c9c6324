#include <Utils/Public/NumberText.h>

#include <limits>
#include <ostream>
#include <stdexcept>
#include <string>

#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

namespace QV {
namespace {

constexpr std::size_t Untouched = 0xdead;
constexpr unsigned long Max = std::numeric_limits<unsigned long>::max();

struct NumberRow
{
    const char* name;
    std::string text;
    int base;
    boost::optional<unsigned long> value;
    std::size_t position;
};

void PrintTo(const NumberRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text) << " in base " << row.base;
}

// name, text, base, value, position
const NumberRow NumberRows[] = {
    {"Colour",              "ff8000",                16, 0xff8000UL,  6        },
    {"MixedCase",           "fFaA",                  16, 0xffaaUL,    4        },
    {"Prefix",              "0xff",                  16, 0xffUL,      4        },
    {"CapitalPrefix",       "0XFF",                  16, 0xffUL,      4        },
    {"SignAndPrefix",       "-0x1",                  16, Max,         4        },
    {"PrefixAlone",         "0x",                    16, 0UL,         1        },
    {"PrefixBeforeNoDigit", "0xg",                   16, 0UL,         1        },
    {"PrefixTwice",         "0x0x1",                 16, 0UL,         3        },
    {"PrefixInTen",         "0x1",                   10, 0UL,         1        },
    {"StopsAtOther",        "12pt",                  10, 12UL,        2        },
    {"Blanks",              " \t\n\v\f\r7",          10, 7UL,         7        },
    {"BlankAfter",          "7 ",                    10, 7UL,         1        },
    {"BlankAfterSign",      "- 7",                   10, boost::none, Untouched},
    {"NoBreakSpace",
     "\xa0"
        "7",                                         10, boost::none, Untouched},
    {"Plus",                "+7",                    10, 7UL,         2        },
    {"MinusOne",            "-1",                    10, Max,         2        },
    {"MinusZero",           "-0",                    10, 0UL,         2        },
    {"TwoSigns",            "+-7",                   10, boost::none, Untouched},
    {"Empty",               "",                      10, boost::none, Untouched},
    {"SignAlone",           "-",                     10, boost::none, Untouched},
    {"BlankAlone",          " ",                     10, boost::none, Untouched},
    {"NoDigit",             "x",                     16, boost::none, Untouched},
    {"Hash",                "#ff",                   16, boost::none, Untouched},
    {"Largest",             "18446744073709551615",  10, Max,         20       },
    {"TooLarge",            "18446744073709551616",  10, boost::none, Untouched},
    {"LargestNegated",      "-18446744073709551615", 10, 1UL,         21       },
    {"TooLargeNegated",     "-18446744073709551616", 10, boost::none, Untouched},
    {"SixteenDigits",       "ffffffffffffffff",      16, Max,         16       },
    {"SeventeenDigits",     "10000000000000000",     16, boost::none, Untouched},
    {"NulInside",
     {"1\0"
         "2",
            3},
     10,                                                 1UL,         1        },
    {"BaseTwo",             "102",                   2,  2UL,         2        },
    {"Base36",              "zZ",                    36, 1295UL,      2        },
    {"AutoTen",             "19",                    0,  19UL,        2        },
    {"AutoEight",           "019",                   0,  1UL,         2        },
    {"AutoSixteen",         "0x1f",                  0,  31UL,        4        },
    {"AutoZero",            "0",                     0,  0UL,         1        },
    {"BaseOne",             "0",                     1,  boost::none, Untouched},
    {"Base37",              "0",                     37, boost::none, Untouched},
    {"NegativeBase",        "0",                     -1, boost::none, Untouched},
};

class StrToUlong : public testing::TestWithParam<NumberRow>
{
};

TEST_P(StrToUlong, KeepsRow)
{
    const NumberRow& row = GetParam();
    std::size_t position = Untouched;
    EXPECT_EQ(strToUlong(row.text, &position, row.base), row.value);
    EXPECT_EQ(position, row.position);
    EXPECT_EQ(strToUlong(row.text, nullptr, row.base), row.value);
}

INSTANTIATE_TEST_SUITE_P(Rows, StrToUlong, testing::ValuesIn(NumberRows),
    [](const auto& row) { return std::string(row.param.name); });

void expectAsStandard(const std::string& text, int base)
{
    boost::optional<unsigned long> expected;
    std::size_t expectedPosition = Untouched;
    try {
        expected = std::stoul(text, &expectedPosition, base);
    } catch (const std::logic_error&) { // no number
    } catch (const std::runtime_error&) {
    }
    std::size_t position = Untouched;
    EXPECT_EQ(strToUlong(text, &position, base), expected)
        << testing::PrintToString(text) << " in base " << base;
    EXPECT_EQ(position, expected ? expectedPosition : Untouched) << testing::PrintToString(text);
}

TEST(StrToUlong, AgreesWithTheStandardOnAllShortTexts)
{
    const std::string alphabet = " +-0189axXfFgz\n.";
    for (const int base : {0, 2, 8, 10, 16, 36})
        for (const char a : alphabet)
            for (const char b : alphabet)
                for (const char c : alphabet)
                    for (const char d : alphabet)
                        expectAsStandard({a, b, c, d}, base);
}

} // namespace
} // namespace QV
