#include <Filters/Package/DrawingFormats.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Filters/Package/DrawingLeftOut.h>
#include <Filters/Package/FilterRun.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/DrawingFixture.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Tests::describe;
using Tests::listMessages;
using Tests::parseDrawing;

const std::string Red = "<a:srgbClr val='FF0000'/>";
const std::string Blue = "<a:srgbClr val='0000FF'/>";

/// A row: what stands in an element, what becomes of it, and the only message; or null for none.
struct FormatRow
{
    const char* name;
    std::string content;
    std::string result;
    const char* message;
};

void PrintTo(const FormatRow& row, std::ostream* out)
{
    *out << row.content;
}

FormatRow makeFormatRow(
    const char* name, const std::string& content, const std::string& result, const char* message)
{
    return {name, content, result, message};
}

class DrawingFormatRows : public Tests::DrawingFixture, public testing::WithParamInterface<FormatRow>
{
protected:
    void expectMessage() const
    {
        const char* const message = GetParam().message;
        const auto messages = message ? std::vector<std::string>{message} : std::vector<std::string>();
        EXPECT_THAT(listMessages(run.getReport()), ElementsAreArray(messages));
    }
};

std::string makeGradient(const std::string& more, const std::string& attributes = {})
{
    return "<a:gradFill " + attributes + "><a:gsLst><a:gs pos='100000'>" + Blue + "</a:gs><a:gs pos='0'>" +
           Red + "</a:gs></a:gsLst>" + more + "</a:gradFill>";
}

std::string makeBlipFill(const std::string& more, const std::string& effects = {})
{
    return "<a:blipFill><a:blip r:embed='p'>" + effects + "</a:blip>" + more + "</a:blipFill>";
}

std::string makePattern(const std::string& name)
{
    return "<a:pattFill prst='" + name + "'><a:fgClr>" + Red + "</a:fgClr><a:bgClr>" + Blue +
           "</a:bgClr></a:pattFill>";
}

