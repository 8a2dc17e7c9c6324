#include <Filters/Text/TextDrawing.h>

#include <cmath>
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
#include <cinder/Vector.h>

#include <Tests/Support/FrameBuilder.h>
#include <Tests/Support/TextDrawingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeOriginated;
using Origin = DOM::AbsoluteAnchor::Origin;

class ReadVmlDrawing : public Tests::TextDrawingFixture
{
};

TEST_F(ReadVmlDrawing, ShowsVmlShapes)
{
    read("<v:shapetype id='_x0000_t202'><v:fill color='red'/></v:shapetype>"
         "<v:shape type='#_x0000_t202' alt='A' fillcolor='#0a141e [3204]' style='position:absolute;"
         "margin-left:10pt;margin-top:20pt;width:30pt;height:40px;rotation:90;flip:y;"
         "mso-position-horizontal-relative:page'><v:textbox><w:txbxContent><w:p>text</w:p></w:txbxContent>"
         "</v:textbox></v:shape><v:oval filled='f' fillcolor='red'/>"
         "<v:line from='5pt,1pt' to='2pt,3pt' style='position:absolute'/>");
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_EQ(getFrame(0).getAnchor(), DOM::Anchor(makeOriginated(10, 20, Origin::Page, Origin::Paragraph)));
    EXPECT_EQ(getFrame(0).getExtent(), Size2D<float>(30, 30));
    EXPECT_EQ(getFrame(0).getRotation(), 90.0F);
    EXPECT_TRUE(getFrame(0).isFlippedVertically());
    EXPECT_EQ(getFrame(0).getName(), "A");
    const DOM::Shape& box = getShape(getFrame(0));
    EXPECT_EQ(box.getPresetGeometry(), "ooxml-rect");
    EXPECT_EQ(getFill(getFrame(0)), "10 20 30 255");
    ASSERT_TRUE(box.getText());
    EXPECT_EQ(box.getText()->getPlainText(), "text");

    EXPECT_EQ(getFrame(1).getAnchor(), DOM::Anchor(DOM::TextAnchor()));
    EXPECT_EQ(getFrame(1).getExtent(), boost::none);
    EXPECT_EQ(getShape(getFrame(1)).getPresetGeometry(), "ooxml-ellipse");
    EXPECT_EQ(getFill(getFrame(1)), "");

    EXPECT_EQ(getFrame(2).getAnchor(), DOM::Anchor(makeOriginated(2, 1, Origin::Column, Origin::Paragraph)));
    EXPECT_EQ(getFrame(2).getExtent(), Size2D<float>(3, 2));
    EXPECT_TRUE(getFrame(2).isFlippedHorizontally());
}

TEST_F(ReadVmlDrawing, FillsVmlShapesByTheirFill)
{
    read("<v:rect><v:fill color='red' opacity='.5'/></v:rect>"
         "<v:rect fillcolor='red'><v:fill type='gradient'/></v:rect>"
         "<v:rect fillcolor='red'><v:fill on='f'/></v:rect><v:rect fillcolor='reddish'/>");
    ASSERT_EQ(frames.size(), 4U);
    EXPECT_EQ(getFill(getFrame(0)), "255 0 0 128");
    for (const std::size_t index : {1U, 2U, 3U})
        EXPECT_EQ(getFill(getFrame(index)), "");
    EXPECT_THAT(listMessages(), ElementsAre("Incorrect color value: reddish"));
}

