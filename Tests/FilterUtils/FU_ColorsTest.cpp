#include <FilterUtils/FU_Colors.h>

#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_Errors.h>
#include <Tests/Support/Printers.h>
#include <Utils/Public/OperationReport.h>

namespace cinder {

std::ostream& operator<<(std::ostream& out, const ColorAT<unsigned char>& color)
{
    return out << int(color.r) << ',' << int(color.g) << ',' << int(color.b) << ',' << int(color.a);
}

} // namespace cinder

namespace QV::FilterUtils {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::IsEmpty;
using Argument = OperationReport::Message::Argument;
using Color = cinder::ColorAT<unsigned char>;
using ColorOpt = boost::optional<Color>;

struct ColorRow
{
    const char* name;
    std::string text;
    Color color;
};

void PrintTo(const ColorRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text);
}

const ColorRow ColorRows[] = {
    {"Red",                              "#FF0000",                                         Color(255,  0,    0,    255) },
    {"WithoutHash",                      "FF0000",                                          Color(255,  0,    0,    255) },
    {"LowerCase",                        "#a1b2c3",                                         Color(0xA1, 0xB2, 0xC3, 255) },
    {"Alpha",                            "#FF000080",                                       Color(255,  0,    0,    0x80)},
    {"AlphaWithoutHash",                 "01020304",                                        Color(1,    2,    3,    4)   },
    {"SevenDigits",                      "#1234567",                                        Color(0x01, 0x23, 0x45, 0x67)},
    {"ThreeDigits",                      "#FFF",                                            Color(0,    0x0F, 0xFF, 255) },
    {"FourDigits",                       "12ab",                                            Color(0,    0x12, 0xAB, 255) },
    {"OneDigit",                         "7",                                               Color(0,    0,    7,    255) },
    {"Largest",                          "FFFFFFFF",                                        Color(255,  255,  255,  255) },
    {"LeadingZeros",                     "#0000000001020304",                               Color(1,    2,    3,    4)   },
    {"Prefix",                           "0x12",                                            Color(0,    0,    0x12, 255) },
    {"PrefixCountsAsCharacters",         "#0xABCDE",                                        Color(0,    0x0A, 0xBC, 0xDE)},
    {"Blank",                            " 123",                                            Color(0,    1,    0x23, 255) },
    {"BlanksCountAsCharacters",          "#    123",                                        Color(0,    0,    1,    0x23)},
    {"Plus",                             "+123",                                            Color(0,    1,    0x23, 255) },
    {"MinusWrapsAround",                 "-FFFFFFFFFFFFFFFF",                               Color(0,    0,    0,    1)   },
    {"Rgb",                              "rgb(255,0,0)",                                    Color(255,  0,    0,    255) },
    {"RgbSigns",                         "rgb(+1,-1,-0)",                                   Color(1,    255,  0,    255) },
    {"RgbLowBits",                       "rgb(256,300,-257)",                               Color(0,    44,   255,  255) },
    {"RgbLeadingZeros",                  "rgb(001,002,00000000000000000000000003)",         Color(1,    2,    3,    255) },
    {"RgbLargest",                       "rgb(9223372036854775807,-9223372036854775808,0)", Color(255,  0,    0,    255) },
    {"RgbEmptyItems",                    "rgb(1,,2,3)",                                     Color(1,    2,    3,    255) },
    {"RgbCommasAround",                  "rgb(,,1,2,3,,)",                                  Color(1,    2,    3,    255) },
    {"RgbIgnoresAlpha",                  "rgb(255,0,0,0.5)",                                Color(255,  0,    0,    255) },
    {"RgbIgnoresABadAlpha",              "rgb(255,0,0,x)",                                  Color(255,  0,    0,    255) },
    {"RgbTextBetween",                   "rgbcolour of (1,2,3)",                            Color(1,    2,    3,    255) },
    {"RgbTextAfter",                     "rgb(1,2,3) and (4,5,6)",                          Color(1,    2,    3,    255) },
    {"RgbNulAfter",                      "rgb(1,2,3)\0"s,                                   Color(1,    2,    3,    255) },
    {"Rgba",                             "rgba(255,0,0,0.5)",                               Color(255,  0,    0,    127) },
    {"RgbaOpaque",                       "rgba(1,2,3,1)",                                   Color(1,    2,    3,    255) },
    {"RgbaTransparent",                  "rgba(1,2,3,0)",                                   Color(1,    2,    3,    0)   },
    {"RgbaWithoutAlpha",                 "rgba(255,0,0)",                                   Color(255,  0,    0,    255) },
    {"RgbaEmptyAlpha",                   "rgba(255,0,0,)",                                  Color(255,  0,    0,    255) },
    {"RgbaIgnoresMore",                  "rgba(1,2,3,0.5,x,y)",                             Color(1,    2,    3,    127) },
    {"RgbaEmptyItemsBefore",             "rgba(1,2,3,,,0.5)",                               Color(1,    2,    3,    127) },
    {"RgbaAlphaSign",                    "rgba(1,2,3,+.5)",                                 Color(1,    2,    3,    127) },
    {"RgbaAlphaExponent",                "rgba(1,2,3,5E-1)",                                Color(1,    2,    3,    127) },
    {"RgbaAlphaTowardsZero",             "rgba(1,2,3,0.999)",                               Color(1,    2,    3,    254) },
    {"RgbaAlphaJustAboveOne",            "rgba(1,2,3,1.004)",                               Color(1,    2,    3,    0)   },
    {"RgbaAlphaTwo",                     "rgba(1,2,3,2)",                                   Color(1,    2,    3,    254) },
    {"RgbaAlphaNegative",                "rgba(1,2,3,-0.5)",                                Color(1,    2,    3,    129) },
    {"RgbaAlphaAboveMinusOne",           "rgba(1,2,3,-0.003)",                              Color(1,    2,    3,    0)   },
    {"RgbaAlphaLarge",                   "rgba(1,2,3,65793)",                               Color(1,    2,    3,    255) },
    {"RgbaAlphaLargeNegative",           "rgba(1,2,3,-65793)",                              Color(1,    2,    3,    1)   },
    {"RgbaAlphaHuge",                    "rgba(1,2,3,1e30)",                                Color(1,    2,    3,    0)   },
    {"RgbaAlphaHugeNegative",            "rgba(1,2,3,-1e30)",                               Color(1,    2,    3,    0)   },
    {"RgbaAlphaProductInfinite",         "rgba(1,2,3,3e38)",                                Color(1,    2,    3,    255) },
    {"RgbaAlphaProductInfiniteNegative", "rgba(1,2,3,-3e38)",                               Color(1,    2,    3,    0)   },
    {"RgbaAlphaTooSmall",                "rgba(1,2,3,1e-60)",                               Color(1,    2,    3,    0)   },
    {"RgbaAlphaTooSmallForDouble",       "rgba(1,2,3,1e-999)",                              Color(1,    2,    3,    0)   },
    {"RgbaAlphaInfinity",                "rgba(1,2,3,inf)",                                 Color(1,    2,    3,    255) },
    {"RgbaAlphaInfinityInFull",          "rgba(1,2,3,+InFiNiTy)",                           Color(1,    2,    3,    255) },
    {"RgbaAlphaMinusInfinity",           "rgba(1,2,3,-INF)",                                Color(1,    2,    3,    0)   },
    {"RgbaAlphaNotANumber",              "rgba(1,2,3,NaN)",                                 Color(1,    2,    3,    0)   },
    {"RgbaAlphaMinusNotANumber",         "rgba(1,2,3,-nan)",                                Color(1,    2,    3,    0)   },
};

