#pragma once

/// @file
/// Fills, lines and shadows of drawn shapes; their outlines are in GeometryReader.h.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/ShapeFill.h>
#include <DOM/Public/ShapeProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class DrawingTheme;
class FilterRun;
class PartPictures;
class Relationships;

/// What the elements of one part refer to.
struct DrawingScope
{
    const DrawingTheme& theme;
    const ColorScheme& colors;
    const Relationships& relationships; ///< of the part that the elements stand in
    PartPictures& pictures;
    FilterRun& run;
    /// What "grpFill" stands for: the fill of the group around; null for none.
    const DOM::ShapeFill* groupFill = nullptr;
};

/// The fill that is a child of @p parent (noFill, solidFill, gradFill, blipFill, pattFill, grpFill), in
/// either dialect; nothing where it has none, or one that cannot be read, which is reported.
FILTERS_API boost::optional<DOM::ShapeFill> readFill(
    const FilterUtils::XMLElement& parent, const DrawingScope& scope);

/// The same for a fill element itself, by its local name, such as "solidFill".
FILTERS_API boost::optional<DOM::ShapeFill> readFillElement(
    const std::string& name, const FilterUtils::XMLElement& fill, const DrawingScope& scope);

/// A blipFill element, in whatever vocabulary it stands; nothing where its picture is not there.
FILTERS_API boost::optional<DOM::PictureFill> readPictureFill(
    const FilterUtils::XMLElement& blipFill, const DrawingScope& scope);

/// The share of a picture that is cut off or left free at each side ("srcRect", "fillRect").
FILTERS_API DOM::RelativeRect readRelativeRect(
    const FilterUtils::XMLElement& element, OperationReport& report);

/// Lays what a line element ("ln", "lnL") says over @p props.
FILTERS_API void readLine(
    const FilterUtils::XMLElement& line, const DrawingScope& scope, DOM::ShapeProps& props);

/// Lays the shadow of an element that holds effects ("effectLst", "scene3d", "sp3d") over @p props. Effects
/// without a shadow take away the one that is there: lay them over what the theme gives.
FILTERS_API void readEffects(
    const FilterUtils::XMLElement& parent, const DrawingScope& scope, DOM::ShapeProps& props);

/// Lays what an spPr element says over @p props: fill, line, effects, outline. Starts from the formats that
/// the shape refers to (readReferredFormats), since what it says of effects can take away a shadow of theirs.
FILTERS_API void readShapeProps(
    const FilterUtils::XMLElement& shapeProperties, const DrawingScope& scope, DOM::ShapeProps& props);

/// What a p:style element (or any other with "lnRef", "fillRef", "effectRef" and "fontRef") refers to in the
/// theme. A number of 0 says nothing.
struct ReferredFormats
{
    DOM::ShapeProps props;
    boost::optional<DOM::Color> fontColor;
    std::string fontName; ///< "+mj-lt", "+mn-lt", or empty for none
};
FILTERS_API ReferredFormats readReferredFormats(
    const FilterUtils::XMLElement& style, const DrawingScope& scope);

/// A background: a "bg" element with "bgPr" or "bgRef", whose numbers 0 and 1000 are NoFill. Nothing where it
/// cannot be read.
FILTERS_API boost::optional<DOM::ShapeFill> readBackground(
    const FilterUtils::XMLElement& background, const DrawingScope& scope);

} // namespace QV::Filters
