#pragma once

#include <map>
#include <string>

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The table styles of a presentation, by the identifier that tables name ("{5C22544A-...}").
class FILTERS_API SlideTableStyles
{
public:
    /// Elements of one style, all below it counted; a style with more is none, so that tables without number
    /// can name it.
    static constexpr unsigned ElementsMax = 1000;

    /// Takes the styles of a tableStyles part's root element; an invalid view changes nothing.
    void read(const FilterUtils::XMLElement& root);

    /// The a:tblStyle element, or the invalid view where the part does not have it.
    FilterUtils::XMLElement find(const std::string& identifier) const;

private:
    std::map<std::string, FilterUtils::XMLElement> _styles;
};

} // namespace QV::Filters