const FormatRow FillRows[] = {
    makeFormatRow("Nothing", "<a:ln/>", "nothing", nullptr),
    makeFormatRow("No", "<a:noFill/>", "none", nullptr),
    makeFormatRow("Solid", "<a:solidFill>" + Red + "</a:solidFill>", "FF0000", nullptr),
    makeFormatRow("SolidWithoutColor", "<a:solidFill/>", "nothing", nullptr),
    makeFormatRow("Linear", makeGradient("<a:lin ang='2700000' scaled='1'/>"),
        "linear 45 scaled 0:FF0000 1:0000FF", nullptr),
    makeFormatRow("LinearByDefault", makeGradient("", "rotWithShape='0'"),
        "linear 0 upright 0:FF0000 1:0000FF", nullptr),
    makeFormatRow("Circle",
        makeGradient("<a:path path='circle'><a:fillToRect l='50000' t='10%' r='-50000' b='90%'/></a:path>"),
        "circle (0.5 0.1 -0.5 0.9) 0:FF0000 1:0000FF", nullptr),
    makeFormatRow(
        "Shape", makeGradient("<a:path path='shape'/>"), "shape (0 0 0 0) 0:FF0000 1:0000FF", nullptr),
    makeFormatRow(
        "Rectangle", makeGradient("<a:path path='rect'/>"), "rectangle (0 0 0 0) 0:FF0000 1:0000FF", nullptr),
    makeFormatRow("UnknownPath", makeGradient("<a:path path='star'/>"),
        "rectangle (0 0 0 0) 0:FF0000 1:0000FF", "Unknown gradient star"),
    makeFormatRow("MirroredGradient", makeGradient("", "flip='x'"), "linear 0 0:FF0000 1:0000FF",
        "Left out: mirrored and repeated gradients"),
    makeFormatRow("WholeTile", makeGradient("<a:tileRect/>"), "linear 0 0:FF0000 1:0000FF", nullptr),
    makeFormatRow("StopsBeyond",
        "<a:gradFill><a:gsLst><a:gs pos='-5'>" + Red + "</a:gs><a:gs pos='200000'>" + Blue +
            "</a:gs><a:gs pos='50000'/></a:gsLst></a:gradFill>",
        "linear 0 0:FF0000 1:0000FF", nullptr),
    makeFormatRow("NoStops", "<a:gradFill><a:gsLst/></a:gradFill>", "nothing", nullptr),
    makeFormatRow("Pattern", makePattern("dkUpDiag"), "dkUpDiag FF0000 0000FF", nullptr),
    makeFormatRow("PatternWithoutColors", "<a:pattFill prst='pct5'/>", "pct5 000000 FFFFFF", nullptr),
    makeFormatRow("UnknownPattern", makePattern("stripes"), "nothing", "Unknown pattern stripes"),
    makeFormatRow("GroupWithoutFill", "<a:grpFill/>", "none", nullptr),
    makeFormatRow("Picture", makeBlipFill("<a:stretch/>"),
        "picture id2.png image/png (0 0 0 0) stretched (0 0 0 0)", nullptr),
    makeFormatRow("CroppedPicture",
        makeBlipFill("<a:srcRect l='10000' b='20%'/><a:stretch><a:fillRect r='-50000'/></a:stretch>"),
        "picture id2.png image/png (0.1 0 0 0.2) stretched (0 0 -0.5 0)", nullptr),
    makeFormatRow("TiledPicture",
        makeBlipFill("<a:tile tx='12700' ty='-25400' sx='50000' sy='200000' algn='tl'/>"),
        "picture id2.png image/png (0 0 0 0) tiled 0.5 2 1 -2", nullptr),
    makeFormatRow("MirroredPicture", makeBlipFill("<a:tile flip='xy'/>"),
        "picture id2.png image/png (0 0 0 0) tiled 1 1 0 0",
        "Left out: mirrored and aligned tiles of pictures"),
    makeFormatRow("OpacityOfAPicture", makeBlipFill("", "<a:alphaModFix amt='25000'/><a:extLst/>"),
        "picture id2.png image/png (0 0 0 0) opacity 0.25 stretched (0 0 0 0)", nullptr),
    makeFormatRow("DuotonePicture", makeBlipFill("", "<a:duotone>" + Red + Blue + "</a:duotone>"),
        "picture id2.png image/png (0 0 0 0) duotone FF0000 duotone 0000FF stretched (0 0 0 0)", nullptr),
    makeFormatRow("DuotoneOfThree", makeBlipFill("", "<a:duotone>" + Red + Blue + Red + "</a:duotone>"),
        "picture id2.png image/png (0 0 0 0) duotone FF0000 duotone 0000FF stretched (0 0 0 0)", nullptr),
    makeFormatRow("DuotoneOfOne", makeBlipFill("", "<a:duotone>" + Red + "</a:duotone>"),
        "picture id2.png image/png (0 0 0 0) stretched (0 0 0 0)",
        "Left out: effects on pictures (recoloring, brightness and the like)"),
    makeFormatRow("RecoloredPicture", makeBlipFill("", "<a:grayscl/>"),
        "picture id2.png image/png (0 0 0 0) stretched (0 0 0 0)",
        "Left out: effects on pictures (recoloring, brightness and the like)"),
    makeFormatRow("MissingPicture", "<a:blipFill><a:blip r:embed='x'/></a:blipFill>", "nothing",
        "Picture x is missing"),
    makeFormatRow("NoPicture", "<a:blipFill/>", "nothing", nullptr),
};

class ReadFill : public DrawingFormatRows
{
};

TEST_P(ReadFill, KeepsRow)
{
    EXPECT_EQ(describe(readFill(parseDrawing(GetParam().content), scope)), GetParam().result);
    expectMessage();
}

TEST_P(ReadFill, KeepsRowInTheStrictDialect)
{
    EXPECT_EQ(describe(readFill(parseDrawing(GetParam().content, true), scope)), GetParam().result);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReadFill, testing::ValuesIn(FillRows), [](const auto& row) { return std::string(row.param.name); });

/// What is set, in order.
std::string describeProps(const DOM::ShapeProps& props)
{
    std::string text;
    const auto add = [&](const std::string& part) { text += text.empty() ? part : "; " + part; };
    const auto addEnd = [&](const char* name, const boost::optional<DOM::LineEnd>& end) {
        if (end)
            add(fmt::format("{} {} {} {}", name, static_cast<int>(end->kind), static_cast<int>(end->width),
                static_cast<int>(end->length)));
    };
    if (props.getFill())
        add("fill " + describe(props.getFill()));
    if (props.getLineFill())
        add("line " + describe(props.getLineFill()));
    if (props.getLineWidth())
        add(fmt::format("width {}", *props.getLineWidth()));
    if (props.getLineDash())
        add(fmt::format("dash {}", static_cast<int>(*props.getLineDash())));
    if (props.getLineCap())
        add(fmt::format("cap {}", static_cast<int>(*props.getLineCap())));
    if (props.getLineJoin())
        add(fmt::format("join {}", static_cast<int>(*props.getLineJoin())));
    addEnd("head", props.getLineHead());
    addEnd("tail", props.getLineTail());
    if (const auto& shadow = props.getShadow())
        add(fmt::format("shadow {} {} {} {}{}{}", describe(shadow->color), shadow->blur, shadow->distance,
            shadow->direction, shadow->isInner ? " inner" : "", shadow->turnsWithShape ? "" : " upright"));
    if (props.getGeometry())
        add(props.getGeometry()->preset);
    return text;
}

