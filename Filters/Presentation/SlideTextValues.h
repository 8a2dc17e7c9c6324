#pragma once

/// @file
/// Attributes of the elements of slides' text. What is not there is nothing; what cannot be read is nothing
/// as well, after the message UnknownSlideTextValue or one of the library's.

#include <cstddef>
#include <string>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

struct PresentationContext;

/// The argument is the attribute as it stands there: lvl="x".
constexpr const char* UnknownSlideTextValue = "Text of a slide has an unknown value {}";

/// One of the names that an attribute may have as its value.
template <typename Value>
struct SlideTextName
{
    const char* name;
    Value value;
};

/// An attribute of an element, and where to report what is wrong with it.
class SlideTextAttribute
{
public:
    SlideTextAttribute(const FilterUtils::XMLElement& element, const char* name, OperationReport& report)
        : _text(element.getAttributeValue(name))
        , _name(name)
        , _report(report)
    {
    }

    const boost::optional<std::string>& getText() const { return _text; }

    /// "1" and "true"; "0" and "false".
    boost::optional<bool> readFlag() const;
    /// A whole number without a sign, between bounds that belong to the range.
    boost::optional<unsigned long> readNumber(unsigned long min, unsigned long max) const;
    /// Hundredths of a point, as points.
    boost::optional<float> readPoints(unsigned long minHundredths, unsigned long maxHundredths) const;
    /// A percentage, as a share between bounds that belong to the range.
    boost::optional<float> readShare(float min, float max) const;
    /// A coordinate in points, at most @p max either way.
    boost::optional<float> readLength(float max) const;

    template <typename Value, std::size_t Size>
    boost::optional<Value> readName(const SlideTextName<Value> (&names)[Size]) const
    {
        if (!_text)
            return boost::none;
        for (const SlideTextName<Value>& candidate : names)
            if (*_text == candidate.name)
                return candidate.value;
        refuse();
        return boost::none;
    }

    void refuse() const;

private:
    boost::optional<std::string> _text;
    const char* _name;
    OperationReport& _report;
};

/// The name of a font as its element has it; a long one is cut, with a message.
std::string readSlideFontName(const FilterUtils::XMLElement& font, OperationReport& report);

/// Hands the messages over to the presentation's report, within the bounds of its counts.
void takeSlideMessages(const OperationReport& messages, PresentationContext& context);

} // namespace QV::Filters
