#include <OfficeUtils/Formatting/DateTimeText.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include <OfficeUtils/Formatting/Eras.h>
#include <OfficeUtils/Formatting/NumberText.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;
using DOM::DateSystem;

constexpr double SecondsPerDay = 86400;
constexpr double DaysMax = 1e14;          // whose seconds are countable
constexpr std::int64_t DaysBegin = 306;   // 0001-01-01, in days after 0000-03-01
constexpr std::int64_t DaysEnd = 3652365; // 10000-01-01
constexpr int BuddhistEra = 543;

struct Date
{
    int year;
    int month; // from 1
    int day;   // 0 for the day before 1900-01-01
};

/// Days after 0000-03-01 in the proleptic Gregorian calendar.
std::int64_t countDays(std::int64_t serial, DateSystem system)
{
    constexpr std::int64_t Day0Of1900 = 693900; // 1899-12-31
    constexpr std::int64_t Day0Of1904 = 695361; // 1904-01-01
    if (system == DateSystem::From1904)
        return serial + Day0Of1904;
    return serial + Day0Of1900 - (serial < 0 || serial > 60 ? 1 : 0);
}

/// The proleptic Gregorian date so many days after 0000-03-01, for days from 0.
Date makeDate(std::int64_t days)
{
    const std::int64_t era = days / 146097; // of 400 years
    const std::int64_t dayOfEra = days % 146097;
    const std::int64_t year = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * year + year / 4 - year / 100);
    const std::int64_t month = (5 * dayOfYear + 2) / 153; // from March, so that a leap day is the year's last
    const std::int64_t day = dayOfYear - (153 * month + 2) / 5 + 1;
    return {static_cast<int>(year + era * 400 + (month >= 10 ? 1 : 0)),
        static_cast<int>(month < 10 ? month + 3 : month - 9), static_cast<int>(day)};
}

Date makeDate(std::int64_t serial, DateSystem system)
{
    if (system == DateSystem::From1900 && serial == 0)
        return {1900, 1, 0};
    if (system == DateSystem::From1900 && serial == 60)
        return {1900, 2, 29}; // which 1900 did not have
    return makeDate(countDays(serial, system));
}

/// From 0 for Sunday. Day 1 of 1900 counts as one, so that the days after the false leap day are right.
std::size_t getWeekday(std::int64_t serial, DateSystem system)
{
    const std::int64_t weekday = (serial + (system == DateSystem::From1904 ? 5 : 6)) % 7;
    return static_cast<std::size_t>(weekday < 0 ? weekday + 7 : weekday);
}

/// A day and a time, rounded to what a section shows.
struct DateTime
{
    std::int64_t serial;
    std::int64_t seconds;  // of the day
    std::int64_t fraction; // of a second, as a number of fractionDigits digits
};

/// How many digits of a second a section shows; none for sections without seconds.
boost::optional<int> getFractionDigits(const Rule& rule)
{
    boost::optional<int> digits;
    for (const Token& token : rule.getTokens()) {
        if (token.kind == TokenKind::Second || token.kind == TokenKind::ElapsedSeconds)
            digits = std::max(digits.value_or(0), 0);
        if (token.kind == TokenKind::SecondFraction)
            digits = std::max(digits.value_or(0), static_cast<int>(token.text.size()) - 1);
    }
    return digits;
}

/// Seconds are rounded where they are shown, and else cut: 10:59:59 is "10:59".
DateTime round(double serial, const boost::optional<int>& fractionDigits)
{
    constexpr int DigitsUnseen = 3; // finer is noise of the number
    const int digits = fractionDigits.value_or(DigitsUnseen);
    const double unitsPerSecond = std::pow(10.0, digits);
    const double unitsPerDay = SecondsPerDay * unitsPerSecond;
    double day = std::floor(serial);
    double units = std::floor((serial - day) * unitsPerDay + 0.5);
    if (units >= unitsPerDay) {
        ++day;
        units = 0;
    }
    const double seconds = std::floor(units / unitsPerSecond);
    return {static_cast<std::int64_t>(day), static_cast<std::int64_t>(seconds),
        static_cast<std::int64_t>(units - seconds * unitsPerSecond)};
}

