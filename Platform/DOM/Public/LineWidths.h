#pragma once

namespace QV::DOM {

/// The three widths, in points, that a line may be drawn with where a format knows only classes of widths.
constexpr float ThinLineWidth = 0.75F;
constexpr float MediumLineWidth = 1.5F;
constexpr float ThickLineWidth = 2.25F;

/// The class of such a width.
enum class LineWidth
{
    Thin = 0,
    Medium = 1,
    Thick = 2,
};

} // namespace QV::DOM
