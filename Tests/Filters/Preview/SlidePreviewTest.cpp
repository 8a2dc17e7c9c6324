#include <Filters/Preview/SlidePreview.h>

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Anchors.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeGeometry.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Utils/Public/Size2D.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/UUID.h>

#include <Tests/Support/TextPreviewFixture.h>

namespace QV::Filters {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using Tests::makeParagraph;
using Tests::makeText;

DOM::ShapeFill makeFill(unsigned char red)
{
    return DOM::SolidFill(DOM::Color(DOM::Color::RGBA(red, 0, 0, 255)));
}

DOM::ShapeProps makeFilled(unsigned char red)
{
    DOM::ShapeProps props;
    props.setFill(makeFill(red));
    return props;
}

std::unique_ptr<DOM::Shape> makeShape(const DOM::ShapeProps& props)
{
    auto shape = std::make_unique<DOM::Shape>();
    auto style = std::make_unique<DOM::ShapeStyle>();
    style->setShapeProps(std::make_shared<const DOM::ShapeProps>(props));
    shape->setSharedStyle(DOM::SharedShapeStyle(style.release()));
    return shape;
}

/// A frame of 100 by 50 points at 10, 20.
std::unique_ptr<DOM::Frame> makeFrame(
    std::unique_ptr<DOM::GraphicalObject> object, const std::string& name = {})
{
    auto frame = std::make_unique<DOM::Frame>();
    frame->setAnchor(DOM::AbsoluteAnchor({10, 20}));
    frame->setExtent(Size2D<float>(100, 50));
    frame->setGraphicalObject(std::move(object));
    frame->setName(name);
    return frame;
}

/// A text on a shape that has no outline to be seen.
std::unique_ptr<DOM::Frame> makeTextFrame(
    const std::string& text, const DOM::ShapeProps& props = DOM::ShapeProps())
{
    auto shape = makeShape(props);
    shape->setText(makeText(makeParagraph(text)));
    return makeFrame(std::move(shape));
}

class SlidePreview : public ::testing::Test
{
protected:
    DOM::Document& getDocument() { return run.getDocument(); }

    /// Appends a slide that derives from that style.
    DOM::Shape& addSlide(const UUID& parent = {}, const DOM::ShapeProps& props = DOM::ShapeProps())
    {
        auto slide = makeShape(props);
        slide->setKind(DOM::Shape::Kind::Slide);
        DOM::setToSharedStyle(
            getDocument().getSharedObjectFactory(), slide->getSharedStyle(), DOM::ParentUUID(parent));
        DOM::Shape& result = *slide;
        getDocument().getBlocks().append(std::move(slide));
        return result;
    }

    std::string write(const SlidePreviewLimits& limits = {})
    {
        std::ostringstream page;
        writePresentationPreview(run, "talk <1>", page, limits);
        const std::string text = page.str();
        return text.substr(text.find("<body>"));
    }

    std::string savePicture(const std::string& bytes)
    {
        return run.getMediaStorage().saveMediaFromStream(
            std::make_shared<Tests::PictureBytes>(bytes), "image/png");
    }

    static std::size_t count(const std::string& text, const std::string& part)
    {
        std::size_t result = 0;
        for (std::size_t i = text.find(part); i != std::string::npos; i = text.find(part, i + 1))
            ++result;
        return result;
    }

