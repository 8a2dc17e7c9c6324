#pragma once

#include <vector>

#include <DOM/Public/CellFormatModel.h>
#include <OfficeUtils/Public/LocaleContext.h>

namespace QV::OfficeUtils {

/// Puts the parts of a date and time into the order of a locale, with what stands between them there.
std::vector<DOM::CellFormatModel::Token> makeLocalizedTokens(
    const DOM::CellFormatModel::DateTimePatternItemSet& items, const LocaleContext& context);

} // namespace QV::OfficeUtils
