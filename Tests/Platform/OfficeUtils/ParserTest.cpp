#include <OfficeUtils/Public/Parser.h>

#include <ostream>
#include <random>
#include <string>

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OfficeUtils/Public/CellFormatFactory.h>
#include <OfficeUtils/Public/LocaleContext.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;
using Type = Parser::ParserType;
using testing::ElementsAre;

constexpr Type Types[] = {Type::Model, Type::Spreadsheet};

std::string canonize(const std::string& code, Type type)
{
    const auto expression = Parser::parse(code, type);
    return expression ? Parser::toRegEx(*expression, type) : "(none)";
}

struct CodeRow
{
    const char* name;
    const char* code;
    const char* spreadsheet;
    const char* model;
};

void PrintTo(const CodeRow& row, std::ostream* out)
{
    *out << row.code;
}

const CodeRow CodeRows[] = {
    {"Whole",                "0",                                     "0",                                     "0"                               },
    {"Grouped",              "#,##0.00",                              "#,##0.00",                              "#,##0.00"                        },
    {"Scaled",               "0.0,,",                                 "0.0,,",                                 "0.0,,"                           },
    {"Percent",              "0%",                                    "0%",                                    "0%"                              },
    {"Scientific",           "0.00E+00",                              "0.00E+00",                              "0.00E+00"                        },
    {"Engineering",          "##0.0e-0",                              "##0.0e-0",                              "##0.0e-0"                        },
    {"Fraction",             "# ?\?/?\?",                             "#\\ ?\?/?\?",                           "#\" \"?\?/?\?"                   },
    {"FixedDenominator",     "# ?/16",                                "#\\ ?/16",                              "#\" \"?/16"                      },
    {"General",              "general",                               "General",                               "General"                         },
    {"GeneralWithText",      "GENERAL\"x\"",                          "General\"x\"",                          "General\"x\""                    },
    {"Text",                 "@",                                     "@",                                     "@"                               },
    {"TextInWords",          "\"a\"@@",                               "\"a\"@@",                               "\"a\"@@"                         },
    {"FourSections",         "0;-0;;@",                               "0;-0;;@",                               "0;-0;;@"                         },
    {"Hidden",               ";;;",                                   ";;;",                                   ";;;"                             },
    {"GeneralForTexts",      "0;0;0;General",                         "0;0;0;General",                         "0;0;0;General"                   },
    {"Color",                "[RED]0;[color 9]0",                     "[Red]0;[Color9]0",                      "[Red]0;[Color9]0"                },
    {"ColorByNumber",        "[Color3]0",                             "[Red]0",                                "[Red]0"                          },
    {"LastColor",            "[Color56]0",                            "[Color56]0",                            "[Color56]0"                      },
    {"Condition",            "[>= 1.50]0;[<>2]0.0;0.00",              "[>=1.5]0;[<>2]0.0;0.00",                "[>=1.5]0;[<>2]0.0;0.00"          },
    {"ConditionBeforeColor", "[<-5][Blue]0",                          "[Blue][<-5]0",                          "[Blue][<-5]0"                    },
    {"SayingWhatIsImplied",  "[>=0]0;-0",                             "[>=0]0;-0",                             "[>=0]0;-0"                       },
    {"Language",             "[$-0409]0",                             "[$-409]0",                              "[$-409]0"                        },
    {"LanguageZero",         "[$-000]0",                              "[$-0]0",                                "[$-0]0"                          },
    {"Currency",             "[$\xE2\x82\xAC-407]0",                  "[$\xE2\x82\xAC-407]0",                  "[$\xE2\x82\xAC-407]0"            },
    {"CurrencyAlone",        "0[$USD]",                               "0[$USD]",                               "0[$USD]"                         },
    {"LanguageByName",       "[$-de-DE]0",                            "[$-de-DE]0",                            "[$-de-DE]0"                      },
    {"Numerals",             "[dbnum1]0",                             "[DBNum1]0",                             "[DBNum1]0"                       },
    {"SystemDate",           "[$-f800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy", "[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy",
     "[$-F800]dddd\", \"mmmm\" \"dd\", \"yyyy"                                                                                                   },
    {"SystemTime",           "[$-F400]h:mm:ss\\ AM/PM",               "[$-F400]h:mm:ss\\ AM/PM",               "[$-F400]h:mm:ss\" \"AM/PM"       },
    {"SystemDateByName",     "[$-x-sysdate]d",                        "[$-x-sysdate]d",                        "[$-x-sysdate]d"                  },
    {"Quoted",               "0\" EUR net \"",                        "0\\ \"EUR net\"\\ ",                    "0\" EUR net \""                  },
    {"JoinedTexts",          "0\\a\"b\"\\ \\c",                       "0\"ab c\"",                             "0\"ab c\""                       },
    {"QuotationMark",        "0\\\"\"x\"",                            "0\\\"\"x\"",                            "0\\\"\"x\""                      },
    {"EmptyQuotes",          "0\"\"",                                 "0",                                     "0"                               },
    {"BareSigns",            "$-+(0):",                               "$-+(0):",                               "$-+(0):"                         },
    {"EscapedSigns",         "0!^&'~{}=<>",                           "0\\!\\^\\&\\'\\~\\{\\}\\=\\<\\>",       "0\"!^&'~{}=<>\""                 },
    {"SkipAndFill",          "_(* #,##0_);_\"* 0",                    "_(* #,##0_);_\"* 0",                    "_(* #,##0_);_\"* 0"              },
    {"WideCharacter",        "_\xE2\x82\xAC\\\xC3\xA4 0",             "_\xE2\x82\xAC\"\xC3\xA4\"\\ 0",
     "_\xE2\x82\xAC\"\xC3\xA4 \"0"                                                                                                               },
    {"CommaFirst",           ",0",                                    "\\,0",                                  "\",\"0"                          },
    {"CommaInTheExponent",   "0E+0,",                                 "0E+0\\,",                               "0E+0\",\""                       },
    {"PointAlone",           "\"a\".",                                "\"a\"\\.",                              "\"a.\""                          },
    {"SlashThatIsNoBar",     "0 / 8",                                 "0\\ \\/\\ \"8\"",                       "0\" / 8\""                       },
    {"DigitsAsText",         "00 5",                                  "00\\ \"5\"",                            "00\" 5\""                        },
    {"Date",                 "YYYY-MM-DD",                            "yyyy-mm-dd",                            "yyyy-mm-dd"                      },
    {"DateWithSlashes",      "m/d/y, mmm",                            "m/d/yy\\,\\ mmm",                       "m/d/yy\", \"mmm"                 },
    {"LongRuns",             "mmmmmm dddddd yyyyy hhh sss",           "mmmm\\ dddd\\ yyyy\\ hh\\ ss",
     "mmmm\" \"dddd\" \"yyyy\" \"hh\" \"ss"                                                                                                      },
    {"SecondFraction",       "mm:ss.000",                             "mm:ss.000",                             "mm:ss.000"                       },
    {"Elapsed",              "[HH]:[mm]:[s].0",                       "[hh]:[mm]:[s].0",                       "[hh]:[mm]:[s].0"                 },
    {"DayParts",             "h am/pm a/p",                           "h\\ AM/PM\\ a/p",                       "h\" \"AM/PM\" \"a/p"             },
    {"Calendars",            "ggge bbbb aaa B2yyyy",                  "ggge\\ bbbb\\ aaa\\ B2yyyy",            "ggge\" \"bbbb\" \"aaa\" \"B2yyyy"},
    {"PointOfADate",         "dd.mm.",                                "dd\\.mm\\.",                            "dd\".\"mm\".\""                  },
    {"HoursSideBySide",      "h\"\"h",                                "h\"\"h",                                "h\"\"h"                          },
    {"DayAndWeekday",        "dd\"\"ddd",                             "dd\"\"ddd",                             "dd\"\"ddd"                       },
    {"WeekdayAndDayPart",    "aaa\"\"A/P",                            "aaa\"\"A/P",                            "aaa\"\"A/P"                      },
    {"EraYearAndSign",       "ss.0e\"\"+",                            "ss.0e\"\"+",                            "ss.0e\"\"+"                      },
};

