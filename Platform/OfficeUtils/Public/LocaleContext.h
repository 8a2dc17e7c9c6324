#pragma once

#include <string>

#include <OfficeUtils/Public/Export.h>

namespace QV::OfficeUtils {

/// The dialects that formulas and number formats are stored in.
enum class FormulaType
{
    OpenDocument = 0,
    RowColumn = 1,
    OfficeOpenXml = 2,
};

/// The language and the country whose conventions a text follows.
class OFFICEUTILS_API LocaleContext
{
public:
    /// @param name an ICU locale identifier, such as "de_DE"
    explicit LocaleContext(std::string name);

    /// The conventions that documents of the dialect are stored in: US English, whatever the dialect. The
    /// locale of the process and its environment are not asked.
    static const LocaleContext& getDefaultLocaleContext(FormulaType type);

    const std::string& getName() const { return _name; }

private:
    std::string _name;
};

} // namespace QV::OfficeUtils
