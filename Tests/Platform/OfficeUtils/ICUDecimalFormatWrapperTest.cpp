#include <OfficeUtils/Public/ICUDecimalFormatWrapper.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>

namespace QV::OfficeUtils {
namespace {

struct DecimalRow
{
    const char* name;
    const char* locale;
    double value;
    int precision;
    const char* text;
};

void PrintTo(const DecimalRow& row, std::ostream* out)
{
    *out << row.value << " with at most " << row.precision << " digits in " << row.locale;
}

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

const DecimalRow DecimalRows[] = {
    {"Whole",                   "en_US", 50,         15,                              "50"                    },
    {"Zero",                    "en_US", 0,          15,                              "0"                     },
    {"NegativeZero",            "en_US", -0.0,       15,                              "-0"                    },
    {"Fraction",                "en_US", 2.5,        15,                              "2.5"                   },
    {"BelowOne",                "en_US", 0.25,       15,                              "0.25"                  },
    {"Negative",                "en_US", -12.75,     15,                              "-12.75"                },
    {"NoGrouping",              "en_US", 1234567.5,  15,                              "1234567.5"             },
    {"ShortestDigits",          "en_US", 0.1,        15,                              "0.1"                   },
    {"SeventeenDigits",         "en_US", 0.1 + 0.2,  17,                              "0.30000000000000004"   },
    {"CutAtPrecision",          "en_US", 0.1 + 0.2,  15,                              "0.3"                   },
    {"TieToEvenDown",           "en_US", 0.125,      2,                               "0.12"                  },
    {"TieToEvenUp",             "en_US", 0.375,      2,                               "0.38"                  },
    {"TieOfTheDecimalText",     "en_US", 1.005,      2,                               "1"                     },
    {"TieOfTheDecimalTextUp",   "en_US", 1.015,      2,                               "1.02"                  },
    {"TieToEvenWholeDown",      "en_US", 2.5,        0,                               "2"                     },
    {"TieToEvenWholeUp",        "en_US", 3.5,        0,                               "4"                     },
    {"CarryIntoTheWhole",       "en_US", 9.996,      2,                               "10"                    },
    {"TooSmallForThePrecision", "en_US", 0.0004,     3,                               "0"                     },
    {"PrecisionZero",           "en_US", 7.25,       0,                               "7"                     },
    {"NegativePrecision",       "en_US", 7.25,       -1,                              "7"                     },
    {"LargestPrecision",        "en_US", 0.25,       std::numeric_limits<int>::max(), "0.25"                  },
    {"NoExponent",              "en_US", 1e21,       15,                              "1000000000000000000000"},
    {"SmallNoExponent",         "en_US", 1e-7,       15,                              "0.0000001"             },
    {"NotANumber",              "en_US", NotANumber, 15,                              "NaN"                   },
    {"Infinity",                "en_US", Infinity,   15,                              "\xE2\x88\x9E"          },
    {"MinusInfinity",           "en_US", -Infinity,  15,                              "-\xE2\x88\x9E"         },
    {"GermanComma",             "de_DE", -1234.565,  2,                               "-1234,56"              },
    {"SwedishMinus",            "sv_SE", -1.5,       2,
     "\xE2\x88\x92"
        "1,5"                                                                                                 },
};

class DecimalFormat : public testing::TestWithParam<DecimalRow>
{
};

TEST_P(DecimalFormat, KeepsRow)
{
    const DecimalRow& row = GetParam();
    ICUDecimalFormatWrapper format{LocaleContext(row.locale)};
    format.setPrecision(row.precision);
    EXPECT_EQ(format.toString(row.value), row.text);
}

INSTANTIATE_TEST_SUITE_P(Rows, DecimalFormat, testing::ValuesIn(DecimalRows),
    [](const auto& row) { return std::string(row.param.name); });

std::string formatThroughIcu(const std::string& locale, int precision, double value)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::DecimalFormat format(u"0.#", icu::DecimalFormatSymbols(icu::Locale(locale.c_str()), status), status);
    format.setRoundingMode(icu::DecimalFormat::kRoundHalfEven);
    format.setMaximumFractionDigits(precision);
    icu::UnicodeString text;
    std::string utf8;
    format.format(value, text).toUTF8String(utf8);
    return utf8;
}

// More locales and precisions than a thread keeps formatters for, in an order without a pattern.
TEST(DecimalFormat, AgreesWithAFormatterMadeForEachNumber)
{
    const char* const locales[] = {"en_US", "de_DE", "fr_FR", "sv_SE", "ar_EG", "hi_IN"};
    std::mt19937 random(1);
    std::normal_distribution<double> value(0, 1000);
    for (int i = 0; i < 3000; ++i) {
        const std::string locale = locales[random() % std::size(locales)];
        const int precision = static_cast<int>(random() % 18);
        const double rounded = random() % 2 ? value(random) : std::round(value(random) * 1000) / 1000;
        ICUDecimalFormatWrapper format{LocaleContext(locale)};
        format.setPrecision(precision);
        ASSERT_EQ(format.toString(rounded), formatThroughIcu(locale, precision, rounded))
            << rounded << " with at most " << precision << " digits in " << locale;
    }
}

TEST(DecimalFormat, KeepsThePrecisionOfEachObject)
{
    const LocaleContext context("en_US");
    ICUDecimalFormatWrapper one(context);
    ICUDecimalFormatWrapper two(context);
    EXPECT_EQ(one.toString(1.23456), "1.235");
    one.setPrecision(1);
    two.setPrecision(4);
    EXPECT_EQ(one.toString(1.23456), "1.2");
    EXPECT_EQ(two.toString(1.23456), "1.2346");
}

TEST(DecimalFormat, ServesSeveralThreadsAtOnce)
{
    const auto formatMany = [](std::string& last) {
        for (int i = 0; i <= 1000; ++i) {
            ICUDecimalFormatWrapper format(
                LocaleContext::getDefaultLocaleContext(FormulaType::OfficeOpenXml));
            format.setPrecision(i % 40);
            last = format.toString(i + 0.5);
        }
    };
    std::string first;
    std::string second;
    std::thread one(formatMany, std::ref(first));
    std::thread two(formatMany, std::ref(second));
    one.join();
    two.join();
    EXPECT_EQ(first, "1000"); // a precision of 0: half to even
    EXPECT_EQ(second, first);
}

TEST(LocaleContext, IsUsEnglishForEachFormulaType)
{
    for (const int type : {0, 1, 2})
        EXPECT_EQ(LocaleContext::getDefaultLocaleContext(static_cast<FormulaType>(type)).getName(), "en_US");
}

} // namespace
} // namespace QV::OfficeUtils
