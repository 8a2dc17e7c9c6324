#include <Filters/Package/GeometryReader.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Utils/Public/OperationReport.h>

#include <Tests/Support/DrawingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Tests::listMessages;
using Tests::parseDrawing;

void append(std::string& text, const std::string& part)
{
    text += text.empty() ? part : "; " + part;
}

std::string describePath(const DOM::GeometryPath& path)
{
    static const char letters[] = {'M', 'L', 'A', 'Q', 'C', 'Z'};
    static const char* const fillings[] = {"", " none", " lighten", " lightenLess", " darken", " darkenLess"};
    std::string text = fmt::format("path {} {}{}{}", path.width, path.height,
        fillings[static_cast<int>(path.filling)], path.isStroked ? "" : " unstroked");
    for (const DOM::PathCommand& command : path.commands) {
        text += std::string(" ") + letters[static_cast<int>(command.kind)];
        for (const std::string& operand : command.operands)
            text += " " + operand;
    }
    return text;
}

std::string describeGeometry(const std::shared_ptr<const DOM::ShapeGeometry>& geometry)
{
    if (!geometry)
        return "null";
    std::string text = geometry->preset;
    for (const DOM::GeometryGuide& guide : geometry->adjustValues)
        append(text, "av " + guide.name + " = " + guide.formula);
    for (const DOM::GeometryGuide& guide : geometry->guides)
        append(text, "gd " + guide.name + " = " + guide.formula);
    for (const DOM::ConnectionSite& site : geometry->connectionSites)
        append(text, "cxn " + site.x + " " + site.y + " " + site.angle);
    for (const DOM::TextRectangle& rect : geometry->textRectangle)
        append(text, "rect " + rect.left + " " + rect.top + " " + rect.right + " " + rect.bottom);
    for (const DOM::GeometryPath& path : geometry->paths)
        append(text, describePath(path));
    return text;
}

struct GeometryRow
{
    const char* name;
    std::string content;
    std::string geometry;
    const char* message; // null for none
};

void PrintTo(const GeometryRow& row, std::ostream* out)
{
    *out << row.content;
}

GeometryRow makeGeometryRow(
    const char* name, const std::string& content, const std::string& geometry, const char* message)
{
    return {name, content, geometry, message};
}

std::string makeCustom(const std::string& content)
{
    return "<a:custGeom>" + content + "</a:custGeom>";
}

std::string makeGuide(const std::string& name, const std::string& formula)
{
    return "<a:gd name='" + name + "' fmla='" + formula + "'/>";
}

std::string makeGuides(const std::string& guides)
{
    return makeCustom("<a:gdLst>" + guides + "</a:gdLst>");
}

std::string makePath(const std::string& commands, const std::string& attributes = {})
{
    return makeCustom("<a:pathLst><a:path " + attributes + ">" + commands + "</a:path></a:pathLst>");
}

