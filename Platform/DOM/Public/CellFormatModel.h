#pragma once

/// @file
/// Number formats of cells, taken apart: the sections of a format code, and dates and times that follow the
/// conventions of whoever reads them.

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <boost/container/set.hpp>
#include <boost/optional.hpp>

#include <DOM/Public/Export.h>

namespace QV::DOM::CellFormatModel {

/// What a piece of a section is.
enum class TokenKind : std::uint8_t
{
    Literal, // shown as it stands
    Skip,    // a gap as wide as the character
    Fill,    // the character fills what is left of the cell
    Mark,    // a currency symbol and a locale: "[$€-407]"
    Modifier,
    General,
    TextPlaceholder,
    Digit, // "0", "#" or "?"
    DecimalPoint,
    GroupComma, // thousands are set apart
    ScaleComma, // the number is shown in thousands
    Percent,
    Exponent, // "E+" or "E-"
    FractionBar,
    Denominator, // a fixed one
    Weekday,
    Month,
    Day,
    Year,
    Hour,
    Minute,
    Second,
    SecondFraction,
    ElapsedHours,
    ElapsedMinutes,
    ElapsedSeconds,
    DayPart, // "AM/PM" or "A/P"
    Era,
    EraYear,
    BuddhistYear,
    Calendar, // in which the dates of the section count
};

/// A piece of a section.
struct Token
{
    TokenKind kind;
    std::string text; ///< as a code spells it; without quotes and escapes where it is shown or measured

    friend bool operator==(const Token& a, const Token& b) { return a.kind == b.kind && a.text == b.text; }
    friend bool operator!=(const Token& a, const Token& b) { return !(a == b); }
};

/// Which numbers a section is for.
struct Condition
{
    enum class Operator : std::uint8_t
    {
        Less,
        LessOrEqual,
        Equal,
        NotEqual,
        GreaterOrEqual,
        Greater,
    };

    Operator comparison;
    double limit;
    bool isImplied; ///< by the place of the section, which does not say it

    friend bool operator==(const Condition& a, const Condition& b)
    {
        return a.comparison == b.comparison && a.limit == b.limit && a.isImplied == b.isImplied;
    }
};

/// One section of a format code.
class DOM_API Rule
{
public:
    enum class Kind : std::uint8_t
    {
        General,
        Number, // also one that shows only literals
        Scientific,
        Fraction,
        DateTime,
        Text,
    };

    Kind getKind() const { return _kind; }
    const std::vector<Token>& getTokens() const { return _tokens; }
    /// Nothing for the default rules.
    const boost::optional<Condition>& getCondition() const { return _condition; }
    /// The number of a colour of the usual palette, from 1 to 56.
    const boost::optional<unsigned>& getColorNumber() const { return _colorNumber; }
    /// The locale identifier (LCID) of the section's first mark that has one.
    const boost::optional<unsigned long>& getLanguage() const { return _language; }

    void setKind(Kind kind) { _kind = kind; }
    void setTokens(std::vector<Token> tokens) { _tokens = std::move(tokens); }
    void setCondition(const boost::optional<Condition>& condition) { _condition = condition; }
    void setColorNumber(const boost::optional<unsigned>& number) { _colorNumber = number; }
    void setLanguage(const boost::optional<unsigned long>& language) { _language = language; }

    friend DOM_API bool operator==(const Rule& a, const Rule& b);
    friend bool operator!=(const Rule& a, const Rule& b) { return !(a == b); }

private:
    std::vector<Token> _tokens;
    boost::optional<Condition> _condition;
    boost::optional<unsigned> _colorNumber;
    boost::optional<unsigned long> _language;
    Kind _kind = Kind::Number;
};

/// A parsed format code. A number has the first of the conditional rules that it meets, or else the default
/// number rule; a text has the default text rule.
class DOM_API Expression
{
public:
    Expression() = default;
    /// @param rules each with a condition
    Expression(std::vector<Rule> rules, boost::optional<Rule> defaultNumberRule,
        boost::optional<Rule> defaultTextRule);

