#pragma once

#include <map>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Colors;
class Names;

/// The fonts of a document's theme, and its colours by the names that text gives them.
class FILTERS_API TextTheme
{
public:
    /// Takes the fonts of a theme part's root element.
    void readFonts(const FilterUtils::XMLElement& theme);

    /// Takes the mapping of colour names in a settings part ("clrSchemeMapping"); an invalid view changes
    /// nothing.
    void readColorMapping(const FilterUtils::XMLElement& mapping, const Names& names);

    /// The font that a name such as "minorHAnsi" or "majorEastAsia" stands for; nothing where the theme has
    /// none.
    boost::optional<std::string> findFont(const std::string& name) const;

    /// The colour that a name such as "accent1", "text1" or "background2" stands for; nothing for another
    /// name.
    boost::optional<DOM::Color::RGBA> findColor(const std::string& name, const Colors& colors) const;

private:
    std::map<std::string, std::string> _fonts;        // by "major" or "minor" with the script's name
    std::map<std::string, std::string> _colorMapping; // from the names in text to those of the theme
};

} // namespace QV::Filters
