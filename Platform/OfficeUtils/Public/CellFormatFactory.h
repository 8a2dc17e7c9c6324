#pragma once

#include <DOM/Public/CellFormatModel.h>
#include <OfficeUtils/Public/Export.h>

namespace QV::OfficeUtils {

/// Makes formats of cells.
class OFFICEUTILS_API CellFormatFactory
{
public:
    /// A date, a time or both, by what @p items has.
    static DOM::CellFormatModel::DateTimeLocalizedExpression makeDateTimeFormat(
        const DOM::CellFormatModel::DateTimePatternItemSet& items);
};

} // namespace QV::OfficeUtils
