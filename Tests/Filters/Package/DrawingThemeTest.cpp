#include <Filters/Package/DrawingTheme.h>

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Filters/Package/Colors.h>
#include <Filters/Package/Package.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/DrawingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::describe;
using Tests::listMessages;
using Tests::makeZip;

class ReadDrawingTheme : public Tests::DrawingFixture
{
protected:
    DrawingTheme read(const std::string& xml)
    {
        Package themePackage = Package::openBytes(makeZip({
            {"t.xml", xml}
        }));
        return DrawingTheme(themePackage, "t.xml", report);
    }

    OperationReport report;
};

TEST_F(ReadDrawingTheme, HasColorsFontsAndRelationships)
{
    EXPECT_EQ(theme.getName(), "Name");
    EXPECT_EQ(describe(theme.getColors().findThemeColor("accent1")), "4472C4");
    EXPECT_EQ(
        describe(theme.getColors().findThemeColor("accent2")), describe(Colors().findThemeColor("accent2")));
    EXPECT_NE(theme.getRelationships().findById("t"), nullptr);
    EXPECT_EQ(theme.findFont("+mj-lt").value_or(""), "Major");
    EXPECT_FALSE(theme.findFont("+mj-ea"));
    EXPECT_EQ(theme.findFont("+mn-lt").value_or(""), "Minor");
    EXPECT_EQ(theme.findFont("+mn-cs").value_or(""), "Complex");
    EXPECT_FALSE(theme.findFont("+mn-xx"));
    EXPECT_EQ(theme.findFont("Other").value_or(""), "Other");
    EXPECT_FALSE(theme.findFont(""));
    EXPECT_THAT(listMessages(run.getReport()), IsEmpty());
}

TEST_F(ReadDrawingTheme, CountsFormatsFromOne)
{
    for (const bool isStrict : {false, true}) {
        const DrawingTheme formats = read(makeTheme(ThemeFormats, isStrict));
        EXPECT_FALSE(formats.findFill(0).element.isValid());
        EXPECT_EQ(formats.findFill(1).name, "solidFill");
        EXPECT_EQ(formats.findFill(3).name, "blipFill");
        EXPECT_TRUE(formats.findFill(3).element.isValid());
        EXPECT_FALSE(formats.findFill(4).element.isValid());
        EXPECT_FALSE(formats.findFill(1000).element.isValid());
        EXPECT_EQ(formats.findFill(1001).name, "noFill");
        EXPECT_EQ(formats.findFill(1002).name, "solidFill");
        EXPECT_FALSE(formats.findFill(1003).element.isValid());
        EXPECT_FALSE(formats.findFill(-1UL).element.isValid());
        EXPECT_FALSE(formats.findLine(0).isValid());
        EXPECT_EQ(formats.findLine(1).getAttributeValue("w").value_or(""), "25400");
        EXPECT_FALSE(formats.findLine(2).isValid());
        EXPECT_TRUE(formats.findEffects(2).isValid());
        EXPECT_FALSE(formats.findEffects(3).isValid());
    }
    EXPECT_THAT(listMessages(report), IsEmpty());
}

TEST_F(ReadDrawingTheme, LeavesOutFormatsOfTooManyElements)
{
    const auto makeFill = [](unsigned elements) { // itself, and what is below
        std::string stops;
        for (unsigned i = 1; i < elements; ++i)
            stops += "<a:gs/>";
        return "<a:gradFill>" + stops + "</a:gradFill>";
    };
    const DrawingTheme formats =
        read(makeTheme("<a:fillStyleLst>" + makeFill(DrawingTheme::FormatElementsMax) +
                       makeFill(DrawingTheme::FormatElementsMax + 1) + "<a:noFill/></a:fillStyleLst>"));
    EXPECT_TRUE(formats.findFill(1).element.isValid());
    EXPECT_FALSE(formats.findFill(2).element.isValid());
    EXPECT_EQ(formats.findFill(3).name, "noFill");
    EXPECT_THAT(listMessages(report), ElementsAre("Format of theme t.xml has too many elements"));
}

TEST_F(ReadDrawingTheme, CutsLongNamesOfFonts)
{
    const std::string longest(DrawingTheme::FontNameBytesMax, 'f');
    const DrawingTheme fonts = read("<a:theme" + Tests::makeDrawingDeclarations() +
                                    "><a:themeElements><a:fontScheme><a:majorFont><a:latin typeface='" +
                                    longest + "'/></a:majorFont><a:minorFont><a:latin typeface='" + longest +
                                    "f'/></a:minorFont></a:fontScheme></a:themeElements></a:theme>");
    EXPECT_EQ(fonts.findFont("+mj-lt").value_or(""), longest);
    EXPECT_EQ(fonts.findFont("+mn-lt").value_or(""), longest);
    EXPECT_THAT(listMessages(report), ElementsAre("Name of a font is cut at 1024 bytes"));
}

TEST_F(ReadDrawingTheme, IsStandardWithoutAPart)
{
    const auto expectStandard = [](const DrawingTheme& standard) {
        EXPECT_EQ(standard.getName(), "");
        EXPECT_EQ(describe(standard.getColors().findThemeColor("accent1")),
            describe(Colors().findThemeColor("accent1")));
        EXPECT_FALSE(standard.findFont("+mj-lt"));
        EXPECT_FALSE(standard.findFill(1).element.isValid());
    };
    expectStandard(DrawingTheme());
    expectStandard(DrawingTheme(package, "", report));
    EXPECT_THAT(listMessages(report), IsEmpty());
    expectStandard(read("<a:theme"));
    EXPECT_THAT(listMessages(report), ElementsAre("Part t.xml is not well-formed XML, line 1"));
}

} // namespace
} // namespace QV::Filters
