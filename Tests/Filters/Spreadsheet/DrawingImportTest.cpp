#include <Filters/Spreadsheet/DrawingImport.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/FrameBuilder.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A drawing over a table whose columns and rows are 10 points.
class DrawingImport : public testing::Test
{
protected:
    DrawingImport()
    {
        table.setDefaultColumnWidth(10);
        table.setDefaultRowHeight(10);
    }

    void import(const std::string& content, ChartReader readChart = {})
    {
        const std::string office = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
        Package package = Package::openBytes(Tests::makeZip({
            Tests::makeContentTypes(""),
            {"d/drawing.xml",
                                    "<xdr:wsDr xmlns:xdr='http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing' "
                "xmlns:a='http://schemas.openxmlformats.org/drawingml/2006/main' "
                "xmlns:c='http://schemas.openxmlformats.org/drawingml/2006/chart' "
                "xmlns:mc='http://schemas.openxmlformats.org/markup-compatibility/2006' xmlns:r='" +
                    office + "'>" + content + "</xdr:wsDr>"             },
            {"d/p.png",       "\x89PNG\r\n\x1A\n"},
            {"d/chart.xml",   "<c/>"             },
            Tests::makeRelationships("d/_rels/drawing.xml.rels",
                Tests::makeRelationship("p", Tests::TransitionalTypes + "image", "p.png") +
                    Tests::makeRelationship("c", Tests::TransitionalTypes + "chart", "chart.xml")),
        }));
        DrawingImporter(package, run, Colors(), std::move(readChart)).read("d/drawing.xml", table);
    }

    const DOM::Frame& getFrame(std::size_t index = 0) const { return *table.getFrames().at(index); }

    static const DOM::Shape& getShape(const DOM::Frame& frame)
    {
        return dynamic_cast<const DOM::Shape&>(*frame.getGraphicalObject());
    }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run.getReport().getMessages())
            texts.push_back(message.toString());
        return texts;
    }

    FilterRun run;
    DOM::Table table;
};

std::string makeMarker(const std::string& name, int column, int row)
{
    return "<xdr:" + name + "><xdr:col>" + std::to_string(column) +
           "</xdr:col><xdr:colOff>12700</xdr:colOff><xdr:row>" + std::to_string(row) +
           "</xdr:row><xdr:rowOff>25400</xdr:rowOff></xdr:" + name + ">";
}

std::string makeTwoCells(const std::string& content)
{
    return "<xdr:twoCellAnchor>" + makeMarker("from", 1, 2) + makeMarker("to", 5, 4) + content +
           "<xdr:clientData/></xdr:twoCellAnchor>";
}

std::string makeBox(const std::string& prefix, int x, int y, int width, int height)
{
    const auto emu = [](int points) { return std::to_string(points * 12700); };
    const std::string off = prefix.empty() ? "off" : "chOff";
    const std::string ext = prefix.empty() ? "ext" : "chExt";
    return "<a:" + off + " x='" + emu(x) + "' y='" + emu(y) + "'/><a:" + ext + " cx='" + emu(width) +
           "' cy='" + emu(height) + "'/>";
}

std::string makeShape(const std::string& transform, const std::string& name = "S")
{
    return "<xdr:sp><xdr:nvSpPr><xdr:cNvPr id='1' name='" + name + "'/></xdr:nvSpPr><xdr:spPr><a:xfrm>" +
           transform + "</a:xfrm><a:prstGeom prst='rect'/></xdr:spPr></xdr:sp>";
}

std::string makeGroup(const std::string& transform, const std::string& content)
{
    return "<xdr:grpSp><xdr:nvGrpSpPr><xdr:cNvPr id='1' name='G'/></xdr:nvGrpSpPr><xdr:grpSpPr><a:xfrm>" +
           transform + "</a:xfrm></xdr:grpSpPr>" + content + "</xdr:grpSp>";
}

const std::string Picture = "<xdr:pic><xdr:blipFill><a:blip r:embed='p'/></xdr:blipFill>"
                            "<xdr:spPr><a:xfrm rot='5400000' flipH='1'/></xdr:spPr></xdr:pic>";

