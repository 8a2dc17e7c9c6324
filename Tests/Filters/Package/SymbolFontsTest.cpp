#include <Filters/Package/SymbolFonts.h>

#include <cstdint>
#include <ostream>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>

namespace QV::Filters {
namespace {

struct SymbolRow
{
    const char* name;
    const char* font;
    std::uint32_t code;
    const char* text;
};

void PrintTo(const SymbolRow& row, std::ostream* out)
{
    *out << row.font << " 0x" << std::hex << row.code;
}

const SymbolRow SymbolRows[] = {
    {"Bullet",             "Symbol",      0xF0B7,   "\u2022"    },
    {"BulletWithoutShift", "Symbol",      0xB7,     "\u2022"    },
    {"Alpha",              "Symbol",      0xF061,   "\u03B1"    },
    {"Omega",              "Symbol",      0xF057,   "\u03A9"    },
    {"Infinity",           "Symbol",      0xF0A5,   "\u221E"    },
    {"LastOfSymbol",       "Symbol",      0xF0FE,   "\u23AD"    },
    {"Blank",              "Symbol",      0xF020,   " "         },
    {"NothingInSymbol",    "Symbol",      0xF080,   "\uF080"    },
    {"AnyCase",            "sYMBOL",      0xF0B7,   "\u2022"    },
    {"Square",             "Wingdings",   0xF0A7,   "\u25AA"    },
    {"Hollow",             "Wingdings",   0xF0A8,   "\u25FB"    },
    {"Arrowhead",          "Wingdings",   0xF0D8,   "\u27A2"    },
    {"Check",              "Wingdings",   0xF0FC,   "\u2713"    },
    {"Diamonds",           "Wingdings",   0xF076,   "\u2756"    },
    {"Arrow",              "Wingdings",   0xF0E0,   "\u2192"    },
    {"Disc",               "Wingdings",   'l',      "\u25CF"    },
    {"BeyondTheBase",      "Wingdings",   0xF024,   "\U0001F453"},
    {"CheckInTheSecond",   "Wingdings 2", 0xF050,   "\u2713"    },
    {"UnknownInTheSecond", "Wingdings 2", 0xF021,   "\uF021"    },
    {"BelowTheCodes",      "Wingdings",   0xF01F,   "\uF01F"    },
    {"BehindTheCodes",     "Wingdings",   0xF100,   "\uF100"    },
    {"OtherFont",          "Arial",       'A',      "A"         },
    {"PrivateInOtherFont", "Arial",       0xF0B7,   "\uF0B7"    },
    {"LastOfUnicode",      "Arial",       0x10FFFF, "\U0010FFFF"},
    {"BehindUnicode",      "Arial",       0x110000, ""          },
    {"FirstSurrogate",     "Arial",       0xD800,   ""          },
    {"LastSurrogate",      "Arial",       0xDFFF,   ""          },
    {"BehindSurrogates",   "Arial",       0xE000,   "\uE000"    },
    {"Nul",                "Arial",       0,        ""          },
    {"Control",            "Symbol",      0x1F,     ""          },
};

class MapSymbol : public testing::TestWithParam<SymbolRow>
{
};

TEST_P(MapSymbol, KeepsRow)
{
    EXPECT_EQ(mapSymbol(GetParam().font, GetParam().code), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, MapSymbol, testing::ValuesIn(SymbolRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(MapSymbols, MapsEachCharacter)
{
    EXPECT_EQ(mapSymbols("Symbol", "\uF061\uF062c"), std::string("\u03B1\u03B2\u03C7"));
    EXPECT_EQ(mapSymbols("Arial", "a\u2022\U0001F453"), std::string("a\u2022\U0001F453"));
    EXPECT_EQ(mapSymbols("Symbol", ""), std::string());
}

TEST(MapSymbols, GivesNothingWhereACharacterIsPrivate)
{
    EXPECT_EQ(mapSymbols("Arial", "a\uF0B7"), boost::none);
    EXPECT_EQ(mapSymbols("Symbol", "\uF080"), boost::none);
    EXPECT_EQ(mapSymbols("Arial", "\uE000"), boost::none);
    EXPECT_EQ(mapSymbols("Arial", "\uF8FF"), boost::none);
    EXPECT_NE(mapSymbols("Arial", "\uF900"), boost::none);
}

TEST(MapSymbols, KeepsBytesThatAreNoCharacters)
{
    EXPECT_EQ(mapSymbols("Arial", "\x80z"), std::string("\x80z"));
    EXPECT_EQ(mapSymbols("Arial", "\xE2\x80"), std::string("\xE2\x80"));
    EXPECT_EQ(mapSymbols("Arial", "\xC3("), std::string("\xC3("));
}

} // namespace
} // namespace QV::Filters
