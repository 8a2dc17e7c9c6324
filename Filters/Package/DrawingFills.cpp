#include <Filters/Package/DrawingFormats.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <DOM/Public/GraphicalObject.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingLeftOut.h>
#include <Filters/Package/DrawingValues.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/PartPictures.h>
#include <Filters/Package/Relationships.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using ShapeFillOpt = boost::optional<DOM::ShapeFill>;

constexpr std::size_t FillStopsMax = 100;
constexpr std::size_t DuotoneColors = 2;

// ECMA-376 Part 1, 20.1.10.51.
constexpr std::string_view PatternNames[] = {"pct5", "pct10", "pct20", "pct25", "pct30", "pct40", "pct50",
    "pct60", "pct70", "pct75", "pct80", "pct90", "horz", "vert", "ltHorz", "ltVert", "dkHorz", "dkVert",
    "narHorz", "narVert", "dashHorz", "dashVert", "cross", "dnDiag", "upDiag", "ltDnDiag", "ltUpDiag",
    "dkDnDiag", "dkUpDiag", "wdDnDiag", "wdUpDiag", "dashDnDiag", "dashUpDiag", "diagCross", "smCheck",
    "lgCheck", "smGrid", "lgGrid", "dotGrid", "smConfetti", "lgConfetti", "horzBrick", "diagBrick",
    "solidDmnd", "openDmnd", "dotDmnd", "plaid", "sphere", "weave", "divot", "shingle", "wave", "trellis",
    "zigZag"};

struct GradientKindName
{
    std::string_view name;
    DOM::GradientFill::Kind kind;
};
constexpr GradientKindName GradientKindNames[] = {
    {"circle", DOM::GradientFill::Kind::Circle   },
    {"rect",   DOM::GradientFill::Kind::Rectangle},
    {"shape",  DOM::GradientFill::Kind::Shape    },
};

XMLElement findFillPart(const XMLElement& parent, const char* name)
{
    return findDrawingElement(parent, Vocabulary::Drawing, name);
}

/// Whether an attribute says anything but what holds without it.
bool differsFrom(const XMLElement& element, const char* attribute, const char* usual)
{
    return element.getAttributeValue(attribute).value_or(usual) != usual;
}

ShapeFillOpt readNoFill(const XMLElement&, const DrawingScope&)
{
    return DOM::ShapeFill(DOM::NoFill());
}

ShapeFillOpt readSolidFill(const XMLElement& fill, const DrawingScope& scope)
{
    const auto color = readDrawingColor(fill, scope.colors, scope.run.getReport());
    return color ? ShapeFillOpt(DOM::SolidFill(*color)) : boost::none;
}

std::vector<DOM::GradientFill::Stop> readGradientStops(const XMLElement& list, const DrawingScope& scope)
{
    OperationReport& report = scope.run.getReport();
    std::vector<DOM::GradientFill::Stop> stops;
    bool isFull = false;
    forEachDrawingElement(list, Vocabulary::Drawing, [&](const std::string&, const XMLElement& element) {
        isFull = isFull || stops.size() == FillStopsMax;
        const auto color = isFull ? boost::none : readDrawingColor(element, scope.colors, report);
        if (!color)
            return;
        const double position = readShare(element.getAttributeValue("pos"), report).value_or(0);
        DOM::GradientFill::Stop stop;
        stop.position = static_cast<float>(std::clamp(position, 0.0, 1.0));
        stop.color = *color;
        stops.push_back(stop);
    });
    if (isFull)
        report.emplace_back("Gradient has more than {} stops", std::to_string(FillStopsMax));
    std::stable_sort(stops.begin(), stops.end(),
        [](const auto& left, const auto& right) { return left.position < right.position; });
    return stops;
}

