#include <FilterUtils/FU_Lengths.h>

#include <limits>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>
#include <Tests/Support/RecordedAssertions.h>
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

const UnitOpt None;
const char* const Unparsed = "Can't parse length value {}";
const char* const UnknownUnits = "Unknown units in {}";
const char* const NotPositive = "Unexpected value for positiveLength {}";
const char* const IsNegative = "Unexpected value for nonNegativeLength {}";

void expectOneMessage(const OperationReport& report, const char* pattern, const std::string& text)
{
    ASSERT_EQ(report.getMessages().size(), 1U);
    EXPECT_EQ(report.getMessages()[0].getText(), pattern);
    EXPECT_THAT(report.getMessages()[0].getArguments(), ElementsAre(Argument(text)));
}

static_assert(anyLength == 0 && positiveLength == 1 && nonNegativeLength == 2);

struct LengthRow
{
    const char* name;
    std::string text;
    UnitOpt maximum;
    LengthType type;
    float points;
};

void PrintTo(const LengthRow& row, std::ostream* out)
{
    *out << '"' << row.text << "\" as type " << row.type;
}

// name, text, maximum, type, points
const LengthRow LengthRows[] = {
    {"Points",                    "12.5pt",                  None,       anyLength,         12.5F             },
    {"Inches",                    "1in",                     None,       anyLength,         72                },
    {"Picas",                     "3pc",                     None,       anyLength,         36                },
    {"OtherPicas",                "3pi",                     None,       anyLength,         36                },
    {"Millimetres",               "10mm",                    None,       anyLength,         28.346472F        },
    {"Centimetres",               "2cm",                     None,       anyLength,         56.69294738769531F},
    {"Fraction",                  "1.5pt",                   None,       anyLength,         1.5F              },
    {"Exponent",                  "1e1pt",                   None,       anyLength,         10                },
    {"UpperCaseExponent",         "1E+1pt",                  None,       anyLength,         10                },
    {"PlusSign",                  "+2pt",                    None,       anyLength,         2                 },
    {"Negative",                  "-2pc",                    None,       anyLength,         -24               },
    {"PointAtTheBegin",           ".5in",                    None,       anyLength,         36                },
    {"PointAtTheEnd",             "5.pt",                    None,       anyLength,         5                 },
    {"ProductInDouble",           "0.1in",                   None,       anyLength,         7.2F              },
    {"EmptyIsZero",               "",                        None,       anyLength,         0                 },
    {"EmptyIsNotNegative",        "",                        None,       nonNegativeLength, 0                 },
    {"BelowMaximum",              "35.5pt",                  36.0F,      anyLength,         35.5F             },
    {"AtMaximum",                 "36pt",                    36.0F,      anyLength,         36                },
    {"AboveMaximum",              "100pt",                   50.0F,      anyLength,         50                },
    {"MaximumIsNotChecked",       "1pt",                     -5.0F,      positiveLength,    -5                },
    {"MaximumOfAnEmptyText",      "",                        -5.0F,      anyLength,         -5                },
    {"MaximumNotANumber",         "1pt",                     NotANumber, anyLength,         1                 },
    {"Positive",                  "1pt",                     None,       positiveLength,    1                 },
    {"JustAboveNearZero",         "9.5367431640625e-07pt",   None,       positiveLength,    0x1p-20F          },
    {"ZeroIsNotNegative",         "0pt",                     None,       nonNegativeLength, 0                 },
    {"NearZeroIsNotNegative",     "-0.0000001pt",            None,       nonNegativeLength, -1e-7F            },
    {"JustNearZeroIsNotNegative", "-9.536742e-07pt",         None,       nonNegativeLength, -9.536742e-07F    },
    {"PositiveIsNotNegative",     "7pt",                     None,       nonNegativeLength, 7                 },
    {"NegativeIsAnyLength",       "-7pt",                    None,       anyLength,         -7                },
    {"LargestFloat",              "3.4028234663852886e38pt", None,       anyLength,         Largest           },
    {"RoundsDownToLargest",       "3.40282356e38pt",         None,       anyLength,         Largest           },
    {"RoundsUpToInfinity",        "3.40282357e38pt",         None,       anyLength,         Infinity          },
    {"BeyondFloat",               "1e39pt",                  None,       anyLength,         Infinity          },
    {"BeyondFloatNegative",       "-1e39pt",                 None,       anyLength,         -Infinity         },
    {"BeyondFloatByTheFactor",    "1e38in",                  None,       anyLength,         Infinity          },
    {"BeyondDouble",              "1e999pt",                 None,       positiveLength,    Infinity          },
    {"BeyondDoubleToMaximum",     "1e999pt",                 36.0F,      anyLength,         36                },
};

class ConvertLength : public testing::TestWithParam<LengthRow>
{
};

TEST_P(ConvertLength, GivesPoints)
{
    const LengthRow& row = GetParam();
    OperationReport report;
    EXPECT_EQ(convertLength(report, row.text, row.maximum, row.type), UnitOpt(row.points));
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertLength, testing::ValuesIn(LengthRows),
    [](const auto& row) { return std::string(row.param.name); });

struct RefusedLengthRow
{
    const char* name;
    std::string text;
    LengthType type;
    const char* message;
};

void PrintTo(const RefusedLengthRow& row, std::ostream* out)
{
    *out << '"' << row.text << "\" as type " << row.type;
}