TEST_F(ReadVmlDrawing, ShowsVmlPicturesFromEverywhere)
{
    read("<v:shape style='width:1in;height:2in'><v:imagedata r:id='p' o:title='T'/></v:shape>"
         "<v:shape><v:imagedata o:relid='p'/></v:shape><v:image src='data:image/png;base64,iVBORw0KGgo='/>");
    ASSERT_EQ(frames.size(), 3U);
    for (const auto& frame : frames)
        EXPECT_TRUE(isPicture(*frame));
    EXPECT_EQ(getFrame(0).getExtent(), Size2D<float>(72, 144));
    EXPECT_EQ(getFrame(0).getName(), "T");
    ASSERT_EQ(run.getMedia().size(), 2U); // the part once, and the data
    EXPECT_EQ(run.getMedia()[1].mimeType, "image/png");
    EXPECT_EQ(run.getMedia()[1].bytes, Tests::PngBytes.size());
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(ReadVmlDrawing, TellsOfVmlPicturesThatAreNotThere)
{
    read("<v:shape><v:imagedata r:id='q'/></v:shape><v:shape><v:imagedata src='a.png'/></v:shape>"
         "<v:shape><v:imagedata src='data:image/png;base64,%'/></v:shape>");
    EXPECT_THAT(frames, IsEmpty());
    EXPECT_THAT(listMessages(),
        ElementsAre("Picture q is missing", "Linked picture a.png is not read, since links are not followed",
            "Picture data:image/png;base64 cannot be decoded"));
}

TEST_F(ReadVmlDrawing, ShowsTextBeforeAVmlPicture)
{
    read("<v:rect style='width:1in;height:2in'><v:imagedata r:id='p'/><v:textbox><w:txbxContent>"
         "<w:p>text</w:p></w:txbxContent></v:textbox></v:rect><v:shape><v:textpath string='W'/></v:shape>");
    ASSERT_EQ(frames.size(), 2U);
    const auto children = getShape(getFrame(0)).getChildren();
    ASSERT_EQ(children.size(), 2U);
    EXPECT_TRUE(isPicture(children[0]));
    EXPECT_EQ(getShape(children[1]).getText()->getPlainText(), "text");
    EXPECT_EQ(children[1].getExtent(), Size2D<float>(72, 144));
    EXPECT_EQ(getShape(getFrame(1)).getText()->getPlainText(), "W");
}

TEST_F(ReadVmlDrawing, PlacesTheChildrenOfVmlGroups)
{
    read("<v:group style='width:100pt;height:50pt' coordorigin='1000,2000' coordsize='1000,1000'>"
         "<v:rect style='left:1100;top:2200;width:500;height:10pt'/>"
         "<v:group style='left:1000;top:2000;width:100;height:100' coordsize='10,10'>"
         "<v:rect style='left:5;top:5;width:1;height:1pt'/></v:group></v:group>");
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_EQ(getFrame().getExtent(), Size2D<float>(100, 50));
    const auto children = getShape(getFrame()).getChildren();
    ASSERT_EQ(children.size(), 2U);
    EXPECT_FLOAT_EQ(getPlace(children[0]).getOffset().x, 10);
    EXPECT_FLOAT_EQ(getPlace(children[0]).getOffset().y, 10);
    EXPECT_FLOAT_EQ(children[0].getExtent()->getWidth(), 50);
    EXPECT_FLOAT_EQ(children[0].getExtent()->getHeight(), 10);
    const auto grandchildren = getShape(children[1]).getChildren();
    ASSERT_EQ(grandchildren.size(), 1U);
    EXPECT_FLOAT_EQ(getPlace(grandchildren[0]).getOffset().x, 5);
    EXPECT_FLOAT_EQ(getPlace(grandchildren[0]).getOffset().y, 2.5F);
    EXPECT_FLOAT_EQ(grandchildren[0].getExtent()->getWidth(), 1);
    EXPECT_FLOAT_EQ(grandchildren[0].getExtent()->getHeight(), 1);
}

TEST_F(ReadVmlDrawing, KeepsHostileVmlInReach)
{
    read("<v:group style='width:1e30pt;height:1pt;position:absolute;left:-1e30pt' coordsize='1e-40,0'>"
         "<v:rect style='left:1e30;top:1e30;width:1e30;height:1e30'/></v:group>");
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_EQ(getPlace(getFrame()).getOffset(), cinder::Vec2<float>(-1e6F, 0));
    EXPECT_EQ(getFrame().getExtent(), Size2D<float>(1e6F, 1));
    const auto children = getShape(getFrame()).getChildren();
    ASSERT_EQ(children.size(), 1U);
    for (const float coordinate : {getPlace(children[0]).getOffset().x, getPlace(children[0]).getOffset().y,
             children[0].getExtent()->getWidth(), children[0].getExtent()->getHeight()})
        EXPECT_LE(std::abs(coordinate), 1e6F);
}

TEST_F(ReadVmlDrawing, ShowsThePreviewOfAnEmbeddedObject)
{
    read("<v:shape style='width:10pt;height:10pt'><v:imagedata r:id='p'/></v:shape>"
         "<o:OLEObject Type='Embed' ProgID='X' r:id='o'/>");
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_TRUE(isPicture(getFrame()));
    EXPECT_THAT(run.getLeftOut(), ElementsAre(TextLeftOut::EmbeddedObjects));
}

} // namespace
} // namespace QV::Filters
