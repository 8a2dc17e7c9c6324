#pragma once

#include <boost/optional.hpp>

#include <DOM/Public/CellFormatModel.h>
#include <OfficeUtils/FormatCodes/SectionScanner.h>

namespace QV::OfficeUtils {

/// Finds out what the tokens of a section mean beside each other. Nothing where they do not go together.
/// Linear in the number of tokens.
boost::optional<DOM::CellFormatModel::Rule> makeRule(ScannedSection section);

} // namespace QV::OfficeUtils