class CanonicalCode : public testing::TestWithParam<CodeRow>
{
};

TEST_P(CanonicalCode, OfEachDialect)
{
    EXPECT_EQ(canonize(GetParam().code, Type::Spreadsheet), GetParam().spreadsheet);
    EXPECT_EQ(canonize(GetParam().code, Type::Model), GetParam().model);
}

TEST_P(CanonicalCode, IsItsOwn)
{
    EXPECT_EQ(canonize(GetParam().spreadsheet, Type::Spreadsheet), GetParam().spreadsheet);
    EXPECT_EQ(canonize(GetParam().model, Type::Model), GetParam().model);
    EXPECT_TRUE(Parser::parse(GetParam().spreadsheet, Type::Spreadsheet) ==
                Parser::parse(GetParam().model, Type::Model));
}

template <typename Row>
std::string getName(const testing::TestParamInfo<Row>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Codes, CanonicalCode, testing::ValuesIn(CodeRows), getName<CodeRow>);

struct InvalidRow
{
    const char* name;
    std::string code;
};

void PrintTo(const InvalidRow& row, std::ostream* out)
{
    *out << row.code;
}

const InvalidRow InvalidRows[] = {
    {"Empty",                  ""                  },
    {"FiveSections",           "0;0;0;@;@"         },
    {"OpenQuotes",             "0\"x"              },
    {"EscapeOfNothing",        "0\\"               },
    {"SkipOfNothing",          "0_"                },
    {"FillOfNothing",          "0*"                },
    {"OpenBracket",            "[Red0"             },
    {"ClosingBracket",         "0]"                },
    {"EmptyBrackets",          "[]0"               },
    {"UnknownBrackets",        "[Pink]0"           },
    {"ColorZero",              "[Color0]0"         },
    {"ColorBeyondPalette",     "[Color57]0"        },
    {"ColorHuge",              "[Color4294967297]0"},
    {"ColorWithoutNumber",     "[Color]0"          },
    {"TwoColors",              "[Red][Blue]0"      },
    {"TwoConditions",          "[>1][<2]0"         },
    {"ConditionWithoutLimit",  "[>]0"              },
    {"ConditionOnWords",       "[>x]0"             },
    {"ConditionOnInfinity",    "[>1e999]0"         },
    {"ConditionInThird",       "0;0;[>1]0"         },
    {"ConditionOnText",        "0;[>1]@"           },
    {"TextFirst",              "@;0"               },
    {"TextWithDigits",         "0@"                },
    {"TextWithDate",           "d@"                },
    {"DigitsForTexts",         "0;0;0;0"           },
    {"DigitsInADate",          "yyyy 0"            },
    {"PercentInADate",         "h%"                },
    {"GeneralWithDigits",      "General0"          },
    {"GeneralTwice",           "General General"   },
    {"GeneralWithDate",        "General d"         },
    {"TwoPoints",              "0.0.0"             },
    {"TwoExponents",           "0E+0E+0"           },
    {"ExponentWithoutDigits",  "0E+"               },
    {"PointInTheExponent",     "0E+0.0"            },
    {"TwoBars",                "?/?/?"             },
    {"PointInAFraction",       "0.0 ?/?"           },
    {"ExponentInAFraction",    "?/?E+0"            },
    {"DenominatorGoesOn",      "?/8?"              },
    {"DenominatorTooLong",     "?/1234567890"      },
    {"DigitsSideBySide",       "05"                },
    {"SecondsTooFine",         "ss.0000000000"     },
    {"SecondsWithOtherDigits", "ss.#"              },
    {"ElapsedDays",            "[d]"               },
    {"ElapsedMixed",           "[hm]"              },
    {"ElapsedTooLong",         "[hhhhhhhhhh]"      },
    {"Nul",                    std::string("0\0",    2)},
    {"QuotedNul",                        std::string("\"\0\"",                                  3)},
    {"CutCharacter",                      "0\xE2\x82"        },
    {"StrayByte","0\x80"   },
    {"CutCharacterInQuotes",                          "\"\xC3\""                                          },
    {"CutCharacterInAMark","[$\xC3]0"},
    {"BracketInAMark",                          "[$[]0"                                                                               },
};

