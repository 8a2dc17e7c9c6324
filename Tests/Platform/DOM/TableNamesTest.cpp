#include <DOM/Public/TableNames.h>

#include <cstddef>
#include <iterator>
#include <ostream>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace QV::DOM {
namespace {

using std::string_literals::operator""s;

const char* const Emoji = "\xF0\x9F\x98\x80"; // two UTF-16 units

std::string repeat(const std::string& text, std::size_t count)
{
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

const std::string A30(30, 'a');
const std::string A31(31, 'a');
const std::string A32(32, 'a');
const std::string Umlauts31 = repeat("\xC3\x84", 31);
const std::string Pairs15 = repeat(Emoji, 15);
const std::string Pairs16 = repeat(Emoji, 16);

struct NameRow
{
    const char* name;
    std::string text;
    std::string fixed; // the same text where it is valid
};

void PrintTo(const NameRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text);
}

const NameRow NameRows[] = {
    {"Plain",               "Sheet1",                   "Sheet1"            },
    {"OneCharacter",        "a",                        "a"                 },
    {"Blank",               " ",                        " "                 },
    {"Signs",               "!\"#$%&()+,-.;<=>@",       "!\"#$%&()+,-.;<=>@"},
    {"MoreSigns",           "^_`{|}~",                  "^_`{|}~"           },
    {"ApostropheWithin",    "a'b",                      "a'b"               },
    {"Letters",             "\xC3\x84\xD0\x96",         "\xC3\x84\xD0\x96"  },
    {"Longest",             A31,                        A31                 },
    {"LongestOfTwoBytes",   Umlauts31,                  Umlauts31           },
    {"LongestOfTwoUnits",   Pairs15 + "a",              Pairs15 + "a"       },
    {"Empty",               "",                         "_"                 },
    {"Colon",               "a:b",                      "a_b"               },
    {"Backslash",           "a\\b",                     "a_b"               },
    {"Slash",               "a/b",                      "a_b"               },
    {"QuestionMark",        "a?b",                      "a_b"               },
    {"Asterisk",            "a*b",                      "a_b"               },
    {"Brackets",            "[a]",                      "_a_"               },
    {"LeadingApostrophe",   "'a",                       "_a"                },
    {"TrailingApostrophe",  "a'",                       "a_"                },
    {"OneApostrophe",       "'",                        "_"                 },
    {"TwoApostrophes",      "''",                       "__"                },
    {"ThreeApostrophes",    "'''",                      "_'_"               },
    {"Nul",                 "a\0b"s,                    "a_b"               },
    {"LineEnd",             "a\nb",                     "a_b"               },
    {"LastControl",         "a\x1F",                    "a_"                },
    {"Delete",              "a\x7F",                    "a_"                },
    {"FirstC1",             "\xC2\x80",                 "_"                 },
    {"LastC1",              "\xC2\x9F",                 "_"                 },
    {"AfterC1",             "\xC2\xA0",                 "\xC2\xA0"          },
    {"BeforeNonCharacters", "\xEF\xBF\xBD",             "\xEF\xBF\xBD"      },
    {"NonCharacters",       "\xEF\xBF\xBE\xEF\xBF\xBF", "__"                },
    {"LoneByte",
     "a\xFF"
        "b",                                            "a_b"               },
    {"CutCharacter",        "a\xC3",                    "a_"                },
    {"CutThenLetter",
     "\xE2\x82"
        "a",                                            "__a"               },
    {"Overlong",            "\xC0\xAF",                 "__"                },
    {"Surrogate",           "\xED\xA0\x80",             "___"               },
    {"BeyondUnicode",       "\xF4\x90\x80\x80",         "____"              },
    {"OneTooLong",          A32,                        A31                 },
    {"PairAtTheEnd",        A30 + Emoji,                A30                 },
    {"SixteenPairs",        Pairs16,                    Pairs15             },
    {"CutAtAnApostrophe",   A30 + "'b",                 A30 + "_"           },
    {"BadOnesBeyondTheEnd", A31 + "/",                  A31                 },
};

class TableNames : public testing::TestWithParam<NameRow>
{
};

TEST_P(TableNames, KeepsRow)
{
    const NameRow& row = GetParam();
    EXPECT_EQ(validateTableName(row.text), row.text == row.fixed);
    EXPECT_EQ(fixTableNameIfNeed(row.text), row.fixed);
    EXPECT_TRUE(validateTableName(row.fixed));
}

INSTANTIATE_TEST_SUITE_P(Rows, TableNames, testing::ValuesIn(NameRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FixedTableName, IsValidWhateverTheBytes)
{
    std::mt19937 random(1);
    const std::string pieces[] = {
        "a", "'", "/", "\xC3", "\xC3\x84", Emoji, "\0"s, "\xFF", " ", "\xED\xA0\x80"};
    for (int i = 0; i < 20000; ++i) {
        std::string name;
        for (std::size_t count = random() % 36; count > 0; --count)
            name += pieces[random() % std::size(pieces)];
        const std::string fixed = fixTableNameIfNeed(name);
        ASSERT_TRUE(validateTableName(fixed)) << testing::PrintToString(name);
        ASSERT_EQ(fixTableNameIfNeed(fixed), fixed) << testing::PrintToString(name);
        ASSERT_EQ(validateTableName(name), fixed == name) << testing::PrintToString(name);
    }
}

} // namespace
} // namespace QV::DOM
