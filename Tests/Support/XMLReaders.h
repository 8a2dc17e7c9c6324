#pragma once

// Both XML readers as functions that tell how a reading ended.

#include <istream>
#include <ostream>
#include <sstream>
#include <string>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLReadOptions.h>
#include <FilterUtils/FU_XMLStreamReader.h>

namespace QV::FilterUtils {

inline void PrintTo(XMLOutcome outcome, std::ostream* out)
{
    static const char* const names[] = {"WellFormed", "Stopped", "Malformed", "Unreadable", "DoctypeRefused",
        "EncodingRefused", "InputLimit", "MarkupLimit", "DepthLimit", "AttributeLimit", "NamespaceLimit",
        "DoctypeLimit", "EntityLimit", "NameLimit", "TextLimit", "SubtreeLimit"};
    *out << names[static_cast<int>(outcome)];
}

} // namespace QV::FilterUtils

namespace QV::Tests {

/// Enters every element; or takes those of the second level as trees.
class PassingHandler : public FilterUtils::XMLStreamHandler
{
public:
    explicit PassingHandler(FilterUtils::XMLStep step = FilterUtils::XMLStep::Enter)
        : _step(step)
    {
    }
    FilterUtils::XMLStep onStart(const FilterUtils::XMLStreamStart& element) override
    {
        ++elements;
        return element.getDepth() == 2 ? _step : FilterUtils::XMLStep::Enter;
    }

    std::size_t elements = 0;

private:
    FilterUtils::XMLStep _step;
};

inline FilterUtils::XMLReadResult readAsTree(
    std::istream& stream, const FilterUtils::XMLReadOptions& options = FilterUtils::XMLReadOptions())
{
    FilterUtils::XMLReadResult result;
    FilterUtils::XMLElement::getRootElement(stream, boost::none, options, &result);
    return result;
}

inline FilterUtils::XMLReadResult readAsStream(std::istream& stream,
    const FilterUtils::XMLReadOptions& options = FilterUtils::XMLReadOptions(),
    FilterUtils::XMLStep step = FilterUtils::XMLStep::Enter)
{
    const FilterUtils::XMLVocabulary noWords({}, {});
    PassingHandler handler(step);
    return FilterUtils::XMLStreamReader(noWords, options).read(stream, handler);
}

inline FilterUtils::XMLReadResult readAsTree(
    const std::string& xml, const FilterUtils::XMLReadOptions& options = FilterUtils::XMLReadOptions())
{
    std::istringstream stream(xml);
    return readAsTree(stream, options);
}

inline FilterUtils::XMLReadResult readAsStream(const std::string& xml,
    const FilterUtils::XMLReadOptions& options = FilterUtils::XMLReadOptions(),
    FilterUtils::XMLStep step = FilterUtils::XMLStep::Enter)
{
    std::istringstream stream(xml);
    return readAsStream(stream, options, step);
}

} // namespace QV::Tests
