#pragma once

#include <DOM/Public/CellFormatModel.h>
#include <OfficeUtils/Formatting/NumberText.h>

namespace QV::OfficeUtils {

/// A fraction of whole numbers, both exact as doubles.
struct Fraction
{
    double numerator;
    double denominator;
};

/// The fraction nearest to a number from 0 up to 1, among those with a denominator up to a limit; the one
/// with the smaller denominator of two. O(log limit).
/// @param denominatorMax from 1 to 999,999,999
Fraction findNearestFraction(double number, double denominatorMax);

/// Shows the magnitude of a number in a section with a fraction bar.
Magnitude formatFraction(double number, const DOM::CellFormatModel::Rule& rule);

} // namespace QV::OfficeUtils
