#include <Filters/Package/DrawingElements.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include <boost/algorithm/string/predicate.hpp>

#include <FilterUtils/FU_Lengths.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr unsigned long CoordinateMax = 27273042329600; // ECMA-376 Part 1, 20.1.10.16
constexpr long long FullTurn = 21600000;
constexpr const char* NoCoordinate = "Drawing coordinate {} is none";

/// A whole number with its sign; nothing for other text, and beyond a long.
boost::optional<long long> readWhole(const std::string& text)
{
    const std::size_t sign = !text.empty() && (text.front() == '-' || text.front() == '+') ? 1 : 0;
    const std::string digits = text.substr(sign);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
        return boost::none;
    const auto magnitude = strToUlong(digits);
    if (!magnitude || *magnitude > static_cast<unsigned long>(std::numeric_limits<long long>::max()))
        return boost::none;
    const auto number = static_cast<long long>(*magnitude);
    return text.front() == '-' ? -number : number;
}

bool hasUnit(const std::string& text)
{
    return !text.empty() && text.back() >= 'a' && text.back() <= 'z';
}

float readCoordinateOr0(const boost::optional<std::string>& text, OperationReport& report)
{
    return text ? readCoordinate(*text, report).value_or(0) : 0;
}

unsigned long readIndex(const XMLElement& element, unsigned long max, OperationReport& report)
{
    const std::string text = element.getText().value_or("0");
    const auto number = readWhole(text);
    if (number && *number >= 0 && static_cast<unsigned long>(*number) <= max)
        return static_cast<unsigned long>(*number);
    report.emplace_back("Drawing is anchored to {}, which is no row or column of a sheet", text);
    return number && *number > 0 ? max : 0;
}

bool isTrue(const boost::optional<std::string>& text)
{
    return text && (*text == FilterUtils::XSDTrueValue || *text == "true");
}

boost::optional<DrawnBox> readBox(
    const XMLElement& transform, const char* offset, const char* extent, OperationReport& report)
{
    const XMLElement offsetElement = findDrawingElement(transform, Vocabulary::Drawing, offset);
    const XMLElement extentElement = findDrawingElement(transform, Vocabulary::Drawing, extent);
    if (!offsetElement.isValid() || !extentElement.isValid())
        return boost::none;
    return DrawnBox{readPoint(offsetElement, report), readSize(extentElement, report)};
}

int readRotation(const boost::optional<std::string>& text, OperationReport& report)
{
    if (!text)
        return 0;
    const auto rotation = readWhole(*text);
    if (!rotation) {
        report.emplace_back("Drawing rotation {} is none", *text);
        return 0;
    }
    return static_cast<int>((*rotation % FullTurn + FullTurn) % FullTurn);
}

} // namespace

XMLElement findDrawingElement(const XMLElement& parent, Vocabulary vocabulary, const char* name)
{
    const XMLElement usual = parent.getElement(Names(Dialect::Transitional)(vocabulary, name));
    return usual.isValid() ? usual : parent.getElement(Names(Dialect::Strict)(vocabulary, name));
}

unsigned countDrawingElements(const XMLElement& element, unsigned max)
{
    unsigned count = 1;
    element.processAllElements([&](const std::string&, const XMLElement& child) {
        if (count <= max)
            count += countDrawingElements(child, max - count);
    });
    return count;
}

void forEachDrawingElement(const XMLElement& parent, Vocabulary vocabulary,
    const std::function<void(const std::string& name, const XMLElement& child)>& function)
{
    const std::string usual = Names(Dialect::Transitional)(vocabulary, {});
    const std::string strict = Names(Dialect::Strict)(vocabulary, {});
    parent.processAllElements([&](const std::string& name, const XMLElement& child) {
        for (const std::string& prefix : {usual, strict})
            if (name.size() > prefix.size() && name.compare(0, prefix.size(), prefix) == 0 &&
                name.find(':', prefix.size()) == std::string::npos) {
                function(name.substr(prefix.size()), child);
                return;
            }
    });
}

boost::optional<float> readCoordinate(const std::string& text, OperationReport& report)
{
    const bool isInPixels = boost::algorithm::ends_with(text, "px"); // which have no length of their own
    if (hasUnit(text) && !isInPixels) {
        const float max = FilterUtils::convertEMUToPoints(static_cast<long long>(CoordinateMax));
        const auto length = FilterUtils::convertLength(report, text, boost::none, FilterUtils::anyLength);
        if (!length || std::fabs(*length) <= max)
            return length;
    } else if (const auto emu = readWhole(text)) {
        if (static_cast<unsigned long>(std::llabs(*emu)) <= CoordinateMax)
            return FilterUtils::convertEMUToPoints(*emu);
    }
    report.emplace_back(NoCoordinate, text);
    return boost::none;
}

cinder::Vec2<float> readPoint(const XMLElement& element, OperationReport& report)
{
    return {readCoordinateOr0(element.getAttributeValue("x"), report),
        readCoordinateOr0(element.getAttributeValue("y"), report)};
}

Size2D<float> readSize(const XMLElement& element, OperationReport& report)
{
    const auto readPositive = [&](const char* name) {
        const auto text = element.getAttributeValue(name);
        const float size = readCoordinateOr0(text, report);
        if (size < 0)
            report.emplace_back("Drawing size {} is negative", *text);
        return std::max(size, 0.0F);
    };
    const float width = readPositive("cx");
    return {width, readPositive("cy")};
}

DOM::TableOffset readMarker(const XMLElement& element, OperationReport& report)
{
    const auto find = [&](const char* name) {
        return findDrawingElement(element, Vocabulary::SpreadsheetDrawing, name);
    };
    const unsigned long column = readIndex(find("col"), MaxColumnIndex.get(), report);
    const float columnOffset = readCoordinateOr0(find("colOff").getText(), report);
    const unsigned long row = readIndex(find("row"), MaxRowIndex.get(), report);
    const float rowOffset = readCoordinateOr0(find("rowOff").getText(), report);
    return {ColumnIndex(column), columnOffset, RowIndex(row), rowOffset};
}

DrawnTransform readTransform(const XMLElement& element, OperationReport& report)
{
    DrawnTransform transform;
    transform.box = readBox(element, "off", "ext", report);
    transform.childBox = readBox(element, "chOff", "chExt", report);
    transform.rotation = readRotation(element.getAttributeValue("rot"), report);
    transform.isFlippedHorizontally = isTrue(element.getAttributeValue("flipH"));
    transform.isFlippedVertically = isTrue(element.getAttributeValue("flipV"));
    return transform;
}

} // namespace QV::Filters