void appendPadded(std::int64_t number, std::size_t width, std::string& text)
{
    const std::string digits = std::to_string(number);
    if (digits.size() < width)
        text.append(width - digits.size(), '0');
    text += digits;
}

/// What kinds of tokens a section has.
struct Contents
{
    explicit Contents(const Rule& rule)
    {
        for (const Token& token : rule.getTokens()) {
            const TokenKind kind = token.kind;
            const bool isEra = kind == TokenKind::Era || kind == TokenKind::EraYear;
            hasEra = hasEra || isEra;
            hasDate = hasDate || isEra || (TokenKind::Weekday <= kind && kind <= TokenKind::Year) ||
                      kind == TokenKind::BuddhistYear;
            hasElapsed = hasElapsed || (TokenKind::ElapsedHours <= kind && kind <= TokenKind::ElapsedSeconds);
            hasDayPart = hasDayPart || kind == TokenKind::DayPart;
        }
    }

    bool hasDate = false;
    bool hasEra = false;
    bool hasElapsed = false;
    bool hasDayPart = false;
};

bool hasDay(std::int64_t serial, DateSystem system)
{
    const std::int64_t days = countDays(serial, system);
    return DaysBegin <= days && days < DaysEnd;
}

/// The bytes of the first character of a UTF-8 text.
std::size_t getFirstCharacterSize(const std::string& text)
{
    std::size_t end = std::min<std::size_t>(1, text.size());
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        ++end;
    return end;
}

/// Shows the tokens of one section for one value.
class DateTimeWriter
{
public:
    /// @param elapsed the same without its sign, which minutes and seconds show beside an elapsed time
    DateTimeWriter(const DateTime& value, const DateTime& elapsed, const Rule& rule, const Contents& contents,
        DateSystem system, const DateNames& names)
        : _value(value)
        , _elapsed(contents.hasElapsed ? elapsed : value)
        , _date(contents.hasDate ? makeDate(value.serial, system) : Date{})
        , _names(names)
        , _system(system)
        , _fractionDigits(getFractionDigits(rule).value_or(0))
        , _hasDayPart(contents.hasDayPart)
    {
        if (contents.hasEra)
            _era = findEra(rule.getLanguage().value_or(0));
    }

    void write(const Token& token, std::string& text) const
    {
        if (token.kind <= TokenKind::Year || token.kind >= TokenKind::Era)
            writeDate(token, text);
        else
            writeTime(token, text);
    }

private:
    void writeDate(const Token& token, std::string& text) const
    {
        const std::size_t width = token.text.size();
        switch (token.kind) {
        case TokenKind::Weekday:
            text += (width == 4 ? _names.weekdays : _names.shortWeekdays)[getWeekday(_value.serial, _system)];
            break;
        case TokenKind::Month:
            writeMonth(width, text);
            break;
        case TokenKind::Day:
            appendPadded(_date.day, width, text);
            break;
        case TokenKind::Year:
            appendPadded(width == 2 ? _date.year % 100 : _date.year, width, text);
            break;
        case TokenKind::Era:
        case TokenKind::EraYear:
            writeEra(token, text);
            break;
        case TokenKind::BuddhistYear:
            appendPadded(
                width == 2 ? (_date.year + BuddhistEra) % 100 : _date.year + BuddhistEra, width, text);
            break;
        default:
            appendPlain(token, text);
            break;
        }
    }

    boost::optional<EraYear> findEra(unsigned long language) const
    {
        constexpr std::int64_t Day0Of1970 = 719468;
        const bool isDay0 = _system == DateSystem::From1900 && _value.serial == 0; // which is in January 1900
        return findEraYear(countDays(isDay0 ? 1 : _value.serial, _system) - Day0Of1970, language);
    }

