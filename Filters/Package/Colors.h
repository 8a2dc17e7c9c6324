#pragma once

#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}
namespace QV::Filters {
class Names;
}

namespace QV::Filters {

/// The colours that a workbook's formats refer to by number: its theme's and its indexed palette.
class FILTERS_API Colors
{
public:
    /// The standard palette, and the theme that applications use where a file has none.
    Colors();

    /// Takes the colours of a theme part's root element. Colours that cannot be read are reported, and stay
    /// standard.
    void readTheme(const FilterUtils::XMLElement& theme, OperationReport& report);

    /// Takes the palette of a styles part's "colors" element; an invalid view changes nothing.
    void readPalette(const FilterUtils::XMLElement& colors, const Names& names, OperationReport& report);

    /// The colour that an element of colour type (such as "fgColor") gives, with its tint; nothing for an
    /// invalid view, an automatic colour, or a colour that cannot be read, which is reported.
    boost::optional<DOM::Color> readColor(
        const FilterUtils::XMLElement& element, OperationReport& report) const;

    /// The theme's colour of a name that drawings use, such as "accent1" or "bg1"; nothing for other names.
    boost::optional<DOM::Color::RGBA> findThemeColor(const std::string& name) const;

private:
    std::vector<DOM::Color::RGBA> _theme;   // in the order of the "theme" attribute's numbers
    std::vector<DOM::Color::RGBA> _palette; // in the order of the "indexed" attribute's numbers
};

} // namespace QV::Filters
