#include <Filters/Preview/PresetGeometries.h>

#include <cmath>
#include <cstddef>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <Filters/Preview/GuideFormulas.h>
#include <Filters/Preview/ShapePath.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/Size2D.h>
#include <cinder/Vector.h>

namespace QV::Filters {
namespace {

using Kind = DOM::PathCommand::Kind;

std::vector<std::string> splitWords(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

// ECMA-376 Part 1, 20.1.10.56.
const std::vector<std::string> PresetTypes = splitWords(
    "line lineInv triangle rtTriangle rect diamond parallelogram trapezoid nonIsoscelesTrapezoid pentagon "
    "hexagon heptagon octagon decagon dodecagon star4 star5 star6 star7 star8 star10 star12 star16 star24 "
    "star32 roundRect round1Rect round2SameRect round2DiagRect snipRoundRect snip1Rect snip2SameRect "
    "snip2DiagRect plaque ellipse teardrop homePlate chevron pieWedge pie blockArc donut noSmoking "
    "rightArrow "
    "leftArrow upArrow downArrow stripedRightArrow notchedRightArrow bentUpArrow leftRightArrow upDownArrow "
    "leftUpArrow leftRightUpArrow quadArrow leftArrowCallout rightArrowCallout upArrowCallout "
    "downArrowCallout leftRightArrowCallout upDownArrowCallout quadArrowCallout bentArrow uturnArrow "
    "circularArrow leftCircularArrow curvedRightArrow curvedLeftArrow curvedUpArrow curvedDownArrow "
    "swooshArrow cube can lightningBolt heart sun moon smileyFace irregularSeal1 irregularSeal2 foldedCorner "
    "bevel frame halfFrame corner diagStripe chord arc leftBracket rightBracket leftBrace rightBrace "
    "bracketPair bracePair straightConnector1 bentConnector2 bentConnector3 bentConnector4 bentConnector5 "
    "curvedConnector2 curvedConnector3 curvedConnector4 curvedConnector5 callout1 callout2 callout3 "
    "accentCallout1 accentCallout2 accentCallout3 borderCallout1 borderCallout2 borderCallout3 "
    "accentBorderCallout1 accentBorderCallout2 accentBorderCallout3 wedgeRectCallout wedgeRoundRectCallout "
    "wedgeEllipseCallout cloudCallout cloud ribbon ribbon2 ellipseRibbon ellipseRibbon2 leftRightRibbon "
    "verticalScroll horizontalScroll wave doubleWave plus flowChartProcess flowChartDecision "
    "flowChartInputOutput flowChartPredefinedProcess flowChartInternalStorage flowChartDocument "
    "flowChartMultidocument flowChartTerminator flowChartPreparation flowChartManualInput "
    "flowChartManualOperation flowChartConnector flowChartPunchedCard flowChartPunchedTape "
    "flowChartSummingJunction flowChartOr flowChartCollate flowChartSort flowChartExtract flowChartMerge "
    "flowChartOfflineStorage flowChartOnlineStorage flowChartMagneticTape flowChartMagneticDisk "
    "flowChartMagneticDrum flowChartDisplay flowChartDelay flowChartAlternateProcess "
    "flowChartOffpageConnector actionButtonBlank actionButtonHome actionButtonHelp actionButtonInformation "
    "actionButtonForwardNext actionButtonBackPrevious actionButtonEnd actionButtonBeginning "
    "actionButtonReturn actionButtonDocument actionButtonSound actionButtonMovie funnel mathPlus mathMinus "
    "mathMultiply mathDivide mathEqual mathNotEqual cornerTabs squareTabs plaqueTabs chartX chartStar "
    "chartPlus");

class Preset : public testing::TestWithParam<std::string>
{
};

INSTANTIATE_TEST_SUITE_P(All, Preset, testing::ValuesIn(PresetTypes));

bool isKnownToEveryShape(const std::string& operand)
{
    // Guides at a size of 1 are 0 in the corner at the top left alone.
    return OfficeUtils::stringToDouble(operand) || operand == "l" || operand == "t" ||
           GuideFormulas(1, 1).evaluate(operand) != 0;
}

void expectResolved(const std::set<std::string>& names, const std::string& operand, const std::string& where)
{
    EXPECT_TRUE(names.count(operand) > 0 || isKnownToEveryShape(operand)) << operand << " in " << where;
}

std::size_t countOperands(Kind kind)
{
    const std::size_t counts[] = {2, 2, 4, 4, 6, 0};
    return counts[static_cast<std::size_t>(kind)];
}

const std::set<std::string> Operators = {"*/", "+-", "+/", "?:", "abs", "at2", "cat2", "cos", "max", "min",
    "mod", "pin", "sat2", "sin", "sqrt", "tan", "val"};

std::set<std::string> checkFormulas(const DOM::ShapeGeometry& geometry)
{
    std::set<std::string> names;
    for (const DOM::GeometryGuide& value : geometry.adjustValues) {
        EXPECT_TRUE(OfficeUtils::stringToDouble(value.formula.substr(4))) << value.formula;
        EXPECT_TRUE(names.insert("$" + value.name).second) << value.name << " is there twice";
    }
    for (const DOM::GeometryGuide& guide : geometry.guides) {
        const std::vector<std::string> words = splitWords(guide.formula);
        EXPECT_EQ(Operators.count(words.at(0)), 1U) << guide.formula;
        EXPECT_LE(words.size(), 4U) << guide.formula;
        for (std::size_t i = 1; i < words.size(); ++i)
            expectResolved(names, words[i], guide.formula);
        EXPECT_TRUE(names.insert("?" + guide.name).second) << guide.name << " is there twice";
    }
    return names;
}

TEST_P(Preset, RefersToNothingUnknown)
{
    const DOM::ShapeGeometry* const geometry = findPresetGeometry(GetParam());
    ASSERT_TRUE(geometry);
    const std::set<std::string> names = checkFormulas(*geometry);
    EXPECT_FALSE(geometry->paths.empty());
    for (const DOM::GeometryPath& path : geometry->paths) {
        ASSERT_FALSE(path.commands.empty());
        EXPECT_EQ(path.commands[0].kind, Kind::MoveTo);
        EXPECT_EQ(path.width > 0, path.height > 0);
        for (const DOM::PathCommand& command : path.commands) {
            EXPECT_EQ(command.operands.size(), countOperands(command.kind));
            for (const std::string& operand : command.operands)
                expectResolved(names, operand, "a path");
        }
    }
    for (const DOM::TextRectangle& rectangle : geometry->textRectangle)
        for (const auto& operand : {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom})
            expectResolved(names, operand, "the rectangle of the text");
}

/// The ends of commands, and control points; not the radii of arcs.
std::vector<cinder::Vec2<double>> readPoints(const std::string& data)
{
    std::vector<cinder::Vec2<double>> points;
    std::istringstream stream(data);
    char letter = 0;
    double skipped = 0;
    for (char next = 0; stream >> next;) {
        if (std::string("MLQCAZ").find(next) != std::string::npos) {
            letter = next;
            if (letter == 'A')
                stream >> skipped >> skipped >> skipped >> skipped >> skipped;
        } else {
            stream.unget();
        }
        if (letter == 'Z')
            continue;
        cinder::Vec2<double> point{0, 0};
        EXPECT_TRUE(stream >> point.x >> point.y) << data;
        points.push_back(point);
    }
    return points;
}

void expectNear(const DrawnOutline& outline, const Size2D<float>& size)
{
    const double width = size.getWidth();
    const double height = size.getHeight();
    for (const DrawnPath& path : outline.paths)
        for (const cinder::Vec2<double>& point : readPoints(path.data)) {
            EXPECT_TRUE(-0.7 * width <= point.x && point.x <= 1.7 * width) << point.x << " of " << width;
            EXPECT_TRUE(-0.7 * height <= point.y && point.y <= 1.7 * height) << point.y << " of " << height;
        }
}

TEST_P(Preset, StaysAboutItsBox)
{
    DOM::ShapeGeometry geometry;
    geometry.preset = "ooxml-" + GetParam();
    for (const Size2D<float>& size :
        {Size2D<float>(90, 70), Size2D<float>(70, 110), Size2D<float>(100, 100), Size2D<float>(300, 100)}) {
        const DrawnOutline outline = drawOutline(&geometry, size);
        expectNear(outline, size);
        const DrawnBox& box = outline.textBox;
        EXPECT_GE(box.offset.x, -0.01F);
        EXPECT_GE(box.offset.y, -0.01F);
        EXPECT_GT(box.extent.getWidth(), 0);
        EXPECT_GT(box.extent.getHeight(), 0);
        EXPECT_LE(box.offset.x + box.extent.getWidth(), size.getWidth() + 0.01F);
        EXPECT_LE(box.offset.y + box.extent.getHeight(), size.getHeight() + 0.01F);
    }
}

TEST_P(Preset, HasNoSizeWhereTheShapeHasNone)
{
    DOM::ShapeGeometry geometry;
    geometry.preset = "ooxml-" + GetParam();
    for (const Size2D<float>& size : {Size2D<float>(0, 0), Size2D<float>(100, 0), Size2D<float>(0, 100)})
        for (const DrawnPath& path : drawOutline(&geometry, size).paths)
            for (const cinder::Vec2<double>& point : readPoints(path.data)) {
                EXPECT_LE(std::abs(point.x), 170);
                EXPECT_LE(std::abs(point.y), 170);
            }
}

TEST_P(Preset, IsFiniteAtAnyAdjustValues)
{
    const DOM::ShapeGeometry* const preset = findPresetGeometry(GetParam());
    ASSERT_TRUE(preset);
    for (const char* const formula :
        {"val 0", "val -1000000", "val 21600000", "val 2147483647", "val 1e300"}) {
        DOM::ShapeGeometry geometry;
        geometry.preset = "ooxml-" + GetParam();
        geometry.adjustValues = preset->adjustValues;
        for (DOM::GeometryGuide& value : geometry.adjustValues)
            value.formula = formula;
        for (const DrawnPath& path : drawOutline(&geometry, {90, 70}).paths)
            for (const cinder::Vec2<double>& point : readPoints(path.data))
                EXPECT_TRUE(std::abs(point.x) <= 1e6 && std::abs(point.y) <= 1e6) << formula;
    }
}

/// The arc inside goes back to the angle at which the one outside begins, whatever the arrow's head does.
TEST(CircularArrow, EndsAtItsInnerRadiusForAnyAngles)
{
    DOM::ShapeGeometry geometry;
    geometry.adjustValues.resize(2);
    geometry.adjustValues[0].name = "adj3";
    geometry.adjustValues[1].name = "adj4";
    for (const char* const type : {"ooxml-circularArrow", "ooxml-leftCircularArrow"})
        for (int end = 0; end < 12; ++end)
            for (int start = 0; start < 12; ++start) {
                geometry.preset = type;
                geometry.adjustValues[0].formula = "val " + std::to_string(end * 1800000 + 300000);
                geometry.adjustValues[1].formula = "val " + std::to_string(start * 1800000);
                const auto points = readPoints(drawOutline(&geometry, {100, 100}).paths.at(0).data);
                const double angle = start * 0.5235987755982988;
                // 50, less a head of half of 25, and half of the band's 12.5 out and in
                EXPECT_NEAR(points.front().x, 50 + 43.75 * std::cos(angle), 0.01) << type << end << start;
                EXPECT_NEAR(points.back().x, 50 + 31.25 * std::cos(angle), 0.01) << type << end << start;
                EXPECT_NEAR(points.back().y, 50 + 31.25 * std::sin(angle), 0.01) << type << end << start;
            }
}

TEST(FindPresetGeometry, KnowsNoOthers)
{
    for (const char* const type : {"", "Rect", "ooxml-rect", "@ellipse", "@inEllipse", "gear5"})
        EXPECT_EQ(findPresetGeometry(type), nullptr) << type;
}

TEST(FindPresetGeometry, GivesMarkedNames)
{
    const DOM::ShapeGeometry* const geometry = findPresetGeometry("roundRect");
    ASSERT_TRUE(geometry);
    EXPECT_EQ(geometry->preset, "");
    ASSERT_EQ(geometry->adjustValues.size(), 1U);
    EXPECT_EQ(geometry->adjustValues[0].name, "adj");
    EXPECT_EQ(geometry->adjustValues[0].formula, "val 16667");
    ASSERT_GE(geometry->guides.size(), 2U);
    EXPECT_EQ(geometry->guides[0].name, "a");
    EXPECT_EQ(geometry->guides[0].formula, "pin 0 $adj 50000");
    EXPECT_EQ(geometry->guides[1].formula, "*/ ss ?a 100000");
}

TEST(FindPresetGeometry, ServesThreadsAtOnce)
{
    std::vector<const DOM::ShapeGeometry*> found(4);
    std::vector<std::thread> threads;
    for (auto& geometry : found)
        threads.emplace_back([&geometry] { geometry = findPresetGeometry("cloud"); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(found[0]);
    EXPECT_EQ(found, std::vector<const DOM::ShapeGeometry*>(4, found[0]));
}

} // namespace
} // namespace QV::Filters
