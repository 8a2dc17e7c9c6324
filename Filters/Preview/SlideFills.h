#pragma once

/// @file
/// Fills of shapes, lines and slides as attributes and elements of SVG.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/ShapeFill.h>
#include <Filters/Package/Export.h>
#include <Utils/Public/Size2D.h>

namespace QV::Filters {

class SlideDefs;

/// What a fill covers: a box from 0, 0 on, in points.
struct FillArea
{
    Size2D<float> size;
    float rotation = 0; ///< of what is filled, in degrees clockwise
};

/// The colour as a property, with its opacity where that is not full: ` fill="#FF0000" fill-opacity="0.5"`.
/// @param property such as "fill", "stroke", "stop-color" or "flood-color"
FILTERS_API std::string makeColorAttributes(const std::string& property, const DOM::Color& color);

/// The attributes that fill an element: ` fill="none"`, ` fill="url(#d1)"`. Pictures that cannot be shown are
/// light grey.
/// @param property "fill" or "stroke"
FILTERS_API std::string makePaint(
    const std::string& property, const DOM::ShapeFill& fill, const FillArea& area, SlideDefs& defs);

/// The one colour that stands for a fill where there can be but one; nothing for no fill.
FILTERS_API boost::optional<DOM::Color> findMainColor(const DOM::ShapeFill& fill);

/// The element that shows a picture from 0, 0 on.
/// @param id of SlideDefs::addPicture
FILTERS_API std::string makePictureElement(
    const std::string& id, const DOM::RelativeRect& crop, const Size2D<float>& size);

} // namespace QV::Filters
