#include <FilterUtils/FU_Lengths.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>
#include <Utils/Public/OperationReport.h>

namespace QV::FilterUtils {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::IsEmpty;
using Argument = OperationReport::Message::Argument;

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float Largest = std::numeric_limits<float>::max();
constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

struct PercentageRow
{
    const char* name;
    std::string text;
    boost::optional<double> fraction; // nothing: refused
};

void PrintTo(const PercentageRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

const boost::optional<double> NoFraction;

const PercentageRow PercentageRows[] = {
    {"Thousandths",         "50000",  0.5                                    },
    {"ThousandthsNegative", "-12345", -0.12345                               },
    {"Zero",                "0",      0.0                                    },
    {"DividedTwice",        "1",      1.0 / 1000 / 100                       },
    {"Sign",                "50%",    0.5                                    },
    {"SignFraction",        "12.5%",  0.125                                  },
    {"SignNegative",        "-150%",  -1.5                                   },
    {"TailAfterSign",       "50%abc", 0.5                                    },
    {"BlankAfterSign",      "50% ",   0.5                                    },
    {"Exponent",            "5e1%",   0.5                                    },
    {"TooLarge",            "1e999%", std::numeric_limits<double>::infinity()},
    {"LastSignCounts",      "50%50%", NoFraction                             },
    {"TwoSigns",            "50%%",   NoFraction                             },
    {"NotANumber",          "x%",     NoFraction                             },
    {"SignAlone",           "%",      NoFraction                             },
    {"Empty",               "",       NoFraction                             },
    {"BlankBeforeSign",     "50 %",   NoFraction                             },
    {"BlankBefore",         " 50%",   NoFraction                             },
    {"OtherText",           "half",   NoFraction                             },
    {"NulBeforeSign",       "50\0%"s, NoFraction                             },
};

class ConvertPercentage : public testing::TestWithParam<PercentageRow>
{
};

TEST_P(ConvertPercentage, KeepsRow)
{
    const PercentageRow& row = GetParam();
    OperationReport report;
    EXPECT_EQ(convertPercentage(report, row.text), row.fraction);
    if (row.fraction) {
        EXPECT_THAT(report.getMessages(), IsEmpty());
        return;
    }
    ASSERT_EQ(report.getMessages().size(), 1U);
    EXPECT_EQ(report.getMessages()[0].getText(), "Can't parse percentage value {0}");
    EXPECT_THAT(report.getMessages()[0].getArguments(), ElementsAre(Argument(row.text)));
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertPercentage, testing::ValuesIn(PercentageRows),
    [](const auto& row) { return std::string(row.param.name); });

struct ToPercentageRow
{
    const char* name;
    double fraction;
    const char* text;
};

void PrintTo(const ToPercentageRow& row, std::ostream* out)
{
    *out << row.fraction;
}

const ToPercentageRow ToPercentageRows[] = {
    {"Half",          0.5,          "50%"               },
    {"Zero",          0.0,          "0%"                },
    {"Negative",      -1.5,         "-150%"             },
    {"Fraction",      0.12345,      "12.345%"           },
    {"FifteenDigits", 1e-17,        "0.000000000000001%"},
    {"BeyondFifteen", 1e-18,        "0%"                },
    {"NoGrouping",    12345.0,      "1234500%"          },
    {"AsDoublesAre",  0.07,         "7.000000000000001%"},
    {"Infinity",      HUGE_VAL,     "\xE2\x88\x9E%"     },
    {"NotANumber",    std::nan(""), "NaN%"              },
};

class ConvertToPercentage : public testing::TestWithParam<ToPercentageRow>
{
};

TEST_P(ConvertToPercentage, WritesIcusText)
{
    EXPECT_EQ(convertToPercentage(GetParam().fraction), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertToPercentage, testing::ValuesIn(ToPercentageRows),
    [](const auto& row) { return std::string(row.param.name); });

constexpr long long LargestEmu = std::numeric_limits<long long>::max();
constexpr long long SmallestEmu = std::numeric_limits<long long>::min();

struct EmuToPointsRow
{
    const char* name;
    long long emu;
    float points;
};

void PrintTo(const EmuToPointsRow& row, std::ostream* out)
{
    *out << row.emu << " EMU";
}

const EmuToPointsRow EmuToPointsRows[] = {
    {"Zero",           0,           0                     },
    {"Point",          12700,       1                     },
    {"Inch",           914400,      72                    },
    {"Negative",       -6350,       -0.5F                 },
    {"One",            1,           1.0F / 12700.0F       },
    {"RoundedToFloat", 16777217,    16777216.0F / 12700.0F},
    {"Largest",        LargestEmu,  0x1p63F / 12700.0F    },
    {"Smallest",       SmallestEmu, -0x1p63F / 12700.0F   },
};

class ConvertEMUToPoints : public testing::TestWithParam<EmuToPointsRow>
{
};

TEST_P(ConvertEMUToPoints, DividesInSinglePrecision)
{
    EXPECT_EQ(convertEMUToPoints(GetParam().emu), GetParam().points);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertEMUToPoints, testing::ValuesIn(EmuToPointsRows),
    [](const auto& row) { return std::string(row.param.name); });

struct PointsToEmuRow
{
    const char* name;
    float points;
    long long emu;
};

void PrintTo(const PointsToEmuRow& row, std::ostream* out)
{
    *out << row.points << " points";
}

const PointsToEmuRow PointsToEmuRows[] = {
    {"Zero",              0,                    0            },
    {"One",               1,                    12700        },
    {"Negative",          -0.5F,                -6350        },
    {"BelowOneEmu",       0.99999F / 12700.0F,  0            },
    {"AboveMinusOneEmu",  -0.99999F / 12700.0F, 0            },
    {"AboveOneEmu",       1.5F / 12700.0F,      1            },
    {"TowardsZero",       -1.5F / 12700.0F,     -1           },
    {"InSinglePrecision", 1322.0001F,           16789402     },
    {"BelowTheLargest",   0x1p49F,              12700LL << 49},
    {"AtTheLargest",      0x1p63F / 12700.0F,   LargestEmu   },
    {"BeyondTheLargest",  1e30F,                LargestEmu   },
    {"BeyondFloat",       Largest,              LargestEmu   },
    {"Infinity",          Infinity,             LargestEmu   },
    {"AtTheSmallest",     -0x1p63F / 12700.0F,  SmallestEmu  },
    {"BeyondTheSmallest", -1e30F,               SmallestEmu  },
    {"MinusInfinity",     -Infinity,            SmallestEmu  },
    {"NotANumber",        NotANumber,           0            },
};

class ConvertPointsToEMU : public testing::TestWithParam<PointsToEmuRow>
{
};

TEST_P(ConvertPointsToEMU, CutsOffAndStaysInRange)
{
    EXPECT_EQ(convertPointsToEMU(GetParam().points), GetParam().emu);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertPointsToEMU, testing::ValuesIn(PointsToEmuRows),
    [](const auto& row) { return std::string(row.param.name); });

struct LineWidthRow
{
    const char* name;
    boost::optional<float> width;
    DOM::LineWidth lineWidth;
};

void PrintTo(const LineWidthRow& row, std::ostream* out)
{
    *out << row.width;
}

const LineWidthRow LineWidthRows[] = {
    {"None",                  boost::none, DOM::LineWidth::Thin  },
    {"Zero",                  0.0F,        DOM::LineWidth::Thin  },
    {"Negative",              -5.0F,       DOM::LineWidth::Thin  },
    {"Thin",                  0.75F,       DOM::LineWidth::Thin  },
    {"BelowThinAndMedium",    1.12499F,    DOM::LineWidth::Thin  },
    {"BetweenThinAndMedium",  1.125F,      DOM::LineWidth::Medium},
    {"Medium",                1.5F,        DOM::LineWidth::Medium},
    {"BelowMediumAndThick",   1.87499F,    DOM::LineWidth::Medium},
    {"BetweenMediumAndThick", 1.875F,      DOM::LineWidth::Thick },
    {"Thick",                 2.25F,       DOM::LineWidth::Thick },
    {"Huge",                  1000.0F,     DOM::LineWidth::Thick },
    {"Infinity",              Infinity,    DOM::LineWidth::Thick },
    {"NotANumber",            NotANumber,  DOM::LineWidth::Thick },
};

class ConvertToLineWidth : public testing::TestWithParam<LineWidthRow>
{
};

TEST_P(ConvertToLineWidth, TakesTheNearest)
{
    EXPECT_EQ(convertToLineWidth(GetParam().width), GetParam().lineWidth);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertToLineWidth, testing::ValuesIn(LineWidthRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(LineWidth, HasTheNumbersOfItsClasses)
{
    EXPECT_EQ(static_cast<int>(DOM::LineWidth::Thin), 0);
    EXPECT_EQ(static_cast<int>(DOM::LineWidth::Medium), 1);
    EXPECT_EQ(static_cast<int>(DOM::LineWidth::Thick), 2);
}

} // namespace
} // namespace QV::FilterUtils