std::string makeLine(const std::string& content, const std::string& attributes = {})
{
    return "<a:ln " + attributes + ">" + content + "</a:ln>";
}

std::string makeEffects(const std::string& content)
{
    return "<a:effectLst>" + content + "</a:effectLst>";
}

const FormatRow PropsRows[] = {
    makeFormatRow("Nothing", "", "", nullptr),
    makeFormatRow("EmptyLine", makeLine(""), "", nullptr),
    makeFormatRow("Line", makeLine("<a:solidFill>" + Red + "</a:solidFill>", "w='6350' cap='rnd'"),
        "line FF0000; width 0.5; cap 1", nullptr),
    makeFormatRow("NoLine", makeLine("<a:noFill/>", "cap='sq'"), "line none; cap 2", nullptr),
    makeFormatRow("WidestLine", makeLine("", "w='20116800'"), "width 1584", nullptr),
    makeFormatRow("TooWideLine", makeLine("", "w='20129500'"), "width 1584", nullptr),
    makeFormatRow("NegativeLine", makeLine("", "w='-1'"), "width 0", nullptr),
    makeFormatRow("BadWidth", makeLine("", "w='x1'"), "", "Drawing coordinate x1 is none"),
    makeFormatRow("BadCap", makeLine("", "cap='hat'"), "", "Unknown line property hat"),
    makeFormatRow("DoubleLine", makeLine("", "cmpd='dbl'"), "", "Left out: lines of several strokes"),
    makeFormatRow("SingleLine", makeLine("", "cmpd='sng'"), "", nullptr),
    makeFormatRow("Dash", makeLine("<a:prstDash val='sysDashDotDot'/>"), "dash 10", nullptr),
    makeFormatRow("Solid", makeLine("<a:prstDash val='solid'/>"), "dash 0", nullptr),
    makeFormatRow("CustomDashLikeAPreset",
        makeLine("<a:custDash><a:ds d='800000' sp='300000'/></a:custDash>"), "dash 3", nullptr),
    makeFormatRow("CustomDash",
        makeLine("<a:custDash><a:ds d='350%' sp='280%'/><a:ds d='120%' sp='3'/></a:custDash>"), "dash 2",
        "Left out: exact lengths of dashes"),
    makeFormatRow("EmptyCustomDash", makeLine("<a:custDash/>"), "dash 0", nullptr),
    makeFormatRow("Round", makeLine("<a:round/>"), "join 1", nullptr),
    makeFormatRow("Bevel", makeLine("<a:bevel/>"), "join 2", nullptr),
    makeFormatRow("Miter", makeLine("<a:miter lim='800000'/>"), "join 0", nullptr),
    makeFormatRow("Ends", makeLine("<a:headEnd type='oval' w='sm' len='lg'/><a:tailEnd type='arrow'/>"),
        "head 4 0 2; tail 5 1 1", nullptr),
    makeFormatRow("EndOfNothing", makeLine("<a:tailEnd/>"), "tail 0 1 1", nullptr),
    makeFormatRow("Shadow",
        makeEffects("<a:outerShdw blurRad='12700' dist='25400' dir='5400000' rotWithShape='0'>" + Red +
                    "</a:outerShdw>"),
        "shadow FF0000 1 2 90 upright", nullptr),
    makeFormatRow("InnerShadow", makeEffects("<a:innerShdw dist='-12700'>" + Red + "</a:innerShdw>"),
        "shadow FF0000 0 0 0 inner", nullptr),
    makeFormatRow("PresetShadow",
        makeEffects("<a:prstShdw prst='shdw1' dist='12700'>" + Red + "</a:prstShdw>"), "shadow FF0000 0 1 0",
        nullptr),
    makeFormatRow("ShadowWithoutColor", makeEffects("<a:outerShdw dist='12700'/>"), "", nullptr),
    makeFormatRow("ScaledShadow", makeEffects("<a:outerShdw sx='102000'>" + Red + "</a:outerShdw>"),
        "shadow FF0000 0 0 0", "Left out: scaled and skewed shadows"),
    makeFormatRow("UnscaledShadow",
        makeEffects("<a:outerShdw sx='100000' sy='100%' kx='0'>" + Red + "</a:outerShdw>"),
        "shadow FF0000 0 0 0", nullptr),
    makeFormatRow("OtherEffects", makeEffects("<a:glow rad='1'>" + Red + "</a:glow><a:reflection/>"), "",
        "Left out: effects of shapes other than shadows"),
    makeFormatRow("GraphOfEffects", "<a:effectDag/>", "", "Left out: effects of shapes other than shadows"),
    makeFormatRow(
        "Bevelled", "<a:sp3d><a:bevelT/></a:sp3d>", "", "Left out: three-dimensional looks of shapes"),
    makeFormatRow("SeenFromTheSide", "<a:scene3d><a:camera prst='isometricTopUp'/></a:scene3d>", "",
        "Left out: three-dimensional looks of shapes"),
    makeFormatRow(
        "SeenFromTheFront", "<a:scene3d><a:camera prst='orthographicFront'/></a:scene3d>", "", nullptr),
    makeFormatRow("All",
        "<a:prstGeom prst='rect'/><a:solidFill>" + Blue + "</a:solidFill>" + makeLine("", "w='12700'"),
        "fill 0000FF; width 1; ooxml-rect", nullptr),
};

