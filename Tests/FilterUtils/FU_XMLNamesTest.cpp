#include <FilterUtils/FU_XMLNames.h>

#include <ostream>

#include <gtest/gtest.h>
#include <libxml/chvalid.h>

namespace QV::XMLSchemaPart2Year2004 {
namespace {

constexpr char32_t CodePointsEnd = 0x110000;

bool isLetter(unsigned int character)
{
    return xmlIsBaseCharQ(character) || xmlIsIdeographicQ(character);
}

bool isOtherNameChar(unsigned int character)
{
    return xmlIsDigitQ(character) || xmlIsCombiningQ(character) || xmlIsExtenderQ(character);
}

TEST(XMLNCNameChar, AgreesWithAnotherLibraryOnEveryCodePoint)
{
    for (unsigned int character = 0; character < CodePointsEnd; ++character) {
        const bool isStart = character == '_' || isLetter(character);
        const bool isMark = character == '-' || character == '.';
        ASSERT_EQ(isXMLNCNameStartChar(character), isStart) << std::hex << character;
        ASSERT_EQ(isXMLNCNameChar(character), isStart || isMark || isOtherNameChar(character))
            << std::hex << character;
    }
}

TEST(XMLNCNameChar, IsFalseBeyondUnicode)
{
    for (const char32_t character : {char32_t(CodePointsEnd), char32_t(0x7FFFFFFF), char32_t(0xFFFFFFFF)}) {
        EXPECT_FALSE(isXMLNCNameStartChar(character));
        EXPECT_FALSE(isXMLNCNameChar(character));
    }
}

struct CharacterRow
{
    const char* name;
    char32_t character;
    bool isStart;
    bool isNameChar;
};

void PrintTo(const CharacterRow& row, std::ostream* out)
{
    *out << row.name;
}

const CharacterRow CharacterRows[] = {
    {"Nul",                0x0000,  false, false},
    {"Blank",              U' ',    false, false},
    {"Colon",              U':',    false, false},
    {"Underscore",         U'_',    true,  true },
    {"Hyphen",             U'-',    false, true },
    {"Dot",                U'.',    false, true },
    {"Digit",              U'7',    false, true },
    {"BeforeCapitals",     U'@',    false, false},
    {"FirstCapital",       U'A',    true,  true },
    {"LastCapital",        U'Z',    true,  true },
    {"AfterCapitals",      U'[',    false, false},
    {"MultiplicationSign", 0x00D7,  false, false},
    {"MiddleDot",          0x00B7,  false, true },
    {"GapBeforeIJ",        0x0132,  false, false},
    {"FirstCombining",     0x0300,  false, true },
    {"IdeographicZero",    0x3007,  true,  true },
    {"IterationMark",      0x3005,  false, true },
    {"LastIdeograph",      0x9FA5,  true,  true },
    {"AfterLastIdeograph", 0x9FA6,  false, false},
    {"LastHangul",         0xD7A3,  true,  true },
    {"AfterLastHangul",    0xD7A4,  false, false},
    {"BeyondBasicPlane",   0x10000, false, false},
};

class XMLNCNameCharRows : public testing::TestWithParam<CharacterRow>
{
};

TEST_P(XMLNCNameCharRows, KeepRow)
{
    EXPECT_EQ(isXMLNCNameStartChar(GetParam().character), GetParam().isStart);
    EXPECT_EQ(isXMLNCNameChar(GetParam().character), GetParam().isNameChar);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLNCNameCharRows, testing::ValuesIn(CharacterRows),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::XMLSchemaPart2Year2004
