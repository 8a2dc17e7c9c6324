#include <Filters/Package/DrawingFormats.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingLeftOut.h>
#include <Filters/Package/DrawingValues.h>
#include <Filters/Package/FilterRun.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr float LineWidthMax = 1584; // points; ECMA-376 Part 1, 20.1.10.35

// A dash and its gap, one after the other; 0 where there are no more.
using DashLengths = std::array<double, 6>;

struct DashName
{
    std::string_view name;
    DOM::LineDash value;
    DashLengths lengths;
};
// ECMA-376 Part 1, 20.1.10.49.
constexpr DashName DashNames[] = {
    {"solid",         DOM::LineDash::Solid,            {1, 0, 0, 0, 0, 0}},
    {"dot",           DOM::LineDash::Dot,              {1, 3, 0, 0, 0, 0}},
    {"dash",          DOM::LineDash::Dash,             {4, 3, 0, 0, 0, 0}},
    {"lgDash",        DOM::LineDash::LongDash,         {8, 3, 0, 0, 0, 0}},
    {"dashDot",       DOM::LineDash::DashDot,          {4, 3, 1, 3, 0, 0}},
    {"lgDashDot",     DOM::LineDash::LongDashDot,      {8, 3, 1, 3, 0, 0}},
    {"lgDashDotDot",  DOM::LineDash::LongDashDotDot,   {8, 3, 1, 3, 1, 3}},
    {"sysDash",       DOM::LineDash::SystemDash,       {3, 1, 0, 0, 0, 0}},
    {"sysDot",        DOM::LineDash::SystemDot,        {1, 1, 0, 0, 0, 0}},
    {"sysDashDot",    DOM::LineDash::SystemDashDot,    {3, 1, 1, 1, 0, 0}},
    {"sysDashDotDot", DOM::LineDash::SystemDashDotDot, {3, 1, 1, 1, 1, 1}},
};

template <typename Value>
struct LineWord
{
    std::string_view name;
    Value value;
};
constexpr LineWord<DOM::LineCap> LineCapWords[] = {
    {"flat", DOM::LineCap::Flat  },
    {"rnd",  DOM::LineCap::Round },
    {"sq",   DOM::LineCap::Square},
};
constexpr LineWord<DOM::LineEnd::Kind> LineEndWords[] = {
    {"none",     DOM::LineEnd::Kind::None    },
    {"triangle", DOM::LineEnd::Kind::Triangle},
    {"stealth",  DOM::LineEnd::Kind::Stealth },
    {"diamond",  DOM::LineEnd::Kind::Diamond },
    {"oval",     DOM::LineEnd::Kind::Oval    },
    {"arrow",    DOM::LineEnd::Kind::Arrow   },
};
constexpr LineWord<DOM::LineEnd::Size> LineEndSizeWords[] = {
    {"sm",  DOM::LineEnd::Size::Small },
    {"med", DOM::LineEnd::Size::Medium},
    {"lg",  DOM::LineEnd::Size::Large },
};

/// The row of a name; null for no text, or after a message.
template <typename Row, std::size_t Count>
const Row* findLineRow(
    const Row (&rows)[Count], const boost::optional<std::string>& text, OperationReport& report)
{
    if (!text)
        return nullptr;
    for (const Row& row : rows)
        if (row.name == *text)
            return &row;
    report.emplace_back("Unknown line property {}", *text);
    return nullptr;
}

DOM::LineEnd readLineEnd(const XMLElement& element, OperationReport& report)
{
    DOM::LineEnd end;
    if (const auto* const kind = findLineRow(LineEndWords, element.getAttributeValue("type"), report))
        end.kind = kind->value;
    if (const auto* const width = findLineRow(LineEndSizeWords, element.getAttributeValue("w"), report))
        end.width = width->value;
    if (const auto* const length = findLineRow(LineEndSizeWords, element.getAttributeValue("len"), report))
        end.length = length->value;
    return end;
}

double getDashDistance(const DashLengths& left, const DashLengths& right)
{
    double distance = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        distance += std::fabs(left[i] - right[i]);
    return distance;
}

/// The preset whose dashes and gaps are most like these.
DOM::LineDash readCustomDash(const XMLElement& element, const DrawingScope& scope)
{
    DashLengths lengths = {};
    std::size_t count = 0;
    forEachDrawingElement(element, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& dash) {
        for (const char* const part : {"d", "sp"})
            if (name == "ds" && count < lengths.size())
                lengths[count++] = readShare(dash.getAttributeValue(part), scope.run.getReport()).value_or(0);
    });
    if (count == 0)
        return DOM::LineDash::Solid;
    const DashName* nearest = std::begin(DashNames);
    for (const DashName& preset : DashNames)
        if (getDashDistance(preset.lengths, lengths) < getDashDistance(nearest->lengths, lengths))
            nearest = &preset;
    if (getDashDistance(nearest->lengths, lengths) > 0.01)
        scope.run.leaveOut(DrawingLeftOut::CustomDashes);
    return nearest->value;
}

boost::optional<DOM::LineJoin> readLineJoin(const XMLElement& line)
{
    for (const auto& [name, join] : {std::pair("round", DOM::LineJoin::Round),
             std::pair("bevel", DOM::LineJoin::Bevel), std::pair("miter", DOM::LineJoin::Miter)})
        if (findDrawingElement(line, Vocabulary::Drawing, name).isValid())
            return join;
    return boost::none;
}

void readStroke(const XMLElement& line, const DrawingScope& scope, DOM::ShapeProps& props)
{
    OperationReport& report = scope.run.getReport();
    const auto widthText = line.getAttributeValue("w");
    if (const auto width = widthText ? readCoordinate(*widthText, report) : boost::none)
        props.setLineWidth(std::clamp(*width, 0.0F, LineWidthMax));
    if (const auto* const cap = findLineRow(LineCapWords, line.getAttributeValue("cap"), report))
        props.setLineCap(cap->value);
    if (line.getAttributeValue("cmpd").value_or("sng") != "sng")
        scope.run.leaveOut(DrawingLeftOut::CompoundLines);
}

} // namespace

void readLine(const XMLElement& line, const DrawingScope& scope, DOM::ShapeProps& props)
{
    OperationReport& report = scope.run.getReport();
    const auto find = [&](const char* name) { return findDrawingElement(line, Vocabulary::Drawing, name); };
    readStroke(line, scope, props);
    if (auto fill = readFill(line, scope))
        props.setLineFill(std::move(fill));
    const auto presetName = find("prstDash").getAttributeValue("val");
    if (const auto* const dash = findLineRow(DashNames, presetName, report))
        props.setLineDash(dash->value);
    const XMLElement customDash = find("custDash");
    if (customDash.isValid())
        props.setLineDash(readCustomDash(customDash, scope));
    if (const auto join = readLineJoin(line))
        props.setLineJoin(join);
    const XMLElement head = find("headEnd");
    if (head.isValid())
        props.setLineHead(readLineEnd(head, report));
    const XMLElement tail = find("tailEnd");
    if (tail.isValid())
        props.setLineTail(readLineEnd(tail, report));
}

} // namespace QV::Filters
