#include <Filters/Text/TextDrawing.h>

#include <cstddef>
#include <string>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Shape.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Text/TextLeftOut.h>
#include <Utils/Public/Size2D.h>

#include <Tests/Support/FrameBuilder.h>
#include <Tests/Support/TextDrawingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeOriginated;
using Origin = DOM::AbsoluteAnchor::Origin;

class ReadTextDrawing : public Tests::TextDrawingFixture
{
};

std::string makeEmu(int points)
{
    return std::to_string(points * 12700);
}

std::string makeExtent(int width, int height)
{
    return "<wp:extent cx='" + makeEmu(width) + "' cy='" + makeEmu(height) + "'/>";
}

std::string makeGraphic(const std::string& content)
{
    return "<a:graphic><a:graphicData>" + content + "</a:graphicData></a:graphic>";
}

std::string makeInline(const std::string& content)
{
    return "<wp:inline>" + makeExtent(30, 40) + "<wp:docPr id='1' name='N' descr='D'/>" +
           makeGraphic(content) + "</wp:inline>";
}

std::string makePicture(const std::string& blip, const std::string& transform = {})
{
    return "<pic:pic><pic:nvPicPr><pic:cNvPr id='0' name='P'/></pic:nvPicPr><pic:blipFill><a:blip " + blip +
           "/></pic:blipFill><pic:spPr><a:xfrm " + transform + "/></pic:spPr></pic:pic>";
}

std::string makeBox(int x, int y, int width, int height, const std::string& prefix = {})
{
    const std::string off = prefix.empty() ? "off" : "chOff";
    const std::string ext = prefix.empty() ? "ext" : "chExt";
    return "<a:" + off + " x='" + makeEmu(x) + "' y='" + makeEmu(y) + "'/><a:" + ext + " cx='" +
           makeEmu(width) + "' cy='" + makeEmu(height) + "'/>";
}

std::string makeWordShape(const std::string& box, const std::string& more = {}, const std::string& turn = {})
{
    return "<wps:wsp><wps:cNvPr id='1' name='S'/><wps:spPr><a:xfrm " + turn + ">" + box +
           "</a:xfrm><a:prstGeom prst='ellipse'/><a:solidFill><a:srgbClr val='0A141E'/></a:solidFill>"
           "</wps:spPr>" +
           more + "</wps:wsp>";
}

TEST_F(ReadTextDrawing, ShowsAPictureInTheText)
{
    read(makeInline(makePicture("r:embed='p'", "rot='5400000' flipH='1'")));
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_TRUE(isPicture(getFrame()));
    EXPECT_EQ(getFrame().getAnchor(), DOM::Anchor(DOM::TextAnchor()));
    EXPECT_EQ(getFrame().getExtent(), Size2D<float>(30, 40));
    EXPECT_EQ(getFrame().getName(), "N");
    EXPECT_EQ(getFrame().getRotation(), 90.0F);
    EXPECT_TRUE(getFrame().isFlippedHorizontally());
    EXPECT_FALSE(getFrame().isFlippedVertically());
    ASSERT_EQ(run.getMedia().size(), 1U);
    EXPECT_EQ(run.getMedia()[0].mimeType, "image/png");
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ReadTextDrawing, HasNoExtentWithoutASize)
{
    const std::string graphic = makeGraphic(makePicture("r:embed='p'"));
    read("<wp:inline>" + graphic + "</wp:inline>");
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_EQ(getFrame().getExtent(), boost::none);
    EXPECT_EQ(getFrame().getName(), "P");
    read("<wp:inline><wp:extent cx='0' cy='0'/>" + graphic + "</wp:inline>");
    EXPECT_EQ(frames.at(0)->getExtent(), boost::none);
    read("<wp:inline><wp:extent cx='12700' cy='0'/>" + graphic + "</wp:inline>");
    EXPECT_EQ(frames.at(0)->getExtent(), Size2D<float>(1, 0));
    read("<wp:inline><wp:extent cx='27273042329600' cy='12700'/>" + graphic + "</wp:inline>");
    EXPECT_EQ(frames.at(0)->getExtent(), Size2D<float>(1e6F, 1));
}

TEST_F(ReadTextDrawing, TellsOfPicturesThatAreNotThere)
{
    read(makeInline(makePicture("r:embed='q'")) + makeInline(makePicture("r:link='x'")) +
         makeInline(makePicture("")));
    EXPECT_THAT(frames, IsEmpty());
    EXPECT_THAT(listMessages(), ElementsAre("Picture q is missing",
                                    "Linked picture x.png is not read, since links are not followed"));
}

struct PositionRow
{
    const char* attributes;
    const char* horizontal; // attributes and content of the elements
    const char* vertical;
    DOM::AbsoluteAnchor expected;
};

