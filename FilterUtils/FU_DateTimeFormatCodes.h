#pragma once

/// @file
/// Dates and times in the manner of the reader's system: expressions of the document model <-> number format
/// codes, which say it by a mark.

#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/CellFormatModel.h>
#include <FilterUtils/FU_Export.h>
#include <OfficeUtils/Public/Parser.h>

namespace QV::FilterUtils {

/// The mark of the system's long date: "[$-F800]".
FILTERUTILS_API extern const char* const DateLocalizationMark;
/// The mark of the system's time: "[$-F400]".
FILTERUTILS_API extern const char* const TimeLocalizationMark;

/// Whether a section's locale identifier is one of the two marks: 0xF400 or 0xF800.
FILTERUTILS_API bool isMsLCIDLocalizedMark(unsigned long lcid);

/// The canonical form of a code: @p formatCode as the parser of the dialect prints it again.
///
/// Throws InternalFilterError "Invalid formatCode for formatting parser on save" for a code that is not
/// valid.
FILTERUTILS_API std::string convertToValidParsedFormatCode(
    std::string const& formatCode, OfficeUtils::Parser::ParserType type);

/// The code of a date or time as US English has it. In the model's dialect it begins with a mark: that of the
/// time where the expression is of the time's type, and else that of the long date.
///
/// Throws as convertToValidParsedFormatCode() does, for an expression without items in a spreadsheet's
/// dialect.
FILTERUTILS_API std::string convertLocalizedDateTimeToFormatCode(
    DOM::CellFormatModel::DateTimeLocalizedExpression const& expression,
    OfficeUtils::Parser::ParserType type);

/// The code of a date or time for a spreadsheet: its own code of the system's long date or time where the
/// items are exactly those, and else what convertLocalizedDateTimeToFormatCode() makes of them.
FILTERUTILS_API std::string convertLocalizedDateTimeToFormatCodeMsExcel(
    DOM::CellFormatModel::DateTimeLocalizedExpression const& expression);

/// The date or time that a code with one of the two marks stands for.
///
/// @return nothing unless the expression is one default number rule, whose language is a mark, and whose
/// parts
///     are all such as a locale can put into its own order
FILTERUTILS_API boost::optional<DOM::CellFormatModel::DateTimeLocalizedExpression>
convertCellFormatExpressionToLocalizedDateTime(DOM::CellFormatModel::Expression const& expression);

} // namespace QV::FilterUtils