class InvalidCode : public testing::TestWithParam<InvalidRow>
{
};

TEST_P(InvalidCode, GivesNothing)
{
    for (const Type type : Types)
        EXPECT_EQ(canonize(GetParam().code, type), "(none)");
}

INSTANTIATE_TEST_SUITE_P(Codes, InvalidCode, testing::ValuesIn(InvalidRows), getName<InvalidRow>);

TEST(Parser, LettersWithoutMeaningAreTextInASpreadsheetAlone)
{
    EXPECT_EQ(canonize("0.0x", Type::Spreadsheet), "0.0\"x\"");
    EXPECT_EQ(canonize("0.0x", Type::Model), "(none)");
    EXPECT_EQ(canonize("0.0\"x\"", Type::Model), "0.0\"x\"");
}

TEST(Parser, ReadsUpToTheLongestCode)
{
    const std::string longest(Parser::CodeLengthMax, '0');
    EXPECT_EQ(canonize(longest, Type::Spreadsheet), longest);
    EXPECT_EQ(canonize(longest + '0', Type::Spreadsheet), "(none)");
}

TEST(Parser, SectionsSayWhichNumbersTheyAreFor)
{
    const auto expression = Parser::parse("0;[Red]-0;\"zero\";@", Type::Spreadsheet);
    ASSERT_TRUE(expression);
    ASSERT_EQ(expression->getRules().size(), 2U);
    EXPECT_TRUE(
        expression->getRules()[0].getCondition() == (Condition{Condition::Operator::Greater, 0, true}));
    EXPECT_TRUE(expression->getRules()[1].getCondition() == (Condition{Condition::Operator::Less, 0, true}));
    EXPECT_EQ(expression->getRules()[1].getColorNumber(), 3U);
    ASSERT_TRUE(expression->getDefaultNumberRule());
    EXPECT_FALSE(expression->getDefaultNumberRule()->getCondition());
    ASSERT_TRUE(expression->getDefaultTextRule());
    EXPECT_EQ(expression->getDefaultTextRule()->getKind(), Rule::Kind::Text);
}

