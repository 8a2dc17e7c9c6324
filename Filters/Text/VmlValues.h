#pragma once

/// @file
/// Values of VML, the older language of drawings (ECMA-376 Part 4, "VML"): styles, lengths, colours.

#include <map>
#include <string>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <FilterUtils/FU_Lengths.h>
#include <Filters/Package/Export.h>
#include <cinder/Vector.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// The properties of a "style" attribute by name. Names are in lower case, and neither names nor values have
/// blanks around them. Of properties with the same name, one stays.
using VmlStyle = std::map<std::string, std::string>;

/// Reads a "style" attribute.
///
///     readVmlStyle("Width: 10pt;flip:x")["width"];    // "10pt"
FILTERS_API VmlStyle readVmlStyle(const std::string& text);

/// The value of a property; nothing where the style has none.
FILTERS_API boost::optional<std::string> findVmlProperty(const VmlStyle& style, const std::string& name);

/// A length as it is written.
struct VmlLength
{
    float value;     ///< in points, or in what the surroundings count in; finite
    bool isUnitless; ///< a bare number: in units of the group's coordinates, in pixels outside of groups
};

/// Points of a pixel: there are 96 to the inch.
constexpr float VmlPointsPerPixel = 0.75F;

/// Reads a length.
///
///     LENGTH ::= NUMBER UNIT?        in any letter case
///     UNIT   ::= "px" | what FilterUtils::convertLength knows
///
/// @param type what of convertLength's types a length with a unit has to be
/// @return nothing for "auto", percentages, and multiples of the font's size ("em", "ex"), which need what is
///     around them; nothing after one message of convertLength for any other text
FILTERS_API boost::optional<VmlLength> readVmlLength(
    const std::string& text, FilterUtils::LengthType type, OperationReport& report);

/// Reads an angle: degrees, or 65,536ths of one where "fd" follows.
///
/// @return degrees clockwise, from 0 to below 360; nothing after the message "Drawing rotation {} is none"
FILTERS_API boost::optional<double> readVmlRotation(const std::string& text, OperationReport& report);

/// Reads a colour.
///
///     COLOUR ::= (NAME | "#" HEX3 | what FilterUtils::convertToRGBAColor reads) (BLANK anything)?
///     NAME   ::= one of the sixteen of HTML 4, in any letter case
///
/// Each of three digits stands for two. Blanks between the parts of "rgb(...)" do not matter.
///
/// @return nothing for the empty text and "none"; nothing after the message "Incorrect color value: {0}" for
///     any other text
FILTERS_API boost::optional<DOM::Color> readVmlColor(const std::string& text, OperationReport& report);

/// Reads a fraction: a number, a percentage, or 65,536ths where "f" follows.
///
/// @return from 0 to 1, the nearest one; nothing after the message "Can't parse percentage value {0}"
FILTERS_API boost::optional<double> readVmlFraction(const std::string& text, OperationReport& report);

/// Reads two numbers with a comma between, such as those of "coordsize".
///
/// @param usual what stands for a number that is not there, or none
FILTERS_API cinder::Vec2<float> readVmlPair(const std::string& text, const cinder::Vec2<float>& usual);

/// Splits two lengths with a comma between; the second one is empty where there is none.
FILTERS_API std::pair<std::string, std::string> splitVmlPair(const std::string& text);

/// Whether a truth value says no: "f", "false", "0", "no" or "off".
FILTERS_API bool isVmlFalse(const std::string& text);

} // namespace QV::Filters
