#include <Filters/Text/FormatValues.h>

#include <cmath>
#include <limits>

#include <Filters/Package/MessageCounts.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Text/StoryAlternatives.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr const char* UnexpectedFormatValue = "Unexpected value {} of {}";
constexpr double TwipsPerPoint = 20;
constexpr double HalfPointsPerPoint = 2;

// ECMA-376 Part 1, 22.9.2.7; "on" and "off" in transitional documents.
constexpr FormatName<bool> SwitchNames[] = {
    {"1",     true },
    {"true",  true },
    {"on",    true },
    {"0",     false},
    {"false", false},
    {"off",   false},
};

// ECMA-376 Part 1, 17.18.44. The kinds of justification differ in the script that they are made for.
constexpr FormatName<DOM::HorizontalAlignment> ParagraphAlignments[] = {
    {"left",           DOM::HorizontalAlignment::Left       },
    {"start",          DOM::HorizontalAlignment::Left       },
    {"center",         DOM::HorizontalAlignment::Center     },
    {"right",          DOM::HorizontalAlignment::Right      },
    {"end",            DOM::HorizontalAlignment::Right      },
    {"both",           DOM::HorizontalAlignment::Justify    },
    {"distribute",     DOM::HorizontalAlignment::Distributed},
    {"thaiDistribute", DOM::HorizontalAlignment::Distributed},
    {"lowKashida",     DOM::HorizontalAlignment::Justify    },
    {"mediumKashida",  DOM::HorizontalAlignment::Justify    },
    {"highKashida",    DOM::HorizontalAlignment::Justify    },
    {"numTab",         DOM::HorizontalAlignment::Left       },
};

/// A whole number with its sign; nothing for other text, and beyond a long.
boost::optional<long> convertWholeNumber(const std::string& text)
{
    const std::size_t sign = !text.empty() && (text.front() == '-' || text.front() == '+') ? 1 : 0;
    const std::string digits = text.substr(sign);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
        return boost::none;
    const auto magnitude = strToUlong(digits);
    if (!magnitude || *magnitude > static_cast<unsigned long>(std::numeric_limits<long>::max()))
        return boost::none;
    const auto number = static_cast<long>(*magnitude);
    return text.front() == '-' ? -number : number;
}

/// Pixels have no length of their own: convertLength takes them for a mistake of its caller.
bool endsWithLengthUnit(const std::string& text)
{
    const std::size_t size = text.size();
    return size != 0 && text.back() >= 'a' && text.back() <= 'z' &&
           !(size >= 2 && text.compare(size - 2, 2, "px") == 0);
}

bool isMeasureWithin(float length, FilterUtils::LengthType type)
{
    if (!(std::fabs(length) <= FormatValues::MaxPoints))
        return false;
    if (type == FilterUtils::positiveLength)
        return length > 0;
    return type == FilterUtils::anyLength || length >= 0;
}

} // namespace

FormatValues::FormatValues(const Names& names, const Colors& colors, const TextTheme& theme,
    OperationReport& report, MessageCounts* messages, const XMLElement& root)
    : _names(names)
    , _colors(colors)
    , _theme(theme)
    , _report(report)
    , _messages(messages)
    , _children(root, getUnderstoodNamespaces())
{
}

XMLElement FormatValues::find(const XMLElement& parent, const char* name) const
{
    return _children.getElement(parent, _names(Vocabulary::WordProcessing, name));
}

void FormatValues::processElements(
    const XMLElement& parent, const char* name, const std::function<void(const XMLElement&)>& function) const
{
    _children.processElements(parent, _names(Vocabulary::WordProcessing, name), function);
}

FormatText FormatValues::attribute(const XMLElement& element, const char* name) const
{
    return {element.getAttributeValue(_names(Vocabulary::WordProcessing, name)), name};
}

FormatText FormatValues::value(const XMLElement& parent, const char* child) const
{
    return {attribute(find(parent, child), "val").text, child};
}

boost::optional<bool> FormatValues::readFlag(const FormatText& text) const
{
    return readName(SwitchNames, text);
}

boost::optional<bool> FormatValues::readSwitch(const XMLElement& parent, const char* child) const
{
    const XMLElement element = find(parent, child);
    if (!element.isValid())
        return boost::none;
    const FormatText text{attribute(element, "val").text, child};
    return text.text ? readFlag(text) : boost::optional<bool>(true);
}

boost::optional<long> FormatValues::readWhole(const FormatText& text, long min, long max) const
{
    if (!text.text)
        return boost::none;
    const auto number = convertWholeNumber(*text.text);
    if (number && min <= *number && *number <= max)
        return number;
    report(UnexpectedFormatValue, *text.text, text.name);
    return boost::none;
}

UnitOpt FormatValues::readMeasure(const FormatText& text, FilterUtils::LengthType type) const
{
    return readLength(text, TwipsPerPoint, type);
}

UnitOpt FormatValues::readHalfPoints(const FormatText& text, FilterUtils::LengthType type) const
{
    return readLength(text, HalfPointsPerPoint, type);
}

UnitOpt FormatValues::readLength(
    const FormatText& text, double unitsPerPoint, FilterUtils::LengthType type) const
{
    if (!text.text)
        return boost::none;
    UnitOpt points;
    if (endsWithLengthUnit(*text.text)) {
        OperationReport messages;
        points = FilterUtils::convertLength(messages, *text.text, boost::none, FilterUtils::anyLength);
        takeMessages(messages);
        if (!points)
            return boost::none;
    } else if (const auto number = OfficeUtils::stringToDouble(*text.text)) {
        // Some writers put a fraction behind the whole number.
        const double length = *number / unitsPerPoint;
        if (std::fabs(length) <= double{MaxPoints})
            points = static_cast<float>(length);
    }
    if (points && isMeasureWithin(*points, type))
        return points;
    report(UnexpectedFormatValue, *text.text, text.name);
    return boost::none;
}

boost::optional<DOM::HorizontalAlignment> FormatValues::readAlignment(
    const FormatText& text, bool isRightToLeft) const
{
    const auto alignment = readName(ParagraphAlignments, text);
    // "left" is where lines begin, in documents of either dialect.
    if (isRightToLeft && alignment == DOM::HorizontalAlignment::Left)
        return DOM::HorizontalAlignment::Right;
    if (isRightToLeft && alignment == DOM::HorizontalAlignment::Right)
        return DOM::HorizontalAlignment::Left;
    return alignment;
}

void FormatValues::report(const char* pattern, const std::string& argument) const
{
    if (!_messages || _messages->add(pattern))
        _report.emplace_back(pattern, argument);
}

void FormatValues::report(const char* pattern, const std::string& first, const std::string& second) const
{
    if (!_messages || _messages->add(pattern))
        _report.emplace_back(pattern, first, second);
}

void FormatValues::takeMessages(const OperationReport& messages) const
{
    for (const OperationReport::Message& message : messages.getMessages())
        if (!_messages || _messages->add(message.getText()))
            _report.emplace_back(message);
}

} // namespace QV::Filters
