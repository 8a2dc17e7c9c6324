#pragma once

/// @file
/// Lengths and percentages: text and units of outside formats <-> points and fractions of the document model.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/LineWidths.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/Unit.h>

namespace QV {
class OperationReport;
}

namespace QV::FilterUtils {

/// Which lengths are acceptable. A finite length below 2^-20 points, of either sign, is near zero.
enum LengthType
{
    anyLength = 0,
    positiveLength = 1,    ///< above zero, and not near it
    nonNegativeLength = 2, ///< zero, near it, or above it
};

/// Reads a length such as "12.5pt" or "-1.2cm".
///
///     LENGTH ::= "" | NUMBER UNIT      NUMBER as OfficeUtils::stringToDouble reads it
///     UNIT   ::= "pt" | "in" | "pc" | "pi" | "mm" | "cm"
///
/// No blanks, lower case only. The empty text is 0; a number without a unit is refused.
///
///     convertLength(report, "1in", boost::none, anyLength);    // 72
///     convertLength(report, "1in", UnitOpt(36), anyLength);    // 36
///
/// @param maximum in points; a longer length becomes the maximum, without a message
/// @return points, an infinity where they are beyond the range of float; or nothing, after adding one message
///     whose argument is @p text:
///     - "Can't parse length value {}": NUMBER does not parse; or the unit is "px", which also fails an
///       assertion, since a pixel has no length of its own
///     - "Unknown units in {}": any other unit, or none
///     - "Unexpected value for positiveLength {}": the length is not above zero, or near it
///     - "Unexpected value for nonNegativeLength {}": the length is below zero, and not near it
///
/// Bad text never throws.
FILTERUTILS_API UnitOpt convertLength(
    OperationReport& report, const std::string& text, const UnitOpt& maximum, LengthType type);

/// Reads a percentage: a number before the last "%", or thousandths of a percent without a sign.
///
///     PERCENTAGE ::= NUMBER | NUMBER "%" (anything without "%")
///
///     convertPercentage(report, "50%");      // 0.5
///     convertPercentage(report, "50000");    // 0.5
///
/// @return a fraction: 1.0 is 100 %; or nothing, after adding the message "Can't parse percentage value {0}"
///     with @p text, where NUMBER does not parse
///
/// Bad text never throws. convertToPercentage() goes the other way.
FILTERUTILS_API boost::optional<double> convertPercentage(OperationReport& report, const std::string& text);

/// Writes a fraction as a percentage, with at most 15 digits after the point: 0.5 is "50%".
FILTERUTILS_API std::string convertToPercentage(double fraction);

/// Converts English Metric Units, 12,700 to the point, in single precision.
FILTERUTILS_API float convertEMUToPoints(long long emu);

/// Converts to English Metric Units in single precision, and drops what is left of a unit.
///
/// @return the largest or the smallest long long where the length is beyond them; 0 for NaN
FILTERUTILS_API long long convertPointsToEMU(float points);

/// The class of width that @p width, in points, is nearest to: the thicker one of two at the same distance.
/// No width is thin; NaN is thick.
FILTERUTILS_API DOM::LineWidth convertToLineWidth(boost::optional<float> width);

} // namespace QV::FilterUtils