void readGradientDirection(const XMLElement& fill, const DrawingScope& scope, DOM::GradientFill& gradient)
{
    OperationReport& report = scope.run.getReport();
    const XMLElement path = findFillPart(fill, "path");
    if (!path.isValid()) {
        const XMLElement line = findFillPart(fill, "lin");
        gradient.angle = static_cast<float>(readAngle(line.getAttributeValue("ang"), report).value_or(0));
        gradient.isScaled = readSwitch(line.getAttributeValue("scaled"), false);
        return;
    }
    const std::string name = path.getAttributeValue("path").value_or("rect");
    const auto* const known = std::find_if(std::begin(GradientKindNames), std::end(GradientKindNames),
        [&](const GradientKindName& kind) { return kind.name == name; });
    if (known == std::end(GradientKindNames))
        report.emplace_back("Unknown gradient {}", name);
    gradient.kind = known == std::end(GradientKindNames) ? DOM::GradientFill::Kind::Rectangle : known->kind;
    gradient.centre = readRelativeRect(findFillPart(path, "fillToRect"), report);
}

ShapeFillOpt readGradientFill(const XMLElement& fill, const DrawingScope& scope)
{
    DOM::GradientFill gradient;
    gradient.stops = readGradientStops(findFillPart(fill, "gsLst"), scope);
    if (gradient.stops.empty())
        return boost::none;
    readGradientDirection(fill, scope, gradient);
    gradient.turnsWithShape = readSwitch(fill.getAttributeValue("rotWithShape"), true);
    const XMLElement tile = findFillPart(fill, "tileRect");
    if (differsFrom(fill, "flip", "none") ||
        readRelativeRect(tile, scope.run.getReport()) != DOM::RelativeRect())
        scope.run.leaveOut(DrawingLeftOut::GradientTiles);
    return DOM::ShapeFill(std::move(gradient));
}

/// An id of a relationship; empty where there is none.
std::string readPictureId(const XMLElement& element, const char* name)
{
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict}) {
        const auto id = element.getAttributeValue(Names(dialect)(Vocabulary::Relationships, name));
        if (id && !id->empty())
            return *id;
    }
    return {};
}

std::unique_ptr<DOM::Picture> findPicture(const XMLElement& blip, const DrawingScope& scope)
{
    const std::string embedded = readPictureId(blip, "embed");
    const std::string id = embedded.empty() ? readPictureId(blip, "link") : embedded;
    if (id.empty())
        return nullptr;
    if (const Relationship* const relationship = scope.relationships.findById(id))
        return scope.pictures.makePicture(*relationship);
    scope.run.getReport().emplace_back("Picture {} is missing", id);
    return nullptr;
}

/// Two colours, or none.
std::vector<DOM::Color> readDuotone(const XMLElement& duotone, const DrawingScope& scope)
{
    std::vector<DOM::Color> colors;
    forEachDrawingElement(
        duotone, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& element) {
            const auto color = readColorElement(name, element, scope.colors, scope.run.getReport());
            if (color && colors.size() < DuotoneColors)
                colors.push_back(*color);
        });
    if (colors.size() == DuotoneColors)
        return colors;
    scope.run.leaveOut(DrawingLeftOut::PictureEffects);
    return {};
}

void readPictureEffects(const XMLElement& blip, const DrawingScope& scope, DOM::PictureFill& picture)
{
    double opacity = 1;
    forEachDrawingElement(blip, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& effect) {
        if (name == "alphaModFix")
            opacity *= std::clamp(
                readShare(effect.getAttributeValue("amt"), scope.run.getReport()).value_or(1), 0.0, 1.0);
        else if (name == "duotone")
            picture.duotone = readDuotone(effect, scope);
        else if (name != "extLst")
            scope.run.leaveOut(DrawingLeftOut::PictureEffects);
    });
    picture.opacity = static_cast<float>(opacity);
}

void readTile(const XMLElement& tile, const DrawingScope& scope, DOM::PictureFill& picture)
{
    OperationReport& report = scope.run.getReport();
    const auto readScale = [&](const char* name) {
        return static_cast<float>(readShare(tile.getAttributeValue(name), report).value_or(1));
    };
    const auto readOffset = [&](const char* name) {
        const auto text = tile.getAttributeValue(name);
        return text ? readCoordinate(*text, report).value_or(0) : 0;
    };
    picture.isTiled = true;
    picture.tileScale.x = readScale("sx");
    picture.tileScale.y = readScale("sy");
    picture.tileOffset.x = readOffset("tx");
    picture.tileOffset.y = readOffset("ty");
    if (differsFrom(tile, "flip", "none") || differsFrom(tile, "algn", "tl"))
        scope.run.leaveOut(DrawingLeftOut::PictureTiles);
}