std::string makeChart(const std::string& id)
{
    return "<xdr:graphicFrame><xdr:nvGraphicFramePr><xdr:cNvPr id='1' name='Chart'/></xdr:nvGraphicFramePr>"
           "<xdr:xfrm/><a:graphic><a:graphicData><c:chart r:id='" +
           id + "'/></a:graphicData></a:graphic></xdr:graphicFrame>";
}

TEST_F(DrawingImport, KeepsTheThreeAnchors)
{
    import(makeTwoCells(makeShape("")) + "<xdr:oneCellAnchor>" + makeMarker("from", 1, 2) +
           "<xdr:ext cx='127000' cy='254000'/>" + makeShape("") +
           "</xdr:oneCellAnchor><xdr:absoluteAnchor><xdr:pos x='12700' y='-12700'/>"
           "<xdr:ext cx='127000' cy='254000'/>" +
           makeShape("") + "</xdr:absoluteAnchor>");
    ASSERT_EQ(table.getFrames().size(), 3U);
    EXPECT_EQ(
        getFrame(0).getAnchor(), DOM::Anchor(makeTwoCell(makeOffset(1, 1, 2, 2), makeOffset(5, 1, 4, 2))));
    EXPECT_EQ(getFrame(1).getAnchor(), DOM::Anchor(makeOneCell(makeOffset(1, 1, 2, 2), {10, 20})));
    EXPECT_EQ(getFrame(2).getAnchor(), DOM::Anchor(makeAbsolute(1, -1)));
    EXPECT_EQ(getFrame(2).getExtent(), Size2D<float>(10, 20));
    EXPECT_THAT(listMessages(), IsEmpty());
}

// 40 by 20 at (11, 22) was turned by a quarter: 20 by 40 at (21, 12).
TEST_F(DrawingImport, TurnsTheBoxOfATurnedPictureBack)
{
    import(makeTwoCells(Picture));
    EXPECT_EQ(
        getFrame().getAnchor(), DOM::Anchor(makeTwoCell(makeOffset(2, 1, 1, 2), makeOffset(4, 1, 5, 2))));
    EXPECT_EQ(getFrame().getRotation(), 90);
    EXPECT_TRUE(getFrame().isFlippedHorizontally());
    EXPECT_FALSE(getFrame().isFlippedVertically());
    EXPECT_EQ(dynamic_cast<const DOM::Picture&>(*getFrame().getGraphicalObject()).getMimeType(), "image/png");
}

TEST_F(DrawingImport, ReadsWhatAShapeShows)
{
    import(
        makeTwoCells("<xdr:sp><xdr:nvSpPr><xdr:cNvPr id='1' name='Box 1'/></xdr:nvSpPr><xdr:spPr>"
                     "<a:prstGeom prst='roundRect'/><a:solidFill><a:srgbClr val='FFCC00'/></a:solidFill>"
                     "<a:ln><a:solidFill><a:srgbClr val='000000'/></a:solidFill></a:ln></xdr:spPr>"
                     "<xdr:txBody><a:bodyPr/><a:p><a:r><a:rPr/><a:t>one </a:t></a:r><a:r><a:t>two</a:t></a:r>"
                     "<a:br/><a:fld><a:t>three</a:t></a:fld></a:p><a:p/><a:p><a:r><a:t>four</a:t></a:r></a:p>"
                     "</xdr:txBody></xdr:sp>") +
        makeTwoCells("<xdr:cxnSp><xdr:spPr><a:prstGeom prst='line'/></xdr:spPr></xdr:cxnSp>"));
    ASSERT_EQ(table.getFrames().size(), 2U);
    EXPECT_EQ(getFrame(0).getName(), "Box 1");
    const DOM::Shape& shape = getShape(getFrame(0));
    EXPECT_EQ(shape.getPresetGeometry(), "ooxml-roundRect");
    EXPECT_TRUE(shape.getFillColor() == DOM::Color(DOM::Color::RGBA(255, 204, 0, 255)));
    ASSERT_TRUE(shape.getText());
    EXPECT_EQ(shape.getText()->getPlainText(), "one two\nthree\n\nfour");
    EXPECT_EQ(getShape(getFrame(1)).getPresetGeometry(), "ooxml-line");
    EXPECT_FALSE(getShape(getFrame(1)).getText());
    EXPECT_FALSE(getShape(getFrame(1)).getFillColor());
}