class ReadShapeProps : public DrawingFormatRows
{
};

TEST_P(ReadShapeProps, KeepsRow)
{
    DOM::ShapeProps props;
    readShapeProps(parseDrawing(GetParam().content), scope, props);
    EXPECT_EQ(describeProps(props), GetParam().result);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadShapeProps, testing::ValuesIn(PropsRows),
    [](const auto& row) { return std::string(row.param.name); });

const std::string Accent = "><a:schemeClr val='accent1'/></a:";

const FormatRow StyleRows[] = {
    makeFormatRow("Nothing", "", "", nullptr),
    makeFormatRow("Numbers0", "<a:lnRef idx='0'/><a:fillRef idx='0'/><a:effectRef idx='0'/>", "", nullptr),
    makeFormatRow(
        "BeyondTheLists", "<a:lnRef idx='9'/><a:fillRef idx='9'/><a:effectRef idx='9'/>", "", nullptr),
    makeFormatRow("Line", "<a:lnRef idx='1'" + Accent + "lnRef>", "line 4472C4; width 2; dash 2", nullptr),
    makeFormatRow("LineWithoutColor", "<a:lnRef idx='1'/>", "width 2; dash 2", nullptr),
    makeFormatRow("Fill", "<a:fillRef idx='1'" + Accent + "fillRef>", "fill 4472C4", nullptr),
    makeFormatRow("Gradient", "<a:fillRef idx='2'><a:srgbClr val='FF0000'/></a:fillRef>",
        "fill linear 90 0:800000 1:FFFFFF", nullptr),
    makeFormatRow("PictureOfTheTheme", "<a:fillRef idx='3'/>",
        "fill picture id2.png image/png (0 0 0 0) stretched (0 0 0 0)", nullptr),
    makeFormatRow("FillOfABackground", "<a:fillRef idx='1002'><a:srgbClr val='FFFFFF'/></a:fillRef>",
        "fill BCBCBC", nullptr),
    makeFormatRow("NoShadow", "<a:effectRef idx='1'" + Accent + "effectRef>", "", nullptr),
    makeFormatRow("Shadow", "<a:effectRef idx='2'" + Accent + "effectRef>", "shadow 4472C4 1 2 45", nullptr),
    makeFormatRow("MajorFont", "<a:fontRef idx='major'" + Accent + "fontRef>", "+mj-lt 4472C4", nullptr),
    makeFormatRow("MinorFont", "<a:fontRef idx='minor'/>", "+mn-lt", nullptr),
    makeFormatRow("NoFont", "<a:fontRef idx='none'" + Accent + "fontRef>", " 4472C4", nullptr),
    makeFormatRow("BadNumber", "<a:fillRef idx='1x'" + Accent + "fillRef>", "",
        "Number 1x of a theme's format is none"),
};

class ReadReferredFormats : public DrawingFormatRows
{
};

