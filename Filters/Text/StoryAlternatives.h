#pragma once

#include <set>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLStreamReader.h>

namespace QV::Filters {

/// The namespaces that are understood besides those of a document's own vocabularies.
const std::set<std::string>& getUnderstoodNamespaces();

/// Chooses among alternate content as it comes in a stream (ISO/IEC 29500-3, 7.6): the first choice all of
/// whose required namespaces are understood, else the fallback.
class StoryAlternatives
{
public:
    /// What is wanted of an element of alternate content: entered where it is chosen, else skipped. Nothing
    /// for every other element.
    boost::optional<FilterUtils::XMLStep> onStart(const FilterUtils::XMLStreamStart& element);

    /// Whether an element that ends was one of alternate content.
    bool onEnd(const FilterUtils::XMLStreamEnd& element);

private:
    std::vector<bool> _areChosen; // for each that is open: whether a branch was
};

} // namespace QV::Filters