// The group is 40 by 20 at (11, 22), of 80 by 20 in its children's coordinates, which begin at (100, 200).
TEST_F(DrawingImport, PlacesChildrenOfGroupsOnTheSheet)
{
    const std::string inner = makeGroup(
        makeBox("", 140, 210, 40, 10) + makeBox("ch", 0, 0, 4, 1), makeShape(makeBox("", 1, 0, 2, 1)));
    import(makeTwoCells(makeGroup(makeBox("", 0, 0, 40, 20) + makeBox("ch", 100, 200, 80, 20),
        makeShape(makeBox("", 120, 205, 40, 10)) + Picture + inner)));
    ASSERT_EQ(table.getFrames().size(), 1U);
    EXPECT_EQ(getFrame().getName(), "G");
    const auto children = getShape(getFrame()).getChildren();
    ASSERT_EQ(children.size(), 3U);
    EXPECT_EQ(children[0].getAnchor(), DOM::Anchor(makeAbsolute(21, 27)));
    EXPECT_EQ(children[0].getExtent(), Size2D<float>(20, 10));
    EXPECT_EQ(children[1].getAnchor(), DOM::Anchor(makeAbsolute(11, 22))) << "the box of the group";
    EXPECT_EQ(children[1].getRotation(), 90);
    EXPECT_EQ(children[2].getAnchor(), DOM::Anchor(makeAbsolute(31, 32)));
    const auto grandchildren = getShape(children[2]).getChildren();
    ASSERT_EQ(grandchildren.size(), 1U);
    EXPECT_EQ(grandchildren[0].getAnchor(), DOM::Anchor(makeAbsolute(36, 32)));
    EXPECT_EQ(grandchildren[0].getExtent(), Size2D<float>(10, 10));
}

TEST_F(DrawingImport, DropsGroupsThatShowNothing)
{
    import(makeTwoCells(makeGroup("", "")) + makeTwoCells(makeGroup("", makeGroup("", ""))));
    EXPECT_THAT(table.getFrames(), IsEmpty());
}

class FakeChart final : public DOM::GraphicalObject
{
};

TEST_F(DrawingImport, AsksForWhatAChartShows)
{
    std::vector<std::string> parts;
    import(makeTwoCells(makeChart("c")) + makeTwoCells(makeGroup("", makeChart("c"))) +
               makeTwoCells(makeChart("gone")),
        [&](const std::string& part) {
            parts.push_back(part);
    return std::make_unique<FakeChart>();
});
EXPECT_THAT(parts, ElementsAre("d/chart.xml", "d/chart.xml"));
ASSERT_EQ(table.getFrames().size(), 3U);
EXPECT_NE(dynamic_cast<const FakeChart*>(getFrame(0).getGraphicalObject()), nullptr);
EXPECT_EQ(getFrame(0).getName(), "Chart");
EXPECT_EQ(getFrame(0).getAnchor().which(), 3);
EXPECT_EQ(getFrame(2).getGraphicalObject(), nullptr);
EXPECT_THAT(listMessages(), ElementsAre("Chart gone of d/drawing.xml is missing"));
} // namespace

TEST_F(DrawingImport, LeavesTheFramesOfChartsEmptyWhereNobodyReadsThem)
{
    import(makeTwoCells(makeChart("c")) + makeTwoCells("<xdr:graphicFrame/>"));
    ASSERT_EQ(table.getFrames().size(), 2U);
    EXPECT_EQ(getFrame().getGraphicalObject(), nullptr);
    EXPECT_THAT(run.getLeftOut(), ElementsAre("diagrams and other graphics in frames"));
}

