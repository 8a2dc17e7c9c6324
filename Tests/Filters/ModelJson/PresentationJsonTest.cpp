#include <Filters/ModelJson/PresentationJson.h>

#include <array>
#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/Cell.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>

#include <Tests/Support/SlideBuilder.h>
#include <Tests/Support/TextModelBuilder.h>

namespace QV::Filters {
namespace {

using DOM::Color;

/// The presentation of a run as JSON, without blanks and line feeds.
std::string writePresentation(FilterRun& run)
{
    std::ostringstream out;
    writePresentationJson(run, out);
    std::string text;
    for (const char c : out.str())
        if (c != ' ' && c != '\n')
            text += c;
    return text;
}

/// The JSON of a presentation of one slide up to its shapes' end, without what stands around the shapes.
std::string writeShapes(const std::function<void(DOM::Shape&, DOM::Document&)>& change)
{
    FilterRun run;
    change(Tests::appendSlide(run.getDocument()), run.getDocument());
    const std::string json = writePresentation(run);
    const std::string before =
        R"({"format":"pptx","masters":[],"layouts":[],"slides":[{"hidden":false,"shapes":)";
    const std::string after = R"(}],"links":[],"media":[]})";
    if (json.compare(0, before.size(), before) != 0 || json.size() < before.size() + after.size() ||
        json.compare(json.size() - after.size(), after.size(), after) != 0)
        return json;
    return json.substr(before.size(), json.size() - before.size() - after.size());
}

Color makeColor(unsigned char red, unsigned char green, unsigned char blue, unsigned char alpha = 255)
{
    return Color(Color::RGBA(red, green, blue, alpha));
}

std::shared_ptr<const DOM::SlideProps> makeSlideProps(const std::function<void(DOM::SlideProps&)>& change)
{
    auto props = std::make_shared<DOM::SlideProps>();
    change(*props);
    return props;
}

// --- The whole

TEST(WritePresentationJson, EmptyDocument)
{
    FilterRun run;
    EXPECT_EQ(writePresentation(run),
        R"({"format":"pptx","masters":[],"layouts":[],"slides":[],"links":[],"media":[]})");
    run.getDocument().setSlideSize(Size2D<float>(960, 540.5F));
    EXPECT_EQ(writePresentation(run),
        R"({"format":"pptx","slideWidth":960.0,"slideHeight":540.5,"masters":[],)"
        R"("layouts":[],"slides":[],"links":[],"media":[]})");
}

TEST(WritePresentationJson, StylesStandInTheOrderOfTheirUseThenByName)
{
    for (int i = 0; i < 8; ++i) { // identifiers are drawn anew each time
        FilterRun run;
        DOM::Document& document = run.getDocument();
        const UUID unused = Tests::addShapeStyle(document, "A");
        const UUID second = Tests::addShapeStyle(document, "C");
        const UUID first = Tests::addShapeStyle(document, "B");
        Tests::addShapeStyle(document, "z", unused);
        Tests::addShapeStyle(document, "y", first);
        const UUID used = Tests::addShapeStyle(document, "x", first);
        const UUID later = Tests::addShapeStyle(document, "w", second);
        Tests::setLayout(Tests::appendSlide(document), used);
        Tests::setLayout(Tests::appendSlide(document), later);
        Tests::setLayout(Tests::appendSlide(document), used);
        EXPECT_EQ(writePresentation(run),
            R"({"format":"pptx","masters":[{"name":"B"},{"name":"C"},{"name":"A"}],)"
            R"("layouts":[{"name":"x","master":"B"},{"name":"w","master":"C"},{"name":"y","master":"B"},)"
            R"({"name":"z","master":"A"}],"slides":[{"layout":"x","hidden":false,"shapes":[]},)"
            R"({"layout":"w","hidden":false,"shapes":[]},{"layout":"x","hidden":false,"shapes":[]}],)"
            R"("links":[],"media":[]})");
    }
}

TEST(WritePresentationJson, BlankStylesAreNotThere)
{
    FilterRun run;
    const UUID master = Tests::addShapeStyle(run.getDocument(), "");
    Tests::setLayout(
        Tests::appendSlide(run.getDocument()), Tests::addShapeStyle(run.getDocument(), "", master));
    Tests::addShapeStyle(run.getDocument(), "lost", master);
    EXPECT_EQ(writePresentation(run), R"({"format":"pptx","masters":[],"layouts":[{"name":"lost"}],)"
                                      R"("slides":[{"hidden":false,"shapes":[]}],"links":[],"media":[]})");
}

TEST(WritePresentationJson, LongNamesAreCut)
{
    FilterRun run;
    const UUID layout = Tests::addShapeStyle(
        run.getDocument(), std::string(2000, 'x'), Tests::addShapeStyle(run.getDocument(), "M"));
    Tests::setLayout(Tests::appendSlide(run.getDocument()), layout);
    const std::string json = writePresentation(run);
    EXPECT_NE(json.find(R"("layouts":[{"name":")" + std::string(1024, 'x') + '"'), std::string::npos);
    EXPECT_NE(json.find(R"({"layout":")" + std::string(1024, 'x') + '"'), std::string::npos);
}

// --- Slides

struct SlideRow
{
    const char* name;
    std::function<void(DOM::SlideProps&)> change;
    const char* json;
};

void PrintTo(const SlideRow& row, std::ostream* out)
{
    *out << row.name;
}

void addNotes(DOM::SlideProps& props)
{
    props.notes = DOM::makePlainCellText("a\nb");
}

void nameAndHide(DOM::SlideProps& props)
{
    props.name = "N";
    props.isHidden = true;
}

const SlideRow SlideRows[] = {
    {"Plain",          [](DOM::SlideProps&) {}, R"([{"hidden":false,"shapes":[]}])"               },
    {"Notes",          addNotes,                R"([{"hidden":false,"notes":"a\nb","shapes":[]}])"},
    {"NamedAndHidden", nameAndHide,             R"([{"hidden":true,"shapes":[],"name":"N"}])"     },
};

class SlideJson : public testing::TestWithParam<SlideRow>
{
};

TEST_P(SlideJson, KeepsRow)
{
    FilterRun run;
    Tests::appendSlide(run.getDocument(), makeSlideProps(GetParam().change));
    EXPECT_EQ(writePresentation(run), std::string(R"({"format":"pptx","masters":[],"layouts":[],"slides":)") +
                                          GetParam().json + R"(,"links":[],"media":[]})");
}

INSTANTIATE_TEST_SUITE_P(Rows, SlideJson, testing::ValuesIn(SlideRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SlideBackground, ComesFromTheNearestLayerThatSaysIt)
{
    const auto makeFill = [](DOM::ShapeFill fill) {
        DOM::ShapeProps props;
        props.setFill(std::move(fill));
        return std::make_shared<const DOM::ShapeProps>(props);
    };
    FilterRun run;
    DOM::Document& document = run.getDocument();
    DOM::NamedShapeStyle master;
    master.setName("M");
    master.setShapeProps(makeFill(DOM::SolidFill(makeColor(1, 2, 3))));
    const UUID layout = Tests::addShapeStyle(
        document, "L", document.getStyles().getShapeStyles().insert(std::move(master)).getUUID());
    Tests::setLayout(Tests::appendSlide(document), layout);
    DOM::Shape& own = Tests::appendSlide(document);
    Tests::setShapeProps(own, *makeFill(DOM::SolidFill(makeColor(4, 5, 6))));
    Tests::setLayout(own, layout);
    DOM::Shape& none = Tests::appendSlide(document);
    Tests::setShapeProps(none, *makeFill(DOM::NoFill()));
    Tests::setLayout(none, layout);
    const std::string json = writePresentation(run);
    EXPECT_EQ(json.substr(json.find("\"slides\"")),
        R"("slides":[{"layout":"L","hidden":false,"shapes":[],"background":"010203"},)"
        R"({"layout":"L","hidden":false,"shapes":[],"background":"040506"},)"
        R"({"layout":"L","hidden":false,"shapes":[]}],"links":[],"media":[]})");
}

// --- Shapes

// What every frame has that is neither turned nor placed.
#define PLAIN_PLACE R"("rotation":0.0,"flipHorizontal":false,"flipVertical":false)"

struct ShapeRow
{
    const char* name;
    std::function<void(DOM::Shape&)> change; ///< of a slide
    std::string json;
};

void PrintTo(const ShapeRow& row, std::ostream* out)
{
    *out << row.name;
}

std::unique_ptr<DOM::Shape> makeKind(DOM::Shape::Kind kind)
{
    auto shape = std::make_unique<DOM::Shape>();
    shape->setKind(kind);
    return shape;
}

std::unique_ptr<DOM::Shape> makeLooking(const std::function<void(DOM::ShapeProps&)>& change)
{
    auto shape = std::make_unique<DOM::Shape>();
    DOM::ShapeProps props;
    change(props);
    Tests::setShapeProps(*shape, props);
    return shape;
}

std::string makePlainShape(const std::string& members)
{
    return R"([{"kind":"shape",)" PLAIN_PLACE + members + "}]";
}

void appendPlaced(DOM::Shape& slide)
{
    DOM::Frame& frame = Tests::appendFrame(slide, makeKind(DOM::Shape::Kind::Drawn));
    frame.setName("Box");
    frame.setAnchor(DOM::AbsoluteAnchor({1.5F, -2}));
    frame.setExtent(Size2D<float>(30, 40));
    frame.setRotation(22.5F);
    frame.setFlippedHorizontally(true);
    frame.setFlippedVertically(true);
    frame.setSpatialRotation(std::array<float, 3>{-0.0F, 2.5F, -3});
    frame.setHidden(true);
    frame.setDescription("Told");
    frame.setHyperlink(std::make_shared<const DOM::Hyperlink>("https://example.org/", "a"));
}

void appendEndless(DOM::Shape& slide)
{
    constexpr float Endless = std::numeric_limits<float>::infinity();
    DOM::Frame& frame = Tests::appendFrame(slide, nullptr);
    frame.setAnchor(DOM::AbsoluteAnchor({Endless, std::numeric_limits<float>::quiet_NaN()}));
    frame.setExtent(Size2D<float>(Endless, 1));
    frame.setRotation(Endless);
    frame.setSpatialRotation(std::array<float, 3>{1, Endless, 3});
}

void appendEachKind(DOM::Shape& slide)
{
    for (const auto kind : {DOM::Shape::Kind::Drawn, DOM::Shape::Kind::Connector, DOM::Shape::Kind::Object})
        Tests::appendFrame(slide, makeKind(kind));
    Tests::appendFrame(slide, nullptr);
}

void appendPlaceholder(DOM::Shape& slide)
{
    auto shape = makeKind(DOM::Shape::Kind::Drawn);
    DOM::Placeholder room;
    room.type = "body";
    room.index = 12;
    shape->setPlaceholder(room);
    Tests::appendFrame(slide, std::move(shape));
}

void appendGroup(DOM::Shape& slide)
{
    auto group = makeKind(DOM::Shape::Kind::Group);
    Tests::appendFrame(*group, makeKind(DOM::Shape::Kind::Group));
    Tests::appendFrame(*group, makeKind(DOM::Shape::Kind::Drawn)).setAnchor(DOM::AbsoluteAnchor({1, 2}));
    Tests::appendFrame(slide, std::move(group));
}

void appendLooking(DOM::Shape& slide)
{
    Tests::appendFrame(slide, makeLooking([](DOM::ShapeProps& props) {
        auto geometry = std::make_shared<DOM::ShapeGeometry>();
        geometry->preset = "ooxml-ellipse";
        props.setGeometry(std::move(geometry));
        props.setFill(DOM::ShapeFill(DOM::SolidFill(makeColor(1, 2, 3, 4))));
        props.setLineFill(DOM::ShapeFill(DOM::SolidFill(makeColor(7, 8, 9))));
        props.setLineWidth(2.5F);
        props.setShadow(std::make_shared<const DOM::ShapeShadow>());
    }));
}

void appendUnfilled(DOM::Shape& slide)
{
    Tests::appendFrame(slide, makeLooking([](DOM::ShapeProps& props) {
        props.setGeometry(std::make_shared<const DOM::ShapeGeometry>());
        props.setFill(DOM::ShapeFill(DOM::SolidFill(makeColor(1, 2, 3, 0))));
        props.setLineFill(DOM::ShapeFill(DOM::NoFill()));
        props.setLineWidth(2.5F);
    }));
}

void appendShaded(DOM::Shape& slide)
{
    Tests::appendFrame(slide, makeLooking([](DOM::ShapeProps& props) {
        props.setFill(DOM::ShapeFill(DOM::GradientFill()));
        props.setLineFill(DOM::ShapeFill(DOM::GradientFill()));
    }));
}

void appendPictures(DOM::Shape& slide)
{
    auto picture = std::make_unique<DOM::Picture>("a.png", "image/png");
    DOM::RelativeRect crop;
    crop.left = 0.25F;
    crop.bottom = -0.5F;
    picture->setCrop(crop);
    DOM::ShapeProps props;
    props.setLineFill(DOM::ShapeFill(DOM::SolidFill(makeColor(7, 8, 9))));
    picture->setShapeProps(std::make_shared<const DOM::ShapeProps>(props));
    Tests::appendFrame(slide, std::move(picture));
    auto filled = makeLooking([](DOM::ShapeProps& own) {
        DOM::PictureFill fill;
        fill.mediaId = "b.png";
        own.setFill(DOM::ShapeFill(fill));
    });
    filled->setKind(DOM::Shape::Kind::Object);
    Tests::appendFrame(slide, std::move(filled));
}

void appendTable(DOM::Shape& slide)
{
    auto table = std::make_unique<DOM::Table>();
    const auto put = [&](unsigned long row, unsigned long column, const char* text) {
        table->getOrMakeCell(RowIndex(row), ColumnIndex(column)).setText(DOM::makePlainCellText(text));
    };
    put(0, 0, "wide");
    put(0, 1, "under");
    put(0, 2, "a\nb");
    put(1, 0, "tall");
    put(1, 1, "");
    put(2, 0, "under");
    table->getOrMakeCell(RowIndex(2), ColumnIndex(1));
    table->setMergeProps(RowIndex(0), ColumnIndex(0), 0, 1);
    table->setMergeProps(RowIndex(1), ColumnIndex(0), 1, 0);
    Tests::appendFrame(slide, std::move(table));
}

void appendChart(DOM::Shape& slide)
{
    auto chart = std::make_unique<DOM::ChartSpace>();
    chart->getPlotArea().appendChart(DOM::Chart(DOM::ChartType::Line));
    Tests::appendFrame(slide, std::move(chart)).setName("Totals");
}

const ShapeRow ShapeRows[] = {
    {"Placed",      appendPlaced,
     R"([{"name":"Box","kind":"shape","x":1.5,"y":-2.0,"width":30.0,"height":40.0,"rotation":22.5,)"
        R"("flipHorizontal":true,"flipVertical":true,"hyperlink":"https://example.org/#a","description":"Told",)"
        R"("hidden":true,"rotation3d":[0.0,2.5,-3.0]}])"                                                                },
    {"Endless",     appendEndless,
     R"([{"kind":"other","height":1.0,"flipHorizontal":false,"flipVertical":false}])"                                   },
    {"Kinds",       appendEachKind,
     R"([{"kind":"shape",)" PLAIN_PLACE R"(},{"kind":"connector",)" PLAIN_PLACE
        R"(},{"kind":"other",)" PLAIN_PLACE R"(},{"kind":"other",)" PLAIN_PLACE "}]"                                    },
    {"Placeholder", appendPlaceholder,
     R"([{"kind":"shape","placeholder":"body",)" PLAIN_PLACE R"(,"placeholderIndex":12}])"                              },
    {"Group",       appendGroup,
     R"([{"kind":"group",)" PLAIN_PLACE R"(,"children":[{"kind":"group",)" PLAIN_PLACE
        R"(,"children":[]},{"kind":"shape","x":1.0,"y":2.0,)" PLAIN_PLACE "}]}]"                                        },
    {"Looks",       appendLooking,
     makePlainShape(R"(,"geometry":"ooxml-ellipse","fill":"010203","line":{"width":2.5,"color":"070809"},)"
                       R"("shadow":true)")                                                                              },
    {"NoFills",     appendUnfilled,    makePlainShape(R"(,"geometry":"custom")")                                        },
    {"OtherFills",  appendShaded,      makePlainShape(R"(,"line":{})")                                                  },
    {"Pictures",    appendPictures,
     R"([{"kind":"picture",)" PLAIN_PLACE R"(,"media":"a.png","line":{"color":"070809"},)"
        R"("crop":{"left":0.25,"top":0.0,"right":0.0,"bottom":-0.5}},{"kind":"other",)" PLAIN_PLACE
        R"(,"media":"b.png"}])"                                                                                         },
    {"Table",       appendTable,
     R"([{"kind":"table",)" PLAIN_PLACE R"(,"rows":[["wide","a\nb"],["tall",""],[""]]}])"                               },
    {"Chart",       appendChart,       R"([{"name":"Totals","kind":"chart","type":"line","series":[],)" PLAIN_PLACE "}]"},
};

class SlideShapeJson : public testing::TestWithParam<ShapeRow>
{
};

TEST_P(SlideShapeJson, KeepsRow)
{
    EXPECT_EQ(
        writeShapes([](DOM::Shape& slide, DOM::Document&) { GetParam().change(slide); }), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(Rows, SlideShapeJson, testing::ValuesIn(ShapeRows),
    [](const auto& row) { return std::string(row.param.name); });

// --- Text

TEST(SlideTextJson, HasParagraphsWithLabelsAndRuns)
{
    const std::string json = writeShapes([](DOM::Shape& slide, DOM::Document& document) {
        auto list = std::make_shared<DOM::NumberedList>();
        Tests::appendLevel(*list, DOM::NumListMarkerType::Decimal, "%1.", 3);
        document.addNumberedList(list);
        std::vector<std::unique_ptr<DOM::Block>> blocks;
        DOM::RunProps bold;
        bold.setBold(true);
        auto item = Tests::makeParagraph("one", Tests::makeRunStyle(bold));
        Tests::setItem(*item, *list, 0);
        DOM::ParaProps props;
        props.setAlignment(DOM::HorizontalAlignment::Center);
        DOM::ParagraphStyle style;
        style.setParaProps(std::make_shared<const DOM::ParaProps>(props));
        item->setStyle(style);
        blocks.push_back(std::move(item));
        auto other = Tests::makeParagraph("two", Tests::makeLinkStyle("https://example.org/"));
        Tests::setItem(*other, *list, 0);
        blocks.push_back(std::move(other));
        blocks.push_back(Tests::makeParagraph());
        const DOM::SharedCellText text(new DOM::CellText(std::move(blocks)));
        Tests::appendFrame(slide, Tests::makeShape(text));
        Tests::appendFrame(slide, Tests::makeShape(text)); // counts anew
    });
    const std::string shape = R"({"kind":"shape",)" PLAIN_PLACE
                              R"(,"text":"one\ntwo\n","paragraphs":[{"text":"one","level":0,"label":"3.",)"
                              R"("alignment":"center","runs":[{"text":"one","bold":true}]},)"
                              R"({"text":"two","level":0,"label":"4.","runs":[{"text":"two",)"
                              R"("hyperlink":"https://example.org/"}]},{"text":"","level":0,"runs":[]}]})";
    EXPECT_EQ(json, "[" + shape + "," + shape + "]");
}

} // namespace
} // namespace QV::Filters
