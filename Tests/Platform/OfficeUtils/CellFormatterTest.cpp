#include <OfficeUtils/Public/CellFormatter.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <random>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OfficeUtils/Public/Parser.h>

namespace QV::OfficeUtils {
namespace {

using DOM::DateSystem;

constexpr double Infinity = std::numeric_limits<double>::infinity();

CellFormatter makeFormatter(const std::string& code, DateSystem system = DateSystem::From1900)
{
    const auto expression = Parser::parse(code, Parser::ParserType::Spreadsheet);
    EXPECT_TRUE(expression) << code;
    return CellFormatter(expression.value_or(DOM::CellFormatModel::Expression()), system);
}

std::string format(const std::string& code, double number, DateSystem system = DateSystem::From1900)
{
    return makeFormatter(code, system).formatNumber(number).text;
}

struct NumberRow
{
    const char* code;
    double number;
    const char* text;
};

void PrintTo(const NumberRow& row, std::ostream* out)
{
    *out << row.number << " as " << row.code;
}

class FormattedNumber : public testing::TestWithParam<NumberRow>
{
};

TEST_P(FormattedNumber, IsShown)
{
    EXPECT_EQ(format(GetParam().code, GetParam().number), GetParam().text);
}

const NumberRow DecimalRows[] = {
    {"0",                     0,                      "0"                     },
    {"0",                     1234.5,                 "1235"                  },
    {"0",                     -1234.5,                "-1235"                 },
    {"0",                     0.5,                    "1"                     },
    {"0",                     0.49,                   "0"                     },
    {"0",                     999.5,                  "1000"                  },
    {"0.00",                  1.005,                  "1.01"                  },
    {"0.00",                  2.675,                  "2.68"                  },
    {"0.00",                  0.125,                  "0.13"                  },
    {"0.00",                  0.995,                  "1.00"                  },
    {"0.00",                  9.994999,               "9.99"                  },
    {"0.0",                   0.04,                   "0.0"                   },
    {"0.0",                   0.05,                   "0.1"                   },
    {"000",                   7,                      "007"                   },
    {"#",                     0,                      ""                      },
    {"#.##",                  0,                      "."                     },
    {"#.##",                  1.5,                    "1.5"                   },
    {".00",                   12.5,                   "12.50"                 },
    {"0.0#",                  1.25,                   "1.25"                  },
    {"0.0#",                  1.2,                    "1.2"                   },
    {"0.0?",                  1.2,                    "1.2 "                  },
    {"???",                   5,                      "  5"                   },
    {"#,##0",                 0,                      "0"                     },
    {"#,##0",                 999,                    "999"                   },
    {"#,##0",                 1000,                   "1,000"                 },
    {"#,##0",                 1234567.4,              "1,234,567"             },
    {"#,##0.00",              -1234.565,              "-1,234.57"             },
    {"0,000",                 5,                      "0,005"                 },
    {"?,???",                 5,                      "    5"                 },
    {"0,",                    1500,                   "2"                     },
    {"0.0,",                  1234,                   "1.2"                   },
    {"0,,",                   1499999,                "1"                     },
    {"0.00,,\"M\"",           1234567,                "1.23M"                 },
    {"#,##0,",                1234567890,             "1,234,568"             },
    {"0%",                    0.125,                  "13%"                   },
    {"0.00%",                 0.12345,                "12.35%"                },
    {"%0",                    0.5,                    "%50"                   },
    {"0%%",                   0.5,                    "5000%%"                },
    {"0.00",                  1e15,                   "1000000000000000.00"   },
    {"0",                     1e21,                   "1000000000000000000000"},
    {"0",                     1.23456789012345678e17, "123456789012346000"    },
    {"0.00000000000000000",   0.1,                    "0.10000000000000000"   },
    {"0.0",                   1e-300,                 "0.0"                   },
    {"000-00-0000",           123456789,              "123-45-6789"           },
    {"(000) 000-0000",        5551234567,             "(555) 123-4567"        },
    {"\"a\"0\"b\"",           -3,                     "-a3b"                  },
    {"$#,##0.00",             1234.5,                 "$1,234.50"             },
    {"[$\xE2\x82\xAC-407] 0", 5,                      "\xE2\x82\xAC 5"        },
    {"0 [$USD]",              5,                      "5 USD"                 },
    {"_(0_)",                 5,                      " 5 "                   },
    {"\"x\"",                 -5,                     "x"                     },
    {"0",                     -0.4,                   "0"                     },
    {"0.00",                  -0.004,                 "0.00"                  },
    {"0.00",                  -0.005,                 "-0.01"                 },
    {"0%",                    -0.001,                 "0%"                    },
    {"#",                     -0.1,                   ""                      },
    {"* 0",                   5,                      "5"                     },
    {"0.0\"a\"0",             1.25,                   "1.2a5"                 },
    {"0\"1\"0",               12,                     "112"                   },
};

const NumberRow ExponentRows[] = {
    {"0.00E+00", 12345,      "1.23E+04" },
    {"0.00E+00", 0,          "0.00E+00" },
    {"0.00E+00", 0.00012345, "1.23E-04" },
    {"0.00E-00", 12345,      "1.23E04"  },
    {"0.00e-00", 0.00012345, "1.23e-04" },
    {"0.00E+00", -12345,     "-1.23E+04"},
    {"0.00E+00", 9.999,      "1.00E+01" },
    {"0E+0",     1e100,      "1E+100"   },
    {"0.0E+0",   1e-300,     "1.0E-300" },
    {"##0.0E+0", 12345,      "12.3E+3"  },
    {"##0.0E+0", 123456,     "123.5E+3" },
    {"##0.0E+0", 999999,     "1.0E+6"   },
    {"##0.0E+0", 0.000123,   "123.0E-6" },
    {"#0.0E+0",  1234,       "12.3E+2"  },
    {".00E+0",   1234,       ".12E+4"   },
    {"0E+0%",    0.5,        "5E-1%"    },
};

const NumberRow FractionRows[] = {
    {"# ?/?",        0.5,        " 1/2"                                              },
    {"# ?/?",        1.5,        "1 1/2"                                             },
    {"# ?/?",        -1.5,       "-1 1/2"                                            },
    {"# ?/?",        5,          "5    "                                             },
    {"# ?/?",        0,          "0    "                                             },
    {"# ?/?",        0.9999,     "1    "                                             },
    {"# ?/?",        3.14159265, "3 1/7"                                             },
    {"# ?\?/?\?",    3.14159265, "3 14/99"                                           },
    {"# ??\?/??\?",  3.14159265, "3  16/113"                                         },
    {"?/?",          1.5,        "3/2"                                               },
    {"?/?",          3,          "3/1"                                               },
    {"# ?/8",        0.3,        " 2/8"                                              },
    {"# ?/8",        0.99,       "1    "                                             },
    {"# ?\?/16",     1.25,       "1  4/16"                                           },
    {"# ?\?/100",    0.255,      " 26/100"                                           },
    {"# 0/0",        2,          "2 0/1"                                             },
    {"?/?",          0,          "0/1"                                               },
    {"#/#",          0,          "0/1"                                               },
    {"# ?/?",        -0.001,     "0    "                                             },
    {"#,##0 ?/?",    1234.25,    "1,234 1/4"                                         },
    {"0/00",         0.25,       "1/04"                                              },
    {"# ?/?\" in\"", 0.75,       " 3/4 in"                                           },
    {"?/?",          1e300,
     "1000000000000000000000000000000000000000000000000000000000000000000000000000"
        "0000000000000000000000000000000000000000000000000000000000000000000000000000"
        "0000000000000000000000000000000000000000000000000000000000000000000000000000"
        "0000000000000000000000000000000000000000000000000000000000000000000000000/1"},
};

const NumberRow SectionRows[] = {
    {"0;(0)",                     5,            "5"          },
    {"0;(0)",                     -5,           "(5)"        },
    {"0;(0)",                     0,            "0"          },
    {"0;-0;\"zero\"",             0,            "zero"       },
    {"0;-0;\"zero\"",             -5,           "-5"         },
    {"0;;",                       -5,           ""           },
    {";;;",                       5,            ""           },
    {"0;@",                       -5,           "-5"         },
    {"@",                         1234567.8912, "1234567.891"},
    {"[<10]\"low\";\"high\"",     5,            "low"        },
    {"[<10]\"low\";\"high\"",     10,           "high"       },
    {"[<=10]0.0;0",               10,           "10.0"       },
    {"[=1]\"one\";[=2]\"two\";0", 2,            "two"        },
    {"[=1]\"one\";[=2]\"two\";0", 3,            "3"          },
    {"[<>1]0.0;0",                1,            "1"          },
    {"[>100]0;[<-100]0;\"near\"", -200,         "200"        },
    {"[>100]0;0.0",               -5,           "-5.0"       },
    {"[<1]0;[<2]0.0",             5,            "5"          },
    {"[>5]0",                     0.25,         "0.25"       },
    {"[<10]\"low\";\"high\"",     -5,           "low"        },
    {"[>=1000]0,\"K\";0",         -500,         "-500"       },
    {"General",                   -0.5,         "-0.5"       },
    {"\"a\"General\"b\"",         -0.5,         "-a0.5b"     },
    {"General;General",           -0.5,         "0.5"        },
};

const NumberRow GeneralRows[] = {
    {"General", 0,                      "0"           },
    {"General", -0.0,                   "0"           },
    {"General", 1,                      "1"           },
    {"General", -1.5,                   "-1.5"        },
    {"General", 0.1 + 0.2,              "0.3"         },
    {"General", 1.0 / 3,                "0.333333333" },
    {"General", 2.0 / 3,                "0.666666667" },
    {"General", 1e-4,                   "0.0001"      },
    {"General", 0.000123456789,         "0.000123457" },
    {"General", 0.0000123456789,        "1.23457E-05" },
    {"General", 1e-9,                   "0.000000001" },
    {"General", 1e-10,                  "1E-10"       },
    {"General", 1234567.8912,           "1234567.891" },
    {"General", 1234567890.12,          "1234567890"  },
    {"General", 12345678901,            "12345678901" },
    {"General", 12345678901.5,          "12345678902" },
    {"General", 99999999999,            "99999999999" },
    {"General", 99999999999.9,          "1E+11"       },
    {"General", 123456789012,           "1.23457E+11" },
    {"General", -123456789012,          "-1.23457E+11"},
    {"General", 1e100,                  "1E+100"      },
    {"General", 9.9999999e99,           "1E+100"      },
    {"General", 1.7976931348623157e308, "1.79769E+308"},
    {"General", 5e-324,                 "5E-324"      },
};

const NumberRow DateRows[] = {
    {"yyyy-mm-dd",          1,                  "1900-01-01"                   },
    {"yyyy-mm-dd",          0,                  "1900-01-00"                   },
    {"yyyy-mm-dd",          59,                 "1900-02-28"                   },
    {"yyyy-mm-dd",          60,                 "1900-02-29"                   },
    {"yyyy-mm-dd",          61,                 "1900-03-01"                   },
    {"yyyy-mm-dd",          36526,              "2000-01-01"                   },
    {"yyyy-mm-dd",          43890,              "2020-02-29"                   },
    {"yyyy-mm-dd",          2958465,            "9999-12-31"                   },
    {"yyyy-mm-dd",          2958466,            "########"                     },
    {"yyyy-mm-dd h:mm:ss",  2958465.9999999995, "########"                     },
    {"yyyy-mm-dd h:mm",     -0.25,              "1899-12-29 18:00"             },
    {"yyyy-mm-dd dddd",     -1,                 "1899-12-29 Friday"            },
    {"yyyy-mm-dd dddd",     -8,                 "1899-12-22 Friday"            },
    {"yyyy-mm-dd",          -693593,            "0001-01-01"                   },
    {"yyyy-mm-dd",          -693594,            "########"                     },
    {"yyyy-mm-dd",          -1e300,             "########"                     },
    {"h:mm",                -0.25,              "18:00"                        },
    {"h:mm",                1e10 + 0.25,        "6:00"                         },
    {"h:mm",                1e14,               "########"                     },
    {"[h]:mm",              1e10,               "240000000000:00"              },
    {"[s]",                 9.9e13,             "8553600000000000000"          },
    {"0;h:mm",              -0.25,              "6:00"                         },
    {"m/d/yy",              43890,              "2/29/20"                      },
    {"ddd, mmm d, yyyy",    43890,              "Sat, Feb 29, 2020"            },
    {"dddd, mmmm dd, yyyy", 1,                  "Sunday, January 01, 1900"     },
    {"dddd",                60,                 "Wednesday"                    },
    {"dddd",                61,                 "Thursday"                     },
    {"mmmmm",               43890,              "F"                            },
    {"h:mm:ss AM/PM",       0,                  "12:00:00 AM"                  },
    {"h:mm AM/PM",          0.5,                "12:00 PM"                     },
    {"h:mm a/p",            0.75,               "6:00 p"                       },
    {"h:mm A/P",            0.25,               "6:00 A"                       },
    {"hh:mm",               0.99999,            "23:59"                        },
    {"hh:mm:ss",            0.999999,           "00:00:00"                     },
    {"yyyy-mm-dd hh:mm:ss", 43889.9999999,      "2020-02-29 00:00:00"          },
    {"ss.00",               0.0000143519,       "01.24"                        },
    {"ss.0 ss.000",         0.0000143519,       "01.2 01.240"                  },
    {"[h]:mm",              1.5,                "36:00"                        },
    {"[hhh]",               1.5,                "036"                          },
    {"[mm]:ss",             0.0430671296,       "62:01"                        },
    {"[s]",                 1,                  "86400"                        },
    {"[h]:mm",              -1.25,              "-30:00"                       },
    {"[$-411]ggge\"-\"m",   43890,
     "\xE4\xBB\xA4\xE5\x92\x8C"
        "2-2"                                                                  },
    {"[$-411]gge.m.d",      43585,
     "\xE5\xB9\xB3"
        "31.4.30"                                                              },
    {"[$-411]gee.mm.dd",    43586,              "R01.05.01"                    },
    {"[$-1010411]ge",       7,                  "M33"                          },
    {"[$-404]e/m/d",        43890,              "109/2/29"                     },
    {"[$-404]ge",           4384,
     "\xE6\xB0\x91\xE5\x9C\x8B"
        "1"                                                                    },
    {"[$-404]gge",          4383,
     "\xE6\xB0\x91\xE5\x9C\x8B\xE5\x89\x8D"
        "1"                                                                    },
    {"[$-404]ggge",         43890,
     "\xE4\xB8\xAD\xE8\x8F\xAF\xE6\xB0\x91\xE5\x9C\x8B"
        "109"                                                                  },
    {"[$-404]yyyy-mm-dd e", -146090,            "1500-01-06 412"               },
    {"[$-411]ge",           4594,               "M45"                          },
    {"[$-411]ge",           4595,               "T1"                           },
    {"[$-411]ge",           9855,               "T15"                          },
    {"[$-411]ge",           9856,               "S1"                           },
    {"[$-411]ge",           32515,              "S64"                          },
    {"[$-411]ge",           32516,              "H1"                           },
    {"[$-411]ggge",         -11687,             "1867"                         },
    {"[$-411]yyyy ge",      0,                  "1900 M33"                     },
    {"[$-ja]ge",            43890,              "R2"                           },
    {"[$-427]h:mm AM/PM",   0.25,               "6:00 AM"                      },
    {"[$-40A]h:mm AM/PM",   0.75,               "6:00 PM"                      },
    {"[$-41F]h:mm AM/PM",   0.75,               "6:00 PM"                      },
    {"yyyy-mm-dd [h]",      -1.5,               "-1899-12-28 36"               },
    {"yyyy-mm-dd [h]",      -2e6,               "########"                     },
    {"h [h]:mm",            -0.2,               "-19 4:48"                     },
    {"[h]:mm:ss",           -1e-9,              "0:00:00"                      },
    {"[mm]:ss.0",           -1e-9,              "00:00.0"                      },
    {"[$-407]ge",           43890,              "2020"                         },
    {"[$-412]AM/PM h:mm",   0.25,               "\xEC\x98\xA4\xEC\xA0\x84 6:00"},
    {"[$-804]h:mm AM/PM",   0.75,               "6:00 \xE4\xB8\x8B\xE5\x8D\x88"},
    {"[$-804]h:mm A/P",     0.75,               "6:00 P"                       },
    {"[$-407]h:mm AM/PM",   0.75,               "6:00 PM"                      },
    {"[$-de-DE]mmmm dddd",  43890,              "Februar Samstag"              },
    {"[$-zz-ZZ]mmmm",       43890,              "February"                     },
    {"mmmmmm",              43890,              "February"                     },
    {"e bb bbbb g",         43890,              "2020 63 2563 "                },
    {"aaa aaaa",            43890,              "Sat Saturday"                 },
    {"[$-407]mmmm dddd",    43890,              "Februar Samstag"              },
    {"[$-40C]mmmm",         43890,              "f\xC3\xA9vrier"               },
    {"#.###.",              1234.5678,          "1234.568."                    },
    {"#.###.",              0,                  ".."                           },
    {"0..",                 1,                  "1.."                          },
    {"[$-407]ddd, mmm",     43890,              "Sa, Feb"                      },
    {"[$-405]mmmm yyyy",    43890,              "\xC3\xBAnor 2020"             },
    {"[$-405]d. mmmm",      43890,              "29. \xC3\xBAnora"             },
    {"[$-3000407]mmmm",     43890,              "Februar"                      },
    {"[$-FFFE]mmmm",        43890,              "February"                     },
    {"[$-F800]dddd",        43890,              "Saturday"                     },
    {"[Red]yyyy\"x\"",      43890,              "2020x"                        },
};

std::string nameByIndex(const testing::TestParamInfo<NumberRow>& info)
{
    return "Row" + std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(Decimals, FormattedNumber, testing::ValuesIn(DecimalRows), nameByIndex);
INSTANTIATE_TEST_SUITE_P(Exponents, FormattedNumber, testing::ValuesIn(ExponentRows), nameByIndex);
INSTANTIATE_TEST_SUITE_P(Fractions, FormattedNumber, testing::ValuesIn(FractionRows), nameByIndex);
INSTANTIATE_TEST_SUITE_P(Sections, FormattedNumber, testing::ValuesIn(SectionRows), nameByIndex);
INSTANTIATE_TEST_SUITE_P(General, FormattedNumber, testing::ValuesIn(GeneralRows), nameByIndex);
INSTANTIATE_TEST_SUITE_P(Dates, FormattedNumber, testing::ValuesIn(DateRows), nameByIndex);

TEST(CellFormatter, CountsFrom1904)
{
    EXPECT_EQ(format("yyyy-mm-dd dddd", 0, DateSystem::From1904), "1904-01-01 Friday");
    EXPECT_EQ(format("yyyy-mm-dd", 60, DateSystem::From1904), "1904-03-01");
    EXPECT_EQ(format("yyyy-mm-dd", 43890 - 1462, DateSystem::From1904), "2020-02-29");
    EXPECT_EQ(format("yyyy-mm-dd", 2957003, DateSystem::From1904), "9999-12-31");
    EXPECT_EQ(format("yyyy-mm-dd", 2957004, DateSystem::From1904), "########");
    EXPECT_EQ(format("h:mm", -0.25, DateSystem::From1904), "18:00");
    EXPECT_EQ(format("[h]:mm", -0.25, DateSystem::From1904), "-6:00");
    EXPECT_EQ(format("yyyy-mm-dd dddd", -1, DateSystem::From1904), "1903-12-31 Thursday");
    EXPECT_EQ(format("yyyy-mm-dd", -695055, DateSystem::From1904), "0001-01-01");
    EXPECT_EQ(format("yyyy-mm-dd", -695056, DateSystem::From1904), "########");
}

TEST(CellFormatter, NumbersThatAreNoneSaySo)
{
    for (const double number : {Infinity, -Infinity, std::numeric_limits<double>::quiet_NaN()})
        for (const char* const code : {"0.00", "General", "yyyy", "# ?/?", "0E+0", "@"})
            EXPECT_EQ(format(code, number), "#NUM!") << code;
}

TEST(CellFormatter, GivesTheColorOfTheSection)
{
    const CellFormatter formatter = makeFormatter("0;[Red]-0;[Color10]0;[Blue]@");
    EXPECT_FALSE(formatter.formatNumber(5).color);
    EXPECT_EQ(formatter.formatNumber(-5).color->getRGBA(), DOM::Color::RGBA(255, 0, 0, 255));
    EXPECT_EQ(formatter.formatNumber(0).color->getRGBA(), DOM::Color::RGBA(0, 128, 0, 255));
    EXPECT_EQ(formatter.formatText("x").color->getRGBA(), DOM::Color::RGBA(0, 0, 255, 255));
}

TEST(CellFormatter, TextsHaveTheTextSection)
{
    EXPECT_EQ(makeFormatter("0").formatText("abc").text, "abc");
    EXPECT_EQ(makeFormatter("@").formatText("abc").text, "abc");
    EXPECT_EQ(makeFormatter("0;0;0;\"<\"@\">\"").formatText("abc").text, "<abc>");
    EXPECT_EQ(makeFormatter("@@").formatText("ab").text, "abab");
    EXPECT_EQ(makeFormatter("0;0;0;General").formatText("abc").text, "abc");
    EXPECT_EQ(makeFormatter("0;0;0;\"hidden\"").formatText("abc").text, "hidden");
    EXPECT_EQ(makeFormatter(";;;").formatText("abc").text, "");
}

TEST(CellFormatter, OfAnEmptyExpressionIsGeneral)
{
    const CellFormatter formatter({}, DateSystem::From1900);
    EXPECT_EQ(formatter.formatNumber(1.5).text, "1.5");
    EXPECT_EQ(formatter.formatText("x").text, "x");
}

TEST(FormatBoolean, IsOneOfTwoWords)
{
    EXPECT_STREQ(formatBoolean(true), "TRUE");
    EXPECT_STREQ(formatBoolean(false), "FALSE");
}

// Decimals, in a way that is slow and plain: whole numbers of hundredths.
TEST(CellFormatter, RoundsAsWholeHundredths)
{
    const CellFormatter formatter = makeFormatter("#,##0.00");
    for (int thousandths = -20000; thousandths <= 20000; ++thousandths) {
        const int magnitude = std::abs(thousandths);
        const int hundredths = (magnitude + 5) / 10;
        const int whole = hundredths / 100;
        std::string expected = thousandths < 0 && hundredths > 0 ? "-" : "";
        expected += std::to_string(whole) + '.' + std::to_string(hundredths % 100 + 100).substr(1);
        ASSERT_EQ(formatter.formatNumber(thousandths / 1000.0).text, expected) << thousandths;
    }
}

// Dates, by counting days one after the other.
TEST(CellFormatter, DaysFollowEachOther)
{
    const CellFormatter formatter = makeFormatter("yyyy m d ddd");
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const char* const names[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    int year = 1900;
    int month = 1;
    int day = 1;
    for (int serial = 1; serial < 2958466; ++serial) {
        if (serial < 1000 || serial % 61 == 0) {
            ASSERT_EQ(formatter.formatNumber(serial).text,
                std::to_string(year) + ' ' + std::to_string(month) + ' ' + std::to_string(day) + ' ' +
                    names[(serial + 6) % 7]);
        }
        const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 || year == 1900;
        if (++day > lengths[month - 1] + (month == 2 && isLeap)) {
            day = 1;
            if (++month > 12) {
                month = 1;
                ++year;
            }
        }
    }
}

// Fractions, by trying each denominator.
TEST(CellFormatter, FindsTheNearestFraction)
{
    const CellFormatter formatter = makeFormatter("0/##");
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        const double number = static_cast<double>(1 + random() % 99999) / 100000.0;
        double bestError = 1;
        std::string best;
        for (int denominator = 1; denominator <= 99; ++denominator) {
            const double numerator = std::floor(number * denominator + 0.5);
            const double error = std::fabs(numerator / denominator - number);
            if (error < bestError) {
                bestError = error;
                best = std::to_string(static_cast<int>(numerator)) + '/' + std::to_string(denominator);
            }
        }
        ASSERT_EQ(formatter.formatNumber(number).text, best) << number;
    }
}

// Whatever is read can be shown, in a length that the code and the number bound.
TEST(CellFormatter, ShowsAllNumbersByAllCodes)
{
    static const char* const Pieces[] = {"0", "#", "?", ".", ",", "%", "/", "E+", "8", ";", "@", "General",
        "y", "m", "mmm", "d", "ddd", "h", "s", "ss.0", "[h]", "AM/PM", "e", "b", "\"x y\"", " ", "-", "_)",
        "* ", "[Red]", "[<1]", "[$-409]", "[$x]"};
    const double numbers[] = {0, -0.0, 1, -1, 0.5, 1e-320, 1e308, -1e308, 59.9999999999, 2958465.9999999999,
        0.9999999999999999, 1e15, 123456789.123456789};
    std::mt19937 random(2);
    int shown = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string code;
        for (std::size_t count = 1 + random() % 6; count > 0; --count)
            code += Pieces[random() % std::size(Pieces)];
        const auto expression = Parser::parse(code, Parser::ParserType::Spreadsheet);
        if (!expression)
            continue;
        const CellFormatter formatter(*expression, i % 2 ? DateSystem::From1900 : DateSystem::From1904);
        for (const double number : numbers) {
            ASSERT_LT(formatter.formatNumber(number).text.size(), 700U) << code << " of " << number;
            ++shown;
        }
    }
    EXPECT_GT(shown, 50000);
}

TEST(CellFormatter, FractionsThatOverflowAreTheNumber)
{
    const std::string number = '1' + std::string(308, '0');
    EXPECT_EQ(format("?/8", 1e308), number);
    EXPECT_EQ(format("?\?/16", 1e308), number);
    EXPECT_EQ(format("# ?/?%", 1e307).substr(0, 300), number.substr(0, 300));
    const std::string zero = format("?/?" + std::string(155, '%'), 0);
    EXPECT_EQ(std::count(zero.begin(), zero.end(), '%'), 155);
    EXPECT_EQ(zero.find_first_not_of(" 0/1%"), std::string::npos);
}

} // namespace
} // namespace QV::OfficeUtils