TEST_F(ReadTextDrawing, AnchorsToWhatThePositionIsRelativeTo)
{
    const PositionRow rows[] = {
        {"",              "relativeFrom='column'><wp:posOffset>12700</wp:posOffset",
         "relativeFrom='paragraph'><wp:posOffset>-25400</wp:posOffset",                                                    makeOriginated(1, -2, Origin::Column, Origin::Paragraph)},
        {"",              "relativeFrom='page'><wp:posOffset>0</wp:posOffset",
         "relativeFrom='margin'><wp:posOffset>12700</wp:posOffset",                                                        makeOriginated(0, 1,  Origin::Page,   Origin::Margin)   },
        {"",              "relativeFrom='character'><wp:align>center</wp:align",
         "relativeFrom='line'><wp:align>top</wp:align",                                                                    makeOriginated(0, 0,  Origin::Column, Origin::Paragraph)},
        {"",              "relativeFrom='rightMargin'>",                                      "relativeFrom='topMargin'>",
         makeOriginated(0,                                                                                                                   0,  Origin::Margin, Origin::Page)     },
        {"simplePos='0'", "relativeFrom='column'><wp:posOffset>12700</wp:posOffset",          "relativeFrom='page'>",
         makeOriginated(1,                                                                                                                   0,  Origin::Column, Origin::Page)     },
        {"simplePos='1'", "relativeFrom='column'><wp:posOffset>12700</wp:posOffset",          "relativeFrom='margin'>",
         makeOriginated(7,                                                                                                                   8,  Origin::Page,   Origin::Page)     },
        {"",              "relativeFrom='column'><wp:posOffset>27273042329600</wp:posOffset", "relativeFrom='margin'>",
         makeOriginated(1e6F,                                                                                                                0,  Origin::Column, Origin::Margin)   },
    };
    for (const PositionRow& row : rows) {
        const auto makePosition = [](const std::string& name, const std::string& content) {
            const std::string end = content.back() == '>' ? "" : ">";
            return "<wp:" + name + " " + content + end + "</wp:" + name + ">";
        };
        read("<wp:anchor " + std::string(row.attributes) + "><wp:simplePos x='88900' y='101600'/>" +
             makePosition("positionH", row.horizontal) + makePosition("positionV", row.vertical) +
             makeExtent(3, 4) + makeGraphic(makeWordShape("")) + "</wp:anchor>");
        ASSERT_EQ(frames.size(), 1U) << row.horizontal;
        EXPECT_EQ(getFrame().getAnchor(), DOM::Anchor(row.expected)) << row.horizontal;
        EXPECT_EQ(getFrame().getExtent(), Size2D<float>(3, 4));
    }
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ReadTextDrawing, ShowsAShapeWithItsText)
{
    read(makeInline(makeWordShape("",
        "<wps:style><a:lnRef/></wps:style><wps:txbx><w:txbxContent><w:p>one</w:p></w:txbxContent></wps:txbx>"
        "<wps:txbx><w:txbxContent><w:p>two</w:p></w:txbxContent></wps:txbx><wps:bodyPr/>")));
    ASSERT_EQ(frames.size(), 1U);
    const DOM::Shape& shape = getShape(getFrame());
    EXPECT_EQ(shape.getPresetGeometry(), "ooxml-ellipse");
    EXPECT_EQ(getFill(getFrame()), "10 20 30 255");
    ASSERT_TRUE(shape.getText());
    EXPECT_EQ(shape.getText()->getPlainText(), "one\ntwo");
}

TEST_F(ReadTextDrawing, PlacesTheChildrenOfGroups)
{
    const std::string group =
        "<wpg:wgp><wpg:grpSpPr><a:xfrm>" + makeBox(0, 0, 30, 40) + makeBox(100, 200, 300, 200, "ch") +
        "</a:xfrm></wpg:grpSpPr>" + makeWordShape(makeBox(130, 210, 60, 20)) +
        makeWordShape(makeBox(130, 210, 60, 20), "", "rot='5400000'") + "<wpg:grpSp><wpg:grpSpPr><a:xfrm>" +
        makeBox(100, 200, 30, 20) + makeBox(0, 0, 3, 2, "ch") + "</a:xfrm></wpg:grpSpPr>" +
        makeWordShape(makeBox(1, 1, 1, 1)) + "</wpg:grpSp></wpg:wgp>";
    read(makeInline(group) +
         "<wp:anchor><wp:positionH relativeFrom='margin'><wp:posOffset>1270000"
         "</wp:posOffset></wp:positionH>" +
         makeExtent(30, 40) + makeGraphic(group) + "</wp:anchor>");
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_THAT(listMessages(), IsEmpty());
    for (const float left : {0.0F, 100.0F}) {
        const Origin origin = left > 0 ? Origin::Margin : Origin::Page;
        const auto children = getShape(getFrame(left > 0 ? 1 : 0)).getChildren();
        ASSERT_EQ(children.size(), 3U);
        EXPECT_EQ(getPlace(children[0]), makeOriginated(left + 3, 2, origin, Origin::Page));
        EXPECT_EQ(children[0].getExtent(), Size2D<float>(6, 4));
        EXPECT_EQ(children[0].getName(), "S");
        // 60 by 20 shows as 20 by 60 about (160, 220), and is then stretched to 2 by 12.
        EXPECT_EQ(children[1].getExtent(), Size2D<float>(12, 2));
        EXPECT_EQ(getPlace(children[1]), makeOriginated(left, 3, origin, Origin::Page));
        EXPECT_EQ(children[1].getRotation(), 90.0F);
        const auto grandchildren = getShape(children[2]).getChildren();
        ASSERT_EQ(grandchildren.size(), 1U);
        EXPECT_EQ(getPlace(grandchildren[0]), makeOriginated(left + 1, 2, origin, Origin::Page));
        EXPECT_EQ(grandchildren[0].getExtent(), Size2D<float>(1, 2));
    }
}

