#include <Filters/Presentation/SlideTextValues.h>

#include <cmath>

#include <FilterUtils/FU_Lengths.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Utils/Public/NumberText.h>

namespace QV::Filters {

boost::optional<bool> SlideTextAttribute::readFlag() const
{
    static constexpr SlideTextName<bool> Flags[] = {
        {"1",     true },
        {"true",  true },
        {"0",     false},
        {"false", false},
    };
    return readName(Flags);
}

boost::optional<unsigned long> SlideTextAttribute::readNumber(unsigned long min, unsigned long max) const
{
    if (!_text)
        return boost::none;
    if (!_text->empty() && _text->find_first_not_of("0123456789") == std::string::npos)
        if (const auto number = strToUlong(*_text); number && *number >= min && *number <= max)
            return number;
    refuse();
    return boost::none;
}

boost::optional<float> SlideTextAttribute::readPoints(
    unsigned long minHundredths, unsigned long maxHundredths) const
{
    const auto hundredths = readNumber(minHundredths, maxHundredths);
    return hundredths ? boost::make_optional(static_cast<float>(*hundredths) / 100) : boost::none;
}

boost::optional<float> SlideTextAttribute::readShare(float min, float max) const
{
    if (!_text)
        return boost::none;
    const auto share = FilterUtils::convertPercentage(_report, *_text);
    if (!share)
        return boost::none;
    if (*share >= double{min} && *share <= double{max})
        return static_cast<float>(*share);
    refuse();
    return boost::none;
}

boost::optional<float> SlideTextAttribute::readLength(float max) const
{
    if (!_text)
        return boost::none;
    const auto points = readCoordinate(*_text, _report);
    if (!points || std::fabs(*points) <= max)
        return points;
    refuse();
    return boost::none;
}

void SlideTextAttribute::refuse() const
{
    _report.emplace_back(UnknownSlideTextValue, _name + ("=\"" + _text.value_or("") + "\""));
}

std::string readSlideFontName(const FilterUtils::XMLElement& font, OperationReport& report)
{
    std::string name = font.getAttributeValue("typeface").value_or(std::string());
    if (cutUtf8(name, DrawingTheme::FontNameBytesMax))
        report.emplace_back(
            "Name of a font is cut at {} bytes", std::to_string(DrawingTheme::FontNameBytesMax));
    return name;
}

void takeSlideMessages(const OperationReport& messages, PresentationContext& context)
{
    for (const OperationReport::Message& message : messages.getMessages())
        if (context.messages.add(message.getText()))
            context.run.getReport().emplace_back(message);
}

} // namespace QV::Filters