ShapeFillOpt readBlipFill(const XMLElement& fill, const DrawingScope& scope)
{
    auto picture = readPictureFill(fill, scope);
    return picture ? ShapeFillOpt(std::move(*picture)) : boost::none;
}

ShapeFillOpt readPatternFill(const XMLElement& fill, const DrawingScope& scope)
{
    OperationReport& report = scope.run.getReport();
    DOM::PatternFill pattern;
    pattern.preset = fill.getAttributeValue("prst").value_or(std::string());
    if (std::find(std::begin(PatternNames), std::end(PatternNames), pattern.preset) ==
        std::end(PatternNames)) {
        report.emplace_back("Unknown pattern {}", pattern.preset);
        return boost::none;
    }
    pattern.foreground =
        readDrawingColor(findFillPart(fill, "fgClr"), scope.colors, report).value_or(pattern.foreground);
    pattern.background =
        readDrawingColor(findFillPart(fill, "bgClr"), scope.colors, report).value_or(pattern.background);
    return DOM::ShapeFill(std::move(pattern));
}

ShapeFillOpt readGroupFill(const XMLElement&, const DrawingScope& scope)
{
    return scope.groupFill ? *scope.groupFill : DOM::ShapeFill(DOM::NoFill());
}

struct FillForm
{
    const char* name;
    ShapeFillOpt (*read)(const XMLElement& fill, const DrawingScope& scope);
};
constexpr FillForm FillForms[] = {
    {"noFill",    readNoFill      },
    {"solidFill", readSolidFill   },
    {"gradFill",  readGradientFill},
    {"blipFill",  readBlipFill    },
    {"pattFill",  readPatternFill },
    {"grpFill",   readGroupFill   },
};

} // namespace

ShapeFillOpt readFill(const XMLElement& parent, const DrawingScope& scope)
{
    for (const FillForm& form : FillForms) {
        const XMLElement fill = findFillPart(parent, form.name);
        if (fill.isValid())
            return form.read(fill, scope);
    }
    return boost::none;
}

ShapeFillOpt readFillElement(const std::string& name, const XMLElement& fill, const DrawingScope& scope)
{
    for (const FillForm& form : FillForms)
        if (name == form.name && fill.isValid())
            return form.read(fill, scope);
    return boost::none;
}

boost::optional<DOM::PictureFill> readPictureFill(const XMLElement& blipFill, const DrawingScope& scope)
{
    const XMLElement blip = findFillPart(blipFill, "blip");
    const auto stored = findPicture(blip, scope);
    if (!stored)
        return boost::none;
    DOM::PictureFill picture;
    picture.mediaId = stored->getMediaId();
    picture.mimeType = stored->getMimeType();
    picture.crop = readRelativeRect(findFillPart(blipFill, "srcRect"), scope.run.getReport());
    readPictureEffects(blip, scope, picture);
    const XMLElement tile = findFillPart(blipFill, "tile");
    if (tile.isValid())
        readTile(tile, scope, picture);
    else
        picture.stretch = readRelativeRect(
            findFillPart(findFillPart(blipFill, "stretch"), "fillRect"), scope.run.getReport());
    return picture;
}

DOM::RelativeRect readRelativeRect(const XMLElement& element, OperationReport& report)
{
    const auto readEdge = [&](const char* name) {
        return static_cast<float>(readShare(element.getAttributeValue(name), report).value_or(0));
    };
    DOM::RelativeRect rect;
    rect.left = readEdge("l");
    rect.top = readEdge("t");
    rect.right = readEdge("r");
    rect.bottom = readEdge("b");
    return rect;
}

} // namespace QV::Filters
