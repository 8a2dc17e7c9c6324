#pragma once

#include <string>
#include <string_view>

#include <boost/optional.hpp>

namespace QV::FilterUtils {
class XMLStreamStart;
}

namespace QV::Filters {

/// The value of an attribute in no namespace; nothing where the element has none. For names that
/// only few elements of drawings have, and that therefore have no number.
boost::optional<std::string> findPlainAttribute(
    const FilterUtils::XMLStreamStart& element, std::u16string_view localName);

/// The same of an attribute in a namespace whose URI ends with @p namespaceEnd.
boost::optional<std::string> findForeignAttribute(const FilterUtils::XMLStreamStart& element,
    std::u16string_view namespaceEnd, std::u16string_view localName);

/// The element's name, without its namespace.
std::string getPlainName(const FilterUtils::XMLStreamStart& element);

} // namespace QV::Filters
