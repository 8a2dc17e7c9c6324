#include <Filters/Package/GeometryReader.h>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <FilterUtils/FU_GeometryParserUtils.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingValues.h>
#include <Filters/Package/MessageCounts.h>
#include <Filters/Package/Utf8Cut.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using PathCommandKind = DOM::PathCommand::Kind;

constexpr std::size_t GuidesMax = 10'000;
constexpr std::size_t ConnectionSitesMax = 10'000;
constexpr std::size_t CommandsMax = 100'000;
constexpr std::size_t OutlineTextMax = 1024;
constexpr double PathSizeMax = 27273042316900; // ECMA-376 Part 1, 20.1.10.42

constexpr const char* BadFormula = "Outline of a drawing has a bad formula {}";
constexpr const char* BadCoordinate = "Outline of a drawing has a bad coordinate {}";
constexpr const char* BadCommand = "Outline of a drawing has a bad command {}";

// ECMA-376 Part 1, 20.1.9.11.
struct GuideOperation
{
    std::string_view name;
    std::size_t operands;
};
constexpr GuideOperation GuideOperations[] = {
    {"val",  1},
    {"*/",   3},
    {"+-",   3},
    {"+/",   3},
    {"?:",   3},
    {"abs",  1},
    {"at2",  2},
    {"cat2", 3},
    {"cos",  2},
    {"max",  2},
    {"min",  2},
    {"mod",  3},
    {"pin",  3},
    {"sat2", 3},
    {"sin",  2},
    {"sqrt", 1},
    {"tan",  2},
};

struct PathFillingName
{
    std::string_view name;
    DOM::GeometryPath::Filling filling;
};
constexpr PathFillingName PathFillingNames[] = {
    {"norm",        DOM::GeometryPath::Filling::Normal     },
    {"none",        DOM::GeometryPath::Filling::None       },
    {"lighten",     DOM::GeometryPath::Filling::Lighten    },
    {"lightenLess", DOM::GeometryPath::Filling::LightenLess},
    {"darken",      DOM::GeometryPath::Filling::Darken     },
    {"darkenLess",  DOM::GeometryPath::Filling::DarkenLess },
};

struct PathCommandName
{
    std::string_view name;
    PathCommandKind kind;
    std::size_t points;
};
constexpr PathCommandName PathCommandNames[] = {
    {"moveTo",     PathCommandKind::MoveTo,  1},
    {"lnTo",       PathCommandKind::LineTo,  1},
    {"arcTo",      PathCommandKind::ArcTo,   0},
    {"quadBezTo",  PathCommandKind::QuadTo,  2},
    {"cubicBezTo", PathCommandKind::CubicTo, 3},
    {"close",      PathCommandKind::Close,   0},
};

bool isFormulaBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

std::vector<std::string> splitFormula(const std::string& formula)
{
    std::vector<std::string> words;
    bool isInWord = false;
    for (const char character : formula) {
        const bool isBlank = isFormulaBlank(character);
        if (!isBlank && !isInWord)
            words.emplace_back();
        if (!isBlank)
            words.back() += character;
        isInWord = !isBlank;
    }
    return words;
}

bool isFormula(const std::vector<std::string>& words)
{
    for (const GuideOperation& operation : GuideOperations)
        if (!words.empty() && words.front() == operation.name)
            return words.size() == operation.operands + 1;
    return false;
}

/// Reads one outline.
class OutlineReader
{
public:
    explicit OutlineReader(OperationReport& report)
        : _report(report)
    {
    }

    DOM::ShapeGeometry readPreset(const XMLElement& element, const std::string& preset)
    {
        DOM::ShapeGeometry geometry;
        geometry.preset = FilterUtils::makeOOXMLPresetType(preset);
        readGuides(element, geometry);
        _messages.finish(_report);
        return geometry;
    }