const RefusedLengthRow RefusedLengthRows[] = {
    {"NoUnit",                     "12",                     anyLength,         UnknownUnits},
    {"NoUnitForZero",              "0",                      anyLength,         UnknownUnits},
    {"UpperCaseUnit",              "12PT",                   anyLength,         UnknownUnits},
    {"MixedCaseUnit",              "12Pt",                   anyLength,         UnknownUnits},
    {"BlankBeforeUnit",            "12 pt",                  anyLength,         UnknownUnits},
    {"BlankAfterUnit",             "12pt ",                  anyLength,         UnknownUnits},
    {"UnitCutShort",               "12p",                    anyLength,         UnknownUnits},
    {"UnitTooLong",                "12ptt",                  anyLength,         UnknownUnits},
    {"OtherUnit",                  "12dm",                   anyLength,         UnknownUnits},
    {"Percent",                    "12%",                    anyLength,         UnknownUnits},
    {"PixelsInUpperCase",          "12PX",                   anyLength,         UnknownUnits},
    {"NulAfterUnit",               "1in\0"s,                 anyLength,         UnknownUnits},
    {"NulBeforeUnit",              "1\0in"s,                 anyLength,         UnknownUnits},
    {"UnitOfEm",                   "1em",                    anyLength,         Unparsed    },
    {"UnitAlone",                  "pt",                     anyLength,         Unparsed    },
    {"BlankBeforeNumber",          " 12pt",                  anyLength,         Unparsed    },
    {"BlankAlone",                 " ",                      anyLength,         Unparsed    },
    {"TwoPoints",                  "1.2.3pt",                anyLength,         Unparsed    },
    {"TwoSigns",                   "--1pt",                  anyLength,         Unparsed    },
    {"SignAlone",                  "-pt",                    anyLength,         Unparsed    },
    {"ExponentWithoutDigits",      "1ept",                   anyLength,         Unparsed    },
    {"Comma",                      "1,5pt",                  anyLength,         UnknownUnits},
    {"Infinity",                   "infpt",                  anyLength,         Unparsed    },
    {"Hexadecimal",                "0x10pt",                 anyLength,         UnknownUnits},
    {"EmptyIsNotPositive",         "",                       positiveLength,    NotPositive },
    {"ZeroIsNotPositive",          "0pt",                    positiveLength,    NotPositive },
    {"NegativeIsNotPositive",      "-1pt",                   positiveLength,    NotPositive },
    {"NearZeroIsNotPositive",      "9.536742e-07pt",         positiveLength,    NotPositive },
    {"MinusInfinityIsNotPositive", "-1e999pt",               positiveLength,    NotPositive },
    {"Negative",                   "-1pt",                   nonNegativeLength, IsNegative  },
    {"JustBelowNearZero",          "-9.5367431640625e-07pt", nonNegativeLength, IsNegative  },
    {"MinusInfinity",              "-1e999pt",               nonNegativeLength, IsNegative  },
    {"UnitIsToldFirst",            "-1xx",                   nonNegativeLength, UnknownUnits},
};

class ConvertLengthRefused : public testing::TestWithParam<RefusedLengthRow>
{
};

TEST_P(ConvertLengthRefused, AddsOneMessage)
{
    const RefusedLengthRow& row = GetParam();
    OperationReport report;
    EXPECT_EQ(convertLength(report, row.text, UnitOpt(1000.0F), row.type), None);
    expectOneMessage(report, row.message, row.text);
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertLengthRefused, testing::ValuesIn(RefusedLengthRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ConvertLengthReport, KeepsEarlierMessages)
{
    OperationReport report;
    convertLength(report, "x", None, anyLength);
    convertLength(report, "1pt", None, anyLength);
    convertLength(report, "1zz", None, anyLength);
    ASSERT_EQ(report.getMessages().size(), 2U);
    EXPECT_EQ(report.getMessages()[0].toString(), "Can't parse length value x");
    EXPECT_EQ(report.getMessages()[1].toString(), "Unknown units in 1zz");
}

TEST(ConvertLengthPixels, FailAnAssertionAndAreRefused)
{
    const Tests::RecordedAssertions assertions;
    OperationReport report;
    EXPECT_EQ(convertLength(report, "12px", None, anyLength), None);
    expectOneMessage(report, Unparsed, "12px");
    ASSERT_EQ(assertions.getFailures().size(), 1U);
    EXPECT_EQ(assertions.getFailures()[0].file, "FilterUtils/FU_Lengths.cpp");
    EXPECT_EQ(assertions.getFailures()[0].expression, "");
    EXPECT_EQ(assertions.getFailures()[0].message,
        "QV::UnitOpt QV::FilterUtils::convertLength(QV::OperationReport&, const std::string&, "
        "const QV::UnitOpt&, QV::FilterUtils::LengthType) is not implemented");
}

TEST(ConvertLengthPixels, FailNoAssertionWithoutANumber)
{
    const Tests::RecordedAssertions assertions;
    OperationReport report;
    EXPECT_EQ(convertLength(report, "px", None, anyLength), None);
    expectOneMessage(report, Unparsed, "px");
    EXPECT_THAT(assertions.getFailures(), IsEmpty());
}

// Every name of up to three letters that is not a unit is refused, whatever its hash.
TEST(ConvertLengthUnits, AreTheSixAlone)
{
    const std::string letters = "abcdefghijklmnopqrstuvwxyz";
    unsigned accepted = 0;
    for (const char first : letters)
        for (const char second : letters) {
            if (first == 'e' || (first == 'p' && second == 'x'))
                continue;
            OperationReport report;
            const std::string unit = {first, second};
            accepted += convertLength(report, "1" + unit, None, anyLength) ? 1 : 0;
            for (const char third : letters)
                EXPECT_EQ(convertLength(report, "1" + unit + third, None, anyLength), None) << unit << third;
        }
    EXPECT_EQ(accepted, 6U);
}

} // namespace
} // namespace QV::FilterUtils
