#include <Filters/Presentation/GraphicFrames.h>

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/ShapeProps.h>
#include <Filters/Package/ChartLeftOut.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideLeftOut.h>

#include <Tests/Support/ShapeTreeFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeBox;
using Tests::makeNonVisual;
using Tests::makeTextBody;
using Tests::makeTransform;

const std::string PngSignature = "\x89PNG\r\n\x1A\n";
const std::string DiagramDrawing = "http://schemas.microsoft.com/office/2007/relationships/diagramDrawing";

std::string makeFrame(
    const std::string& data, const std::string& uri = {}, const std::string& application = {})
{
    return "<p:graphicFrame>" + makeNonVisual("GraphicFrame", "name='F'", application) +
           (application.empty() ? makeTransform(makeBox(10, 20, 30, 40), {}, "p") : std::string()) +
           "<a:graphic><a:graphicData uri='" + uri + "'>" + data +
           "</a:graphicData></a:graphic></p:graphicFrame>";
}

class GraphicFrames : public Tests::ShapeTreeFixture
{
protected:
    static std::string makePart(const std::string& root, const std::string& content)
    {
        return "<" + root + Tests::makePresentationDeclarations() + ">" + content + "</" + root + ">";
    }

    /// The drawing of a diagram with one shape of that name.
    void addDrawing(const std::string& id, const std::string& name)
    {
        addPart("ppt/diagrams/" + name + ".xml",
            makePart(
                "dsp:drawing", "<dsp:spTree><dsp:nvGrpSpPr/><dsp:grpSpPr/><dsp:sp modelId='x'><dsp:nvSpPr>"
                               "<dsp:cNvPr id='0' name='" +
                                   name + "'/></dsp:nvSpPr><dsp:spPr>" + makeTransform(makeBox(1, 2, 3, 4)) +
                                   "</dsp:spPr><dsp:txBody><a:bodyPr/><a:p><a:r><a:t>text</a:t></a:r></a:p>"
                                   "</dsp:txBody></dsp:sp></dsp:spTree>"));
        relate(id, DiagramDrawing, "../diagrams/" + name + ".xml");
    }

    /// The data of a diagram whose drawing has that id.
    void addData(const std::string& id, const std::string& drawingId)
    {
        addPart("ppt/diagrams/" + id + ".xml",
            makePart("dgm:dataModel", "<dgm:extLst><a:ext uri='x'><dsp:dataModelExt relId='" + drawingId +
                                          "'/></a:ext></dgm:extLst>"));
        relate(id, "diagramData", "../diagrams/" + id + ".xml");
    }
};

const std::string Diagram = makeFrame("<dgm:relIds r:dm='data'/>");

TEST_F(GraphicFrames, TablesHaveTheirPlace)
{
    EXPECT_EQ(read(makeFrame("<a:tbl/>")), "F: table 10,20 30x40");
    EXPECT_EQ(read(makeFrame("<a:tbl/>"), true), "F: table 10,20 30x40");
    EXPECT_EQ(joinMessages(), "");
}

TEST_F(GraphicFrames, PlacesOfPlaceholdersAreTakenOver)
{
    PlaceholderSource source;
    source.placeholder.type = "tbl";
    source.placeholder.index = 3;
    source.transform = DrawnTransform();
    source.transform->box = DrawnBox{
        {1, 2},
        {3, 4}
    };
    sources.add(std::move(source));
    EXPECT_EQ(read(makeFrame("<a:tbl/>", "", "<p:ph idx='3'/>")), "F: table 1,2 3x4");
}

TEST_F(GraphicFrames, ChartsAreRead)
{
    addPart("ppt/charts/chart1.xml", makePart("c:chartSpace", "<c:chart><c:plotArea/></c:chart>"));
    relate("chart", "chart", "../charts/chart1.xml");
    relate("away", "chart", "http://a.example/", "TargetMode='External'");
    EXPECT_EQ(read(makeFrame("<c:chart r:id='chart'/>")), "F: chart 10,20 30x40");
    EXPECT_THAT(run.getLeftOut(), ElementsAre(ChartLeftOut::ChartFormats));
    EXPECT_EQ(read(makeFrame("<c:chart r:id='none'/>")), "F: empty 10,20 30x40");
    EXPECT_THAT(joinMessages(), testing::HasSubstr("Chart none of ppt/slides/slide1.xml is missing"));
    EXPECT_EQ(read(makeFrame("<c:chart r:id='away'/>")), "F: empty 10,20 30x40");
    EXPECT_THAT(joinMessages(), testing::HasSubstr("Chart away of ppt/slides/slide1.xml is missing"));
}

TEST_F(GraphicFrames, ObjectsShowTheirPicture)
{
    addPart("ppt/media/a.png", PngSignature);
    relate("pic", "image", "../media/a.png");
    const std::string object = "<p:oleObj r:id='x'><p:embed/><p:pic>" + makeNonVisual("Pic", "name='P'") +
                               "<p:blipFill><a:blip r:embed='pic'/></p:blipFill><p:spPr/></p:pic></p:oleObj>";
    for (const std::string& data : {object,
             "<mc:AlternateContent><mc:Choice Requires='v'><p:oleObj spid='s'/></mc:Choice><mc:Fallback>" +
                 object + "</mc:Fallback></mc:AlternateContent>"}) {
        EXPECT_EQ(read(makeFrame(data)), "F: object 10,20 30x40") << data;
        const auto& props = getObject().getStyle().getShapeProps();
        ASSERT_TRUE(props) << data;
        EXPECT_EQ(boost::get<DOM::PictureFill>(*props->getFill()).mimeType, "image/png");
        EXPECT_EQ(props->getGeometry()->preset, "ooxml-rect");
    }
    EXPECT_EQ(read(makeFrame("<p:oleObj spid='s'/>")), "F: object 10,20 30x40");
    EXPECT_FALSE(getObject().getSharedStyle());
    EXPECT_THAT(run.getLeftOut(), ElementsAre(SlideLeftOut::EmbeddedObjects));
    EXPECT_EQ(joinMessages(), "");
}

