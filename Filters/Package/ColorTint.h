#pragma once

#include <Filters/Package/Export.h>
#include <cinder/Color.h>

namespace QV::Filters {

/// Makes a colour lighter (a tint above 0, up to 1: white) or darker (below 0, down to -1: black); alpha
/// stays.
///
/// The luminance of the colour is scaled in whole numbers from 0 to 240 for hue, luminance and saturation, as
/// the spreadsheet applications do (ECMA-376 Part 1, 18.8.19, gives the scaling of the luminance).
FILTERS_API cinder::ColorAT<unsigned char> applyTint(
    const cinder::ColorAT<unsigned char>& color, double tint);

/// Makes the luminance of a colour @p scale times what it is, plus @p offset, and keeps hue, saturation and
/// alpha, as word processors do for themeShade and themeTint (ECMA-376 Part 1, 17.3.2.6): in real numbers.
///
/// @param scale, offset of which the luminance stays between 0 and 1; it ends there otherwise
FILTERS_API cinder::ColorAT<unsigned char> changeLuminance(
    const cinder::ColorAT<unsigned char>& color, double scale, double offset);

} // namespace QV::Filters
