#include <OfficeUtils/Public/CellFormatFactory.h>

#include <algorithm>

namespace QV::OfficeUtils {

using namespace DOM::CellFormatModel;

DateTimeLocalizedExpression CellFormatFactory::makeDateTimeFormat(const DateTimePatternItemSet& items)
{
    const auto isOfTime = [](const DateTimePatternItem& item) {
        return item.token >= DateTimePatternToken::Hour;
    };
    const bool hasTime = std::any_of(items.begin(), items.end(), isOfTime);
    const bool hasDate = !std::all_of(items.begin(), items.end(), isOfTime);
    const FormatType dateType = hasTime ? FormatType::DateTime : FormatType::Date;
    return DateTimeLocalizedExpression(hasTime && !hasDate ? FormatType::Time : dateType, items);
}

} // namespace QV::OfficeUtils
