#include <FilterUtils/FU_TransformMatrices.h>

#include <algorithm>
#include <cmath>

namespace QV::FilterUtils {
namespace {

using TransformMatrix = cinder::Matrix33<float>;

constexpr double RadiansPerThirdDegree = 0.017453292519943295;
constexpr float RadiansPerDegree = 0.01745329238474369F;
constexpr float DegreesPerRadian = 57.29578F;
constexpr float HalfTurn = 3.1415927F;
constexpr float GimbalTolerance = 1e-6F;

TransformMatrix makeRotationAboutX(float radians)
{
    const float sine = std::sin(radians);
    const float cosine = std::cos(radians);
    TransformMatrix matrix;
    matrix.at(1, 1) = cosine;
    matrix.at(1, 2) = -sine;
    matrix.at(2, 1) = sine;
    matrix.at(2, 2) = cosine;
    return matrix;
}

// The other way round than about X and Z.
TransformMatrix makeBackwardRotationAboutY(float radians)
{
    const float sine = std::sin(radians);
    const float cosine = std::cos(radians);
    TransformMatrix matrix;
    matrix.at(0, 0) = cosine;
    matrix.at(0, 2) = -sine;
    matrix.at(2, 0) = sine;
    matrix.at(2, 2) = cosine;
    return matrix;
}

TransformMatrix makeRotationAboutZ(float radians)
{
    const float sine = std::sin(radians);
    const float cosine = std::cos(radians);
    TransformMatrix matrix;
    matrix.at(0, 0) = cosine;
    matrix.at(0, 1) = -sine;
    matrix.at(1, 0) = sine;
    matrix.at(1, 1) = cosine;
    return matrix;
}

float clampedArcSine(float sine)
{
    return std::asin(std::clamp(sine, -1.0F, 1.0F));
}

// The other angle with that sine, on the same side of zero.
float toOtherHalf(float radians)
{
    return std::copysign(HalfTurn - std::abs(radians), radians);
}

std::array<float, 3> convertToDegrees(float first, float second, float third)
{
    return {first * DegreesPerRadian, second * DegreesPerRadian, third * DegreesPerRadian};
}

// The axes X and Z are one: only the sum or the difference of their angles tells in the matrix.
std::array<float, 3> decomposeGimbal(const TransformMatrix& matrix, float second)
{
    const float first = -clampedArcSine(matrix.at(1, 2));
    const float cosine = matrix.at(1, 1);
    const bool isBehind = std::abs(cosine) > GimbalTolerance && cosine < 0;
    return convertToDegrees(isBehind ? toOtherHalf(first) : first, second, 0);
}

} // namespace

TransformMatrix buildTransformMatrixFromAngleDegrees(
    const float& first, const float& second, const float& third)
{
    // The third angle alone goes through double precision, on purpose: it decides the last bits.
    const double backward = -static_cast<double>(third) * RadiansPerThirdDegree;
    TransformMatrix matrix = makeRotationAboutZ(static_cast<float>(backward));
    matrix *= makeBackwardRotationAboutY(second * RadiansPerDegree);
    matrix *= makeRotationAboutX(first * RadiansPerDegree);
    return matrix;
}

std::array<float, 3> convertMatrixToAnglesDegree(const TransformMatrix& matrix)
{
    float second = clampedArcSine(matrix.at(2, 0));
    if (1 - std::abs(matrix.at(2, 0)) < GimbalTolerance)
        return decomposeGimbal(matrix, second);
    if (matrix.at(0, 0) < 0)
        second = toOtherHalf(second);
    const float cosine = std::cos(second);
    const float third = -clampedArcSine(matrix.at(1, 0) / cosine);
    const float first = clampedArcSine(matrix.at(2, 1) / cosine);
    return convertToDegrees(matrix.at(2, 2) / cosine < 0 ? toOtherHalf(first) : first, second, third);
}

} // namespace QV::FilterUtils