TEST(Parser, ConditionedSectionsLeaveOutTheDefault)
{
    const auto expression = Parser::parse("[<1]0;[<2]0.0", Type::Spreadsheet);
    ASSERT_TRUE(expression);
    EXPECT_EQ(expression->getRules().size(), 2U);
    EXPECT_FALSE(expression->getDefaultNumberRule());
    EXPECT_TRUE(expression->getRules()[0].getCondition() == (Condition{Condition::Operator::Less, 1, false}));
}

TEST(Parser, ATextSectionAloneHasNoNumbers)
{
    const auto expression = Parser::parse("@", Type::Spreadsheet);
    ASSERT_TRUE(expression);
    EXPECT_FALSE(expression->getDefaultNumberRule());
    EXPECT_TRUE(expression->getDefaultTextRule());
}

struct LanguageRow
{
    const char* code;
    boost::optional<unsigned long> language;
};

TEST(Parser, ReadsLanguages)
{
    const LanguageRow rows[] = {
        {"0",                     boost::none },
        {"[$-409]0",              0x409UL     },
        {"[$\xE2\x82\xAC-407]0",  0x407UL     },
        {"[$USD]0",               boost::none },
        {"[$-F800]d",             0xF800UL    },
        {"[$-x-sysdate]d",        0xF800UL    },
        {"[$-X-SysTime]h",        0xF400UL    },
        {"[$-de-DE]d",            0x407UL     },
        {"[$-zz-ZZ]d",            boost::none },
        {"[$-de_DE]d",            boost::none },
        {"[$-de-!!!]d",           boost::none },
        {"[$-fr- cost]d",         boost::none },
        {"[$-de]d",               0x07UL      },
        {"[$-FAA1]d",             0xFAA1UL    },
        {"[$-C0A]d",              0xC0AUL     },
        {"[$-C]d",                0x0CUL      },
        {"[$-00C]d",              0x0CUL      },
        {"[$-0DE]d",              0xDEUL      },
        {"[$-0ABC]d",             0xABCUL     },
        {"[$-000]d",              0UL         },
        {"[$-ja-JP,80]d",         0x411UL     },
        {"[$-,80]d",              boost::none },
        {"[$-FFFFFFFF]d",         0xFFFFFFFFUL},
        {"[$-100000000]d",        boost::none },
        {"[$USD][$-409]0[$-407]", 0x409UL     },
    };
    for (const LanguageRow& row : rows) {
        const auto expression = Parser::parse(row.code, Type::Spreadsheet);
        ASSERT_TRUE(expression) << row.code;
        EXPECT_EQ(expression->getDefaultNumberRule()->getLanguage(), row.language) << row.code;
        const auto again = Parser::parse(Parser::toRegEx(*expression, Type::Spreadsheet), Type::Spreadsheet);
        EXPECT_TRUE(again == expression) << row.code;
    }
}