    FilterRun run = FilterRun(Tests::makePreviewOptions());
};

TEST_F(SlidePreview, WritesEachSlideAsASection)
{
    getDocument().setSlideSize(Size2D<float>(960, 540));
    addSlide();
    addSlide().appendChild(makeFrame(makeShape(makeFilled(255)), "Box \"1\""));
    EXPECT_EQ(write(), "<body>\n<main>\n"
                       "<section class=\"slide\" id=\"slide1\">\n<h2>1</h2>\n<svg viewBox=\"0 0 960 540\">\n"
                       "<rect width=\"100%\" height=\"100%\" fill=\"#FFFFFF\"/>\n</svg>\n</section>\n"
                       "<section class=\"slide\" id=\"slide2\">\n<h2>2</h2>\n<svg viewBox=\"0 0 960 540\">\n"
                       "<rect width=\"100%\" height=\"100%\" fill=\"#FFFFFF\"/>\n"
                       "<g class=\"shape\" data-name=\"Box &quot;1&quot;\" transform=\"translate(10 20)\">"
                       "<path d=\"M0 0L100 0L100 50L0 50Z\" fill=\"#FF0000\"/></g>\n"
                       "</svg>\n</section>\n</main>\n</body></html>\n");
}

TEST_F(SlidePreview, IsAPageThatNeedsNothingElse)
{
    std::ostringstream page;
    writePresentationPreview(run, "talk <1>", page);
    EXPECT_THAT(page.str(), AllOf(HasSubstr("<title>talk &lt;1&gt;</title>"), HasSubstr("default-src 'none'"),
                                HasSubstr(".slide{width:720pt}\n"), HasSubstr("There are no slides here.")));
}

TEST_F(SlidePreview, MarksHiddenSlidesAndKeepsNotes)
{
    DOM::SlideProps props;
    props.isHidden = true;
    props.notes = makeText(makeParagraph("say <this>"));
    addSlide().setSlideProps(std::make_shared<const DOM::SlideProps>(props));
    EXPECT_THAT(write(),
        AllOf(HasSubstr("<h2>1 <span class=\"hidden\">hidden</span></h2>\n"),
            HasSubstr("</svg>\n<div class=\"notes\">\n<h3>Notes</h3>\n<p>say &lt;this&gt;</p>\n</div>\n")));
}

struct ParentsRow
{
    bool slideShows;
    bool layoutShows;
    bool seesMaster;
    bool seesLayout;
};

TEST_F(SlidePreview, ShowsWhatLiesOnLayoutAndMaster)
{
    const ParentsRow rows[] = {
        {true,  true,  true,  true },
        {true,  false, false, true },
        {false, true,  false, false},
    };
    for (const ParentsRow& row : rows) {
        DOM::NamedShapeStyle master;
        master.appendChild(makeFrame(makeShape(makeFilled(1)), "of master"));
        auto placeholder = makeShape(makeFilled(2));
        placeholder->setPlaceholder(DOM::Placeholder());
        master.appendChild(makeFrame(std::move(placeholder), "never"));
        DOM::NamedShapeStyle layout;
        layout.setParentUUID(master.getUUID());
        layout.setShowsParentShapes(row.layoutShows);
        layout.appendChild(makeFrame(makeShape(makeFilled(3)), "of layout"));
        const UUID parent = layout.getUUID();
        getDocument().getStyles().getShapeStyles().insert(std::move(master));
        getDocument().getStyles().getShapeStyles().insert(std::move(layout));
        DOM::Shape& slide = addSlide(parent);
        DOM::SlideProps props;
        props.showsParentShapes = row.slideShows;
        slide.setSlideProps(std::make_shared<const DOM::SlideProps>(props));
        auto own = makeShape(makeFilled(4));
        own->setPlaceholder(DOM::Placeholder());
        slide.appendChild(makeFrame(std::move(own), "own"));
        const std::string page = write();
        const std::string last = page.substr(page.rfind("<section"));
        const std::size_t masterAt = last.find("of master");
        const std::size_t layoutAt = last.find("of layout");
        EXPECT_EQ(masterAt != std::string::npos, row.seesMaster);
        EXPECT_EQ(layoutAt != std::string::npos, row.seesLayout);
        EXPECT_TRUE(!row.seesMaster || masterAt < layoutAt);
        EXPECT_TRUE(!row.seesLayout || layoutAt < last.find("own"));
        EXPECT_THAT(last, AllOf(HasSubstr("own"), Not(HasSubstr("never"))));
    }
}

TEST_F(SlidePreview, TakesTheNearestBackground)
{
    const auto makeRect = [](const char* color) {
        return std::string("<rect width=\"100%\" height=\"100%\" fill=\"#") + color + "0000\"/>\n";
    };
    DOM::NamedShapeStyle master;
    master.setShapeProps(std::make_shared<const DOM::ShapeProps>(makeFilled(0x11)));
    DOM::NamedShapeStyle plainLayout;
    plainLayout.setParentUUID(master.getUUID());
    DOM::NamedShapeStyle layout;
    layout.setParentUUID(master.getUUID());
    layout.setShapeProps(std::make_shared<const DOM::ShapeProps>(makeFilled(0x22)));
    const UUID ofMaster = plainLayout.getUUID();
    const UUID ofLayout = layout.getUUID();
    auto& styles = getDocument().getStyles().getShapeStyles();
    styles.insert(std::move(master));
    styles.insert(std::move(plainLayout));
    styles.insert(std::move(layout));
    DOM::ShapeProps unfilled;
    unfilled.setFill(DOM::ShapeFill(DOM::NoFill()));
    addSlide(ofMaster);
    EXPECT_THAT(write(), HasSubstr(makeRect("11")));
    addSlide(ofLayout);
    EXPECT_THAT(write(), HasSubstr(makeRect("22")));
    addSlide(ofLayout, makeFilled(0x33));
    EXPECT_THAT(write(), HasSubstr(makeRect("33")));
    addSlide(ofLayout, unfilled);
    EXPECT_EQ(count(write(), makeRect("22")), 1U);
}

TEST_F(SlidePreview, TurnsAndFlipsShapesButMirrorsNoText)
{
    DOM::ShapeProps props = makeFilled(255);
    auto frame = makeTextFrame("text", props);
    frame->setRotation(30);
    frame->setFlippedHorizontally(true);
    frame->setFlippedVertically(true);
    addSlide().appendChild(std::move(frame));
    EXPECT_THAT(write(),
        HasSubstr("<g class=\"shape\" transform=\"translate(10 20) rotate(30 50 25)\">"
                  "<g transform=\"translate(100 50) scale(-1 -1)\"><path d=\"M0 0L100 0L100 50L0 50Z\" "
                  "fill=\"#FF0000\"/></g><g transform=\"rotate(180 50 25)\">"
                  "<foreignObject transform=\"translate(7.2 3.6) scale(0.75)\" width=\"114.133\" "
                  "height=\"57.067\"><div class=\"text\"><div>\n<p>text</p>\n</div></div></foreignObject>\n"
                  "</g></g>\n"));
}

TEST_F(SlidePreview, TurnsTheChildrenOfGroups)
{
    auto group = std::make_unique<DOM::Shape>();
    group->setKind(DOM::Shape::Kind::Group);
    group->appendChild(makeTextFrame("text"));
    auto frame = makeFrame(std::move(group), "Group");
    frame->setRotation(90);
    frame->setFlippedHorizontally(true);
    addSlide().appendChild(std::move(frame));
    EXPECT_THAT(write(),
        HasSubstr("<g class=\"group\" data-name=\"Group\" transform=\"rotate(90 60 45) translate(120 0) "
                  "scale(-1 1)\">\n<g class=\"shape\" transform=\"translate(10 20)\">"
                  "<g transform=\"translate(100 0) scale(-1 1)\"><foreignObject "));
}

TEST_F(SlidePreview, PlacesTextAsItsShapeSays)
{
    DOM::ShapeProps props;
    props.setTextLeftInset(0.0F);
    props.setTextTopInset(10.0F);
    props.setTextRightInset(25.0F);
    props.setTextBottomInset(10.0F);
    props.setTextAlignment(DOM::VerticalAlignment::Center);
    props.setTextColumns(2U);
    addSlide().appendChild(makeTextFrame("text", props));
    EXPECT_THAT(write(), HasSubstr("<foreignObject transform=\"translate(0 10) scale(0.75)\" width=\"100\" "
                                   "height=\"40\"><div class=\"text middle\"><div style=\"columns:2;"
                                   "height:100%\">\n<p>text</p>"));
    props.setTextAlignment(DOM::VerticalAlignment::Bottom);
    props.setTextWrapping(false);
    props.setTextColumns(1U);
    props.setTextDirection(DOM::TextDirection::Clockwise);
    addSlide().appendChild(makeTextFrame("text", props));
    EXPECT_THAT(write(), HasSubstr("<foreignObject transform=\"translate(75 10) rotate(90) scale(0.75)\" "
                                   "width=\"40\" height=\"100\"><div class=\"text bottom unwrapped\"><div>"));
    props.setTextDirection(DOM::TextDirection::CounterClockwise);
    addSlide().appendChild(makeTextFrame("text", props));
    EXPECT_THAT(write(), HasSubstr("\"translate(0 40) rotate(-90) scale(0.75)\" width=\"40\" "));
}

TEST_F(SlidePreview, BreaksNoLinesInOutlinesWithoutRoom)
{
    for (const float width : {0.0F, 1.0F}) {
        auto frame = makeTextFrame("text");
        frame->setExtent(Size2D<float>(width, 50));
        addSlide().appendChild(std::move(frame));
    }
    EXPECT_THAT(write(), AllOf(HasSubstr("<foreignObject transform=\"translate(0 3.6) scale(0.75)\" "
                                         "width=\"0\" height=\"57.067\"><div class=\"text unwrapped\">"),
                             HasSubstr("<foreignObject transform=\"translate(0.5 3.6) scale(0.75)\" "
                                       "width=\"0\" height=\"57.067\"><div class=\"text\">")));
}

TEST_F(SlidePreview, ShrinksTextThatDoesNotFit)
{
    DOM::TextFit fit;
    fit.fontScale = 0.5F;
    fit.lineSpacingReduction = 0.25F;
    DOM::ShapeProps props;
    props.setTextFit(fit);
    addSlide().appendChild(makeTextFrame("whole", props));
    EXPECT_THAT(write(), AllOf(HasSubstr(" scale(0.75)\""), HasSubstr("<p>whole</p>")));
    fit.kind = DOM::TextFit::Kind::ShrinkText;
    props.setTextFit(fit);
    addSlide().appendChild(makeTextFrame("shrunk", props));
    std::ostringstream page;
    writePresentationPreview(run, "", page);
    EXPECT_THAT(page.str(), AllOf(HasSubstr(" scale(0.375)\" width=\"228.267\" height=\"114.133\">"),
                                HasSubstr("<p class=\"c0\">shrunk</p>"), HasSubstr(".c0{line-height:0.9;}")));
}

TEST_F(SlidePreview, GivesLinesTheHeightOfTheirRuns)
{
    DOM::RunProps small;
    small.setFontSize(8.0F);
    DOM::RunProps large;
    large.setFontSize(40.0F);
    auto paragraph = makeParagraph("");
    paragraph->appendText("a", Tests::makeRunStyle(large));
    paragraph->appendText("b", Tests::makeRunStyle(small));
    auto empty = makeParagraph("");
    empty->setSharedParaMarkStyle(Tests::makeRunStyle(large));
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    blocks.push_back(std::move(paragraph));
    blocks.push_back(std::move(empty));
    auto shape = std::make_unique<DOM::Shape>();
    shape->setText(DOM::SharedCellText(new DOM::CellText(std::move(blocks))));
    addSlide().appendChild(makeFrame(std::move(shape)));
    std::ostringstream page;
    writePresentationPreview(run, "", page);
    EXPECT_THAT(page.str(),
        AllOf(HasSubstr("<p class=\"c0\"><span class=\"c1\">a</span>b</p>\n<p class=\"c1\"><br></p>"),
            HasSubstr(".c0{font-size:8pt;}\n.c1{font-size:40pt;}")));
}

TEST_F(SlidePreview, ShowsAPictureOnceInThePage)
{
    const std::string id = savePicture("abc");
    for (int i = 0; i < 2; ++i)
        addSlide().appendChild(makeFrame(std::make_unique<DOM::Picture>(id, "image/png"), "Photo"));
    const std::string page = write();
    EXPECT_EQ(count(page, "data:image/png;base64,YWJj"), 1U);
    EXPECT_EQ(
        count(page, "<g class=\"shape\" data-name=\"Photo\" transform=\"translate(10 20)\" role=\"img\" "
                    "aria-label=\"Photo\"><use href=\"#p1\" width=\"100\" height=\"50\"/></g>\n"),
        2U);
}

TEST_F(SlidePreview, CutsPicturesToTheirOutlines)
{
    DOM::ShapeGeometry geometry;
    geometry.preset = "ooxml-ellipse";
    DOM::ShapeProps props;
    props.setGeometry(std::make_shared<const DOM::ShapeGeometry>(geometry));
    props.setLineFill(makeFill(255));
    auto picture = std::make_unique<DOM::Picture>(savePicture("abc"), "image/png");
    picture->setShapeProps(std::make_shared<const DOM::ShapeProps>(props));
    addSlide().appendChild(makeFrame(std::move(picture)));
    EXPECT_THAT(write(),
        AllOf(HasSubstr("<g clip-path=\"url(#d1)\"><use href=\"#p1\" width=\"100\" "
                        "height=\"50\"/></g><path d=\"M"),
            HasSubstr(" fill=\"none\" stroke=\"#FF0000\""), HasSubstr("<clipPath id=\"d1\"><path d=\"M")));
}

TEST_F(SlidePreview, NamesPicturesThatBrowsersDoNotShow)
{
    addSlide().appendChild(
        makeFrame(std::make_unique<DOM::Picture>(savePicture("abc"), "image/x-<wmf>"), "Photo"));
    EXPECT_THAT(write(), HasSubstr("<path d=\"M0 0H100V50H0ZL100 50M100 0L0 50\" fill=\"#EEEEEE\" "
                                   "stroke=\"#AAAAAA\"/><text x=\"50\" y=\"25\" text-anchor=\"middle\" "
                                   "font-size=\"10\">image/x-&lt;wmf&gt;</text></g>"));
}

TEST_F(SlidePreview, LinksToSafeTargetsAlone)
{
    auto safe = makeFrame(makeShape(makeFilled(1)));
    safe->setHyperlink(std::make_shared<const DOM::Hyperlink>("https://example.org/?a=1&b=\"2\""));
    auto unsafe = makeFrame(makeShape(makeFilled(1)));
    unsafe->setHyperlink(std::make_shared<const DOM::Hyperlink>("javascript:alert(1)"));
    auto inside = makeFrame(makeShape(makeFilled(1)));
    inside->setHyperlink(std::make_shared<const DOM::Hyperlink>("", "ppt/slides/slide2.xml"));
    DOM::Shape& slide = addSlide();
    slide.appendChild(std::move(safe));
    slide.appendChild(std::move(unsafe));
    slide.appendChild(std::move(inside));
    const std::string page = write();
    EXPECT_EQ(count(page, "<a "), 1U);
    EXPECT_THAT(page, HasSubstr("<a href=\"https://example.org/?a=1&amp;b=&quot;2&quot;\"><g class"));
    EXPECT_EQ(count(page, "</g>\n</a>\n"), 1U);
}

TEST_F(SlidePreview, ShowsTablesAndCharts)
{
    auto table = Tests::makeTable(1, 1);
    table->getOrMakeCell(RowIndex(0), ColumnIndex(0)).setText(makeText(makeParagraph("cell")));
    DOM::Shape& slide = addSlide();
    slide.appendChild(makeFrame(std::move(table)));
    slide.appendChild(makeFrame(std::make_unique<DOM::ChartSpace>()));
    EXPECT_THAT(write(), AllOf(HasSubstr("<foreignObject transform=\"scale(0.75)\" width=\"133.333\" "
                                         "height=\"66.667\"><div class=\"text\">\n<table>"),
                             HasSubstr("<p>cell</p>"),
                             HasSubstr("<svg width=\"100\" height=\"50\"><svg role=\"img\" "
                                       "aria-label=\"Chart\" viewBox=\"0 0 100.0 50.0\" font-size=\"9\" "
                                       "preserveAspectRatio=\"none\"></svg></svg>")));
}

TEST_F(SlidePreview, WritesChartsInWhiteOnDarkSlides)
{
    const unsigned char greys[] = {127, 128};
    for (const unsigned char grey : greys) {
        DOM::ShapeProps props;
        props.setFill(DOM::ShapeFill(DOM::SolidFill(DOM::Color(DOM::Color::RGBA(grey, grey, grey, 255)))));
        addSlide({}, props).appendChild(makeFrame(std::make_unique<DOM::ChartSpace>()));
    }
    addSlide().appendChild(makeFrame(std::make_unique<DOM::ChartSpace>()));
    const std::string page = write();
    EXPECT_EQ(count(page, "<svg width=\"100\" height=\"50\" fill=\"#FFFFFF\"><svg role"), 1U);
    EXPECT_EQ(count(page, "<svg width=\"100\" height=\"50\"><svg role"), 2U);
}

TEST_F(SlidePreview, NamesObjectsWithoutAPicture)
{
    const auto makeObject = [](const DOM::ShapeProps& props) {
        auto object = makeShape(props);
        object->setKind(DOM::Shape::Kind::Object);
        return object;
    };
    const auto makePictured = [&](const char* mimeType) {
        DOM::PictureFill fill;
        fill.mediaId = savePicture("abc");
        fill.mimeType = mimeType;
        DOM::ShapeProps props;
        props.setFill(DOM::ShapeFill(fill));
        return makeObject(props);
    };
    DOM::Shape& slide = addSlide();
    slide.appendChild(makeFrame(makeObject({}), "<Sum>"));
    slide.appendChild(makeFrame(makePictured("image/x-emf"), "Metafile"));
    slide.appendChild(makeFrame(nullptr));
    slide.appendChild(makeFrame(makePictured("image/png"), "Seen"));
    slide.appendChild(makeFrame(makeObject(makeFilled(255)), "Filled"));
    slide.appendChild(makeFrame(std::make_unique<DOM::Shape>(), "Shape"));
    auto text = makeObject({});
    text->setText(makeText(makeParagraph("said")));
    slide.appendChild(makeFrame(std::move(text), "Text"));
    const std::string page = write();
    const std::string box = "<path d=\"M0 0H100V50H0ZL100 50M100 0L0 50\" fill=\"#EEEEEE\" "
                            "stroke=\"#AAAAAA\"/><text x=\"50\" y=\"25\" text-anchor=\"middle\" "
                            "font-size=\"10\">";
    EXPECT_EQ(count(page, box), 3U);
    for (const char* const name : {"&lt;Sum&gt;", "Metafile", "object"})
        EXPECT_THAT(page, HasSubstr(box + name + "</text></g>"));
}

TEST_F(SlidePreview, KeepsLongWordsBesideTheirLabels)
{
    auto marker = std::make_shared<DOM::NumListMarker>();
    marker->setType(DOM::NumListMarkerType::Decimal);
    marker->setText("%1");
    auto level = std::make_unique<DOM::NumberingLevel>();
    level->setListMarker(marker);
    auto list = std::make_shared<DOM::NumberedList>();
    list->appendLevel(std::move(level));
    getDocument().addNumberedList(list);
    for (const float indent : {-18.0F, 0.0F}) {
        DOM::ParaProps props;
        props.setFirstLineIndent(indent);
        auto paragraph = makeParagraph("item", props);
        auto reference = std::make_unique<DOM::NumberingRef>();
        reference->setNumListUUID(list->getUUID());
        paragraph->setNumRef(std::move(reference));
        auto shape = makeShape({});
        shape->setText(makeText(std::move(paragraph)));
        addSlide().appendChild(makeFrame(std::move(shape)));
    }
    EXPECT_THAT(write(),
        AllOf(HasSubstr("><span class=\"joined\"><span class=\"label c1\">1</span>&#8288;</span>item</p>"),
            HasSubstr(">1</span>\titem</p>")));
}

TEST_F(SlidePreview, TakesNoSpaceBeforeTheFirstParagraph)
{
    DOM::ParaProps props;
    props.setSpaceBefore(20.0F);
    auto shape = makeShape({});
    shape->setText(makeText(makeParagraph("first", props)));
    addSlide().appendChild(makeFrame(std::move(shape)));
    std::ostringstream page;
    writePresentationPreview(run, "", page);
    EXPECT_THAT(page.str(), AllOf(HasSubstr("\n.text p:first-child{margin-top:0}\n"),
                                HasSubstr("<div>\n<p class=\"c0\">first</p>")));
}

TEST_F(SlidePreview, LeavesOutHiddenShapesAndCountsThoseWithoutAPlace)
{
    auto hidden = makeFrame(makeShape(makeFilled(1)), "hidden one");
    hidden->setHidden(true);
    auto lost = makeFrame(makeShape(makeFilled(1)), "lost one");
    lost->setExtent(boost::none);
    DOM::Shape& slide = addSlide();
    slide.appendChild(std::move(hidden));
    slide.appendChild(std::move(lost));
    EXPECT_THAT(write(), AllOf(Not(HasSubstr("hidden one")), Not(HasSubstr("lost one")),
                             HasSubstr("<p class=\"note\">Not shown: 1 shape.</p>")));
}

TEST_F(SlidePreview, EndsAtItsLimits)
{
    for (int i = 0; i < 3; ++i)
        addSlide().appendChild(makeTextFrame("text"));
    SlidePreviewLimits limits;
    limits.slides = 3;
    limits.shapes = 3;
    EXPECT_THAT(write(limits), Not(HasSubstr("Not shown")));
    limits.slides = 2;
    EXPECT_THAT(write(limits), AllOf(HasSubstr("Not shown: 1 slide."), Not(HasSubstr("slide3"))));
    limits.slides = 3;
    limits.shapes = 1;
    EXPECT_THAT(write(limits), AllOf(HasSubstr("Not shown: 2 shapes."), HasSubstr("slide3")));
    limits.shapes = 3;
    limits.pageBytes = 100;
    EXPECT_THAT(write(limits), HasSubstr("Not shown: 2 slides, 1 shape."));
}

TEST_F(SlidePreview, CountsGroupsThatAreTooDeep)
{
    auto inner = makeFrame(makeShape(makeFilled(1)), "inner");
    auto group = std::make_unique<DOM::Shape>();
    group->setKind(DOM::Shape::Kind::Group);
    group->appendChild(std::move(inner));
    addSlide().appendChild(makeFrame(std::move(group)));
    SlidePreviewLimits limits;
    limits.nesting = 1;
    EXPECT_THAT(write(limits), AllOf(HasSubstr("inner"), Not(HasSubstr("Not shown"))));
    limits.nesting = 0;
    EXPECT_THAT(write(limits), AllOf(Not(HasSubstr("inner")), HasSubstr("Not shown: 1 shape.")));
}

TEST_F(SlidePreview, LeavesOutOutlinesThatThereIsNoRoomFor)
{
    auto geometry = std::make_shared<DOM::ShapeGeometry>();
    geometry->adjustValues.resize(1);
    geometry->guides.resize(2);
    geometry->paths.resize(1); // counts for one more
    geometry->paths[0].commands.resize(1);
    geometry->paths[0].commands[0].operands = {"0", "0"};
    DOM::ShapeProps props = makeFilled(1);
    props.setGeometry(geometry);
    for (int i = 0; i < 2; ++i)
        addSlide().appendChild(makeTextFrame("text", props));
    SlidePreviewLimits limits;
    limits.outlineSteps = 10;
    EXPECT_EQ(count(write(limits), "<path"), 2U);
    EXPECT_THAT(write(limits), Not(HasSubstr("Not shown")));
    limits.outlineSteps = 9;
    const std::string page = write(limits);
    EXPECT_EQ(count(page, "<path"), 1U);
    EXPECT_EQ(count(page, ">text<"), 2U);
    EXPECT_THAT(page, HasSubstr("Not shown: 1 shape."));
}

TEST_F(SlidePreview, CountsPicturesThatThereIsNoRoomFor)
{
    addSlide().appendChild(makeFrame(std::make_unique<DOM::Picture>(savePicture("abc"), "image/png")));
    SlidePreviewLimits limits;
    limits.pictureBytes = 26; // "data:image/png;base64,YWJj"
    EXPECT_THAT(write(limits), Not(HasSubstr("Not shown")));
    limits.pictureBytes = 25;
    EXPECT_THAT(write(limits), AllOf(HasSubstr("Not shown: 1 picture."), Not(HasSubstr("data:"))));
}

} // namespace
} // namespace QV::Filters
