#include <Filters/Package/DrawingColors.h>

#include <ostream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Filters/Package/Colors.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/DrawingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Tests::describe;
using Tests::listMessages;
using Tests::parseDrawing;

struct ColorRow
{
    const char* name;
    std::string content;
    const char* color;
    const char* message; // null for none
};

void PrintTo(const ColorRow& row, std::ostream* out)
{
    *out << row.content;
}

ColorRow makeColorRow(const char* name, const std::string& content, const char* color, const char* message)
{
    return {name, content, color, message};
}

std::string makeRgb(const std::string& rgb, const std::string& modifiers)
{
    return "<a:srgbClr val='" + rgb + "'>" + modifiers + "</a:srgbClr>";
}

/// One modifier of a colour.
std::string makeChanged(const std::string& rgb, const std::string& name, const std::string& value)
{
    return makeRgb(rgb, "<a:" + name + " val='" + value + "'/>");
}

const std::string Lighter = "<a:lumMod val='40000'/><a:lumOff val='60000'/>";
const std::string Half = "<a:lumMod val='50000'/><a:lumOff val='50000'/>";

const ColorRow ColorRows[] = {
    makeColorRow("Parts", "<a:srgbClr val='0A141E'/>", "0A141E", nullptr),
    makeColorRow("NoParts", "<a:srgbClr/>", "nothing", nullptr),
    makeColorRow("BadParts", "<a:srgbClr val='red'/>", "nothing", "Incorrect color: red"),
    makeColorRow("HugeParts", "<a:srgbClr val='FFFFFFFFFF'/>", "nothing", "Incorrect color: FFFFFFFFFF"),
    makeColorRow("Nothing", "", "nothing", nullptr),
    makeColorRow("LinearParts", "<a:scrgbClr r='0' g='50000' b='100%'/>", "00BCFF", nullptr),
    makeColorRow("LinearPartsBeyond", "<a:scrgbClr r='-1000' g='200000' b='1'/>", "00FF00", nullptr),
    makeColorRow("Hsl", "<a:hslClr hue='14400000' sat='100000' lum='50000'/>", "0000FF", nullptr),
    makeColorRow("HslAfterATurn", "<a:hslClr hue='28800000' sat='100%' lum='50%'/>", "00FF00", nullptr),
    makeColorRow(
        "HslBadHue", "<a:hslClr hue='x' sat='100%' lum='50%'/>", "FF0000", "Drawing angle x is none"),
    makeColorRow("Preset", "<a:prstClr val='cornflowerBlue'/>", "6495ED", nullptr),
    makeColorRow("PresetDark", "<a:prstClr val='dkBlue'/>", "00008B", nullptr),
    makeColorRow("PresetLightGrey", "<a:prstClr val='ltSlateGrey'/>", "778899", nullptr),
    makeColorRow("PresetMedium", "<a:prstClr val='medVioletRed'/>", "C71585", nullptr),
    makeColorRow("PresetGrey", "<a:prstClr val='grey'/>", "808080", nullptr),
    makeColorRow("UnknownPreset", "<a:prstClr val='dkness'/>", "nothing", "Unknown color name dkness"),
    makeColorRow("System", "<a:sysClr val='window' lastClr='101010'/>", "101010", nullptr),
    makeColorRow("SystemByName", "<a:sysClr val='window'/>", "FFFFFF", nullptr),
    makeColorRow("UnknownSystem", "<a:sysClr val='door'/>", "nothing", "Unknown color name door"),
    makeColorRow("Theme", "<a:schemeClr val='accent1'/>", "4F81BD", nullptr),
    makeColorRow("ThemeByAlias", "<a:schemeClr val='bg1'/>", "FFFFFF", nullptr),
    makeColorRow("ThemeByItsOwnName", "<a:schemeClr val='dk1'/>", "000000", nullptr),
    makeColorRow("UnknownTheme", "<a:schemeClr val='accent7'/>", "nothing", "Unknown color name accent7"),
    makeColorRow("NoPlaceholder", "<a:schemeClr val='phClr'/>", "nothing", nullptr),

    makeColorRow("LuminanceScaled", makeChanged("4472C4", "lumMod", "75000"), "2F5597", nullptr),
    makeColorRow("LuminanceHalved", makeChanged("ED7D31", "lumMod", "50%"), "843C0B", nullptr),
    makeColorRow("Lighter", makeRgb("4472C4", Lighter), "B4C7E7", nullptr),
    makeColorRow("LighterBlack", makeRgb("000000", Half), "808080", nullptr),
    makeColorRow("OrderCounts", makeRgb("000000", "<a:lumOff val='50000'/><a:lumMod val='50000'/>"), "404040",
        nullptr),
    makeColorRow("Luminance", makeChanged("800000", "lum", "50000"), "FF0000", nullptr),
    makeColorRow("LuminanceBeyond", makeChanged("800000", "lumOff", "100000"), "FFFFFF", nullptr),
    makeColorRow("Shade", makeChanged("FFFFFF", "shade", "50000"), "BCBCBC", nullptr),
    makeColorRow("ShadeOfAccent", "<a:schemeClr val='accent1'><a:shade val='50000'/></a:schemeClr>", "385D8A",
        nullptr),
    makeColorRow("Tint", makeChanged("000000", "tint", "50000"), "BCBCBC", nullptr),
    makeColorRow("TintBeyond", makeChanged("102030", "tint", "200000"), "102030", nullptr),
    makeColorRow("Complement", makeRgb("FF0000", "<a:comp/>"), "00FFFF", nullptr),
    makeColorRow("Inverse", makeRgb("102030", "<a:inv/>"), "EFDFCF", nullptr),
    makeColorRow("Gray", makeRgb("00FF00", "<a:gray/>"), "DCDCDC", nullptr),
    makeColorRow("Gamma", makeRgb("808080", "<a:gamma/>"), "BCBCBC", nullptr),
    makeColorRow("InverseGamma", makeRgb("BCBCBC", "<a:invGamma/>"), "808080", nullptr),
    makeColorRow("Hue", makeChanged("FF0000", "hue", "7200000"), "00FF00", nullptr),
    makeColorRow("HueOff", makeChanged("FF0000", "hueOff", "-7200000"), "0000FF", nullptr),
    makeColorRow("HueMod", makeChanged("0000FF", "hueMod", "50000"), "00FF00", nullptr),
    makeColorRow("Saturation", makeChanged("804040", "sat", "100000"), "C00000", nullptr),
    makeColorRow("SaturationOff", makeChanged("FF0000", "satOff", "-100000"), "808080", nullptr),
    makeColorRow("SaturationMod", makeChanged("FF0000", "satMod", "50000"), "BF4040", nullptr),
    makeColorRow("SaturationModBeyond", makeChanged("BF4040", "satMod", "300000"), "FF0000", nullptr),
    makeColorRow("Red", makeChanged("000000", "red", "100000"), "FF0000", nullptr),
    makeColorRow("RedMod", makeChanged("FF0000", "redMod", "20000"), "330000", nullptr),
    makeColorRow("GreenOff", makeChanged("00FF00", "greenOff", "-20000"), "00CC00", nullptr),
    makeColorRow("BlueOff", makeChanged("0000FF", "blueOff", "20000"), "0000FF", nullptr),
    makeColorRow("Opacity", makeChanged("0A141E", "alpha", "50000"), "0A141E/80", nullptr),
    makeColorRow("OpacityBeyond", makeChanged("0A141E", "alpha", "-1%"), "0A141E/00", nullptr),
    makeColorRow("OpacityChanged", makeRgb("0A141E", "<a:alphaMod val='50000'/><a:alphaOff val='10000'/>"),
        "0A141E/99", nullptr),
    makeColorRow("OpacityStays", makeRgb("FF0000", "<a:alpha val='20000'/><a:comp/>"), "00FFFF/33", nullptr),
    makeColorRow(
        "BadOpacity", makeChanged("0A141E", "alpha", "x"), "0A141E", "Can't parse percentage value x"),
    makeColorRow("EndlessModifier", makeChanged("000000", "lumMod", "1e999"), "000000", nullptr),
    makeColorRow("UnknownModifier", makeChanged("0A141E", "glitter", "50000"), "0A141E", nullptr),
};

