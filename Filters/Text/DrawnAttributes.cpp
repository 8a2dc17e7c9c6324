#include <Filters/Text/DrawnAttributes.h>

#include <cstddef>

#include <boost/locale/encoding_utf.hpp>

#include <FilterUtils/FU_XMLStreamReader.h>

namespace QV::Filters {
namespace {

std::string makeAttributeText(std::u16string_view text)
{
    return boost::locale::conv::utf_to_utf<char>(text.data(), text.data() + text.size());
}

bool hasUriEnd(std::u16string_view uri, std::u16string_view end)
{
    return uri.size() >= end.size() && uri.substr(uri.size() - end.size()) == end;
}

} // namespace

boost::optional<std::string> findPlainAttribute(
    const FilterUtils::XMLStreamStart& element, std::u16string_view localName)
{
    for (std::size_t i = 0; i < element.getAttributeCount(); ++i) {
        const FilterUtils::XMLStreamStart::Attribute attribute = element.getAttribute(i);
        if (attribute.uri.empty() && attribute.localName == localName)
            return makeAttributeText(attribute.value);
    }
    return boost::none;
}

boost::optional<std::string> findForeignAttribute(const FilterUtils::XMLStreamStart& element,
    std::u16string_view namespaceEnd, std::u16string_view localName)
{
    for (std::size_t i = 0; i < element.getAttributeCount(); ++i) {
        const FilterUtils::XMLStreamStart::Attribute attribute = element.getAttribute(i);
        if (attribute.localName == localName && !attribute.uri.empty() &&
            hasUriEnd(attribute.uri, namespaceEnd))
            return makeAttributeText(attribute.value);
    }
    return boost::none;
}

std::string getPlainName(const FilterUtils::XMLStreamStart& element)
{
    return makeAttributeText(element.getLocalName());
}

} // namespace QV::Filters
