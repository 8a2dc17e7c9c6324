#include <Filters/Presentation/PresentationImport.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Shape.h>
#include <Filters/DocumentImport.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/UUID.h>

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

const std::string External = "TargetMode=\"External\"";

using PresentationImport = Tests::ImportedPresentation;

TEST_F(PresentationImport, SlidesStandInTheOrderOfTheList)
{
    builder.slide().named("one").slide().named("two").slide().named("three").slideList(
        "<p:sldId id='300' r:id='slide3'/><p:sldId id='301' r:id='slide1'/><p:sldId id='256' "
        "r:id='slide2'/>");
    import();
    EXPECT_THAT(listSlideNames(), ElementsAre("three", "one", "two"));
    for (const DOM::Shape* const slide : listSlides())
        EXPECT_EQ(slide->getKind(), DOM::Shape::Kind::Slide);
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
}

TEST_F(PresentationImport, SlideThatIsListedTwiceIsTwoSlides)
{
    builder.slide(makeSlideShape("box"))
        .slideList("<p:sldId id='256' r:id='slide1'/><p:sldId id='257' r:id='slide1'/>");
    import();
    ASSERT_THAT(listSlides(), SizeIs(2));
    EXPECT_NE(getSlide(0).getUUID(), getSlide(1).getUUID());
    EXPECT_THAT(getSlide(1).getChildren(), SizeIs(1));
    EXPECT_EQ(countStyles(), 2U);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(PresentationImport, NothingIsAPresentationToo)
{
    builder.slideList("");
    import();
    EXPECT_THAT(listSlides(), IsEmpty());
    EXPECT_EQ(countStyles(), 0U);
    EXPECT_THAT(listMessages(), IsEmpty());
}

struct SizeRow
{
    const char* name;
    const char* element;
    float width; // points
    float height;
    const char* message; // null for none
};

void PrintTo(const SizeRow& row, std::ostream* out)
{
    *out << row.element;
}

const SizeRow SizeRows[] = {
    {"None",     "",                                      720,  540,          nullptr                               },
    {"Wide",     "<p:sldSz cx='12192000' cy='6858000'/>", 960,  540,          nullptr                               },
    {"Largest",  "<p:sldSz cx='51206400' cy='1'/>",       4032, 1 / 12700.0F, nullptr                               },
    {"TooLarge", "<p:sldSz cx='51219100' cy='6858000'/>", 720,  540,
     "Slides cannot be 51219100 by 6858000 EMU"                                                                     },
    {"Zero",     "<p:sldSz cx='12192000' cy='0'/>",       720,  540,          "Slides cannot be 12192000 by 0 EMU"  },
    {"Negative", "<p:sldSz cx='-1' cy='6858000'/>",       720,  540,          "Slides cannot be -1 by 6858000 EMU"  },
    {"Word",     "<p:sldSz cx='wide' cy='6858000'/>",     720,  540,          "Slides cannot be wide by 6858000 EMU"},
    {"Half",     "<p:sldSz cx='12192000'/>",              720,  540,          "Slides cannot be 12192000 by  EMU"   },
};

class SlideSize : public Tests::ImportedPresentation, public testing::WithParamInterface<SizeRow>
{
};

TEST_P(SlideSize, KeepsRow)
{
    const SizeRow& row = GetParam();
    builder.presentation(row.element);
    import();
    ASSERT_TRUE(run->getDocument().getSlideSize());
    EXPECT_FLOAT_EQ(run->getDocument().getSlideSize()->getWidth(), row.width);
    EXPECT_FLOAT_EQ(run->getDocument().getSlideSize()->getHeight(), row.height);
    EXPECT_EQ(
        listMessages(), row.message ? std::vector<std::string>{row.message} : std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(Rows, SlideSize, testing::ValuesIn(SizeRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(PresentationImport, SlidesTellWhatTheyAre)
{
    builder.slide()
        .slide()
        .named("second")
        .attributes("show='0' showMasterSp='0'")
        .slide()
        .attributes("show='true' showMasterSp='false'")
        .layout("bare")
        .attributes("showMasterSp='0'")
        .slide();
    import();
    ASSERT_THAT(listSlides(), SizeIs(4));
    const auto getProps = [&](std::size_t slide) { return *getSlide(slide).getSlideProps(); };
    EXPECT_EQ(getProps(0).name, "");
    EXPECT_FALSE(getProps(0).isHidden);
    EXPECT_TRUE(getProps(0).showsParentShapes);
    EXPECT_EQ(getProps(0).notes, nullptr);
    EXPECT_TRUE(getProps(1).isHidden);
    EXPECT_FALSE(getProps(1).showsParentShapes);
    EXPECT_FALSE(getProps(2).isHidden);
    EXPECT_FALSE(getProps(2).showsParentShapes);
    EXPECT_TRUE(findLayoutOf(0)->showsParentShapes());
    EXPECT_FALSE(findLayoutOf(3)->showsParentShapes());
}

TEST_F(PresentationImport, NotesAreTheTextOfTheirBody)
{
    builder.slide().notes(makeSlideShape("image", "type='sldImg'") +
                          makeSlideShape("number", "type='sldNum' idx='10'", {}, makeTextBody({"7"})) +
                          makeSlideShape("notes", "type='body' idx='1'", {}, makeTextBody({"Say", "this"})));
    builder.slide().notes(makeSlideShape("notes", "type='body'", {}, makeTextBody({"", ""})));
    builder.slide().notes(makeSlideShape("number", "type='sldNum'", {}, makeTextBody({"3"})));
    import();
    ASSERT_THAT(listSlides(), SizeIs(3));
    ASSERT_NE(getSlide(0).getSlideProps()->notes, nullptr);
    EXPECT_EQ(getSlide(0).getSlideProps()->notes->getPlainText(), "Say\nthis");
    EXPECT_EQ(getSlide(1).getSlideProps()->notes, nullptr);
    EXPECT_EQ(getSlide(2).getSlideProps()->notes, nullptr);
    EXPECT_THAT(run->getLeftOut(), ElementsAre(SlideLeftOut::NotesLooks));
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(PresentationImport, BadSlidesAreReportedAndLeftOut)
{
    builder.slide().slide().named("good").slide();
    builder.part("ppt/slides/slide1.xml", "<p:sld").xmlPart("ppt/slides/slide3.xml", "p:sld", "<p:timing/>");
    builder.slideList("<p:sldId r:id='slide1'/><p:sldId r:id='gone'/><p:sldId r:id='slide2'/>"
                      "<p:sldId r:id='master1'/><p:sldId/><p:sldId r:id='slide3'/>");
    import();
    EXPECT_THAT(listSlideNames(), ElementsAre("good"));
    EXPECT_THAT(listMessages(),
        ElementsAre("Slide gone cannot be read", "Slide master1 cannot be read", "Slide  cannot be read",
            "Part ppt/slides/slide1.xml is not well-formed XML, line 1",
            "Slide ppt/slides/slide3.xml cannot be read"));
}

TEST_F(PresentationImport, StrictDialectReadsAlike)
{
    builder.strict()
        .presentation("<p:sldSz cx='12192000' cy='6858000'/>")
        .theme("<a:themeElements/>", "T")
        .master(makeSlideShape("t", "type='title'", makeSlideTransform(10, 20, 300, 40)))
        .layout("L", makeSlideShape("t", "type='title'"))
        .slide(makeSlideShape("t", "type='title'", {}, makeTextBody({"Strict"})))
        .notes(makeSlideShape("notes", "type='body'", {}, makeTextBody({"Say"})));
    import();
    EXPECT_EQ(run->getDocument().getSlideSize()->getWidth(), 960.0F);
    ASSERT_THAT(listSlides(), SizeIs(1));
    EXPECT_EQ(describeChain(0), "L < T");
    ASSERT_THAT(getSlide(0).getChildren(), SizeIs(1));
    EXPECT_EQ(getSlide(0).getChildren()[0].getAnchor(), DOM::Anchor(makeAbsolute(10, 20)));
    ASSERT_NE(getSlide(0).getSlideProps()->notes, nullptr);
    EXPECT_EQ(getSlide(0).getSlideProps()->notes->getPlainText(), "Say");
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(PresentationImport, WhatIsNotReadIsNamed)
{
    const std::string others = "http://schemas.microsoft.com/office/2018/10/relationships/";
    builder.slide().more("<mc:AlternateContent><mc:Choice Requires='p14'><p:transition/></mc:Choice>"
                         "<mc:Fallback><p:transition/></mc:Fallback></mc:AlternateContent>");
    builder.slide().more("<p:timing><p:tnLst><p:par><p:cTn id='1'><p:childTnLst/></p:cTn></p:par>"
                         "</p:tnLst></p:timing>");
    builder.slide().relationship("x", others + "comments", "../x.xml").part("ppt/x.xml", "<x/>");
    builder.slide().relationship("x", "themeOverride", "../x.xml");
    builder.slide().relationship(
        "x", "http://schemas.microsoft.com/office/2007/relationships/media", "../x.xml");
    builder.master().more("<p:hf dt='0'/>");
    builder.presentation("<p:custShowLst/><p:embeddedFontLst/><p:extLst><p:ext "
                         "uri='{521415D9-36F7-43E2-AB2F-B90AF26B5E84}'/></p:extLst>");
    builder.presentationRelationship("h", "handoutMaster", "x.xml");
    builder.presentationRelationship(
        "v", "http://schemas.microsoft.com/office/2006/relationships/vbaProject", "x.xml");
    import();
    EXPECT_THAT(run->getLeftOut(),
        ElementsAre(SlideLeftOut::CustomShows, SlideLeftOut::EmbeddedFonts, SlideLeftOut::Sections,
            SlideLeftOut::Handouts, SlideLeftOut::Macros, SlideLeftOut::HeadersFooters,
            SlideLeftOut::Transitions, SlideLeftOut::Animations, SlideLeftOut::Comments,
            SlideLeftOut::ThemeOverrides, SlideLeftOut::Media));
}

TEST_F(PresentationImport, TimingOfNothingIsNoAnimation)
{
    builder.slide().more("<p:timing><p:tnLst><p:par><p:cTn id='1'/></p:par></p:tnLst></p:timing>");
    import();
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
}

TEST_F(PresentationImport, FilesThatItRefersToAreNoted)
{
    builder.slide()
        .relationship("h", "hyperlink", "https://example.org", External)
        .relationship("o", "oleObject", "file:///sums.xlsx", External)
        .relationship("v", "video", "film.mp4", External);
    import();
    EXPECT_THAT(run->getLinks(), ElementsAre("file:///sums.xlsx", "film.mp4"));
}

TEST_F(PresentationImport, MoreSlidesThanItReadsAreCut)
{
    std::string list;
    for (int i = 0; i <= 10'000; ++i)
        list += "<p:sldId r:id='slide1'/>";
    builder.slide().slideList(list);
    import();
    EXPECT_THAT(listSlides(), SizeIs(10'000));
    EXPECT_THAT(
        listMessages(), ElementsAre("Presentation has more than 10000 slides, and the rest is left out"));
}

TEST_F(PresentationImport, MainPartThatIsNoXmlIsRefused)
{
    builder.part("ppt/presentation.xml", "no XML");
    try {
        import();
        FAIL() << "it was read";
    } catch (const PackageError& error) {
        EXPECT_EQ(error.getKind(), PackageError::Kind::Damaged);
        EXPECT_STREQ(error.what(), "part \"ppt/presentation.xml\" is not well-formed XML");
    }
}

TEST_F(PresentationImport, OtherDocumentsAreRefused)
{
    builder.part("[Content_Types].xml",
        Tests::makeContentTypes(Tests::makeOverride("/ppt/presentation.xml", Tests::WorkbookType)).content);
    try {
        import();
        FAIL() << "it was read";
    } catch (const PackageError& error) {
        EXPECT_EQ(error.getKind(), PackageError::Kind::Unsupported);
        EXPECT_STREQ(error.what(), "a workbook; only presentations can be read");
    }
}

TEST_F(PresentationImport, IsAmongTheDocumentsOfAnyKind)
{
    builder.slide();
    run = std::make_unique<FilterRun>();
    Package package = Package::openBytes(builder.make());
    EXPECT_EQ(importDocument(package, *run), DocumentKind::Presentation);
    EXPECT_THAT(listSlides(), SizeIs(1));
}

} // namespace
} // namespace QV::Filters