    DOM::ShapeGeometry readCustom(const XMLElement& element)
    {
        DOM::ShapeGeometry geometry;
        readGuides(element, geometry);
        readConnectionSites(find(element, "cxnLst"), geometry);
        const XMLElement rectangle = find(element, "rect");
        std::array<std::string, 4> edges;
        if (rectangle.isValid() && readOperands(rectangle, {"l", "t", "r", "b"}, edges.data()))
            geometry.textRectangle.push_back(makeTextRectangle(edges));
        readPaths(find(element, "pathLst"), geometry);
        _messages.finish(_report);
        return geometry;
    }

private:
    using Guides = std::vector<DOM::GeometryGuide>;

    static XMLElement find(const XMLElement& parent, const char* name)
    {
        return findDrawingElement(parent, Vocabulary::Drawing, name);
    }

    static DOM::TextRectangle makeTextRectangle(const std::array<std::string, 4>& edges)
    {
        DOM::TextRectangle rectangle;
        rectangle.left = edges[0];
        rectangle.top = edges[1];
        rectangle.right = edges[2];
        rectangle.bottom = edges[3];
        return rectangle;
    }

    void tell(const char* pattern, std::string value)
    {
        cutUtf8(value, OutlineTextMax);
        if (_messages.add(pattern))
            _report.emplace_back(pattern, value);
    }

    /// Whether there is room for one more; tells once where there is none.
    bool hasRoom(std::size_t& count, std::size_t max, const char* pattern)
    {
        if (count == max)
            tell(pattern, std::to_string(max));
        if (count <= max)
            ++count; // one more than there may be: told
        return count <= max;
    }

    void readGuides(const XMLElement& element, DOM::ShapeGeometry& geometry)
    {
        gatherGuides(find(element, "avLst"), geometry.adjustValues, _adjustNames);
        gatherGuides(find(element, "gdLst"), geometry.guides, _guideNames);
        for (Guides* const guides : {&geometry.adjustValues, &geometry.guides})
            for (DOM::GeometryGuide& guide : *guides)
                guide.formula = markFormula(guide.formula);
    }

    void gatherGuides(const XMLElement& list, Guides& guides, std::unordered_set<std::string>& names)
    {
        forEachDrawingElement(list, Vocabulary::Drawing, [&](const std::string&, const XMLElement& element) {
            if (!hasRoom(_guidesCount, GuidesMax, "Outline of a drawing has more than {} guides"))
                return;
            DOM::GeometryGuide guide;
            guide.name = element.getAttributeValue("name").value_or(std::string());
            guide.formula = element.getAttributeValue("fmla").value_or(std::string());
            const bool isNamed = !guide.name.empty() && guide.name.size() <= OutlineTextMax;
            if (!isNamed || guide.formula.size() > OutlineTextMax || !isFormula(splitFormula(guide.formula)))
                return tell(BadFormula, guide.formula);
            names.insert(guide.name);
            guides.push_back(std::move(guide));
        });
    }

    std::string markName(const std::string& name) const
    {
        if (_adjustNames.count(name) != 0)
            return FilterUtils::makeModifierReference(name);
        return _guideNames.count(name) != 0 ? FilterUtils::makeFormulaReference(name) : name;
    }

    std::string markFormula(const std::string& formula) const
    {
        std::string marked;
        for (const std::string& word : splitFormula(formula))
            marked += marked.empty() ? word : ' ' + markName(word);
        return marked;
    }

    /// Puts the coordinates of the attributes in the places from @p operands on; false after a message.
    bool readOperands(
        const XMLElement& element, std::initializer_list<const char*> attributes, std::string* operands)
    {
        for (const char* const attribute : attributes) {
            const auto text = element.getAttributeValue(attribute);
            if (!text || text->empty() || text->size() > OutlineTextMax) {
                tell(BadCoordinate, text.value_or(std::string()));
                return false;
            }
            *operands++ = markName(*text);
        }
        return true;
    }

