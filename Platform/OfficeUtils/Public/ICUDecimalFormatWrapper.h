#pragma once

#include <string>

#include <OfficeUtils/Public/Export.h>
#include <OfficeUtils/Public/LocaleContext.h>

namespace QV::OfficeUtils {

/// Writes numbers as decimals in the manner of a locale: its digits, signs and decimal separator, no
/// grouping, no trailing zeros in the fraction.
///
///     ICUDecimalFormatWrapper format(LocaleContext("de_DE"));
///     format.setPrecision(2);
///     format.toString(1234.565);    // "1234,56"
///
/// Cheap to make: each thread keeps the formatters of the locales and precisions that it used last.
/// One thread at a time for each object.
class OFFICEUTILS_API ICUDecimalFormatWrapper
{
public:
    /// Starts with a precision of 3.
    explicit ICUDecimalFormatWrapper(const LocaleContext& context);

    /// @param digits the most digits of the fraction that toString() writes; a negative number is taken for 0
    void setPrecision(int digits);

    /// The shortest decimal that reads back as @p value, rounded half to even where its fraction is longer
    /// than the precision. NaN and infinities have ICU's text of the locale ("NaN", "∞", "-∞").
    ///
    /// Throws std::runtime_error where ICU has no formatter to offer, as without its data.
    std::string toString(double value) const;

private:
    std::string _localeName;
    int _precision = 3;
};

} // namespace QV::OfficeUtils