    const std::vector<Rule>& getRules() const { return _rules; }
    const boost::optional<Rule>& getDefaultNumberRule() const { return _defaultNumberRule; }
    const boost::optional<Rule>& getDefaultTextRule() const { return _defaultTextRule; }

    friend DOM_API bool operator==(const Expression& a, const Expression& b);
    friend bool operator!=(const Expression& a, const Expression& b) { return !(a == b); }

private:
    std::vector<Rule> _rules;
    boost::optional<Rule> _defaultNumberRule;
    boost::optional<Rule> _defaultTextRule;
};

/// The parts of a date and time. The numbers are stored.
enum class DateTimePatternToken : std::uint8_t
{
    Weekday = 0,
    Month = 1,
    Day = 2,
    Year = 3,
    Hour = 4,
    Minute = 5,
    Second = 6,
};

/// A part of a date and time, and the way that it is shown in.
///
/// | Token   | Variants                                                                    |
/// |---------|-----------------------------------------------------------------------------|
/// | Weekday | 0 name, 1 short name                                                        |
/// | Month   | 0 number, 1 name, 2 short name, 3 initial                                   |
/// | Year    | 0 whole, 1 two digits                                                       |
/// | Hour    | 0 as the reader counts them, 1 from 0 to 23, 2 from 1 to 12                 |
/// | others  | 0 number                                                                    |
struct DateTimePatternItem
{
    DateTimePatternToken token;
    std::uint8_t variant;

    friend bool operator<(const DateTimePatternItem& a, const DateTimePatternItem& b)
    {
        return a.token != b.token ? a.token < b.token : a.variant < b.variant;
    }
    friend bool operator==(const DateTimePatternItem& a, const DateTimePatternItem& b)
    {
        return a.token == b.token && a.variant == b.variant;
    }
};

/// Compares the tokens alone, so that a set has each of them once.
struct DateTimePatternItemTokenLess
{
    bool operator()(const DateTimePatternItem& a, const DateTimePatternItem& b) const
    {
        return a.token < b.token;
    }
};

using DateTimePatternItemSet = boost::container::set<DateTimePatternItem, DateTimePatternItemTokenLess>;

/// What a format is for. The numbers are stored.
enum class FormatType : std::uint8_t
{
    General = 0,
    Number = 1,
    Percentage = 2,
    Currency = 3,
    Date = 4,
    Time = 5,
    DateTime = 6,
    Fraction = 7,
    Scientific = 8,
    Text = 9,
};

/// A date or time in the order and with the words of its reader's locale: which parts it has, and no code.
class DOM_API DateTimeLocalizedExpression
{
public:
    DateTimeLocalizedExpression(FormatType type, DateTimePatternItemSet items)
        : _items(std::move(items))
        , _type(type)
    {
    }

    FormatType getFormatType() const { return _type; }
    const DateTimePatternItemSet& getDateTimePatternTokenSet() const { return _items; }

    friend DOM_API bool operator==(
        const DateTimeLocalizedExpression& a, const DateTimeLocalizedExpression& b);
    friend bool operator!=(const DateTimeLocalizedExpression& a, const DateTimeLocalizedExpression& b)
    {
        return !(a == b);
    }

private:
    DateTimePatternItemSet _items;
    FormatType _type;
};

/// The parts of a date and time that a section shows. How many digits a number has, and what stands between
/// the parts, is the reader's to say.
///
/// @param isHourCycleKept whether hours keep to 12 or to 24, as the section counts them
/// @return empty for a section that shows no date and time, or something that no item stands for: elapsed
///     time, parts of a second, years of an era
DOM_API DateTimePatternItemSet convertDateTimeRuleToItemSet(const Rule& rule, bool isHourCycleKept);

} // namespace QV::DOM::CellFormatModel