    void readConnectionSites(const XMLElement& list, DOM::ShapeGeometry& geometry)
    {
        std::size_t count = 0;
        forEachDrawingElement(list, Vocabulary::Drawing, [&](const std::string&, const XMLElement& element) {
            if (!hasRoom(count, ConnectionSitesMax, "Outline of a drawing has more than {} connection sites"))
                return;
            std::array<std::string, 3> values;
            if (!readOperands(find(element, "pos"), {"x", "y"}, values.data()) ||
                !readOperands(element, {"ang"}, &values[2]))
                return;
            DOM::ConnectionSite site;
            site.x = std::move(values[0]);
            site.y = std::move(values[1]);
            site.angle = std::move(values[2]);
            geometry.connectionSites.push_back(std::move(site));
        });
    }

    bool hasRoomForCommand()
    {
        return hasRoom(_commandsCount, CommandsMax, "Outline of a drawing has more than {} commands");
    }

    void readPaths(const XMLElement& list, DOM::ShapeGeometry& geometry)
    {
        forEachDrawingElement(list, Vocabulary::Drawing, [&](const std::string&, const XMLElement& element) {
            if (!hasRoomForCommand())
                return;
            DOM::GeometryPath path;
            path.width = readPathSize(element, "w");
            path.height = readPathSize(element, "h");
            path.isStroked = readSwitch(element.getAttributeValue("stroke"), true);
            const std::string filling = element.getAttributeValue("fill").value_or("norm");
            for (const PathFillingName& known : PathFillingNames)
                if (filling == known.name)
                    path.filling = known.filling;
            forEachDrawingElement(
                element, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& command) {
                    if (hasRoomForCommand())
                        readCommand(name, command, path);
                });
            geometry.paths.push_back(std::move(path));
        });
    }

    double readPathSize(const XMLElement& path, const char* attribute)
    {
        const auto text = path.getAttributeValue(attribute);
        if (!text)
            return 0;
        const auto size = OfficeUtils::stringToDouble(*text);
        if (size && *size >= 0 && *size <= PathSizeMax)
            return *size;
        tell(BadCoordinate, *text);
        return 0;
    }

    void readCommand(const std::string& name, const XMLElement& element, DOM::GeometryPath& path)
    {
        for (const PathCommandName& known : PathCommandNames) {
            if (name != known.name)
                continue;
            DOM::PathCommand command;
            command.kind = known.kind;
            if (known.kind == PathCommandKind::ArcTo) {
                command.operands.resize(4);
                if (!readOperands(element, {"wR", "hR", "stAng", "swAng"}, command.operands.data()))
                    return;
            } else if (!readPoints(name, element, known.points, command)) {
                return;
            }
            path.commands.push_back(std::move(command));
            return;
        }
        tell(BadCommand, name);
    }

    /// @return false after a message
    bool readPoints(
        const std::string& name, const XMLElement& element, std::size_t points, DOM::PathCommand& command)
    {
        std::size_t count = 0;
        bool isGood = true;
        command.operands.resize(2 * points);
        forEachDrawingElement(element, Vocabulary::Drawing, [&](const std::string&, const XMLElement& point) {
            if (count < points && isGood)
                isGood = readOperands(point, {"x", "y"}, &command.operands[2 * count]);
            ++count;
        });
        if (isGood && count != points)
            tell(BadCommand, name);
        return isGood && count == points;
    }

    OperationReport& _report;
    MessageCounts _messages;
    std::unordered_set<std::string> _adjustNames;
    std::unordered_set<std::string> _guideNames;
    std::size_t _guidesCount = 0;
    std::size_t _commandsCount = 0;
};

} // namespace

std::shared_ptr<const DOM::ShapeGeometry> readGeometry(
    const XMLElement& shapeProperties, OperationReport& report)
{
    const XMLElement custom = findDrawingElement(shapeProperties, Vocabulary::Drawing, "custGeom");
    if (custom.isValid())
        return std::make_shared<DOM::ShapeGeometry>(OutlineReader(report).readCustom(custom));
    const XMLElement preset = findDrawingElement(shapeProperties, Vocabulary::Drawing, "prstGeom");
    const auto name = preset.getAttributeValue("prst");
    if (!name || name->empty() || name->size() > OutlineTextMax)
        return nullptr;
    return std::make_shared<DOM::ShapeGeometry>(OutlineReader(report).readPreset(preset, *name));
}

} // namespace QV::Filters