const GeometryRow GeometryRows[] = {
    makeGeometryRow("Nothing", "<a:noFill/>", "null", nullptr),
    makeGeometryRow("Preset", "<a:prstGeom prst='roundRect'/>", "ooxml-roundRect", nullptr),
    makeGeometryRow("NoPreset", "<a:prstGeom prst=''/>", "null", nullptr),
    makeGeometryRow("AdjustedPreset",
        "<a:prstGeom prst='star5'><a:avLst>" + makeGuide("adj", "val 12") + "</a:avLst></a:prstGeom>",
        "ooxml-star5; av adj = val 12", nullptr),
    makeGeometryRow("MarkedNames",
        makeCustom("<a:avLst>" + makeGuide("a", "val 5") + "</a:avLst><a:gdLst>" +
                   makeGuide("x", "*/ w a 100") + makeGuide("y", "?: x z b") + makeGuide("z", "+- hc 0 x") +
                   "</a:gdLst>"),
        "av a = val 5; gd x = */ w $a 100; gd y = ?: ?x ?z b; gd z = +- hc 0 ?x", nullptr),
    makeGeometryRow("AdjustValueBeforeGuide",
        makeCustom("<a:avLst>" + makeGuide("a", "val 5") + "</a:avLst><a:gdLst>" + makeGuide("a", "val a") +
                   "</a:gdLst>"),
        "av a = val 5; gd a = val $a", nullptr),
    makeGeometryRow("Blanks", makeGuides(makeGuide("x", "  max   1\t2 ")), "gd x = max 1 2", nullptr),
    makeGeometryRow("UnknownOperation", makeGuides(makeGuide("x", "log 1") + makeGuide("y", "val x")),
        "gd y = val x", "Outline of a drawing has a bad formula log 1"),
    makeGeometryRow("TooFewOperands", makeGuides(makeGuide("x", "max 1")), "",
        "Outline of a drawing has a bad formula max 1"),
    makeGeometryRow("TooManyOperands", makeGuides(makeGuide("x", "abs 1 2")), "",
        "Outline of a drawing has a bad formula abs 1 2"),
    makeGeometryRow(
        "NoFormula", makeGuides("<a:gd name='x'/>"), "", "Outline of a drawing has a bad formula "),
    makeGeometryRow(
        "NoName", makeGuides(makeGuide("", "val 1")), "", "Outline of a drawing has a bad formula val 1"),
    makeGeometryRow("Site", makeCustom("<a:cxnLst><a:cxn ang='cd4'><a:pos x='hc' y='0'/></a:cxn></a:cxnLst>"),
        "cxn hc 0 cd4", nullptr),
    makeGeometryRow("SiteWithoutAngle",
        makeCustom("<a:cxnLst><a:cxn><a:pos x='hc' y='0'/></a:cxn></a:cxnLst>"), "",
        "Outline of a drawing has a bad coordinate "),
    makeGeometryRow(
        "TextRectangle", makeCustom("<a:rect l='l' t='1' r='r' b='vc'/>"), "rect l 1 r vc", nullptr),
    makeGeometryRow("TextRectangleWithoutAnEdge", makeCustom("<a:rect l='l' t='' r='r' b='vc'/>"), "",
        "Outline of a drawing has a bad coordinate "),
    makeGeometryRow("Commands",
        makePath("<a:moveTo><a:pt x='0' y='1'/></a:moveTo><a:lnTo><a:pt x='w' y='-2'/></a:lnTo>"
                 "<a:arcTo wR='3' hR='4' stAng='cd4' swAng='-5'/><a:quadBezTo><a:pt x='1' y='2'/>"
                 "<a:pt x='3' y='4'/></a:quadBezTo><a:cubicBezTo><a:pt x='1' y='2'/><a:pt x='3' y='4'/>"
                 "<a:pt x='5' y='6'/></a:cubicBezTo><a:close/>"),
        "path 0 0 M 0 1 L w -2 A 3 4 cd4 -5 Q 1 2 3 4 C 1 2 3 4 5 6 Z", nullptr),
    makeGeometryRow("PathAttributes", makePath("", "w='100' h='2.5' fill='darkenLess' stroke='0'"),
        "path 100 2.5 darkenLess unstroked", nullptr),
    makeGeometryRow(
        "OtherPathAttributes", makePath("", "fill='none' stroke='true'"), "path 0 0 none", nullptr),
    makeGeometryRow("UnknownFilling", makePath("", "fill='glitter'"), "path 0 0", nullptr),
    makeGeometryRow("LargestPath", makePath("", "w='27273042316900'"), "path 27273042316900 0", nullptr),
    makeGeometryRow("TooLargePath", makePath("", "w='27273042316901'"), "path 0 0",
        "Outline of a drawing has a bad coordinate 27273042316901"),
    makeGeometryRow(
        "NegativePath", makePath("", "h='-1'"), "path 0 0", "Outline of a drawing has a bad coordinate -1"),
    makeGeometryRow("UnknownCommand", makePath("<a:jumpTo/><a:close/>"), "path 0 0 Z",
        "Outline of a drawing has a bad command jumpTo"),
    makeGeometryRow("TooFewPoints", makePath("<a:quadBezTo><a:pt x='1' y='2'/></a:quadBezTo>"), "path 0 0",
        "Outline of a drawing has a bad command quadBezTo"),
    makeGeometryRow("TooManyPoints", makePath("<a:lnTo><a:pt x='1' y='2'/><a:pt x='1' y='2'/></a:lnTo>"),
        "path 0 0", "Outline of a drawing has a bad command lnTo"),
    makeGeometryRow("NoCoordinate", makePath("<a:lnTo><a:pt x='1'/></a:lnTo>"), "path 0 0",
        "Outline of a drawing has a bad coordinate "),
    makeGeometryRow("NoArcRadius", makePath("<a:arcTo wR='3' stAng='0' swAng='0'/>"), "path 0 0",
        "Outline of a drawing has a bad coordinate "),
};

