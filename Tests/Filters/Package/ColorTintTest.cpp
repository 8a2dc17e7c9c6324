#include <Filters/Package/ColorTint.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

using RGBA = cinder::ColorAT<unsigned char>;

RGBA makeColor(unsigned rgb)
{
    return {static_cast<unsigned char>(rgb >> 16U), static_cast<unsigned char>(rgb >> 8U & 0xFFU),
        static_cast<unsigned char>(rgb & 0xFFU), 255};
}

std::string print(const RGBA& color)
{
    char text[8];
    std::snprintf(text, sizeof(text), "%02X%02X%02X", color.r, color.g, color.b);
    return text;
}

/// The palette that applications show for a theme colour, lighter by 80, 60 and 40 % and darker by 25 and 50
/// %.
struct ThemeColorRow
{
    unsigned color;
    const char* shades[5];
};

const ThemeColorRow ThemeColorRows[] = {
    {0x4F81BD, {"DCE6F1", "B8CCE4", "95B3D7", "366092", "244062"}},
    {0xC0504D, {"F2DCDB", "E6B8B7", "DA9694", "963634", "632523"}},
    {0x9BBB59, {"EBF1DE", "D8E4BC", "C4D79B", "76933C", "4F6228"}},
    {0x8064A2, {"E4DFEC", "CCC0DA", "B1A0C7", "60497A", "403151"}},
    {0x4BACC6, {"DAEEF3", "B7DEE8", "92CDDC", "31869B", "215967"}},
    {0xF79646, {"FDE9D9", "FCD5B4", "FABF8F", "E26B0A", "974706"}},
    {0x1F497D, {"C5D9F1", "8DB4E2", "538DD5", "16365C", "0F243E"}},
};
const double ThemeTints[] = {
    0.7999816888943144, 0.5999938962981048, 0.3999755851924192, -0.249977111117893, -0.499984740745262};

TEST(ApplyTint, GivesThePaletteOfTheTheme)
{
    for (const ThemeColorRow& row : ThemeColorRows)
        for (std::size_t i = 0; i < std::size(ThemeTints); ++i)
            EXPECT_EQ(print(applyTint(makeColor(row.color), ThemeTints[i])), row.shades[i])
                << print(makeColor(row.color)) << " with tint " << ThemeTints[i];
    EXPECT_EQ(print(applyTint(makeColor(0xDAB6BA), 0.7999)), "F8EFF0");
}

TEST(ApplyTint, GivesTheGreysOfBlackAndWhite)
{
    const double tints[] = {
        0.499984740745262, 0.349986266670736, 0.249977111117893, 0.149998474074526, 0.0499893185216834};
    const char* const ofBlack[] = {"808080", "595959", "404040", "262626", "0D0D0D"};
    const char* const ofWhite[] = {"808080", "A6A6A6", "BFBFBF", "D9D9D9", "F2F2F2"};
    for (std::size_t i = 0; i < std::size(tints); ++i) {
        EXPECT_EQ(print(applyTint(makeColor(0x000000), tints[i])), ofBlack[i]);
        EXPECT_EQ(print(applyTint(makeColor(0xFFFFFF), -tints[i])), ofWhite[i]);
    }
}

TEST(ApplyTint, EndsAreBlackAndWhite)
{
    for (const unsigned color : {0x000000U, 0xFFFFFFU, 0x123456U, 0xFF0000U}) {
        EXPECT_EQ(print(applyTint(makeColor(color), 1)), "FFFFFF");
        EXPECT_EQ(print(applyTint(makeColor(color), -1)), "000000");
        EXPECT_EQ(print(applyTint(makeColor(color), 7)), "FFFFFF");
        EXPECT_EQ(print(applyTint(makeColor(color), -std::numeric_limits<double>::infinity())), "000000");
    }
}

TEST(ApplyTint, NothingChangesNothing)
{
    for (unsigned color = 0; color < 0x1000000; color += 4099) {
        EXPECT_EQ(print(applyTint(makeColor(color), 0)), print(makeColor(color)));
        EXPECT_EQ(print(applyTint(makeColor(color), std::nan(""))), print(makeColor(color)));
    }
}

TEST(ApplyTint, KeepsAlpha)
{
    EXPECT_EQ(applyTint({10, 20, 30, 77}, 0.5).a, 77);
}

TEST(ApplyTint, LighterIsNeverDarker)
{
    const auto sum = [](const RGBA& color) { return color.r + color.g + color.b; };
    for (unsigned color = 0; color < 0x1000000; color += 7919)
        for (double tint = -1; tint < 0.95; tint += 0.1)
            ASSERT_LE(
                sum(applyTint(makeColor(color), tint)), sum(applyTint(makeColor(color), tint + 0.1)) + 3)
                << print(makeColor(color)) << " with tint " << tint;
}

TEST(ChangeLuminance, KeepsHueAndSaturation)
{
    struct Row
    {
        unsigned color;
        double scale;
        double offset;
        const char* expected;
    };
    const Row rows[] = {
        {0x4472C4, 0xBF / 255.0, 0,                "2F5496"}, // as word processors write these down
        {0x4472C4, 0x99 / 255.0, 1 - 0x99 / 255.0, "8EAADB"},
        {0xFFFFFF, 0x80 / 255.0, 0,                "808080"},
        {0x123456, 1,            0,                "123456"},
        {0x123456, 0,            0,                "000000"},
        {0x123456, 0,            1,                "FFFFFF"},
        {0x123456, 9,            9,                "FFFFFF"},
        {0x000000, 0.5,          0.5,              "7F7F7F"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(print(changeLuminance(makeColor(row.color), row.scale, row.offset)), row.expected);
    EXPECT_EQ(changeLuminance({10, 20, 30, 77}, 0.5, 0).a, 77);
}

} // namespace
} // namespace QV::Filters
