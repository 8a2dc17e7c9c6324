#include <Filters/ModelJson/FramesJson.h>

#include <functional>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Formulas/Public/TableContext.h>

#include <Tests/Support/FrameBuilder.h>

namespace QV::Filters {
namespace {

/// The array of frames of a table whose columns and rows are 10 points, without blanks.
std::string writeFrame(DOM::Frame frame)
{
    DOM::Table table;
    table.setDefaultColumnWidth(10);
    table.setDefaultRowHeight(10);
    table.appendFrame(std::make_unique<DOM::Frame>(std::move(frame)));
    std::ostringstream out;
    {
        JsonWriter json(out);
        writeFramesJson(table, Formulas::TableContext(), json);
    }
    std::string text;
    for (const char c : out.str())
        if (c != ' ' && c != '\n')
            text += c;
    return text;
}

struct FrameRow
{
    const char* name;
    std::function<void(DOM::Frame&)> change;
    const char* json;
};

void PrintTo(const FrameRow& row, std::ostream* out)
{
    *out << row.name;
}

std::unique_ptr<DOM::Shape> makeShape()
{
    auto shape = std::make_unique<DOM::Shape>();
    shape->setPresetGeometry("ooxml-ellipse");
    shape->setFillColor(DOM::Color(DOM::Color::RGBA(1, 2, 3, 4)));
    shape->setText(DOM::makePlainCellText("a\nb"));
    return shape;
}

std::unique_ptr<DOM::Shape> makeGroup()
{
    auto group = std::make_unique<DOM::Shape>();
    auto child = std::make_unique<DOM::Frame>(makeFrame(makeAbsolute(1, 2), Size2D<float>(3, 4)));
    child->setGraphicalObject(std::make_unique<DOM::Shape>());
    group->appendChild(std::move(child));
    return group;
}

const FrameRow FrameRows[] = {
    {"Empty",            [](DOM::Frame&) {},                                                       R"([{"kind":"other","anchor":{"type":"text"}}])"                                         },
    {"Picture",
     [](DOM::Frame& frame) {
            frame.setGraphicalObject(std::make_unique<DOM::Picture>("a.png", "image/png"));
        },                                                                                         R"([{"kind":"picture","media":"a.png","mimeType":"image/png","anchor":{"type":"text"}}])"},
    {"PictureOfAnyType",
     [](DOM::Frame& frame) { frame.setGraphicalObject(std::make_unique<DOM::Picture>("a", "")); },
     R"([{"kind":"picture","media":"a","anchor":{"type":"text"}}])"                                                                                                                         },
    {"Shape",            [](DOM::Frame& frame) { frame.setGraphicalObject(makeShape()); },
     R"([{"kind":"shape","geometry":"ooxml-ellipse","fill":"010203","text":"a\nb","anchor":{"type":"text"}}])"                                                                              },
    {"Group",            [](DOM::Frame& frame) { frame.setGraphicalObject(makeGroup()); },
     R"([{"kind":"group","anchor":{"type":"text"},"children":[{"kind":"shape",)"
        R"("anchor":{"type":"absolute","x":1.0,"y":2.0},"absolute":{"x":1.0,"y":2.0,"width":3.0,"height":4.0}}]}])"                                                                         },
    {"AbsoluteAnchor",   [](DOM::Frame& frame) { frame.setAnchor(makeAbsolute(1.5F, -2)); },
     R"([{"kind":"other","anchor":{"type":"absolute","x":1.5,"y":-2.0},"absolute":{"x":1.5,"y":-2.0}}])"                                                                                    },
    {"OneCellAnchor",
     [](DOM::Frame& frame) {
            frame.setAnchor(makeOneCell(makeOffset(1, 2, 3, 4), {5, 6}));
        },                                                                                         R"([{"kind":"other","anchor":{"type":"oneCell","from":{"ref":"B4","x":2.0,"y":4.0}},)"
        R"("absolute":{"x":12.0,"y":34.0,"width":5.0,"height":6.0}}])"                                                                                                            },
    {"TwoCellAnchor",
     [](DOM::Frame& frame) {
            frame.setAnchor(makeTwoCell(makeOffset(0, 1, 0, 2), makeOffset(1, 0, 2, 0)));
        },                                                                                         R"([{"kind":"other","anchor":{"type":"twoCell","from":{"ref":"A1","x":1.0,"y":2.0},)"
        R"("to":{"ref":"B3","x":0.0,"y":0.0}},"absolute":{"x":1.0,"y":2.0,"width":9.0,"height":18.0}}])"                                                                          },
    {"NameAndTurn",
     [](DOM::Frame& frame) {
            frame.setName("Box");
            frame.setRotation(22.5F);
            frame.setFlippedHorizontally(true);
            frame.setFlippedVertically(true);
        },                                                                                         R"([{"kind":"other","name":"Box","anchor":{"type":"text"},"rotation":22.5,)"
        R"("flipHorizontal":true,"flipVertical":true}])"                                                                                                                          },
};

class FramesJson : public testing::TestWithParam<FrameRow>
{
};

TEST_P(FramesJson, KeepsRow)
{
    DOM::Frame frame;
    GetParam().change(frame);
    EXPECT_EQ(writeFrame(frame), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(Rows, FramesJson, testing::ValuesIn(FrameRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FramesJsonOfAChart, HasTheChartAndItsPlace)
{
    auto chart = std::make_unique<DOM::ChartSpace>();
    chart->getPlotArea().appendChart(DOM::Chart(DOM::ChartType::Line));
    DOM::Frame frame;
    frame.setName("Totals");
    frame.setAnchor(DOM::AbsoluteAnchor({1, 2}));
    frame.setExtent(Size2D<float>(3, 4));
    frame.setGraphicalObject(std::move(chart));
    EXPECT_EQ(writeFrame(frame),
        R"([{"kind":"chart","type":"line","series":[],"name":"Totals",)"
        R"("anchor":{"type":"absolute","x":1.0,"y":2.0},"absolute":{"x":1.0,"y":2.0,"width":3.0,"height":4.0}}])");
}

TEST(FramesJsonOfATableWithoutFrames, IsAnEmptyArray)
{
    std::ostringstream out;
    {
        JsonWriter json(out);
        writeFramesJson(DOM::Table(), Formulas::TableContext(), json);
    }
    EXPECT_EQ(out.str(), "[]\n");
}

} // namespace
} // namespace QV::Filters
