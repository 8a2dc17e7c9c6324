#include <Filters/Preview/SlideFills.h>

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Color.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeProps.h>
#include <FilterUtils/FU_MediaStorage.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Preview/MediaUri.h>
#include <Filters/Preview/SlideDefs.h>
#include <Filters/Preview/SlideLines.h>
#include <Utils/Public/Size2D.h>

#include <Tests/Support/TextPreviewFixture.h>

namespace QV::Filters {
namespace {

using ::testing::HasSubstr;

const DOM::Color Red(DOM::Color::RGBA(255, 0, 0, 255));
const DOM::Color HalfBlue(DOM::Color::RGBA(0, 0, 255, 128));

DOM::GradientFill makeGradient(DOM::GradientFill::Kind kind, float angle)
{
    DOM::GradientFill::Stop first;
    first.color = Red;
    DOM::GradientFill::Stop last;
    last.position = 1;
    last.color = HalfBlue;
    DOM::GradientFill gradient;
    gradient.kind = kind;
    gradient.stops = {first, last};
    gradient.angle = angle;
    return gradient;
}

const char* const Stops = "<stop offset=\"0\" stop-color=\"#FF0000\"/>"
                          "<stop offset=\"1\" stop-color=\"#0000FF\" stop-opacity=\"0.502\"/>";

class SlidePaint : public ::testing::Test
{
protected:
    std::string paint(const DOM::ShapeFill& fill) { return makePaint("fill", fill, area, defs); }

    std::string getDefs() const
    {
        std::ostringstream out;
        defs.write(out);
        return out.str();
    }

    std::string savePicture(const std::string& content)
    {
        return run.getMediaStorage().saveMediaFromStream(
            std::make_shared<Tests::PictureBytes>(content), "image/png");
    }