    /// The Gregorian era is not shown.
    void writeEra(const Token& token, std::string& text) const
    {
        const std::size_t width = token.text.size();
        if (token.kind == TokenKind::EraYear)
            appendPadded(_era ? _era->year : _date.year, width, text);
        else if (_era)
            text += width == 1 ? _era->initial : width == 2 ? _era->shortName : _era->name;
    }

    void writeMonth(std::size_t width, std::string& text) const
    {
        const auto index = static_cast<std::size_t>(_date.month - 1);
        if (width <= 2) {
            appendPadded(_date.month, width, text);
            return;
        }
        if (width < 5) {
            text += (width == 3 ? _names.shortMonths : _names.months)[index];
            return;
        }
        text.append(_names.months[index], 0, getFirstCharacterSize(_names.months[index]));
    }

    void writeTime(const Token& token, std::string& text) const
    {
        const std::int64_t elapsed =
            _elapsed.serial * static_cast<std::int64_t>(SecondsPerDay) + _elapsed.seconds;
        const std::size_t width = token.text.size();
        const std::size_t elapsedWidth = width > 2 ? width - 2 : 1; // without brackets
        switch (token.kind) {
        case TokenKind::Hour:
            appendPadded(_hasDayPart ? (getHour() + 11) % 12 + 1 : getHour(), width, text);
            break;
        case TokenKind::Minute:
            appendPadded(_elapsed.seconds / 60 % 60, width, text);
            break;
        case TokenKind::Second:
            appendPadded(_elapsed.seconds % 60, width, text);
            break;
        case TokenKind::SecondFraction: {
            std::string digits;
            appendPadded(_elapsed.fraction, static_cast<std::size_t>(_fractionDigits), digits);
            text += '.' + digits.substr(0, width - 1);
            break;
        }
        case TokenKind::ElapsedHours:
            appendPadded(elapsed / 3600, elapsedWidth, text);
            break;
        case TokenKind::ElapsedMinutes:
            appendPadded(elapsed / 60, elapsedWidth, text);
            break;
        case TokenKind::ElapsedSeconds:
            appendPadded(elapsed, elapsedWidth, text);
            break;
        case TokenKind::DayPart:
            writeDayPart(token, text);
            break;
        default:
            appendPlain(token, text);
            break;
        }
    }

    /// A code says it in English, and some languages in their own script.
    void writeDayPart(const Token& token, std::string& text) const
    {
        const bool isMorning = getHour() < 12;
        const std::size_t width = token.text.size();
        const std::string& name = _names.dayParts[isMorning ? 0 : 1];
        if (!name.empty() && width == std::string("AM/PM").size())
            text += name;
        else
            text += isMorning ? token.text.substr(0, width / 2) : token.text.substr(width / 2 + 1);
    }

    std::int64_t getHour() const { return _value.seconds / 3600; }

    DateTime _value;
    DateTime _elapsed;
    Date _date;
    boost::optional<EraYear> _era;
    const DateNames& _names;
    DateSystem _system;
    int _fractionDigits;
    bool _hasDayPart;
};

} // namespace

boost::optional<std::string> formatDateTime(
    double serial, const Rule& rule, DateSystem system, const DateNames& names)
{
    const Contents contents(rule);
    if (!(std::fabs(serial) < DaysMax))
        return boost::none;
    const auto digits = getFractionDigits(rule);
    const DateTime value = round(serial, digits);
    if (contents.hasDate && !hasDay(value.serial, system))
        return boost::none;
    const DateTime elapsed = round(std::fabs(serial), digits);
    const bool isZero = elapsed.serial == 0 && elapsed.seconds == 0 && elapsed.fraction == 0;
    const DateTimeWriter writer(value, elapsed, rule, contents, system, names);
    std::string text;
    if (contents.hasElapsed && serial < 0 && !isZero)
        text += '-';
    for (const Token& token : rule.getTokens())
        writer.write(token, text);
    return text;
}

} // namespace QV::OfficeUtils
