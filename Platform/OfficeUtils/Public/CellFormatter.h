#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <DOM/Public/CellFormatModel.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/DateSystem.h>
#include <OfficeUtils/Public/Export.h>

namespace QV::OfficeUtils {

/// What a cell shows.
struct DisplayedValue
{
    std::string text;
    boost::optional<DOM::Color> color; ///< of the section that applies, where it names one
};

/// Shows the values of cells by a number format, as spreadsheets do in US English.
///
///     const CellFormatter formatter(*Parser::parse("#,##0.00;[Red]-#,##0.00", type), system);
///     formatter.formatNumber(-1234.565);    // "-1,234.57", red
///
/// Numbers have 15 significant digits, and are rounded half away from zero. What is shown as zero has no
/// sign, nor has a section without digits, nor one that is for negative numbers alone: its own signs tell. A
/// gap ("_x") is shown as a blank, and what fills the cell ("*x") not at all, for there is no width to fill.
/// A number that no section is for is shown as it is.
///
/// Seconds are rounded where they are shown, hours and minutes are cut. Where days count from 1900, that year
/// has a 29th of February, and day 0, which is 1899-12-30 by the count of later days, is "1900-01-00", as in
/// the programs that write workbooks. Days before the first are counted back. Elapsed times have a sign.
/// Dates before the year 1 and after 9999 are "########", and so are times of 1e14 days and more. Names of
/// months and days follow the section's locale; so do the years of an era ("e", "g") in Japanese from 1868 on
/// and in Chinese of Taiwan, and "AM/PM" in languages with a script other than Latin.
///
/// Making one is the dear part: keep it for all cells of a format. Several threads may share one.
class OFFICEUTILS_API CellFormatter
{
public:
    CellFormatter(const DOM::CellFormatModel::Expression& expression, DOM::DateSystem system);
    ~CellFormatter();
    CellFormatter(CellFormatter&& other) noexcept;
    CellFormatter& operator=(CellFormatter&& other) noexcept;

    /// "#NUM!" for NaN and infinities.
    DisplayedValue formatNumber(double number) const;
    DisplayedValue formatText(boost::string_ref text) const;

private:
    struct Sections;

    std::unique_ptr<const Sections> _sections;
};

/// A number without a format: in at most eleven characters and a sign, with an exponent where it does not
/// fit otherwise.
///
///     formatGeneral(1234567.8912);    // "1234567.891"
///     formatGeneral(123456789012);    // "1.23457E+11"
OFFICEUTILS_API std::string formatGeneral(double number);

/// "TRUE" or "FALSE", which no format changes.
OFFICEUTILS_API const char* formatBoolean(bool value);

} // namespace QV::OfficeUtils
