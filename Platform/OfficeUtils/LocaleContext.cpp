#include <OfficeUtils/Public/LocaleContext.h>

#include <utility>

namespace QV::OfficeUtils {

LocaleContext::LocaleContext(std::string name)
    : _name(std::move(name))
{
}

const LocaleContext& LocaleContext::getDefaultLocaleContext(FormulaType)
{
    static const LocaleContext usEnglish("en_US");
    return usEnglish;
}

} // namespace QV::OfficeUtils
