#pragma once

/// @file
/// What of drawings this version does not read, in words for a person.

namespace QV::Filters::DrawingLeftOut {

constexpr const char* CompoundLines = "lines of several strokes";
constexpr const char* CustomDashes = "exact lengths of dashes";
constexpr const char* Effects = "effects of shapes other than shadows";
constexpr const char* GradientTiles = "mirrored and repeated gradients";
constexpr const char* PictureEffects = "effects on pictures (recoloring, brightness and the like)";
constexpr const char* PictureTiles = "mirrored and aligned tiles of pictures";
constexpr const char* ShadowShapes = "scaled and skewed shadows";
constexpr const char* ThreeDimensions = "three-dimensional looks of shapes";

} // namespace QV::Filters::DrawingLeftOut