class ConvertToRGBAColor : public testing::TestWithParam<ColorRow>
{
};

TEST_P(ConvertToRGBAColor, GivesTheColour)
{
    OperationReport report;
    EXPECT_EQ(convertToRGBAColor(report, GetParam().text), ColorOpt(GetParam().color));
    EXPECT_EQ(convertToRGBAColor(report, GetParam().text, false), ColorOpt(GetParam().color));
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertToRGBAColor, testing::ValuesIn(ColorRows),
    [](const auto& row) { return std::string(row.param.name); });

struct RefusedColorRow
{
    const char* name;
    std::string text;
    bool isReported;
};

void PrintTo(const RefusedColorRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text);
}

const RefusedColorRow RefusedColorRows[] = {
    {"Tail",                       "#12345G",                       true },
    {"TailWithoutHash",            "12345G",                        true },
    {"NameThatBeginsAsDigit",      "blue",                          true },
    {"TwoDigitsOfAName",           "beige",                         true },
    {"BlankAfter",                 "FF0000 ",                       true },
    {"NulAfter",                   "FF0000\0"s,                     true },
    {"PrefixAlone",                "0x",                            true },
    {"PrefixWithoutDigit",         "#0xg",                          true },
    {"TailAfterALargeNumber",      "1FFFFFFFF!",                    true },
    {"NameThatDoesNot",            "red",                           false},
    {"Empty",                      "",                              false},
    {"HashAlone",                  "#",                             false},
    {"TwoHashes",                  "##FF0000",                      false},
    {"NulBefore",                  "\0FF0000"s,                     false},
    {"SignAlone",                  "-",                             false},
    {"AboveUnsignedInt",           "100000000",                     false},
    {"MinusOne",                   "-1",                            false},
    {"AboveUnsignedLong",          "10000000000000000",             false},
    {"AboveUnsignedLongTail",      "10000000000000000!",            false},
    {"UpperCaseFunction",          "RGB(1,2,3)",                    false},
    {"OtherFunction",              "hsl(1,2,3)",                    false},
    {"RgbBlanks",                  "rgb(1, 2, 3)",                  false},
    {"RgbBlankAfter",              "rgb(1,2,3 )",                   false},
    {"RgbTwoItems",                "rgb(1,2)",                      false},
    {"RgbNoItems",                 "rgb()",                         false},
    {"RgbCommasAlone",             "rgb(,,,)",                      false},
    {"RgbAlone",                   "rgb",                           false},
    {"RgbNotOpened",               "rgb1,2,3)",                     false},
    {"RgbNotClosed",               "rgb(1,2,3",                     false},
    {"RgbClosedFirst",             "rgb)(1,2,3",                    false},
    {"RgbClosedLongBefore",        "rgb) (1,2,3)",                  false},
    {"RgbPercent",                 "rgb(10%,20%,30%)",              false},
    {"RgbFraction",                "rgb(1.5,2,3)",                  false},
    {"RgbHexadecimal",             "rgb(0x1,2,3)",                  false},
    {"RgbSignAlone",               "rgb(-,2,3)",                    false},
    {"RgbPlusAlone",               "rgb(+,2,3)",                    false},
    {"RgbTwoSigns",                "rgb(+-1,2,3)",                  false},
    {"RgbTooLarge",                "rgb(1,9223372036854775808,3)",  false},
    {"RgbTooSmall",                "rgb(1,2,-9223372036854775809)", false},
    {"RgbNul",                     "rgb(1,2,3\0)"s,                 false},
    {"RgbaAlphaText",              "rgba(1,2,3,x)",                 false},
    {"RgbaAlphaBlank",             "rgba(1,2,3, 1)",                false},
    {"RgbaAlphaPercent",           "rgba(1,2,3,50%)",               false},
    {"RgbaAlphaPoint",             "rgba(1,2,3,.)",                 false},
    {"RgbaAlphaExponent",          "rgba(1,2,3,1e)",                false},
    {"RgbaAlphaTooLarge",          "rgba(1,2,3,1e39)",              false},
    {"RgbaAlphaTooLargeNegative",  "rgba(1,2,3,-1e39)",             false},
    {"RgbaAlphaTooLargeForDouble", "rgba(1,2,3,1e999)",             false},
    {"RgbaAlphaInfinityCutShort",  "rgba(1,2,3,infi)",              false},
    {"RgbaAlphaNotANumberTail",    "rgba(1,2,3,nan()",              false},
    {"RgbaAlphaHexadecimal",       "rgba(1,2,3,0x1)",               false},
};

