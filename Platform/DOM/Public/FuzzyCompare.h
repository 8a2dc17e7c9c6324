#pragma once

/// @file
/// The document model's comparison of floating-point numbers that went through arithmetic on their way.

#include <cmath>

namespace QV::DOM {

/// How far two numbers of a type may differ, relative to the larger, and still count as equal.
template <typename T>
inline constexpr T FuzzyTolerance = T();

template <>
inline constexpr float FuzzyTolerance<float> = 0x1p-20F;

template <>
inline constexpr double FuzzyTolerance<double> = 0x1p-49;

/// Whether @p value is finite and its magnitude is below 2^-20: such a float counts as zero.
inline bool isNearZero(float value)
{
    return std::fabs(value) < FuzzyTolerance<float>;
}

/// Whether 1 - |smaller| / |larger| is below the tolerance of the type, for numbers of one sign. The quotient
/// is computed in that type.
///
/// Zero equals only zero, an infinity only itself, NaN nothing.
template <typename T>
bool isFuzzyEqual(T a, T b)
{
    static_assert(FuzzyTolerance<T> > 0, "float and double have a tolerance");
    if (a == b)
        return true;
    if (!std::isfinite(a) || !std::isfinite(b) || a == 0 || b == 0 || std::signbit(a) != std::signbit(b))
        return false;
    const T first = std::fabs(a);
    const T second = std::fabs(b);
    return T(1) - (first < second ? first / second : second / first) < FuzzyTolerance<T>;
}

} // namespace QV::DOM
