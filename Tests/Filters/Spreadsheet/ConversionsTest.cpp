#include <cmath>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <Filters/Spreadsheet/ColumnWidths.h>
#include <Filters/Spreadsheet/EscapedText.h>
#include <Filters/Spreadsheet/IsoDates.h>
#include <Tests/Support/Printers.h>

namespace QV::Filters {
namespace {

struct FontRow
{
    const char* font;
    float size;
    int pixels;
};

void PrintTo(const FontRow& row, std::ostream* out)
{
    *out << row.font << ' ' << row.size;
}

const FontRow FontRows[] = {
    {"Calibri",                11,   7},
    {"Calibri",                12,   8},
    {"Arial",                  10,   7},
    {"Arial",                  8,    6},
    {"Verdana",                10,   8},
    {"Times New Roman",        12,   8},
    {"A font that nobody has", 11,   7},
    {"Calibri",                0.1F, 1},
};

class MaxDigitWidth : public testing::TestWithParam<FontRow>
{
};

TEST_P(MaxDigitWidth, IsWholePixels)
{
    EXPECT_EQ(getMaxDigitWidth(GetParam().font, GetParam().size), GetParam().pixels);
}

INSTANTIATE_TEST_SUITE_P(Rows, MaxDigitWidth, testing::ValuesIn(FontRows));

TEST(ConvertCharactersToPoints, GoesThroughWholePixels)
{
    EXPECT_EQ(convertCharactersToPoints(9.140625, 7), 48.0F); // 64 pixels
    EXPECT_EQ(convertCharactersToPoints(12.285, 7), 64.5F);   // 85.995 pixels and the rounding make 86
    EXPECT_EQ(convertCharactersToPoints(20, 8), 120.0F);      // 160 pixels
    EXPECT_EQ(convertCharactersToPoints(0, 7), 0.0F);
    EXPECT_EQ(convertCharactersToPoints(21.125, 6), 95.25F); // 127 pixels
}

TEST(ConvertCharactersToPoints, KeepsEveryWidthThatIsWholePixels)
{
    for (int digit = 5; digit <= 12; ++digit)
        for (int pixels = 0; pixels < 2000; ++pixels) {
            const double characters = std::trunc(pixels * 256.0 / digit) / 256; // as files state it
            ASSERT_EQ(convertCharactersToPoints(characters, digit), static_cast<float>(pixels * 0.75))
                << pixels << " pixels of digits " << digit;
        }
}

TEST(GetDefaultColumnWidth, IsAMultipleOfEightPixels)
{
    EXPECT_EQ(getDefaultColumnWidth(8, 7), 48.0F);   // 61 pixels become 64
    EXPECT_EQ(getDefaultColumnWidth(10, 7), 60.0F);  // 75 become 80
    EXPECT_EQ(getDefaultColumnWidth(10, 11), 90.0F); // 115 become 120
    EXPECT_EQ(getDefaultColumnWidth(0, 7), 6.0F);
}

struct EscapeRow
{
    const char* name;
    std::string text;
    std::string plain;
};

void PrintTo(const EscapeRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

const EscapeRow EscapeRows[] = {
    {"Plain",           "a_b x_ _x",      "a_b x_ _x"       },
    {"CarriageReturn",  "a_x000D_b",      "a\rb"            },
    {"LowerCaseDigits", "_x000d__x000a_", "\r\n"            },
    {"Underscore",      "_x005F_x000D_",  "_x000D_"         },
    {"TwoBytes",        "_x00E4_",        "\xC3\xA4"        },
    {"ThreeBytes",      "_x20AC_",        "\xE2\x82\xAC"    },
    {"SurrogatePair",   "_xD83D__xDE00_", "\xF0\x9F\x98\x80"},
    {"LoneHigh",        "_xD83D_x",       "_xD83D_x"        },
    {"LoneLow",         "_xDE00_",        "_xDE00_"         },
    {"HighBeforeOther", "_xD83D__x0041_", "_xD83D_A"        },
    {"Nul",             "_x0000_",        std::string(1,      '\0')},
    {"TooShort",                 "_x00D_",                        "_x00D_"                 },
    {"TooLong",                 "_x0000D_",                         "_x0000D_"},
    {"UpperCaseX",                 "_X000D_",                      "_X000D_"               },
    {"NoDigit",                 "_x00G0_",                         "_x00G0_"  },
    {"CutOff",                 "_x000D",                          "_x000D"                 },
    {"AtTheEnd",                 "a_x0009_",                        "a\t"},
    {"UnderscoreBefore",                 "__x0041_",                "_A"         },
};

class UnescapeText : public testing::TestWithParam<EscapeRow>
{
};

TEST_P(UnescapeText, KeepsRow)
{
    std::string text = GetParam().text;
    unescapeText(text);
    EXPECT_EQ(text, GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(Rows, UnescapeText, testing::ValuesIn(EscapeRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(IsTooLongForCell, CountsUtf16)
{
    EXPECT_FALSE(isTooLongForCell(std::string(32767, 'a')));
    EXPECT_TRUE(isTooLongForCell(std::string(32768, 'a')));
    std::string text;
    for (int i = 0; i < 16383; ++i)
        text += "\xF0\x9F\x98\x80"; // two code units
    EXPECT_FALSE(isTooLongForCell(text + "\xC3\xA4"));
    EXPECT_TRUE(isTooLongForCell(text + "\xC3\xA4" + "a"));
}

struct DateRow
{
    const char* name;
    std::string text;
    DateSystem system;
    boost::optional<double> serial;
};

void PrintTo(const DateRow& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

const DateSystem From1900 = DateSystem::From1900;
const DateSystem From1904 = DateSystem::From1904;

const DateRow DateRows[] = {
    {"DayOne",                      "1900-01-01",              From1900, 1.0        },
    {"BeforeTheLeapDayThatWasNone", "1900-02-28",              From1900, 59.0       },
    {"AfterIt",                     "1900-03-01",              From1900, 61.0       },
    {"Modern",                      "2020-12-31",              From1900, 44196.0    },
    {"WithTime",                    "2021-01-01T18:00:00",     From1900, 44197.75   },
    {"WithTimeZone",                "2021-01-01T18:00:00Z",    From1900, 44197.75   },
    {"WithoutSeconds",              "2021-01-01T06:00",        From1900, 44197.25   },
    {"Fraction",                    "2021-01-01T00:00:00.864", From1900, 44197.00001},
    {"TimeAlone",                   "12:00:00",                From1900, 0.5        },
    {"LastDay",                     "9999-12-31",              From1900, 2958465.0  },
    {"Eve",                         "1899-12-31",              From1900, 0.0        },
    {"EveOfTheEve",                 "1899-12-30",              From1900, 0.0        },
    {"TooEarly",                    "1899-12-29",              From1900, boost::none},
    {"Day0Of1904",                  "1904-01-01",              From1904, 0.0        },
    {"ModernFrom1904",              "2020-12-31",              From1904, 42734.0    },
    {"TooEarlyFrom1904",            "1903-12-31",              From1904, boost::none},
    {"LeapDay",                     "2020-02-29",              From1900, 43890.0    },
    {"NoLeapDay",                   "2021-02-29",              From1900, boost::none},
    {"CenturyIsNoLeapYear",         "2100-02-29",              From1900, boost::none},
    {"MonthZero",                   "2021-00-01",              From1900, boost::none},
    {"MonthThirteen",               "2021-13-01",              From1900, boost::none},
    {"DayZero",                     "2021-01-00",              From1900, boost::none},
    {"Minute60",                    "2021-01-01T00:60:00",     From1900, boost::none},
    {"Empty",                       "",                        From1900, boost::none},
    {"Trailing",                    "2021-01-01x",             From1900, boost::none},
    {"TAlone",                      "2021-01-01T",             From1900, boost::none},
    {"Number",                      "44197",                   From1900, boost::none},
};

class ConvertIsoDateToSerial : public testing::TestWithParam<DateRow>
{
};

TEST_P(ConvertIsoDateToSerial, KeepsRow)
{
    const auto serial = convertIsoDateToSerial(GetParam().text, GetParam().system);
    ASSERT_EQ(serial.has_value(), GetParam().serial.has_value());
    if (serial) {
        EXPECT_NEAR(*serial, *GetParam().serial, 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertIsoDateToSerial, testing::ValuesIn(DateRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
