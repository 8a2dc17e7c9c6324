#include <DOM/Public/CellFormatModel.h>

#include <ostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QV::DOM::CellFormatModel {

void PrintTo(const DateTimePatternItem& item, std::ostream* out)
{
    *out << "(" << static_cast<int>(item.token) << ", " << static_cast<int>(item.variant) << ")";
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = TokenKind;
using Part = DateTimePatternToken;

DateTimePatternItemSet convert(std::vector<Token> tokens, bool isHourCycleKept = false)
{
    Rule rule;
    rule.setKind(Rule::Kind::DateTime);
    rule.setTokens(std::move(tokens));
    return convertDateTimeRuleToItemSet(rule, isHourCycleKept);
}

TEST(DateTimePatternItem, IsTwoStoredBytes)
{
    EXPECT_EQ(sizeof(DateTimePatternItem), 2U);
    EXPECT_EQ(static_cast<int>(Part::Weekday), 0);
    EXPECT_EQ(static_cast<int>(Part::Month), 1);
    EXPECT_EQ(static_cast<int>(Part::Day), 2);
    EXPECT_EQ(static_cast<int>(Part::Year), 3);
    EXPECT_EQ(static_cast<int>(Part::Hour), 4);
    EXPECT_EQ(static_cast<int>(Part::Minute), 5);
    EXPECT_EQ(static_cast<int>(Part::Second), 6);
}

TEST(DateTimePatternItem, ComparesTokenFirst)
{
    const DateTimePatternItem month = {Part::Month, 3};
    EXPECT_TRUE(month < (DateTimePatternItem{Part::Day, 0}));
    EXPECT_TRUE((DateTimePatternItem{Part::Month, 2}) < month);
    EXPECT_FALSE(month < month);
    EXPECT_FALSE(DateTimePatternItemTokenLess()(DateTimePatternItem{Part::Month, 2}, month));
    EXPECT_TRUE(DateTimePatternItemTokenLess()(DateTimePatternItem{Part::Weekday, 1}, month));
}

TEST(DateTimePatternItem, SetsHaveEachTokenOnce)
{
    DateTimePatternItemSet items = {
        {Part::Year,  1},
        {Part::Month, 1},
        {Part::Month, 2}
    };
    EXPECT_THAT(items, ElementsAre(DateTimePatternItem{Part::Month, 1}, DateTimePatternItem{Part::Year, 1}));
}

TEST(ConvertDateTimeRuleToItemSet, TakesNamesAndLeavesDigitsToTheReader)
{
    EXPECT_THAT(convert({
                    {Kind::Weekday, "dddd"},
                    {Kind::Month,   "mmmm"},
                    {Kind::Day,     "d"   },
                    {Kind::Year,    "yyyy"}
    }),
        ElementsAre(DateTimePatternItem{Part::Weekday, 0}, DateTimePatternItem{Part::Month, 1},
            DateTimePatternItem{Part::Day, 0}, DateTimePatternItem{Part::Year, 0}));
    EXPECT_THAT(convert({
                    {Kind::Weekday, "ddd"},
                    {Kind::Month,   "mm" },
                    {Kind::Day,     "dd" },
                    {Kind::Year,    "yy" }
    }),
        ElementsAre(DateTimePatternItem{Part::Weekday, 1}, DateTimePatternItem{Part::Month, 0},
            DateTimePatternItem{Part::Day, 0}, DateTimePatternItem{Part::Year, 1}));
    EXPECT_THAT(convert({
                    {Kind::Month, "mmm"}
    }),
        ElementsAre(DateTimePatternItem{Part::Month, 2}));
    EXPECT_THAT(convert({
                    {Kind::Month, "mmmmm"}
    }),
        ElementsAre(DateTimePatternItem{Part::Month, 3}));
}

TEST(ConvertDateTimeRuleToItemSet, KeepsTheHoursWhenAsked)
{
    const std::vector<Token> twelve = {
        {Kind::Hour,    "h"    },
        {Kind::Literal, " "    },
        {Kind::DayPart, "AM/PM"}
    };
    const std::vector<Token> twentyFour = {
        {Kind::Hour, "hh"}
    };
    EXPECT_THAT(convert(twelve), ElementsAre(DateTimePatternItem{Part::Hour, 0}));
    EXPECT_THAT(convert(twentyFour), ElementsAre(DateTimePatternItem{Part::Hour, 0}));
    EXPECT_THAT(convert(twelve, true), ElementsAre(DateTimePatternItem{Part::Hour, 2}));
    EXPECT_THAT(convert(twentyFour, true), ElementsAre(DateTimePatternItem{Part::Hour, 1}));
}

TEST(ConvertDateTimeRuleToItemSet, WhatItemsCannotSayMakesNone)
{
    EXPECT_THAT(convert({}), IsEmpty());
    EXPECT_THAT(convert({
                    {Kind::Literal, "x"       },
                    {Kind::Mark,    "[$-F800]"}
    }),
        IsEmpty());
    for (const Kind kind : {Kind::ElapsedHours, Kind::ElapsedMinutes, Kind::ElapsedSeconds,
             Kind::SecondFraction, Kind::Era, Kind::EraYear, Kind::BuddhistYear, Kind::Calendar, Kind::Digit,
             Kind::General, Kind::TextPlaceholder, Kind::Modifier})
        EXPECT_THAT(convert({
                        {Kind::Day, "d"},
                        {kind,      "x"}
        }),
            IsEmpty())
            << static_cast<int>(kind);
}

TEST(CellFormatExpression, ComparesByAllItsRules)
{
    Rule red;
    red.setColorNumber(3U);
    const Expression none;
    EXPECT_EQ(none, Expression());
    EXPECT_NE(none, Expression({red}, boost::none, boost::none));
    EXPECT_NE(none, Expression({}, red, boost::none));
    EXPECT_NE(none, Expression({}, boost::none, red));
    EXPECT_EQ(Expression({}, red, boost::none), Expression({}, red, boost::none));
    EXPECT_NE(Expression({}, red, boost::none), Expression({}, Rule(), boost::none));
}

} // namespace
} // namespace QV::DOM::CellFormatModel
