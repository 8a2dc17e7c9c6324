#pragma once

/// @file
/// Shares, angles and switches of drawings, as text.

#include <string>

#include <boost/optional.hpp>

#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// Reads a share: thousandths of a percent, or a percentage with its sign (ECMA-376 Part 1, 22.9.2.9). One
/// beyond 1000 either way ends there.
///
///     readShare("50000", report); // 0.5
///     readShare("50%", report);   // 0.5
///
/// @return nothing for no text; or after the message of FilterUtils::convertPercentage
FILTERS_API boost::optional<double> readShare(
    const boost::optional<std::string>& text, OperationReport& report);

/// Reads an angle, 60,000ths of a degree.
///
/// @return degrees from 0 to below 360; nothing for no text, or after one message, where it is no number:
///     - "Drawing angle {} is none"
FILTERS_API boost::optional<double> readAngle(
    const boost::optional<std::string>& text, OperationReport& report);

/// @return whether the text says yes; @p otherwise for no text
FILTERS_API bool readSwitch(const boost::optional<std::string>& text, bool otherwise);

} // namespace QV::Filters