class ReadDrawingColor : public testing::TestWithParam<ColorRow>
{
};

TEST_P(ReadDrawingColor, KeepsRow)
{
    const ColorRow& row = GetParam();
    for (const bool isStrict : {false, true}) {
        OperationReport report;
        EXPECT_EQ(
            describe(readDrawingColor(parseDrawing(row.content, isStrict), Colors(), report)), row.color);
        const auto messages =
            row.message ? std::vector<std::string>{row.message} : std::vector<std::string>();
        EXPECT_THAT(listMessages(report), ElementsAreArray(messages));
    }
}

TEST(ReadColorElement, IsTheColorItself)
{
    const Colors theme;
    const ColorScheme scheme(theme);
    OperationReport report;
    const auto element = parseDrawing("<a:lumMod val='20000'/>", false, "val='FFFFFF'");
    EXPECT_EQ(describe(readColorElement("srgbClr", element, scheme, report)), "333333");
    EXPECT_EQ(describe(readColorElement("extLst", element, scheme, report)), "nothing");
    EXPECT_THAT(listMessages(report), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadDrawingColor, testing::ValuesIn(ColorRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ColorScheme, MapsNamesToThoseOfTheTheme)
{
    const Colors theme;
    ColorScheme scheme(theme);
    EXPECT_EQ(describe(scheme.findColor("bg1")), describe(theme.findThemeColor("lt1")));
    EXPECT_EQ(describe(scheme.findColor("tx2")), describe(theme.findThemeColor("dk2")));

    scheme.readMapping(parseDrawing("", false, "bg1='dk2' tx1='lt1' accent1='accent6' bg2='nothing'"));
    EXPECT_EQ(describe(scheme.findColor("bg1")), describe(theme.findThemeColor("dk2")));
    EXPECT_EQ(describe(scheme.findColor("tx1")), describe(theme.findThemeColor("lt1")));
    EXPECT_EQ(describe(scheme.findColor("accent1")), describe(theme.findThemeColor("accent6")));
    EXPECT_EQ(describe(scheme.findColor("bg2")), describe(theme.findThemeColor("lt2")));
    EXPECT_EQ(describe(scheme.findColor("lt1")), describe(theme.findThemeColor("lt1")));
    EXPECT_FALSE(scheme.findColor("accent7"));

    scheme.readMapping(FilterUtils::XMLElement());
    EXPECT_EQ(describe(scheme.findColor("bg1")), describe(theme.findThemeColor("dk2")));
}

TEST(ColorScheme, HasAPlaceholderColorWithItsOpacity)
{
    const Colors theme;
    const ColorScheme plain(theme);
    EXPECT_FALSE(plain.findColor("phClr"));
    const ColorScheme scheme = plain.withPlaceholderColor(DOM::Color(DOM::Color::RGBA(255, 255, 255, 51)));
    OperationReport report;
    const auto color = readDrawingColor(
        parseDrawing("<a:schemeClr val='phClr'><a:lumMod val='20000'/></a:schemeClr>"), scheme, report);
    EXPECT_EQ(describe(color), "333333/33");
    EXPECT_THAT(listMessages(report), IsEmpty());
    EXPECT_FALSE(scheme.withPlaceholderColor(boost::none).findColor("phClr"));
}

} // namespace
} // namespace QV::Filters
