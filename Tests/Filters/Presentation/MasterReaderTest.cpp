#include <Filters/Presentation/MasterReader.h>

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/ShapeStyle.h>

#include <Tests/Support/FrameBuilder.h>
#include <Tests/Support/ImportedPresentation.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Tests::makeSlideShape;
using Tests::makeSlideTransform;
using Tests::makeTextBody;

std::string makeSolidBackground(const std::string& color)
{
    return "<p:bgPr><a:solidFill>" + color + "</a:solidFill><a:effectLst/></p:bgPr>";
}

std::string describeColor(const DOM::Color& color)
{
    const DOM::Color::RGBA& rgba = color.getRGBA();
    return std::to_string(rgba.r) + ' ' + std::to_string(rgba.g) + ' ' + std::to_string(rgba.b);
}

/// Red, green and blue of a background; empty for none.
std::string getFillText(const std::shared_ptr<const DOM::ShapeProps>& props)
{
    DOM::Shape shape;
    DOM::ShapeStyle style;
    style.setShapeProps(props);
    shape.setSharedStyle(new DOM::ShapeStyle(style));
    const auto color = shape.getFillColor();
    return color ? describeColor(*color) : std::string();
}

class ReadMasters : public Tests::ImportedPresentation
{
protected:
    /// "NAME on FILL: COLOR FONT" of the shapes of a slide, by the first run of each.
    std::vector<std::string> describeLooks(std::size_t slide) const
    {
        std::vector<std::string> looks;
        for (const DOM::Frame& frame : getSlide(slide).getChildren()) {
            const auto& shape = dynamic_cast<const DOM::Shape&>(*frame.getGraphicalObject());
            const auto& paragraph =
                dynamic_cast<const DOM::Paragraph&>(*shape.getText()->getBlocks().front());
            const auto& props = paragraph.getRuns()[0].getStyle().getRunProps();
            std::string text = frame.getName() + " on " + getFillText(shape.getStyle().getShapeProps()) + ":";
            if (props && props->getColor())
                text += ' ' + describeColor(*props->getColor());
            if (props && props->getFontName())
                text += ' ' + *props->getFontName();
            looks.push_back(text);
        }
        return looks;
    }
};

TEST_F(ReadMasters, StylesHaveNames)
{
    builder.master().layout().slide();                                      // by their parts
    builder.theme("<a:themeElements/>", "Facet").master().layout().slide(); // by the theme
    builder.master().named("Own").layout("Also own").slide();
    import();
    EXPECT_EQ(describeChain(0), "slideLayout1 < slideMaster1");
    EXPECT_EQ(describeChain(1), "slideLayout2 < Facet");
    EXPECT_EQ(describeChain(2), "Also own < Own");
    EXPECT_EQ(countStyles(), 6U);
}

TEST_F(ReadMasters, EqualNamesStayApart)
{
    builder.master(makeSlideShape("first")).named("Same").layout("Title").slide();
    builder.master(makeSlideShape("second")).named("Same").layout("Title").slide();
    import();
    EXPECT_EQ(countStyles(), 4U);
    ASSERT_EQ(describeChain(0), "Title < Same");
    ASSERT_EQ(describeChain(1), "Title < Same");
    EXPECT_EQ(findMasterOf(0)->getChildren()[0].getName(), "first");
    EXPECT_EQ(findMasterOf(1)->getChildren()[0].getName(), "second");
}

TEST_F(ReadMasters, SlidesWithoutALayoutShareTheBlankOne)
{
    builder.slideOf("").slideOf("../slideLayouts/nowhere.xml").slideOf("");
    import();
    EXPECT_THAT(listSlides(), SizeIs(3));
    EXPECT_EQ(countStyles(), 2U);
    EXPECT_EQ(describeChain(0), " < ");
    EXPECT_EQ(findLayoutOf(1), findLayoutOf(0));
    EXPECT_EQ(findLayoutOf(2), findLayoutOf(0));
}

