#pragma once

/// @file
/// Colours that drawings call by a name of their own: those of a fixed list, and those of a system.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Color.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The colour of a preset name (ECMA-376 Part 1, 20.1.10.48). Its short forms count too: "dkBlue" is
/// "darkBlue", "ltGrey" is "lightGray", "medOrchid" is "mediumOrchid".
FILTERS_API boost::optional<DOM::Color::RGBA> findPresetColor(const std::string& name);

/// What a colour of the system's windows (ECMA-376 Part 1, 20.1.10.58) usually is, such as "windowText":
/// black.
FILTERS_API boost::optional<DOM::Color::RGBA> findSystemColor(const std::string& name);

} // namespace QV::Filters
