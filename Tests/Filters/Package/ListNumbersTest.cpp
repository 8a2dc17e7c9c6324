#include <Filters/Package/ListLabels.h>

#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <DOM/Public/NumberedList.h>

namespace QV::Filters {
namespace {

using Type = DOM::NumListMarkerType;

struct ListNumberRow
{
    const char* name;
    Type type;
    long number;
    const char* text;
};

void PrintTo(const ListNumberRow& row, std::ostream* out)
{
    *out << row.name;
}

const ListNumberRow ListNumberRows[] = {
    {"Decimal",              Type::Decimal,            7,                                "7"                                       },
    {"DecimalBelowZero",     Type::Decimal,            -7,                               "-7"                                      },
    {"DecimalMaximum",       Type::Decimal,            std::numeric_limits<long>::max(), "9223372036854775807"                     },
    {"Roman",                Type::UpperRoman,         1994,                             "MCMXCIV"                                 },
    {"RomanLower",           Type::LowerRoman,         48,                               "xlviii"                                  },
    {"RomanOne",             Type::LowerRoman,         1,                                "i"                                       },
    {"RomanZero",            Type::UpperRoman,         0,                                "0"                                       },
    {"RomanAboveMaximum",    Type::UpperRoman,         32768,                            "32768"                                   },
    {"LetterA",              Type::UpperLetter,        1,                                "A"                                       },
    {"LetterZ",              Type::UpperLetter,        26,                               "Z"                                       },
    {"LetterTwice",          Type::UpperLetter,        27,                               "AA"                                      },
    {"LetterTwiceB",         Type::LowerLetter,        28,                               "bb"                                      },
    {"LetterThrice",         Type::LowerLetter,        53,                               "aaa"                                     },
    {"LetterZero",           Type::LowerLetter,        0,                                "0"                                       },
    {"LetterBelowZero",      Type::LowerLetter,        -3,                               "-3"                                      },
    {"LetterAboveMaximum",   Type::LowerLetter,        2601,                             "2601"                                    },
    {"Bullet",               Type::Bullet,             3,                                ""                                        },
    {"PictureBullet",        Type::PictureBullet,      3,                                ""                                        },
    {"None",                 Type::None,               3,                                ""                                        },
    {"ZeroPadded",           Type::DecimalZero,        9,                                "09"                                      },
    {"ZeroPaddedTen",        Type::DecimalZero,        10,                               "10"                                      },
    {"ZeroPaddedBelowZero",  Type::DecimalZero,        -1,                               "-1"                                      },
    {"OrdinalFirst",         Type::Ordinal,            1,                                "1st"                                     },
    {"OrdinalSecond",        Type::Ordinal,            22,                               "22nd"                                    },
    {"OrdinalThird",         Type::Ordinal,            103,                              "103rd"                                   },
    {"OrdinalFourth",        Type::Ordinal,            4,                                "4th"                                     },
    {"OrdinalEleventh",      Type::Ordinal,            11,                               "11th"                                    },
    {"OrdinalTeen",          Type::Ordinal,            113,                              "113th"                                   },
    {"OrdinalBelowZero",     Type::Ordinal,            -1,                               "-1"                                      },
    {"Cardinal",             Type::CardinalText,       1,                                "One"                                     },
    {"CardinalZero",         Type::CardinalText,       0,                                "Zero"                                    },
    {"CardinalTwenty",       Type::CardinalText,       20,                               "Twenty"                                  },
    {"CardinalTens",         Type::CardinalText,       21,                               "Twenty-one"                              },
    {"CardinalHundred",      Type::CardinalText,       100,                              "One hundred"                             },
    {"CardinalThousands",    Type::CardinalText,       12345,                            "Twelve thousand three hundred forty-five"},
    {"CardinalMaximum",      Type::CardinalText,       999999999,
     "Nine hundred ninety-nine million nine hundred "
        "ninety-nine thousand nine hundred ninety-nine"                                                                            },
    {"CardinalAboveMaximum", Type::CardinalText,       1000000000,                       "1000000000"                              },
    {"CardinalBelowZero",    Type::CardinalText,       -1,                               "-1"                                      },
    {"OrdinalText",          Type::OrdinalText,        1,                                "First"                                   },
    {"OrdinalTextZero",      Type::OrdinalText,        0,                                "Zeroth"                                  },
    {"OrdinalTextTwelfth",   Type::OrdinalText,        12,                               "Twelfth"                                 },
    {"OrdinalTextTwentieth", Type::OrdinalText,        20,                               "Twentieth"                               },
    {"OrdinalTextTens",      Type::OrdinalText,        33,                               "Thirty-third"                            },
    {"OrdinalTextHundred",   Type::OrdinalText,        200,                              "Two hundredth"                           },
    {"OrdinalTextThousands", Type::OrdinalText,        1004,                             "One thousand fourth"                     },
    {"Hexadecimal",          Type::Hexadecimal,        255,                              "FF"                                      },
    {"HexadecimalBelowZero", Type::Hexadecimal,        -255,                             "-255"                                    },
    {"ChicagoFirst",         Type::Chicago,            1,                                "*"                                       },
    {"ChicagoFourth",        Type::Chicago,            4,                                "\u00A7"                                  },
    {"ChicagoTwice",         Type::Chicago,            6,                                "\u2020\u2020"                            },
    {"Dashed",               Type::DecimalDash,        5,                                "- 5 -"                                   },
    {"DashedBelowZero",      Type::DecimalDash,        -5,                               "-5"                                      },
    {"CircledFirst",         Type::CircledDecimal,     1,                                "\u2460"                                  },
    {"CircledLast",          Type::CircledDecimal,     20,                               "\u2473"                                  },
    {"CircledAboveMaximum",  Type::CircledDecimal,     21,                               "21"                                      },
    {"CircledZero",          Type::CircledDecimal,     0,                                "0"                                       },
    {"FullWidth",            Type::FullWidthDecimal,   105,                              "\uFF11\uFF10\uFF15"                      },
    {"IdeographDigits",      Type::IdeographDigits,    102,                              "\u4E00\u3007\u4E8C"                      },
    {"ChineseOne",           Type::ChineseCounting,    1,                                "\u4E00"                                  },
    {"ChineseTen",           Type::ChineseCounting,    10,                               "\u5341"                                  },
    {"ChineseTeen",          Type::ChineseCounting,    12,                               "\u5341\u4E8C"                            },
    {"ChineseTwenty",        Type::ChineseCounting,    20,                               "\u4E8C\u5341"                            },
    {"ChineseHundredTen",    Type::ChineseCounting,    110,                              "\u4E00\u767E\u4E00\u5341"                },
    {"ChineseGap",           Type::ChineseCounting,    1001,                             "\u4E00\u5343\u96F6\u4E00"                },
    {"ChineseRound",         Type::ChineseCounting,    30000,                            "\u4E09\u4E07"                            },
    {"ChineseZero",          Type::ChineseCounting,    0,                                "0"                                       },
    {"ChineseAboveMaximum",  Type::ChineseCounting,    100000,                           "100000"                                  },
    {"RussianFirst",         Type::RussianUpperLetter, 1,                                "\u0410"                                  },
    {"RussianTenth",         Type::RussianLowerLetter, 10,                               "\u043A"                                  },
    {"RussianLast",          Type::RussianLowerLetter, 29,                               "\u044F"                                  },
    {"RussianTwice",         Type::RussianUpperLetter, 30,                               "\u0410\u0410"                            },
    {"HebrewFirst",          Type::HebrewLetter,       1,                                "\u05D0"                                  },
    {"HebrewLast",           Type::HebrewLetter,       22,                               "\u05EA"                                  },
    {"HebrewBeyond",         Type::HebrewLetter,       23,                               "\u05EA\u05D0"                            },
    {"ArabicSecond",         Type::ArabicLetter,       2,                                "\u0628"                                  },
    {"ArabicTwice",          Type::ArabicLetter,       29,                               "\u0623\u0623"                            },
    {"Other",                Type::Other,              12,                               "12"                                      },
};

class FormatListNumber : public testing::TestWithParam<ListNumberRow>
{
};

TEST_P(FormatListNumber, KeepsRow)
{
    EXPECT_EQ(formatListNumber(GetParam().number, GetParam().type), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, FormatListNumber, testing::ValuesIn(ListNumberRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FormatListNumber, LettersAreRepeatedAHundredTimes)
{
    EXPECT_EQ(formatListNumber(2600, Type::UpperLetter), std::string(100, 'Z'));
}

TEST(FormatListNumber, LargestRomanNumber)
{
    EXPECT_EQ(formatListNumber(32767, Type::UpperRoman), std::string(32, 'M') + "DCCLXVII");
}

} // namespace
} // namespace QV::Filters
