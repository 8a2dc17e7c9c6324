#pragma once

/// @file
/// How drawings change a colour (ECMA-376 Part 1, 20.1.2.3), in real numbers: between two changes nothing is
/// rounded.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// A colour between two changes: shares from 0 to 1.
struct ColorShares
{
    double red = 0; ///< as bytes count them, not of linear light
    double green = 0;
    double blue = 0;
    double alpha = 1;
};

/// Hue in turns, saturation and luminance from 0 to 1; shares that are beyond end there.
FILTERS_API ColorShares makeSharesFromHsl(double hue, double saturation, double luminance);

/// Shares of linear light.
FILTERS_API ColorShares makeSharesFromLinear(double red, double green, double blue);

FILTERS_API ColorShares makeShares(const DOM::Color::RGBA& color);
FILTERS_API DOM::Color::RGBA roundShares(const ColorShares& shares);

/// What the value of a modifier is.
enum class ModifierValue
{
    None,  ///< there is none: "inv"
    Share, ///< of a whole: "lumMod"
    Angle, ///< in turns: "hueOff"
};

/// Nothing for what is no modifier.
FILTERS_API boost::optional<ModifierValue> findModifierValue(const std::string& name);

/// Changes a colour by a modifier, such as "lumMod" with 0.75. Shares that come out
/// beyond 0 or 1 end there; the hue goes round. Any other name changes nothing.
///
///     tint, shade        shares of linear light: of the colour against white or black
///     gray               the luminance of linear light
///     gamma, invGamma    each share taken for one of linear light, or made one
///     red, green, blue, alpha, and those with Off or Mod: shares as bytes count them
///     hue, sat, lum, and those with Off or Mod, comp: as HSL
FILTERS_API void applyColorModifier(const std::string& name, double value, ColorShares& color);

} // namespace QV::Filters