class ConvertToRGBAColorRefused : public testing::TestWithParam<RefusedColorRow>
{
};

TEST_P(ConvertToRGBAColorRefused, IsReportedWhereDigitsHaveATail)
{
    const RefusedColorRow& row = GetParam();
    OperationReport report;
    EXPECT_EQ(convertToRGBAColor(report, row.text, false), ColorOpt());
    EXPECT_THAT(report.getMessages(), IsEmpty());
    EXPECT_EQ(convertToRGBAColor(report, row.text, true), ColorOpt());
    EXPECT_EQ(convertToRGBAColor(report, row.text), ColorOpt());
    if (!row.isReported) {
        EXPECT_THAT(report.getMessages(), IsEmpty());
        return;
    }
    ASSERT_EQ(report.getMessages().size(), 2U);
    for (const OperationReport::Message& message : report.getMessages()) {
        EXPECT_EQ(message.getText(), "Incorrect color value: {0}");
        EXPECT_THAT(message.getArguments(), ElementsAre(Argument(row.text)));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertToRGBAColorRefused, testing::ValuesIn(RefusedColorRows),
    [](const auto& row) { return std::string(row.param.name); });

const ColorRow RgbRows[] = {
    {"Red",              "FF0000",            Color(255,  0,    0,    255)},
    {"LowerCase",        "a1b2c3",            Color(0xA1, 0xB2, 0xC3, 255)},
    {"HigherDigits",     "80FF0000",          Color(255,  0,    0,    255)},
    {"Largest",          "FFFFFFFF",          Color(255,  255,  255,  255)},
    {"ThreeDigits",      "FFF",               Color(0,    0x0F, 0xFF, 255)},
    {"Prefix",           "0x0102",            Color(0,    1,    2,    255)},
    {"Blank",            " 1",                Color(0,    0,    1,    255)},
    {"MinusWrapsAround", "-FFFFFFFFFFFFFFFF", Color(0,    0,    1,    255)},
};

class ConvertToRGBColor : public testing::TestWithParam<ColorRow>
{
};

TEST_P(ConvertToRGBColor, GivesAnOpaqueColour)
{
    OperationReport report;
    EXPECT_EQ(convertToRGBColor(report, GetParam().text), ColorOpt(GetParam().color));
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertToRGBColor, testing::ValuesIn(RgbRows),
    [](const auto& row) { return std::string(row.param.name); });

struct RefusedRgbRow
{
    const char* name;
    std::string text;
};

void PrintTo(const RefusedRgbRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text);
}

