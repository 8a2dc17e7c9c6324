#include <FilterUtils/FU_DateTimeFormatCodes.h>

#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_Errors.h>
#include <OfficeUtils/Public/CellFormatFactory.h>

namespace QV::FilterUtils {
namespace {

using namespace DOM::CellFormatModel;
using OfficeUtils::CellFormatFactory;
using OfficeUtils::Parser;
using Part = DateTimePatternToken;
using Type = Parser::ParserType;

const DateTimePatternItemSet LongDate = {
    {Part::Weekday, 0},
    {Part::Month,   1},
    {Part::Day,     0},
    {Part::Year,    0}
};
const DateTimePatternItemSet Time = {
    {Part::Hour,   0},
    {Part::Minute, 0},
    {Part::Second, 0}
};

boost::optional<DateTimeLocalizedExpression> import(const std::string& code)
{
    const auto expression = Parser::parse(code, Type::Spreadsheet);
    EXPECT_TRUE(expression) << code;
    return expression ? convertCellFormatExpressionToLocalizedDateTime(*expression) : boost::none;
}

std::string exportAs(Type type, const DateTimePatternItemSet& items)
{
    return convertLocalizedDateTimeToFormatCode(CellFormatFactory::makeDateTimeFormat(items), type);
}

std::string exportToExcel(const DateTimePatternItemSet& items)
{
    return convertLocalizedDateTimeToFormatCodeMsExcel(CellFormatFactory::makeDateTimeFormat(items));
}

TEST(IsMsLCIDLocalizedMark, IsTrueForTheTwoMarks)
{
    EXPECT_TRUE(isMsLCIDLocalizedMark(62464));
    EXPECT_TRUE(isMsLCIDLocalizedMark(63488));
    for (const unsigned long lcid :
        {0UL, 0x409UL, 61440UL, 62463UL, 62465UL, 63487UL, 63489UL, 64512UL, 0x1F400UL, 0xFFFFFFFFUL, ~0UL})
        EXPECT_FALSE(isMsLCIDLocalizedMark(lcid)) << lcid;
    EXPECT_STREQ(DateLocalizationMark, "[$-F800]");
    EXPECT_STREQ(TimeLocalizationMark, "[$-F400]");
}

TEST(ConvertToValidParsedFormatCode, GivesTheCanonicalForm)
{
    EXPECT_EQ(convertToValidParsedFormatCode("YYYY \"x\"", Type::Spreadsheet), "yyyy\\ \"x\"");
    EXPECT_EQ(convertToValidParsedFormatCode("YYYY \"x\"", Type::Model), "yyyy\" x\"");
}

TEST(ConvertToValidParsedFormatCode, ThrowsOverInvalidCodes)
{
    for (const Type type : {Type::Model, Type::Spreadsheet})
        try {
            convertToValidParsedFormatCode("0\"", type);
            FAIL() << "did not throw";
        } catch (const InternalFilterError& error) {
            EXPECT_STREQ(error.what(), "Invalid formatCode for formatting parser on save");
        }
}

TEST(ConvertLocalizedDateTimeToFormatCode, MarksCodesOfTheModelAlone)
{
    EXPECT_EQ(exportAs(Type::Model, Time), "[$-F400]h:mm:ss\" \"AM/PM");
    EXPECT_EQ(exportAs(Type::Model, LongDate), "[$-F800]dddd\", \"mmmm\" \"d\", \"yyyy");
    EXPECT_EQ(exportAs(Type::Model,
                  {
                      {Part::Year, 0},
                      {Part::Hour, 0}
    })
                  .substr(0, 8),
        "[$-F800]");
    EXPECT_EQ(exportAs(Type::Spreadsheet, Time), "h:mm:ss\\ AM/PM");
    EXPECT_EQ(exportAs(Type::Spreadsheet, LongDate), "dddd\\,\\ mmmm\\ d\\,\\ yyyy");
}

TEST(ConvertLocalizedDateTimeToFormatCode, NoItemsMakeNoSpreadsheetCode)
{
    EXPECT_EQ(exportAs(Type::Model, {}), "[$-F800]");
    EXPECT_THROW(exportAs(Type::Spreadsheet, {}), InternalFilterError);
    EXPECT_THROW(exportToExcel({}), InternalFilterError);
}

TEST(ConvertLocalizedDateTimeToFormatCodeMsExcel, KnowsTheSystemCodes)
{
    EXPECT_EQ(exportToExcel(Time), "[$-F400]h:mm:ss\\ AM/PM");
    EXPECT_EQ(exportToExcel(LongDate), "[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy");
}

TEST(ConvertLocalizedDateTimeToFormatCodeMsExcel, OtherItemsMakeACodeWithoutMark)
{
    EXPECT_EQ(exportToExcel({
                  {Part::Hour,   0},
                  {Part::Minute, 0}
    }),
        "h:mm\\ AM/PM");
    EXPECT_EQ(exportToExcel({
                  {Part::Hour,   1},
                  {Part::Minute, 0},
                  {Part::Second, 0}
    }),
        "hh:mm:ss");
    EXPECT_EQ(exportToExcel({
                  {Part::Weekday, 1},
                  {Part::Month,   1},
                  {Part::Day,     0},
                  {Part::Year,    0}
    }),
        "ddd\\,\\ mmmm\\ d\\,\\ yyyy");
}

TEST(ConvertCellFormatExpressionToLocalizedDateTime, ReadsTheSystemCodes)
{
    const auto date = import("[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy");
    ASSERT_TRUE(date);
    EXPECT_EQ(date->getDateTimePatternTokenSet(), LongDate);
    EXPECT_EQ(date->getFormatType(), FormatType::Date);
    const auto time = import("[$-F400]h:mm:ss\\ AM/PM");
    ASSERT_TRUE(time);
    EXPECT_EQ(time->getDateTimePatternTokenSet(), Time);
    EXPECT_EQ(time->getFormatType(), FormatType::Time);
    const auto byName = import("[$-x-sysdate]dddd, mmmm d, yyyy");
    ASSERT_TRUE(byName);
    EXPECT_EQ(*byName, *date);
}

TEST(ConvertCellFormatExpressionToLocalizedDateTime, WhatItGivesIsWrittenAgain)
{
    for (const char* const code : {"[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy", "[$-F400]h:mm:ss\\ AM/PM"}) {
        const auto expression = import(code);
        ASSERT_TRUE(expression);
        EXPECT_EQ(convertLocalizedDateTimeToFormatCodeMsExcel(*expression), code);
    }
}

TEST(ConvertCellFormatExpressionToLocalizedDateTime, OtherExpressionsStayOrdinary)
{
    for (const char* const code : {
             "dddd\\,\\ mmmm\\ dd\\,\\ yyyy",          // no mark
             "[$-409]dddd\\,\\ mmmm\\ dd\\,\\ yyyy",   // another one
             "[$-FC00]d", "[$-F801]d",                 // likewise
             "[$-F800]d;[$-F800]d",                    // a rule with a condition, implied
             "[$-F800]d;[<1]d", "[<1][$-F800]d",       // or said
             "[$-F800]d;@", "@",                       // one for texts
             "[$-F800]0", "[$-F800]\"x\"", "[$-F800]", // no date
             "[$-F400][h]:mm", "[$-F400]ss.0",         // no part that a locale orders
         })
        EXPECT_FALSE(import(code)) << code;
    EXPECT_FALSE(convertCellFormatExpressionToLocalizedDateTime(Expression()));
}

} // namespace
} // namespace QV::FilterUtils