// Two shapes of one drawing, and one in a group that is named otherwise.
TEST_F(GraphicFrames, ObjectsOfOlderFilesShowThePictureOfTheirVmlShape)
{
    const auto makeVmlShape = [](const std::string& attributes, const std::string& picture) {
        return "<v:shape " + attributes + "><v:imagedata o:relid='" + picture + "'/></v:shape>";
    };
    addPart("ppt/drawings/vmlDrawing1.vml",
        "<xml xmlns:v='urn:schemas-microsoft-com:vml' xmlns:o='urn:schemas-microsoft-com:office:office'>"
        "<v:shapetype id='_x0000_t75'/>" +
            makeVmlShape("id='_x0000_s1'", "a") + "<v:group>" +
            makeVmlShape("id='Named' o:spid='_x0000_s2'", "b") + "</v:group>" +
            makeVmlShape("id='_x0000_s3'", "nowhere") + "<v:shape id='_x0000_s4'/></xml>");
    addPart("ppt/drawings/_rels/vmlDrawing1.vml.rels",
        Tests::makeRelationships(
            "", Tests::makeRelationship("a", Tests::TransitionalTypes + "image", "../media/a.png") +
                    Tests::makeRelationship("b", Tests::TransitionalTypes + "image", "../media/b.png"))
            .content);
    addPart("ppt/media/a.png", PngSignature);
    addPart("ppt/media/b.png", PngSignature);
    relate("vml", "vmlDrawing", "../drawings/vmlDrawing1.vml");
    std::string objects;
    for (const char* const id : {"_x0000_s2", "_x0000_s1", "_x0000_s3", "_x0000_s4", "_x0000_s5", ""})
        objects += makeFrame("<p:oleObj spid='" + std::string(id) + "' r:id='x'><p:embed/></p:oleObj>");
    read(objects);
    ASSERT_EQ(frames.size(), 6U);
    std::vector<std::string> pictures;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const auto& props = getObject(i).getStyle().getShapeProps();
        const auto* const fill = props ? boost::get<DOM::PictureFill>(&*props->getFill()) : nullptr;
        pictures.push_back(fill ? fill->mimeType + (fill->mediaId.empty() ? " nowhere" : "") : "none");
    }
    EXPECT_THAT(pictures, ElementsAre("image/png", "image/png", "none", "none", "none", "none"));
    EXPECT_NE(boost::get<DOM::PictureFill>(*getObject(0).getStyle().getShapeProps()->getFill()).mediaId,
        boost::get<DOM::PictureFill>(*getObject(1).getStyle().getShapeProps()->getFill()).mediaId);
    EXPECT_THAT(run.getLeftOut(), ElementsAre(SlideLeftOut::EmbeddedObjects));
}

TEST_F(GraphicFrames, DiagramsShowTheDrawingOfTheirData)
{
    addDrawing("first", "A");
    addDrawing("second", "B");
    addData("data", "second");
    EXPECT_EQ(read(Diagram), "F: object {B: shape 'text' 11,22 3x4} 10,20 30x40");
    EXPECT_THAT(run.getLeftOut(), IsEmpty());
    EXPECT_EQ(joinMessages(), "");
}

TEST_F(GraphicFrames, DiagramsWithoutDataShowTheOnlyDrawing)
{
    addDrawing("first", "A");
    EXPECT_EQ(read(Diagram), "F: object {A: shape 'text' 11,22 3x4} 10,20 30x40");
}

TEST_F(GraphicFrames, DiagramsWithoutADrawingAreLeftOut)
{
    addDrawing("first", "A");
    addDrawing("second", "B");
    addData("data", "none");
    EXPECT_EQ(read(Diagram), "F: object 10,20 30x40");
    EXPECT_THAT(run.getLeftOut(), ElementsAre(SlideLeftOut::Diagrams));
}

TEST_F(GraphicFrames, DiagramsInDiagramsEnd)
{
    addPart("ppt/diagrams/A.xml",
        makePart("dsp:drawing", "<dsp:spTree>" + makeFrame("<dgm:relIds r:dm='data'/>") + "</dsp:spTree>"));
    addPart("ppt/diagrams/_rels/A.xml.rels",
        "<Relationships xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>" +
            Tests::makeRelationship("x", DiagramDrawing, "A.xml") + "</Relationships>");
    relate("first", DiagramDrawing, "../diagrams/A.xml");
    EXPECT_EQ(read(Diagram), "F: object {F: empty 20,40 30x40} 10,20 30x40");
}

TEST_F(GraphicFrames, OthersAreLeftOutByName)
{
    EXPECT_EQ(read(makeFrame("<unknown:x/>", "http://schemas.microsoft.com/office/drawing/2014/chartex")),
        "F: object 10,20 30x40");
    EXPECT_THAT(run.getLeftOut(), ElementsAre(SlideLeftOut::NewerCharts));
    EXPECT_EQ(read(makeFrame("<unknown:x/>", "urn:nobody-knows")), "F: object 10,20 30x40");
    EXPECT_THAT(run.getLeftOut(), ElementsAre(SlideLeftOut::NewerCharts, SlideLeftOut::OtherGraphics));
}

} // namespace
} // namespace QV::Filters
