#include <FilterUtils/FU_NumberText.h>

#include <cstddef>
#include <limits>
#include <locale>
#include <ostream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/FloatNumber.h>
#include <FilterUtils/FU_Errors.h>

namespace QV::FilterUtils {
namespace {

using std::string_literals::operator""s;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

struct FormatRow
{
    const char* name;
    double value;
    unsigned long precision;
    const char* text;
};

void PrintTo(const FormatRow& row, std::ostream* out)
{
    *out << row.value << " with at most " << row.precision << " digits";
}

const FormatRow FormatRows[] = {
    {"Whole",            50,         15,         "50"          },
    {"Fraction",         -12.75,     15,         "-12.75"      },
    {"HalfToEvenDown",   0.125,      2,          "0.12"        },
    {"HalfToEvenUp",     2.375,      2,          "2.38"        },
    {"NoDigits",         2.5,        0,          "2"           },
    {"NoGrouping",       1234567.25, 1,          "1234567.2"   },
    {"LargestPrecision", 0.25,       2147483647, "0.25"        },
    {"NotANumber",       NotANumber, 3,          "NaN"         },
    {"Infinity",         Infinity,   3,          "\xE2\x88\x9E"},
};

class FormatDoubleToString : public testing::TestWithParam<FormatRow>
{
};

TEST_P(FormatDoubleToString, KeepsRow)
{
    EXPECT_EQ(formatDoubleToString(GetParam().value, GetParam().precision), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, FormatDoubleToString, testing::ValuesIn(FormatRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FormatDoubleToStringPrecision, IsRefusedAboveTheRangeOfInt)
{
    try {
        formatDoubleToString(1, 2147483648);
        FAIL() << "nothing was thrown";
    } catch (const BadNumCastError& error) {
        EXPECT_STREQ(error.what(), "bad numeric conversion: positive overflow");
    }
}

struct NumberStringRow
{
    const char* name;
    std::string text;
    bool isNumber;
};

void PrintTo(const NumberStringRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

const NumberStringRow NumberStringRows[] = {
    {"Zero",                    "0",        true },
    {"Integer",                 "10",       true },
    {"NegativeFraction",        "-3.25",    true },
    {"BelowOne",                "0.5",      true },
    {"NegativeBelowOne",        "-0.05",    true },
    {"ZerosWithinTheFraction",  "1.001",    true },
    {"PositiveExponent",        "1.5e+10",  true },
    {"NegativeExponent",        "-1.5E-10", true },
    {"ExponentWithoutFraction", "2e+1",     true },
    {"LargestExponent",         "1e+308",   true },
    {"SmallestExponent",        "5e-324",   true },
    {"TooLarge",                "1e+309",   false},
    {"TooLargeNegative",        "-1e+309",  false},
    {"TooSmall",                "1e-400",   false},
    {"Empty",                   "",         false},
    {"NegativeZero",            "-0",       false},
    {"TwoZeros",                "00",       false},
    {"LeadingZero",             "01",       false},
    {"TrailingZero",            "1.50",     false},
    {"ZeroFraction",            "1.0",      false},
    {"ZeroWithZeroFraction",    "0.0",      false},
    {"PlusSign",                "+1",       false},
    {"TwoSigns",                "--1",      false},
    {"ExponentWithoutSign",     "1e10",     false},
    {"LeadingZeroInExponent",   "1.5E-07",  false},
    {"ZeroExponent",            "1e+0",     false},
    {"ExponentAfterTwoDigits",  "12e+3",    false},
    {"ExponentAfterZero",       "0e+3",     false},
    {"NoDigitsInExponent",      "1e+",      false},
    {"PointAtTheBegin",         ".5",       false},
    {"PointAtTheEnd",           "5.",       false},
    {"Comma",                   "1,5",      false},
    {"BlankBefore",             " 1",       false},
    {"BlankAfter",              "1 ",       false},
    {"LineEndAfter",            "1\n",      false},
    {"NumberInALongerText",     "a1b",      false},
    {"Infinity",                "inf",      false},
    {"NotANumber",              "nan",      false},
    {"Hexadecimal",             "0x1",      false},
    {"NulAfter",                "1\0"s,     false},
};

class IsNumberString : public testing::TestWithParam<NumberStringRow>
{
};

TEST_P(IsNumberString, KeepsRow)
{
    EXPECT_EQ(isNumberString(GetParam().text), GetParam().isNumber);
}

INSTANTIATE_TEST_SUITE_P(Rows, IsNumberString, testing::ValuesIn(NumberStringRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(IsNumberStringOfALongText, Ends)
{
    const std::string zeros(1000000, '0');
    EXPECT_FALSE(isNumberString("1" + zeros));
    EXPECT_FALSE(isNumberString("0." + zeros));
    EXPECT_FALSE(isNumberString("0." + zeros + "1"));
    EXPECT_TRUE(isNumberString("1." + zeros + "1"));
    EXPECT_FALSE(isNumberString("1." + zeros + "1e+"));
}

struct ZeroSymbolRow
{
    const char* name;
    std::string text;
    std::string cleaned;
    bool isRemoved;
};

void PrintTo(const ZeroSymbolRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text);
}

const ZeroSymbolRow ZeroSymbolRows[] = {
    {"None",       "ab",            "ab",       false},
    {"Within",     "a\0b"s,         "ab",       true },
    {"AtTheEnds",  "\0ab\0"s,       "ab",       true },
    {"Several",    "\0\0a\0\0b\0"s, "ab",       true },
    {"Alone",      "\0"s,           "",         true },
    {"Empty",      "",              "",         false},
    {"DigitsStay", "0a0",           "0a0",      false},
    {"HighBytes",  "\xC3\0\xA4"s,   "\xC3\xA4", true },
};

class RemoveZeroSymbol : public testing::TestWithParam<ZeroSymbolRow>
{
};

TEST_P(RemoveZeroSymbol, KeepsRow)
{
    const ZeroSymbolRow& row = GetParam();
    EXPECT_EQ(removeZeroSymbol(row.text), std::make_pair(row.cleaned, row.isRemoved));
}

INSTANTIATE_TEST_SUITE_P(Rows, RemoveZeroSymbol, testing::ValuesIn(ZeroSymbolRows),
    [](const auto& row) { return std::string(row.param.name); });

template <typename Number>
std::string write(const Number& number)
{
    SeparatedClassicStream stream;
    stream.out(number);
    return stream.str();
}

struct WrittenDoubleRow
{
    const char* name;
    double value;
    const char* text;
};

void PrintTo(const WrittenDoubleRow& row, std::ostream* out)
{
    *out << row.value;
}

const WrittenDoubleRow WrittenDoubleRows[] = {
    {"Whole",              2.0,          "2"                     },
    {"WholeNegative",      -12.0,        "-12"                   },
    {"Zero",               0.0,          "0"                     },
    {"NegativeZero",       -0.0,         "-0"                    },
    {"Half",               2.5,          "2.500000"              },
    {"Third",              1.0 / 3,      "0.333333"              },
    {"BelowOne",           0.5,          "0.500000"              },
    {"AboveMinusOne",      -0.5,         "-0.500000"             },
    {"Tiny",               1e-300,       "0.000000"              },
    {"JustBelowOne",       1 - 0x1p-53,  "1.000000"              },
    {"WithinTheTolerance", 1 + 0x1p-50,  "1"                     },
    {"AtTheTolerance",     1 + 0x1p-48,  "1.000000"              },
    {"LargeFraction",      0x1p49 + 0.5, "562949953421312"       },
    {"SmallerFraction",    0x1p47 + 0.5, "140737488355328.500000"},
    {"NoGrouping",         1234567.0,    "1234567"               },
    {"Infinity",           Infinity,     "inf"                   },
    {"MinusInfinity",      -Infinity,    "-inf"                  },
    {"NotANumber",         NotANumber,   "nan"                   },
};

class WrittenDouble : public testing::TestWithParam<WrittenDoubleRow>
{
};

TEST_P(WrittenDouble, HasAFractionUnlessItIsWhole)
{
    EXPECT_EQ(write(GetParam().value), GetParam().text);
    EXPECT_EQ(write(FloatNumber(GetParam().value)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, WrittenDouble, testing::ValuesIn(WrittenDoubleRows),
    [](const auto& row) { return std::string(row.param.name); });

struct WrittenFloatRow
{
    const char* name;
    float value;
    const char* text;
};

void PrintTo(const WrittenFloatRow& row, std::ostream* out)
{
    *out << row.value;
}

// The quotient is taken in single precision, where that of LastHalf is at the tolerance, and not within it.
const WrittenFloatRow WrittenFloatRows[] = {
    {"Whole",              3.0F,                                    "3"            },
    {"Half",               1.5F,                                    "1.500000"     },
    {"Tiny",               1e-30F,                                  "0.000000"     },
    {"Third",              1.0F / 3,                                "0.333333"     },
    {"NextAboveOne",       0x1.000002p0F,                           "1"            },
    {"WithinTheTolerance", 1 + 0x1.cp-21F,                          "1"            },
    {"AtTheTolerance",     1 + 0x1.2p-20F,                          "1.000001"     },
    {"LastHalf",           524288.5F,                               "524288.500000"},
    {"HalfThatIsLost",     1048576.5F,                              "1048576"      },
    {"Infinity",           std::numeric_limits<float>::infinity(),  "inf"          },
    {"NotANumber",         std::numeric_limits<float>::quiet_NaN(), "nan"          },
};

class WrittenFloat : public testing::TestWithParam<WrittenFloatRow>
{
};

TEST_P(WrittenFloat, HasAFractionUnlessItIsWhole)
{
    EXPECT_EQ(write(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, WrittenFloat, testing::ValuesIn(WrittenFloatRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SeparatedClassicStream, WritesNothingBetweenNumbersOnItsOwn)
{
    SeparatedClassicStream stream;
    EXPECT_EQ(stream.str(), "");
    stream.out(2.5);
    stream.out(3.0F);
    stream.out(FloatNumber(0.25));
    EXPECT_EQ(stream.str(), "2.50000030.250000");
}

TEST(SeparatedClassicStream, SeparatesWhatIsAppended)
{
    SeparatedClassicStream stream;
    stream.append(1.0F);
    stream.append(0.5);
    stream.append(FloatNumber(-2));
    EXPECT_EQ(stream.str(), "1 0.500000 -2");
}

TEST(SeparatedClassicStream, SeparatesWhateverWasWrittenBefore)
{
    SeparatedClassicStream stream;
    stream.out(1.0);
    stream.append(2.0);
    stream.out(3.0);
    stream.append(4.0);
    EXPECT_EQ(stream.str(), "123 4");
}

struct GroupingComma : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(SeparatedClassicStream, DoesNotAskTheGlobalLocale)
{
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new GroupingComma));
    SeparatedClassicStream stream;
    stream.append(1234567.5);
    stream.append(1234567.0);
    std::locale::global(before);
    EXPECT_EQ(stream.str(), "1234567.500000 1234567");
}

} // namespace
} // namespace QV::FilterUtils