TEST_F(DrawingImport, IgnoresAnchorsAndObjectsInTheWrongPlaces)
{
    import(makeTwoCells("<xdr:absoluteAnchor>" + makeShape("") + "</xdr:absoluteAnchor>" + "<xdr:sp>" +
                        Picture + "</xdr:sp>") +
           makeMarker("from", 3, 3) + "<xdr:spPr/><xdr:contentPart/>");
    ASSERT_EQ(table.getFrames().size(), 1U);
    EXPECT_EQ(
        getFrame().getAnchor(), DOM::Anchor(makeTwoCell(makeOffset(1, 1, 2, 2), makeOffset(5, 1, 4, 2))));
}

TEST_F(DrawingImport, SurvivesHugePlaces)
{
    import("<xdr:oneCellAnchor><xdr:from><xdr:col>99999999999999999999</xdr:col>"
           "<xdr:colOff>27273042329600</xdr:colOff><xdr:row>-5</xdr:row><xdr:rowOff>1e999cm</xdr:rowOff>"
           "</xdr:from><xdr:ext cx='27273042329600' cy='-1'/>" +
           Picture + "</xdr:oneCellAnchor>" +
           makeTwoCells(makeGroup("<a:off x='0' y='0'/><a:ext cx='27273042329600' cy='27273042329600'/>"
                                  "<a:chOff x='-27273042329600' y='0'/><a:chExt cx='1' cy='1'/>",
               makeGroup("<a:off x='27273042329600' y='0'/><a:ext cx='27273042329600' cy='1'/>"
                         "<a:chOff x='0' y='0'/><a:chExt cx='1' cy='1'/>",
                   makeShape("<a:off x='-27273042329600' y='0'/><a:ext cx='27273042329600' cy='1'/>")))));
    EXPECT_EQ(table.getFrames().size(), 2U);
    EXPECT_THAT(listMessages(),
        ElementsAre("Drawing is anchored to 99999999999999999999, which is no row or column of a sheet",
            "Drawing is anchored to -5, which is no row or column of a sheet",
            "Drawing coordinate 1e999cm is none", "Drawing size -1 is negative"));
}

TEST_F(DrawingImport, EndsGroupsInGroupsSomewhere)
{
    std::string nested = Picture;
    for (int i = 0; i < 300; ++i)
        nested = "<xdr:grpSp>" + nested + (i == 250 ? Picture : std::string()) + "</xdr:grpSp>";
    import(makeTwoCells(nested));
    std::size_t depth = 0;
    for (const DOM::Frame* frame = &getFrame(); frame; ++depth) {
        const auto* const shape = dynamic_cast<const DOM::Shape*>(frame->getGraphicalObject());
        frame = shape ? &shape->getChildren()[0] : nullptr;
    }
    EXPECT_EQ(depth, 51U) << "50 groups and the picture in the last of them";
    EXPECT_THAT(listMessages(), ElementsAre("Groups in d/drawing.xml deeper than 50 levels are left out"));
}

TEST_F(DrawingImport, EndsManyObjectsAndMessagesSomewhere)
{
    std::string many;
    for (std::size_t i = 0; i < DrawingImporter::ObjectsMax + 10; ++i)
        many += "<xdr:oneCellAnchor><xdr:ext cx='1.5' cy='0'/><xdr:sp/></xdr:oneCellAnchor>";
    import(many);
    EXPECT_EQ(table.getFrames().size(), DrawingImporter::ObjectsMax);
    const auto messages = listMessages();
    ASSERT_EQ(messages.size(), 1002U);
    EXPECT_EQ(messages[0], "Drawing coordinate 1.5 is none");
    EXPECT_EQ(
        messages[1000], "Drawings have more than 100000 objects; the rest of d/drawing.xml is left out");
    EXPECT_EQ(messages[1001], "99000 more times: Drawing coordinate {} is none");
}

} // namespace QV::Filters
} // namespace QV::Filters
