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

} // namespace QV::Filters