std::string listMinutes(const std::string& code)
{
    std::string kinds;
    const auto expression = Parser::parse(code, Type::Spreadsheet);
    for (const Token& token : expression->getDefaultNumberRule()->getTokens()) {
        if (token.kind == TokenKind::Month)
            kinds += 'M';
        if (token.kind == TokenKind::Minute)
            kinds += 'm';
    }
    return kinds;
}

TEST(Parser, TellsMinutesFromMonths)
{
    const std::pair<const char*, const char*> rows[] = {
        {"m",           "M" },
        {"h:mm",        "m" },
        {"mm:ss",       "m" },
        {"[h]:mm",      "m" },
        {"mm:[ss]",     "m" },
        {"mm-dd ss",    "M" },
        {"m/d/yy h:mm", "Mm"},
        {"h AM/PM:mm",  "m" },
        {"h:mmm",       "M" },
        {"mmm:ss",      "M" },
        {"h:mm mm",     "mM"},
        {"mm mm:ss",    "Mm"},
        {"h d mm",      "M" },
        {"h\" of \"m",  "m" },
    };
    for (const auto& row : rows)
        EXPECT_EQ(listMinutes(row.first), row.second) << row.first;
}

/// Codes put together at random from all that means something.
std::string makeCode(std::mt19937& random)
{
    static const char* const Pieces[] = {"0", "#", "?", ".", ",", "%", "/", "E+", "e-", "8", "10", ";", "@",
        "General", "y", "m", "mm", "mmm", "d", "ddd", "h", "s", "ss.0", "[h]", "[mm]", "AM/PM", "a/p", "g",
        "e", "b", "B1", "aaa", "\"\"", "\"x y\"", "\\-", "\\\"", " ", "-", "+", "(", "_)", "* ", "[Red]",
        "[<1]", "[$-409]", "[$x]", "[DBNum2]", "x", "A", "\xC3\xA4", "'", "!"};
    std::string code;
    const std::size_t count = 1 + random() % 8;
    for (std::size_t i = 0; i < count; ++i)
        code += Pieces[random() % std::size(Pieces)];
    return code;
}