    FilterRun run = FilterRun(Tests::makePreviewOptions());
    PictureUris uris = PictureUris(run.getMediaStorage());
    std::size_t bytes = 0;
    SlideDefs defs = {uris, 60, bytes};
    FillArea area = {Size2D<float>(100, 50), 0};
};

TEST_F(SlidePaint, OfOneColorHasItsOpacity)
{
    EXPECT_EQ(paint(DOM::NoFill()), " fill=\"none\"");
    EXPECT_EQ(paint(DOM::SolidFill(Red)), " fill=\"#FF0000\"");
    EXPECT_EQ(makePaint("stroke", DOM::SolidFill(HalfBlue), area, defs),
        " stroke=\"#0000FF\" stroke-opacity=\"0.502\"");
    EXPECT_EQ(getDefs(), "");
}

TEST_F(SlidePaint, RunsFromCornerToCornerAlongALine)
{
    EXPECT_EQ(paint(makeGradient(DOM::GradientFill::Kind::Linear, 0)), " fill=\"url(#d1)\"");
    EXPECT_EQ(paint(makeGradient(DOM::GradientFill::Kind::Linear, 90)), " fill=\"url(#d2)\"");
    EXPECT_EQ(paint(makeGradient(DOM::GradientFill::Kind::Linear, 45)), " fill=\"url(#d3)\"");
    EXPECT_EQ(paint(makeGradient(DOM::GradientFill::Kind::Linear, 0)), " fill=\"url(#d1)\"");
    const std::string begin = "<linearGradient id=\"d";
    const std::string end = std::string("\">") + Stops + "</linearGradient>\n";
    const std::string expected =
        begin + "1\" gradientUnits=\"userSpaceOnUse\" x1=\"0\" y1=\"25\" x2=\"100\" y2=\"25" + end + begin +
        "2\" gradientUnits=\"userSpaceOnUse\" x1=\"50\" y1=\"0\" x2=\"50\" y2=\"50" + end + begin +
        "3\" gradientUnits=\"userSpaceOnUse\" x1=\"12.5\" y1=\"-12.5\" x2=\"87.5\" y2=\"62.5" + end;
    EXPECT_EQ(getDefs(), "<svg class=\"defs\" width=\"0\" height=\"0\" aria-hidden=\"true\"><defs>\n" +
                             expected + "</defs></svg>\n");
    EXPECT_EQ(bytes, expected.size());
}

TEST_F(SlidePaint, IsStretchedWithTheBoxWhereItsDirectionIs)
{
    DOM::GradientFill gradient = makeGradient(DOM::GradientFill::Kind::Linear, 90);
    gradient.isScaled = true;
    paint(gradient);
    EXPECT_THAT(getDefs(), HasSubstr("<linearGradient id=\"d1\" x1=\"0.5\" y1=\"0\" x2=\"0.5\" y2=\"1\">"));
    area.size = Size2D<float>(100, 0);
    paint(gradient);
    EXPECT_THAT(getDefs(),
        HasSubstr("id=\"d2\" gradientUnits=\"userSpaceOnUse\" x1=\"50\" y1=\"0\" x2=\"50\" y2=\"0\""));
}

TEST_F(SlidePaint, KeepsItsDirectionWhereItDoesNotTurnWithTheShape)
{
    area.rotation = 90;
    DOM::GradientFill gradient = makeGradient(DOM::GradientFill::Kind::Linear, 90);
    gradient.turnsWithShape = false;
    paint(gradient);
    EXPECT_THAT(getDefs(), HasSubstr(" x1=\"0\" y1=\"25\" x2=\"100\" y2=\"25\""));
}

TEST_F(SlidePaint, ReachesTheFarthestCornerFromItsCentre)
{
    DOM::GradientFill gradient = makeGradient(DOM::GradientFill::Kind::Circle, 0);
    gradient.centre.left = gradient.centre.top = 1;
    paint(gradient);
    gradient.kind = DOM::GradientFill::Kind::Rectangle;
    paint(gradient);
    EXPECT_THAT(getDefs(),
        HasSubstr("<radialGradient id=\"d1\" gradientUnits=\"userSpaceOnUse\" cx=\"100\" cy=\"50\" "
                  "r=\"111.803\">"));
    EXPECT_THAT(getDefs(), HasSubstr("<radialGradient id=\"d2\" cx=\"1\" cy=\"1\" r=\"1.414\">"));
    EXPECT_THAT(getDefs(), HasSubstr(std::string("r=\"111.803\">") + Stops)); // the first one at the centre
    gradient.stops.clear();
    EXPECT_EQ(paint(gradient), " fill=\"none\"");
}

TEST_F(SlidePaint, ShowsAPictureOnce)
{
    DOM::PictureFill fill;
    fill.mediaId = savePicture("abc");
    fill.mimeType = "image/png";
    EXPECT_EQ(paint(fill), " fill=\"url(#d1)\"");
    fill.stretch.left = 0.1F;
    fill.opacity = 0.5F;
    EXPECT_EQ(paint(fill), " fill=\"url(#d2)\"");
    const std::string page = getDefs();
    EXPECT_THAT(page, HasSubstr("<pattern id=\"d1\" patternUnits=\"userSpaceOnUse\" x=\"0\" y=\"0\" "
                                "width=\"100\" height=\"50\"><use href=\"#p1\" width=\"100\" "
                                "height=\"50\"/></pattern>\n"));
    EXPECT_THAT(page, HasSubstr("<g opacity=\"0.5\"><g transform=\"translate(10 0)\"><use href=\"#p1\" "
                                "width=\"90\" height=\"50\"/></g></g>"));
    EXPECT_THAT(page, HasSubstr("<symbol id=\"p1\" viewBox=\"0 0 1 1\" preserveAspectRatio=\"none\"><image "
                                "width=\"1\" height=\"1\" preserveAspectRatio=\"none\" "
                                "href=\"data:image/png;base64,YWJj\"/></symbol>\n"));
    EXPECT_EQ(page.find("YWJj"), page.rfind("YWJj"));
}

TEST_F(SlidePaint, RepeatsATile)
{
    DOM::PictureFill fill;
    fill.mediaId = savePicture("abc");
    fill.mimeType = "image/png";
    fill.isTiled = true;
    fill.tileScale = {0.5F, 2};
    fill.tileOffset = {3, 4};
    fill.stretch.left = 0.5F; // of stretched ones alone
    paint(fill);
    EXPECT_THAT(getDefs(), HasSubstr("x=\"3\" y=\"4\" width=\"36\" height=\"144\"><use href=\"#p1\" "
                                     "width=\"36\" height=\"144\"/>"));
}

TEST_F(SlidePaint, RepeatsAPictureInItsOwnSize)
{
    DOM::PictureFill fill;
    fill.mediaId = savePicture(std::string("GIF89a\x60\0\x30\0", 10)); // 96 by 48 pixels
    fill.mimeType = "image/gif";
    fill.isTiled = true;
    fill.tileScale = {1, 0.5F};
    paint(fill);
    EXPECT_THAT(getDefs(), HasSubstr("width=\"72\" height=\"18\"><use href=\"#p1\" width=\"72\" "
                                     "height=\"18\"/>"));
    fill.tileScale = {0.001F, 1000};
    paint(fill);
    EXPECT_THAT(getDefs(), HasSubstr("width=\"1\" height=\"10000\"><use"));
}

TEST_F(SlidePaint, ShowsAPictureInTwoColors)
{
    DOM::PictureFill fill;
    fill.mediaId = savePicture("abc");
    fill.mimeType = "image/png";
    fill.duotone = {Red, HalfBlue};
    EXPECT_EQ(paint(fill), " fill=\"url(#d2)\"");
    EXPECT_THAT(getDefs(),
        HasSubstr("<filter id=\"d1\" x=\"0\" y=\"0\" width=\"1\" height=\"1\" "
                  "color-interpolation-filters=\"sRGB\"><feColorMatrix values=\".2126 .7152 .0722 0 0 "
                  ".2126 .7152 .0722 0 0 .2126 .7152 .0722 0 0 0 0 0 1 0\"/><feComponentTransfer>"
                  "<feFuncR type=\"table\" tableValues=\"1 0\"/><feFuncG type=\"table\" tableValues=\"0 0\"/>"
                  "<feFuncB type=\"table\" tableValues=\"0 1\"/></feComponentTransfer></filter>\n"));
    EXPECT_THAT(getDefs(), HasSubstr("<g filter=\"url(#d1)\"><use href=\"#p1\" width=\"100\" "
                                     "height=\"50\"/></g></pattern>\n"));
}

TEST_F(SlidePaint, IsGreyForAPictureThatIsNotShown)
{
    DOM::PictureFill fill;
    fill.mediaId = savePicture(std::string(40, 'x'));
    fill.mimeType = "image/x-wmf";
    EXPECT_EQ(paint(fill), " fill=\"#EEEEEE\"");
    EXPECT_EQ(defs.getRefusedPicturesCount(), 0U);
    fill.mediaId = savePicture(std::string(40, 'y')); // 78 bytes as a URI, of which 60 may be there
    fill.mimeType = "image/png";
    EXPECT_EQ(paint(fill), " fill=\"#EEEEEE\"");
    EXPECT_EQ(defs.getRefusedPicturesCount(), 1U);
    area.size = Size2D<float>(100, 0);
    EXPECT_EQ(paint(fill), " fill=\"none\"");
}

TEST_F(SlidePaint, DrawsPatternsOfLines)
{
    DOM::PatternFill fill;
    fill.preset = "ltUpDiag";
    fill.foreground = Red;
    EXPECT_EQ(paint(fill), " fill=\"url(#d1)\"");
    EXPECT_THAT(getDefs(), HasSubstr("width=\"3\" height=\"3\"><rect width=\"3\" height=\"3\" "
                                     "fill=\"#FFFFFF\"/><path d=\"M0 3L3 0M-1 1L1 -1M2 4L4 2\" fill=\"none\" "
                                     "stroke=\"#FF0000\" stroke-width=\"0.75\"/></pattern>"));
}

TEST_F(SlidePaint, MixesTheColorsOfOtherPatterns)
{
    DOM::PatternFill fill;
    fill.foreground = DOM::Color();
    const std::pair<const char*, const char*> rows[] = {
        {"pct5",  " fill=\"#F2F2F2\""},
        {"pct75", " fill=\"#404040\""},
        {"plaid", " fill=\"#808080\""}
    };
    for (const auto& row : rows) {
        fill.preset = row.first;
        EXPECT_EQ(paint(fill), row.second);
    }
}

TEST(MakePictureElement, CropsThroughAWindow)
{
    DOM::RelativeRect crop;
    EXPECT_EQ(makePictureElement("p1", crop, {80, 40}), "<use href=\"#p1\" width=\"80\" height=\"40\"/>");
    crop.left = 0.25F;
    crop.bottom = 0.5F;
    EXPECT_EQ(makePictureElement("p1", crop, {80, 40}),
        "<svg width=\"80\" height=\"40\" viewBox=\"0.25 0 0.75 0.5\" preserveAspectRatio=\"none\">"
        "<use href=\"#p1\" width=\"1\" height=\"1\"/></svg>");
    crop.right = 0.75F; // nothing is left
    EXPECT_EQ(makePictureElement("p1", crop, {80, 40}), "<use href=\"#p1\" width=\"80\" height=\"40\"/>");
}

TEST_F(SlidePaint, StrokesLines)
{
    DOM::ShapeProps props;
    EXPECT_FALSE(hasLine(props));
    EXPECT_EQ(makeStroke(props, area, defs), "");
    props.setLineFill(DOM::ShapeFill(DOM::NoFill()));
    EXPECT_EQ(makeStroke(props, area, defs), "");
    props.setLineFill(DOM::ShapeFill(DOM::SolidFill(Red)));
    EXPECT_EQ(
        makeStroke(props, area, defs), " stroke=\"#FF0000\" stroke-width=\"0.75\" stroke-linejoin=\"round\"");
    props.setLineWidth(2.0F);
    props.setLineDash(DOM::LineDash::LongDashDotDot);
    props.setLineCap(DOM::LineCap::Round);
    props.setLineJoin(DOM::LineJoin::Bevel);
    EXPECT_EQ(makeStroke(props, area, defs),
        " stroke=\"#FF0000\" stroke-width=\"2\" stroke-dasharray=\"16 6 2 6 2 6\" stroke-linecap=\"round\" "
        "stroke-linejoin=\"bevel\"");
    props.setLineWidth(0.0F);
    props.setLineDash(DOM::LineDash::Solid);
    props.setLineCap(DOM::LineCap::Square);
    props.setLineJoin(DOM::LineJoin::Miter);
    EXPECT_EQ(
        makeStroke(props, area, defs), " stroke=\"#FF0000\" stroke-width=\"0.25\" stroke-linecap=\"square\"");
}

TEST_F(SlidePaint, PutsEndsOnLines)
{
    DOM::ShapeProps props;
    DOM::LineEnd end;
    end.kind = DOM::LineEnd::Kind::Triangle;
    end.length = DOM::LineEnd::Size::Large;
    end.width = DOM::LineEnd::Size::Small;
    props.setLineTail(end);
    EXPECT_EQ(makeLineEnds(props, defs), "");
    props.setLineFill(DOM::ShapeFill(DOM::SolidFill(Red)));
    EXPECT_EQ(makeLineEnds(props, defs), " marker-end=\"url(#d1)\"");
    props.setLineHead(DOM::LineEnd());
    EXPECT_EQ(makeLineEnds(props, defs), " marker-end=\"url(#d1)\"");
    props.setLineHead(end);
    EXPECT_EQ(makeLineEnds(props, defs), " marker-start=\"url(#d1)\" marker-end=\"url(#d1)\"");
    EXPECT_THAT(getDefs(),
        HasSubstr("<marker id=\"d1\" viewBox=\"0 0 10 10\" refX=\"8\" refY=\"5\" "
                  "markerUnits=\"userSpaceOnUse\" markerWidth=\"10\" markerHeight=\"4\" "
                  "orient=\"auto-start-reverse\" preserveAspectRatio=\"none\"><path d=\"M0 0L10 5L0 10Z\" "
                  "fill=\"#FF0000\"/></marker>\n"));
}

TEST_F(SlidePaint, CastsShadows)
{
    DOM::ShapeShadow shadow;
    shadow.color = HalfBlue;
    shadow.blur = 4;
    shadow.distance = 3;
    shadow.direction = 90;
    DOM::ShapeProps props;
    EXPECT_EQ(makeShadow(props, area, defs), "");
    props.setShadow(std::make_shared<const DOM::ShapeShadow>(shadow));
    EXPECT_EQ(makeShadow(props, area, defs), " filter=\"url(#d1)\"");
    EXPECT_THAT(getDefs(),
        HasSubstr("<filter id=\"d1\" filterUnits=\"userSpaceOnUse\" x=\"-111.75\" y=\"-111.75\" "
                  "width=\"323.5\" height=\"273.5\"><feDropShadow dx=\"0\" dy=\"3\" stdDeviation=\"2\" "
                  "flood-color=\"#0000FF\" flood-opacity=\"0.502\"/></filter>"));
    shadow.isInner = true;
    props.setShadow(std::make_shared<const DOM::ShapeShadow>(shadow));
    EXPECT_EQ(makeShadow(props, area, defs), "");
}

} // namespace
} // namespace QV::Filters