TEST_F(ReadMasters, LayoutThatNoMasterListsIsReadForItsSlides)
{
    builder.master().named("M").layout("listed");
    builder.xmlPart("ppt/other.xml", "p:sldLayout", "<p:cSld name='lone'><p:spTree/></p:cSld>");
    builder.part("ppt/_rels/other.xml.rels",
        Tests::makeRelationships("", Tests::makeRelationship("m", Tests::TransitionalTypes + "slideMaster",
                                         "slideMasters/slideMaster1.xml"))
            .content);
    builder.slideOf("../other.xml").slideOf("../other.xml");
    import();
    EXPECT_EQ(describeChain(0), "lone < M");
    EXPECT_EQ(findLayoutOf(1), findLayoutOf(0));
    EXPECT_EQ(countStyles(), 3U);
}

TEST_F(ReadMasters, LayoutOfNoMasterHangsUnderTheBlankOne)
{
    builder.xmlPart("ppt/other.xml", "p:sldLayout", "<p:cSld name='lone'><p:spTree/></p:cSld>");
    builder.slideOf("../other.xml").slideOf("");
    import();
    EXPECT_EQ(describeChain(0), "lone < ");
    EXPECT_EQ(findMasterOf(1), findMasterOf(0));
    EXPECT_EQ(countStyles(), 3U);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ReadMasters, LayoutInTwoListsIsReadOnce)
{
    builder.master().named("A").layout("L").slide();
    builder.master()
        .named("B")
        .relationship("again", "slideLayout", "../slideLayouts/slideLayout1.xml")
        .more("<p:sldLayoutIdLst><p:sldLayoutId r:id='again'/><p:sldLayoutId r:id='again'/>"
              "</p:sldLayoutIdLst>");
    import();
    EXPECT_EQ(describeChain(0), "L < A");
    EXPECT_EQ(countStyles(), 3U);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ReadMasters, MastersWithoutAListAreThoseRelatedTo)
{
    builder.master().named("A").layout("L").master().named("B").masterList("");
    import();
    EXPECT_NE(findStyle("A"), nullptr);
    EXPECT_NE(findStyle("B"), nullptr);
    EXPECT_NE(findStyle("L"), nullptr);
}

TEST_F(ReadMasters, PlacesOfPlaceholdersAreInherited)
{
    builder.master(makeSlideShape("t", "type='title'", makeSlideTransform(10, 20, 300, 40)) +
                   makeSlideShape("b", "type='body' idx='1'", makeSlideTransform(10, 80, 300, 200)));
    builder.layout("L", makeSlideShape("t", "type='title'") +
                            makeSlideShape("b", "idx='1'", makeSlideTransform(20, 90, 310, 210)));
    builder.slide(makeSlideShape("t", "type='title'") + makeSlideShape("b", "idx='1'") +
                  makeSlideShape("own", "idx='1'", makeSlideTransform(1, 2, 3, 4)));
    import();
    std::vector<std::string> places;
    for (const DOM::Frame& frame : getSlide(0).getChildren())
        places.push_back(frame.getName() + ' ' + testing::PrintToString(frame));
    EXPECT_THAT(places,
        ElementsAre("t at (10, 20), extent  300 by 40, turned by 0",
            "b at (20, 90), extent  310 by 210, turned by 0", "own at (1, 2), extent  3 by 4, turned by 0"));
}

const std::string dark = "<p:clrMapOvr><a:overrideClrMapping bg1='dk1' tx1='lt1' bg2='dk2' tx2='lt2' "
                         "accent1='accent1' accent2='accent2' accent3='accent3' accent4='accent4' "
                         "accent5='accent5' accent6='accent6' hlink='hlink' folHlink='folHlink'/>"
                         "</p:clrMapOvr>";
const std::string asParent = "<p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr>";