TEST(Parser, CanonicalCodesAreFixedPointsWhateverIsRead)
{
    std::mt19937 random(1);
    int valid = 0;
    for (int i = 0; i < 50000; ++i) {
        const std::string code = makeCode(random);
        for (const Type type : Types) {
            const auto expression = Parser::parse(code, type);
            if (!expression)
                continue;
            ++valid;
            for (const Type other : Types) {
                const std::string printed = Parser::toRegEx(*expression, other);
                if (printed.empty())
                    continue; // of a code of empty quotes
                const auto again = Parser::parse(printed, other);
                ASSERT_TRUE(again) << code << " -> " << printed;
                ASSERT_EQ(*again, *expression) << code << " -> " << printed;
                ASSERT_EQ(Parser::toRegEx(*again, other), printed) << code;
            }
        }
    }
    EXPECT_GT(valid, 20000);
}

DateTimeLocalizedExpression makeExpression(const DateTimePatternItemSet& items)
{
    return CellFormatFactory::makeDateTimeFormat(items);
}

using Part = DateTimePatternToken;
const DateTimePatternItemSet LongDate = {
    {Part::Weekday, 0},
    {Part::Month,   1},
    {Part::Day,     0},
    {Part::Year,    0}
};
const DateTimePatternItemSet ShortDate = {
    {Part::Month, 0},
    {Part::Day,   0},
    {Part::Year,  0}
};
const DateTimePatternItemSet Time = {
    {Part::Hour,   0},
    {Part::Minute, 0},
    {Part::Second, 0}
};

TEST(Parser, PrintsLocalizedDatesForALocale)
{
    const std::pair<std::pair<const char*, DateTimePatternItemSet>, const char*> rows[] = {
        {{"en_US", LongDate},                             "dddd\\,\\ mmmm\\ d\\,\\ yyyy"},
        {{"de_DE", LongDate},                             "dddd\\,\\ d\\.\\ mmmm\\ yyyy"},
        {{"en_US", ShortDate},                            "mm/dd/yyyy"                  },
        {{"de_DE", ShortDate},                            "dd\\.mm\\.yyyy"              },
        {{"en_US", Time},                                 "h:mm:ss\\ AM/PM"             },
        {{"de_DE", Time},                                 "hh:mm:ss"                    },
        {{"en_US", {{Part::Hour, 1}, {Part::Minute, 0}}}, "hh:mm"                       },
        {{"en_US", {{Part::Month, 2}, {Part::Year, 1}}},  "mmm\\ yy"                    },
        {{"en_US", {}},                                   ""                            },
    };
    for (const auto& row : rows)
        EXPECT_EQ(
            Parser::toRegEx(makeExpression(row.first.second), LocaleContext(row.first.first)), row.second)
            << row.first.first;
}

TEST(Parser, WhatItPrintsForALocaleIsValidInBothDialects)
{
    for (const char* const name : {"en_US", "de_DE", "ja_JP", "ar_EG", "th_TH", "fr_FR", "ru_RU", "es_MX"})
        for (const DateTimePatternItemSet& items : {LongDate, ShortDate, Time}) {
            const std::string code = Parser::toRegEx(makeExpression(items), LocaleContext(name));
            for (const Type type : Types)
                EXPECT_TRUE(Parser::parse(code, type)) << name << ": " << code;
        }
}

TEST(CellFormatFactory, TellsDatesFromTimes)
{
    EXPECT_EQ(makeExpression(LongDate).getFormatType(), FormatType::Date);
    EXPECT_EQ(makeExpression(Time).getFormatType(), FormatType::Time);
    EXPECT_EQ(makeExpression({
                                 {Part::Year, 0},
                                 {Part::Hour, 0}
    })
                  .getFormatType(),
        FormatType::DateTime);
    EXPECT_EQ(static_cast<int>(FormatType::Time), 5);
}

} // namespace
} // namespace QV::OfficeUtils