class ReadGeometry : public testing::TestWithParam<GeometryRow>
{
};

TEST_P(ReadGeometry, KeepsRow)
{
    const GeometryRow& row = GetParam();
    for (const bool isStrict : {false, true}) {
        OperationReport report;
        EXPECT_EQ(describeGeometry(readGeometry(parseDrawing(row.content, isStrict), report)), row.geometry);
        const auto messages =
            row.message ? std::vector<std::string>{row.message} : std::vector<std::string>();
        EXPECT_THAT(listMessages(report), ElementsAreArray(messages));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadGeometry, testing::ValuesIn(GeometryRows),
    [](const auto& row) { return std::string(row.param.name); });

std::string repeat(const std::string& text, std::size_t count)
{
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(ReadOutline, EndsLongLists)
{
    OperationReport report;
    const std::string guide = makeGuide("x", "val 1");
    EXPECT_EQ(readGeometry(parseDrawing(makeGuides(repeat(guide, 10'000))), report)->guides.size(), 10'000U);
    const std::string commands = repeat("<a:close/>", 99'999);
    const auto path = readGeometry(parseDrawing(makePath(commands)), report)->paths.at(0);
    EXPECT_EQ(path.commands.size(), 99'999U);
    EXPECT_THAT(listMessages(report), IsEmpty());

    EXPECT_EQ(readGeometry(parseDrawing(makeGuides(repeat(guide, 10'002))), report)->guides.size(), 10'000U);
    const auto cut = readGeometry(parseDrawing(makePath(commands + "<a:close/><a:close/>")), report);
    EXPECT_EQ(cut->paths.at(0).commands.size(), 99'999U);
    EXPECT_THAT(listMessages(report), ElementsAre("Outline of a drawing has more than 10000 guides",
                                          "Outline of a drawing has more than 100000 commands"));
}

TEST(ReadOutline, RefusesLongTexts)
{
    OperationReport report;
    const std::string longest = "val " + std::string(1020, '1');
    EXPECT_EQ(readGeometry(parseDrawing(makeGuides(makeGuide("x", longest))), report)->guides.size(), 1U);
    EXPECT_THAT(listMessages(report), IsEmpty());
    const auto geometry = readGeometry(parseDrawing(makeGuides(makeGuide("x", longest + '1'))), report);
    EXPECT_THAT(geometry->guides, IsEmpty());
    EXPECT_THAT(listMessages(report), ElementsAre("Outline of a drawing has a bad formula " + longest));
}

TEST(ReadOutline, TellsAThousandTroublesOfAKind)
{
    OperationReport report;
    readGeometry(parseDrawing(makePath(repeat("<a:hop/>", 1003))), report);
    ASSERT_EQ(report.getMessages().size(), 1001U);
    EXPECT_EQ(
        report.getMessages().back().toString(), "3 more times: Outline of a drawing has a bad command {}");
}

} // namespace
} // namespace QV::Filters
