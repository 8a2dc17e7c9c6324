#pragma once

/// @file
/// Rotations about three axes: angles in degrees <-> a rotation matrix.

#include <array>

#include <FilterUtils/FU_Export.h>
#include <cinder/Matrix33.h>

namespace QV::FilterUtils {

/// Makes the matrix Rz(-third) × Ry(-second) × Rx(first), which acts on column vectors.
///
///     buildTransformMatrixFromAngleDegrees(0, 0, 45);    // rows (√½, √½, 0), (-√½, √½, 0), (0, 0, 1)
///
/// @param first, second, third degrees about the axes X, Y and Z. The third one becomes radians in double
///     precision, the other two in single precision, which decides the last bits of the result
FILTERUTILS_API cinder::Matrix33<float> buildTransformMatrixFromAngleDegrees(
    const float& first, const float& second, const float& third);

/// The angles about X, Y and Z that the function above makes a rotation matrix of; all of it in single
/// precision. Angles outside of the principal ranges come back as an equivalent triple: (100, -40, 170) as
/// (-80, -140, -10). Where the second angle is a quarter turn either way, the third one is 0, and the first
/// one holds the whole rotation about the axis that is left.
///
/// An entry a little beyond -1 to 1 counts as -1 or 1.
FILTERUTILS_API std::array<float, 3> convertMatrixToAnglesDegree(const cinder::Matrix33<float>& matrix);

} // namespace QV::FilterUtils