/// The elements of a theme of two colours and one font.
std::string makeTwoColorTheme(
    const std::string& darkColor, const std::string& lightColor, const std::string& font = {})
{
    return "<a:themeElements><a:clrScheme name=''><a:dk1><a:srgbClr val='" + darkColor +
           "'/></a:dk1><a:lt1><a:srgbClr val='" + lightColor +
           "'/></a:lt1></a:clrScheme><a:fontScheme name=''><a:minorFont><a:latin typeface='" + font +
           "'/></a:minorFont></a:fontScheme></a:themeElements>";
}

TEST_F(ReadMasters, BackgroundsFollowTheMappingOfTheirPart)
{
    const std::string background = makeSolidBackground("<a:schemeClr val='bg1'/>");
    builder.theme(makeTwoColorTheme("111111", "EEEEEE"));
    builder.master().background(background).named("M");
    builder.layout("light").background(background).colorMap(asParent);
    builder.slide().background(background).colorMap(asParent);
    builder.slide().background(background).colorMap(dark);
    builder.layout("dark").background(background).colorMap(dark);
    builder.slide().background(background).colorMap(asParent);
    builder.slide();
    import();
    ASSERT_THAT(listSlides(), SizeIs(4));
    const std::string light = "238 238 238";
    const std::string black = "17 17 17";
    EXPECT_EQ(getFillText(findStyle("M")->getShapeProps()), light);
    EXPECT_EQ(getFillText(findStyle("dark")->getShapeProps()), black);
    EXPECT_EQ(getFillText(findStyle("light")->getShapeProps()), light);
    EXPECT_EQ(getFillText(getSlide(0).getStyle().getShapeProps()), light);
    EXPECT_EQ(getFillText(getSlide(1).getStyle().getShapeProps()), black);
    EXPECT_EQ(getFillText(getSlide(2).getStyle().getShapeProps()), black);
    EXPECT_EQ(getSlide(3).getStyle().getShapeProps(), nullptr);
    EXPECT_EQ(describeChain(1), "light < M"); // the background goes with the parent in one style
}

TEST_F(ReadMasters, WhatIsTakenOverFollowsTheMappingOfWhoTakesItOver)
{
    const std::string text = makeTextBody({"x"});
    const std::string shapes =
        makeSlideShape("t", "type='title'", {}, text) + makeSlideShape("free", nullptr, {}, text);
    builder.presentation("<p:defaultTextStyle><a:lvl1pPr><a:defRPr><a:solidFill><a:schemeClr val='tx1'/>"
                         "</a:solidFill></a:defRPr></a:lvl1pPr></p:defaultTextStyle>");
    builder.theme(makeTwoColorTheme("111111", "EEEEEE"));
    builder
        .master(makeSlideShape("t", "type='title'", "<a:solidFill><a:schemeClr val='bg1'/></a:solidFill>"),
            "<p:titleStyle><a:lvl1pPr><a:defRPr><a:solidFill><a:schemeClr val='tx1'/></a:solidFill>"
            "</a:defRPr></a:lvl1pPr></p:titleStyle>")
        .named("M")
        .background(makeSolidBackground("<a:schemeClr val='bg1'/>"));
    builder.layout("light", makeSlideShape("t", "type='title'"));
    builder.slide(shapes).slide(shapes).colorMap(dark).slide(shapes).colorMap(dark);
    builder.layout("dark", makeSlideShape("t", "type='title'")).colorMap(dark);
    builder.slide(shapes).colorMap(asParent);
    import();
    ASSERT_THAT(listSlides(), SizeIs(4));
    EXPECT_THAT(describeLooks(0), ElementsAre("t on 238 238 238: 17 17 17", "free on : 17 17 17"));
    for (const std::size_t slide : {1U, 2U, 3U})
        EXPECT_THAT(describeLooks(slide), ElementsAre("t on 17 17 17: 238 238 238", "free on : 238 238 238"))
            << slide;
    EXPECT_EQ(getFillText(findStyle("M")->getShapeProps()), "238 238 238");
    EXPECT_EQ(findStyle("light")->getShapeProps(), nullptr);
    EXPECT_EQ(getFillText(findStyle("dark")->getShapeProps()), "17 17 17");
    EXPECT_EQ(getSlide(0).getStyle().getShapeProps(), nullptr);
    EXPECT_EQ(getFillText(getSlide(1).getStyle().getShapeProps()), "17 17 17");
    EXPECT_EQ(getSlide(3).getStyle().getShapeProps(), nullptr);
    EXPECT_EQ(countStyles(), 3U) << "what is read once more makes no style";
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ReadMasters, TextInGeneralHasColorsAndFontsOfItsMaster)
{
    builder.presentation("<p:defaultTextStyle><a:lvl1pPr><a:defRPr><a:solidFill><a:schemeClr val='tx1'/>"
                         "</a:solidFill><a:latin typeface='+mn-lt'/></a:defRPr></a:lvl1pPr>"
                         "</p:defaultTextStyle>");
    const std::string shape = makeSlideShape("free", nullptr, {}, makeTextBody({"x"}));
    builder.theme(makeTwoColorTheme("010101", "EEEEEE", "One")).master().slide(shape);
    builder.theme(makeTwoColorTheme("020202", "EEEEEE", "Two")).master().layout().slide(shape);
    builder.slideOf("", shape);
    import();
    EXPECT_THAT(describeLooks(0), ElementsAre("free on : 1 1 1 One"));
    EXPECT_THAT(describeLooks(1), ElementsAre("free on : 2 2 2 Two"));
    EXPECT_THAT(describeLooks(2), ElementsAre("free on : 0 0 0")); // of the presentation, which has none
}