TEST_F(ReadTextDrawing, CountsInACanvasFromItsCorner)
{
    read(makeInline("<wpc:wpc><wpc:bg/>" + makeWordShape(makeBox(1, 2, 3, 4)) + "</wpc:wpc>") +
         makeInline(makeWordShape(makeBox(1, 2, 3, 4)) + makePicture("r:embed='p'")));
    ASSERT_EQ(frames.size(), 2U);
    for (const std::size_t index : {0U, 1U}) {
        const auto children = getShape(getFrame(index)).getChildren();
        ASSERT_EQ(children.size(), index + 1);
        EXPECT_EQ(getPlace(children[0]), makeAbsolute(1, 2));
        EXPECT_EQ(children[0].getExtent(), Size2D<float>(3, 4));
    }
    const auto children = getShape(getFrame(1)).getChildren();
    EXPECT_TRUE(isPicture(children[1]));
    EXPECT_EQ(children[1].getExtent(), Size2D<float>(30, 40)); // that of the whole
}

TEST_F(ReadTextDrawing, LeavesOutChartsAndOtherGraphicsByName)
{
    read(makeInline("<c:chart r:id='c'/>"));
    EXPECT_THAT(run.getLeftOut(), ElementsAre(TextLeftOut::Charts));
    read(makeInline("<dgm:relIds/>"));
    EXPECT_THAT(run.getLeftOut(), ElementsAre(TextLeftOut::Charts, TextLeftOut::Diagrams));
    EXPECT_THAT(frames, IsEmpty());
}

TEST_F(ReadTextDrawing, LeavesOutGraphicsThatAreNotKnown)
{
    read(makeInline("<x/>"));
    EXPECT_THAT(frames, IsEmpty());
    EXPECT_THAT(run.getLeftOut(), ElementsAre(TextLeftOut::Diagrams));
}

TEST_F(ReadTextDrawing, DoesNotShowWhatIsHidden)
{
    read("<wp:inline><wp:docPr id='1' name='' hidden='1'/>" + makeGraphic(makeWordShape("")) +
         "</wp:inline><v:rect style='visibility:hidden'/>");
    EXPECT_THAT(frames, IsEmpty());
    EXPECT_THAT(run.getLeftOut(), IsEmpty());
}

std::string makeNested(std::size_t groups)
{
    std::string nested = makeWordShape(makeBox(0, 0, 1, 1));
    for (std::size_t i = 1; i < groups; ++i)
        nested.insert(0, "<wpg:grpSp>").append("</wpg:grpSp>");
    return makeInline("<wpg:wgp>" + nested + "</wpg:wgp>");
}

TEST_F(ReadTextDrawing, LeavesOutGroupsThatAreTooDeep)
{
    read(makeNested(49));
    EXPECT_EQ(frames.size(), 1U);
    EXPECT_THAT(listMessages(), IsEmpty());
    read(makeNested(50));
    EXPECT_THAT(frames, IsEmpty());
    EXPECT_THAT(listMessages(), ElementsAre("Groups deeper than 50 levels are left out"));
}

TEST_F(ReadTextDrawing, LeavesOutObjectsBeyondTheBound)
{
    read(makeInline(makeWordShape("")) + "<v:rect/><v:oval/>", 2);
    EXPECT_EQ(frames.size(), 2U);
    EXPECT_THAT(run.getLeftOut(), ElementsAre("drawn objects beyond the first 100,000"));
}

TEST_F(ReadTextDrawing, KeepsTextOutsideOfShapes)
{
    read("<v:textbox><w:txbxContent><w:p>loose</w:p></w:txbxContent></v:textbox>" +
         makeInline("<x><w:txbxContent><w:p>lost</w:p></w:txbxContent></x>"));
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(getShape(getFrame(0)).getText()->getPlainText(), "loose");
    EXPECT_EQ(getShape(getFrame(1)).getText()->getPlainText(), "lost");
}

} // namespace
} // namespace QV::Filters
