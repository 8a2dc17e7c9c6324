#pragma once

/// @file
/// Colours of drawings (ECMA-376 Part 1, 20.1.2.3).

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

/// What the names of colours stand for at one place of a document: those of its theme, by the mapping of a
/// master or slide, and the placeholder colour inside of the theme's own formats.
class FILTERS_API ColorScheme
{
public:
    /// The usual mapping: bg1 is lt1, tx1 is dk1, bg2 is lt2, tx2 is dk2.
    /// @param theme outlives this object
    explicit ColorScheme(const Colors& theme);

    /// Takes a mapping: an element such as p:clrMap or a:overrideClrMapping. An invalid view changes nothing.
    void readMapping(const FilterUtils::XMLElement& mapping);

    /// The same scheme with a colour for the name "phClr".
    ColorScheme withPlaceholderColor(const boost::optional<DOM::Color>& color) const;

    /// The colour of a name such as "accent1", "bg1" or "phClr"; nothing for any other.
    boost::optional<DOM::Color::RGBA> findColor(const std::string& name) const;

    /// Whether all names stand for the same colours of the same theme.
    friend bool operator==(const ColorScheme& a, const ColorScheme& b)
    {
        return a._theme == b._theme && a._mapping == b._mapping && a._placeholderColor == b._placeholderColor;
    }
    friend bool operator!=(const ColorScheme& a, const ColorScheme& b) { return !(a == b); }

private:
    const Colors* _theme;
    std::map<std::string, std::string> _mapping; // from names of the document to those of the theme
    boost::optional<DOM::Color> _placeholderColor;
};

/// The colour of an element that holds one, such as "solidFill", "gs" or "fgClr": by its parts in RGB (also
/// linear shares) or HSL, by its name, as a system colour, or by its place in the theme; then changed by each
/// of its modifiers in the order in which they stand, as ColorModifiers.h describes.
///
/// @return nothing where the element holds none, where there is no placeholder colour, or after one message:
///     - "Incorrect color: {0}"
///     - "Unknown color name {}"
///     A modifier whose value cannot be read is reported, and changes nothing.
FILTERS_API boost::optional<DOM::Color> readDrawingColor(
    const FilterUtils::XMLElement& element, const ColorScheme& scheme, OperationReport& report);
/// The same with the usual mapping of names.
FILTERS_API boost::optional<DOM::Color> readDrawingColor(
    const FilterUtils::XMLElement& element, const Colors& colors, OperationReport& report);

/// The colour that the element of that local name is itself, such as "srgbClr"; nothing for any other.
FILTERS_API boost::optional<DOM::Color> readColorElement(const std::string& name,
    const FilterUtils::XMLElement& color, const ColorScheme& scheme, OperationReport& report);

} // namespace QV::Filters