TEST_P(ReadReferredFormats, KeepsRow)
{
    for (const bool isStrict : {false, true}) {
        if (isStrict && GetParam().message)
            continue;
        const ReferredFormats formats =
            readReferredFormats(parseDrawing(GetParam().content, isStrict), scope);
        const std::string color = formats.fontColor ? " " + describe(formats.fontColor) : "";
        EXPECT_EQ(describeProps(formats.props) + formats.fontName + color, GetParam().result);
    }
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadReferredFormats, testing::ValuesIn(StyleRows),
    [](const auto& row) { return std::string(row.param.name); });

const FormatRow BackgroundRows[] = {
    makeFormatRow("Nothing", "", "nothing", nullptr),
    makeFormatRow(
        "Own", "<p:bgPr><a:solidFill>" + Red + "</a:solidFill><a:effectLst/></p:bgPr>", "FF0000", nullptr),
    makeFormatRow("EmptyOne", "<p:bgPr/>", "nothing", nullptr),
    makeFormatRow("OfTheTheme", "<p:bgRef idx='1002'><a:schemeClr val='bg1'/></p:bgRef>", "BCBCBC", nullptr),
    makeFormatRow("FillOfShapes", "<p:bgRef idx='1'><a:schemeClr val='bg1'/></p:bgRef>", "FFFFFF", nullptr),
    makeFormatRow("Number0", "<p:bgRef idx='0'/>", "none", nullptr),
    makeFormatRow("Number1000", "<p:bgRef idx='1000'/>", "none", nullptr),
    makeFormatRow("BeyondTheList", "<p:bgRef idx='1003'/>", "nothing", nullptr),
    makeFormatRow("BadNumber", "<p:bgRef idx=''/>", "nothing", "Number  of a theme's format is none"),
};

class ReadBackground : public DrawingFormatRows
{
};

TEST_P(ReadBackground, KeepsRow)
{
    EXPECT_EQ(describe(readBackground(parseDrawing(GetParam().content), scope)), GetParam().result);
    expectMessage();
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadBackground, testing::ValuesIn(BackgroundRows),
    [](const auto& row) { return std::string(row.param.name); });

class DrawingFormats : public Tests::DrawingFixture
{
};

TEST_F(DrawingFormats, LieOverThoseReferredTo)
{
    DOM::ShapeProps props =
        readReferredFormats(parseDrawing("<a:lnRef idx='1'" + Accent + "lnRef><a:fillRef idx='1'" + Accent +
                                         "fillRef><a:effectRef idx='2'" + Accent + "effectRef>"),
            scope)
            .props;
    readShapeProps(parseDrawing(makeLine("", "w='12700'")), scope, props);
    EXPECT_EQ(describeProps(props), "fill 4472C4; line 4472C4; width 1; dash 2; shadow 4472C4 1 2 45");
    readShapeProps(parseDrawing("<a:noFill/>" + makeEffects("")), scope, props);
    EXPECT_EQ(describeProps(props), "fill none; line 4472C4; width 1; dash 2");
    EXPECT_THAT(listMessages(run.getReport()), IsEmpty());
}

TEST_F(DrawingFormats, TakeTheFillOfTheGroup)
{
    const DOM::ShapeFill fill = DOM::SolidFill(DOM::Color(DOM::Color::RGBA(1, 2, 3, 255)));
    const DrawingScope grouped = {theme, colors, relationships, pictures, run, &fill};
    EXPECT_EQ(describe(readFill(parseDrawing("<a:grpFill/>"), grouped)), "010203");
}

TEST_F(DrawingFormats, EndLongGradients)
{
    const auto makeStops = [](std::size_t count) {
        std::string stops;
        for (std::size_t i = 0; i < count; ++i)
            stops += "<a:gs pos='0'>" + Red + "</a:gs>";
        return parseDrawing("<a:gradFill><a:gsLst>" + stops + "</a:gsLst></a:gradFill>");
    };
    const auto countStops = [&](std::size_t count) {
        const auto fill = readFill(makeStops(count), scope);
        return boost::get<DOM::GradientFill>(*fill).stops.size();
    };
    EXPECT_EQ(countStops(100), 100U);
    EXPECT_THAT(listMessages(run.getReport()), IsEmpty());
    EXPECT_EQ(countStops(102), 100U);
    EXPECT_THAT(listMessages(run.getReport()), ElementsAre("Gradient has more than 100 stops"));
}

} // namespace
} // namespace QV::Filters
