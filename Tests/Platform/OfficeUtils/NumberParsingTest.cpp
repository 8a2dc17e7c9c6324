#include <OfficeUtils/Public/NumberParsing.h>

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <ostream>
#include <random>
#include <string>

#include <boost/regex.hpp>
#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>

namespace QV::OfficeUtils {
namespace {

using std::string_literals::operator""s;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Largest = std::numeric_limits<double>::max();
constexpr double SmallestSubnormal = std::numeric_limits<double>::denorm_min();

struct AcceptedRow
{
    const char* name;
    std::string text;
    double value;
};

void PrintTo(const AcceptedRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

const AcceptedRow AcceptedRows[] = {
    {"Zero",                   "0",                           0                 },
    {"Integer",                "12",                          12                },
    {"LeadingZeros",           "0012",                        12                },
    {"Fraction",               "-3.25",                       -3.25             },
    {"PointAtTheEnd",          "5.",                          5                 },
    {"PointAtTheBegin",        ".5",                          0.5               },
    {"PlusSign",               "+1.5",                        1.5               },
    {"PlusBeforePoint",        "+.5",                         0.5               },
    {"MinusBeforePoint",       "-.5",                         -0.5              },
    {"NegativeZero",           "-0",                          -0.0              },
    {"PositiveZero",           "+0",                          0.0               },
    {"Exponent",               "1e3",                         1000              },
    {"UpperCaseExponent",      "1E3",                         1000              },
    {"PlusInExponent",         "1e+3",                        1000              },
    {"MinusInExponent",        "1e-3",                        0.001             },
    {"ExponentAfterPoint",     "5.e1",                        50                },
    {"ExponentAfterFraction",  ".5e1",                        5                 },
    {"LeadingZerosInExponent", "1e0000000000000000000003",    1000              },
    {"Nearest",                "0.1",                         0.1               },
    {"SeventeenDigits",        "2.8346471786499023",          2.8346471786499023},
    {"TieGoesToEven",          "9007199254740993",            9007199254740992  },
    {"JustAboveATie",          "9007199254740993.0000000001", 9007199254740994  },
    {"LargestFinite",          "1.7976931348623157e308",      Largest           },
    {"RoundsDownToLargest",    "1.7976931348623158e308",      Largest           },
    {"RoundsUpToInfinity",     "1.7976931348623159e308",      Infinity          },
    {"TooLarge",               "1e309",                       Infinity          },
    {"TooLargeNegative",       "-1e309",                      -Infinity         },
    {"TooLargeWithPlus",       "+1e309",                      Infinity          },
    {"SmallestSubnormal",      "5e-324",                      SmallestSubnormal },
    {"RoundsUpToSubnormal",    "2.4703282292062328e-324",     SmallestSubnormal },
    {"RoundsDownToZero",       "2.4703282292062327e-324",     0                 },
    {"TooSmall",               "1e-400",                      0                 },
    {"TooSmallNegative",       "-1e-400",                     -0.0              },
    {"ZeroWithHugeExponent",   "0e999999999",                 0                 },
    {"ZerosWithHugeExponent",  "-0.000e999999999",            -0.0              },
};

class StringToDoubleAccepted : public testing::TestWithParam<AcceptedRow>
{
};

TEST_P(StringToDoubleAccepted, GivesTheValueAndItsSign)
{
    const AcceptedRow& row = GetParam();
    const auto value = stringToDouble(row.text);
    ASSERT_TRUE(value.has_value());
    EXPECT_EQ(*value, row.value);
    EXPECT_EQ(std::signbit(*value), std::signbit(row.value));
}

INSTANTIATE_TEST_SUITE_P(Rows, StringToDoubleAccepted, testing::ValuesIn(AcceptedRows),
    [](const auto& row) { return std::string(row.param.name); });

struct LongRow
{
    const char* name;
    const char* begin;
    std::size_t count; // of the digit
    char digit;
    const char* end;
    double value;
};

void PrintTo(const LongRow& row, std::ostream* out)
{
    *out << row.begin << row.count << " times " << row.digit << row.end;
}

const LongRow LongRows[] = {
    {"TooLargeByItsDigits",       "",    310,    '9', "",          Infinity},
    {"EndlessExponent",           "1e",  1000,   '9', "",          Infinity},
    {"EndlessNegativeExponent",   "1e-", 1000,   '9', "",          0       },
    {"TooSmallByItsDigits",       "0.",  400,    '0', "1",         0       },
    {"ManyDigits",                "1",   400,    '0', "e-400",     1       },
    {"ManyZeros",                 "0.",  399,    '0', "1e400",     1       },
    {"LongDigits",                "1",   700000, '0', "e-700000",  1       },
    {"LongZeros",                 "-.",  699999, '0', "1e700000",  -1      },
    {"LongZerosTenTimesTheLimit", ".",   655360, '0', "1e6553600", Infinity},
};

class StringToDoubleLong : public testing::TestWithParam<LongRow>
{
};

TEST_P(StringToDoubleLong, GivesTheValue)
{
    const LongRow& row = GetParam();
    EXPECT_EQ(stringToDouble(row.begin + std::string(row.count, row.digit) + row.end), row.value);
}

INSTANTIATE_TEST_SUITE_P(Rows, StringToDoubleLong, testing::ValuesIn(LongRows),
    [](const auto& row) { return std::string(row.param.name); });

struct RefusedRow
{
    const char* name;
    std::string text;
};

void PrintTo(const RefusedRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

const RefusedRow RefusedRows[] = {
    {"Empty",               ""        },
    {"SignAlone",           "-"       },
    {"PlusAlone",           "+"       },
    {"PointAlone",          "."       },
    {"SignAndPoint",        "-."      },
    {"ExponentAlone",       "e5"      },
    {"PointAndExponent",    ".e5"     },
    {"NoDigitsInExponent",  "1e"      },
    {"SignInExponentAlone", "1e+"     },
    {"TwoSigns",            "+-1"     },
    {"TwoPluses",           "++1"     },
    {"MinusPlus",           "-+1"     },
    {"TwoPoints",           "1.2.3"   },
    {"TwoExponents",        "1e2e3"   },
    {"PointInExponent",     "1e2.5"   },
    {"BlankBefore",         " 1"      },
    {"BlankAfter",          "1 "      },
    {"BlankWithin",         "1 2"     },
    {"LineEndAfter",        "1\n"     },
    {"Comma",               "1,5"     },
    {"Grouping",            "1,234.5" },
    {"Hexadecimal",         "0x10"    },
    {"HexadecimalExponent", "0x1p3"   },
    {"HexadecimalDigits",   "ff"      },
    {"Infinity",            "inf"     },
    {"InfinityInFull",      "infinity"},
    {"InfinityWithSign",    "-inf"    },
    {"InfinityWithPlus",    "+INF"    },
    {"NotANumber",          "nan"     },
    {"NotANumberWithSign",  "-nan"    },
    {"NotANumberWithText",  "nan(1)"  },
    {"Unit",                "12pt"    },
    {"Suffix",              "1f"      },
    {"NulAfter",            "1\0"s    },
    {"NulBefore",           "\0001"s  },
    {"NulWithin",           "1\0002"s },
    {"TooLargeWithTail",    "1e999x"  },
    {"OtherDigits",         "\xD9\xA1"},
};

class StringToDoubleRefused : public testing::TestWithParam<RefusedRow>
{
};

TEST_P(StringToDoubleRefused, GivesNothing)
{
    EXPECT_EQ(stringToDouble(GetParam().text), boost::none);
}

INSTANTIATE_TEST_SUITE_P(Rows, StringToDoubleRefused, testing::ValuesIn(RefusedRows),
    [](const auto& row) { return std::string(row.param.name); });

// Every text of up to five characters of a small alphabet, against the grammar as a regular expression and
// the C library's reading.
TEST(StringToDouble, AgreesWithTheGrammarOnEveryShortText)
{
    const boost::regex grammar(R"([+-]?([0-9]+(\.[0-9]*)?|\.[0-9]+)([eE][+-]?[0-9]+)?)");
    const std::string alphabet = "+-.eE019n";
    for (std::size_t length = 0, count = 1; length <= 5; ++length, count *= alphabet.size())
        for (std::size_t number = 0; number < count; ++number) {
            std::string text;
            for (std::size_t rest = number; text.size() < length; rest /= alphabet.size())
                text += alphabet[rest % alphabet.size()];
            const auto value = stringToDouble(text);
            ASSERT_EQ(value.has_value(), boost::regex_match(text, grammar)) << text;
            if (value) {
                ASSERT_EQ(*value, std::strtod(text.c_str(), nullptr)) << text;
            }
        }
}

TEST(StringToDouble, AgreesWithTheCLibraryOnRandomPrices)
{
    std::mt19937 random(2);
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    for (int i = 0; i < 200000; ++i) {
        std::string text = below(2) ? "-" : "";
        const unsigned size = 1 + below(18); // on both sides of what one division can do
        for (unsigned digits = size; digits > 0; --digits)
            text += static_cast<char>('0' + below(10));
        if (below(4) > 0)
            text.insert(text.size() - below(size), ".");
        const auto value = stringToDouble(text);
        ASSERT_TRUE(value.has_value()) << text;
        ASSERT_EQ(*value, std::strtod(text.c_str(), nullptr)) << text;
        ASSERT_EQ(std::signbit(*value), text[0] == '-') << text;
    }
}

TEST(StringToDouble, AgreesWithTheCLibraryOnRandomNumbers)
{
    std::mt19937 random(1);
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    for (int i = 0; i < 50000; ++i) {
        std::string text = below(2) ? "-" : "";
        for (unsigned digits = 1 + below(25); digits > 0; --digits)
            text += static_cast<char>('0' + below(10));
        text += '.';
        for (unsigned digits = below(25); digits > 0; --digits)
            text += static_cast<char>('0' + below(10));
        text += 'e' + std::to_string(static_cast<int>(below(720)) - 370);
        const auto value = stringToDouble(text);
        ASSERT_TRUE(value.has_value()) << text;
        ASSERT_EQ(*value, std::strtod(text.c_str(), nullptr)) << text;
    }
}

} // namespace
} // namespace QV::OfficeUtils