const RefusedRgbRow RefusedRgbRows[] = {
    {"Empty",             ""                 },
    {"Hash",              "#FF0000"          },
    {"Name",              "red"              },
    {"Tail",              "FF000G"           },
    {"BlankAfter",        "FF0000 "          },
    {"NulAfter",          "FF0000\0"s        },
    {"Functional",        "rgb(1,2,3)"       },
    {"AboveUnsignedLong", "10000000000000000"},
    {"TailAfterLarge",    "100000000!"       },
};

class ConvertToRGBColorRefused : public testing::TestWithParam<RefusedRgbRow>
{
};

TEST_P(ConvertToRGBColorRefused, AddsOneMessage)
{
    OperationReport report;
    EXPECT_EQ(convertToRGBColor(report, GetParam().text), ColorOpt());
    ASSERT_EQ(report.getMessages().size(), 1U);
    EXPECT_EQ(report.getMessages()[0].getText(), "Incorrect color: {0}");
    EXPECT_THAT(report.getMessages()[0].getArguments(), ElementsAre(Argument(GetParam().text)));
}

INSTANTIATE_TEST_SUITE_P(Rows, ConvertToRGBColorRefused, testing::ValuesIn(RefusedRgbRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ConvertToRGBColorAboveUnsignedInt, Throws)
{
    OperationReport report;
    for (const char* text : {"100000000", "FFFFFFFFFFFFFFFF", "-1"})
        EXPECT_THROW(convertToRGBColor(report, text), BadNumCastError) << text;
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

TEST(ConvertRGBColor, WritesSixUpperCaseDigits)
{
    EXPECT_EQ(convertRGBColor(Color(10, 11, 255, 255)), "0A0BFF");
    EXPECT_EQ(convertRGBColor(Color(0, 0, 0, 0)), "000000");
    EXPECT_EQ(convertRGBColor(Color(171, 205, 239, 1)), "ABCDEF");
}

TEST(ConvertRGBColor, IsReadBackByBothReaders)
{
    OperationReport report;
    for (int value = 0; value < 256; ++value) {
        const auto byte = static_cast<unsigned char>(value);
        const Color color(
            byte, static_cast<unsigned char>(255 - value), static_cast<unsigned char>(value ^ 0x55), 255);
        EXPECT_EQ(convertToRGBAColor(report, convertRGBColor(color)), ColorOpt(color));
        EXPECT_EQ(convertToRGBColor(report, convertRGBColor(color)), ColorOpt(color));
    }
    EXPECT_THAT(report.getMessages(), IsEmpty());
}

} // namespace
} // namespace QV::FilterUtils