TEST_F(ReadMasters, TextStylesOfMastersAreKept)
{
    builder
        .master({}, "<p:titleStyle><a:lvl1pPr><a:defRPr sz='4400'/></a:lvl1pPr></p:titleStyle><p:bodyStyle>"
                    "<a:lvl2pPr><a:defRPr sz='2000'/></a:lvl2pPr></p:bodyStyle>")
        .named("M");
    import();
    const DOM::NamedShapeStyle* const master = findStyle("M");
    ASSERT_NE(master, nullptr);
    ASSERT_NE(master->getTitleLevels(), nullptr);
    EXPECT_EQ((*master->getTitleLevels())[0].runProps.getFontSize(), 44.0F);
    ASSERT_NE(master->getBodyLevels(), nullptr);
    EXPECT_EQ((*master->getBodyLevels())[1].runProps.getFontSize(), 20.0F);
    EXPECT_EQ(master->getOtherLevels(), nullptr);
}

TEST_F(ReadMasters, BadMastersLayoutsAndNotesCostOnlyThemselves)
{
    builder.master().named("bad").layout("lost").slide().named("a").slide().named("b");
    builder.master().layout().slide().notes("").named("c");
    builder.part("ppt/slideMasters/slideMaster1.xml", "no XML")
        .xmlPart("ppt/slideMasters/slideMaster2.xml", "p:sldMaster", "")
        .xmlPart("ppt/slideLayouts/slideLayout2.xml", "p:sldLayout", "")
        .xmlPart("ppt/notesSlides/notesSlide1.xml", "p:notes", "");
    import();
    EXPECT_THAT(listSlideNames(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(describeChain(0), "lost < ");
    EXPECT_EQ(describeChain(2), " < ");
    EXPECT_EQ(countStyles(), 3U);
    EXPECT_THAT(
        listMessages(), ElementsAre("Part ppt/slideMasters/slideMaster1.xml is not well-formed XML, line 1",
                            "Slide master ppt/slideMasters/slideMaster2.xml cannot be read",
                            "Slide layout ppt/slideLayouts/slideLayout2.xml cannot be read",
                            "Notes ppt/notesSlides/notesSlide1.xml cannot be read"));
}

} // namespace
} // namespace QV::Filters
