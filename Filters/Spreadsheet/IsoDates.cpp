#include <Filters/Spreadsheet/IsoDates.h>

#include <cstddef>

namespace QV::Filters {
namespace {

constexpr double SecondsPerDay = 86400;

class DigitsReader
{
public:
    explicit DigitsReader(const std::string& text)
        : _text(text)
    {
    }

    bool isAtEnd() const { return _position == _text.size(); }

    bool skip(char c)
    {
        if (isAtEnd() || _text[_position] != c)
            return false;
        ++_position;
        return true;
    }

    boost::optional<long> readDigits(std::size_t count)
    {
        if (_text.size() - _position < count)
            return boost::none;
        long number = 0;
        for (std::size_t i = 0; i < count; ++i, ++_position) {
            const char c = _text[_position];
            if (c < '0' || c > '9')
                return boost::none;
            number = number * 10 + (c - '0');
        }
        return number;
    }

    /// The digits after a point, as a part of one.
    double readFraction()
    {
        double fraction = 0;
        double weight = 0.1;
        for (; !isAtEnd() && _text[_position] >= '0' && _text[_position] <= '9'; ++_position) {
            fraction += (_text[_position] - '0') * weight;
            weight /= 10;
        }
        return fraction;
    }

private:
    const std::string& _text;
    std::size_t _position = 0;
};

bool isLeapYear(long year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

long getDaysInMonth(long year, long month)
{
    constexpr long Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : Days[month - 1];
}

/// Days since 0000-03-01 of the proleptic Gregorian calendar.
long countDays(long year, long month, long day)
{
    const long y = month > 2 ? year : year - 1;
    const long m = month > 2 ? month - 3 : month + 9; // years begin in March, so a leap day is their last
    return 365 * y + y / 4 - y / 100 + y / 400 + (153 * m + 2) / 5 + day - 1;
}

boost::optional<double> readDate(DigitsReader& reader, DateSystem system)
{
    const auto year = reader.readDigits(4);
    if (!year || !reader.skip('-'))
        return boost::none;
    const auto month = reader.readDigits(2);
    if (!month || *month < 1 || *month > 12 || !reader.skip('-'))
        return boost::none;
    const auto day = reader.readDigits(2);
    if (!day || *day < 1 || *day > getDaysInMonth(*year, *month))
        return boost::none;

    const long days = countDays(*year, *month, *day);
    if (system == DateSystem::From1904) {
        const long serial = days - countDays(1904, 1, 1);
        return boost::make_optional(serial >= 0, static_cast<double>(serial));
    }
    if (days == countDays(1899, 12, 30)) // day 0 of writers that count no 1900-02-29
        return 0.0;
    const long sinceEve = days - countDays(1899, 12, 31);
    const long serial = days >= countDays(1900, 3, 1) ? sinceEve + 1 : sinceEve; // day 60 is 1900-02-29
    return boost::make_optional(serial >= 0, static_cast<double>(serial));
}

boost::optional<double> readTime(DigitsReader& reader)
{
    const auto hours = reader.readDigits(2);
    if (!hours || *hours > 24 || !reader.skip(':'))
        return boost::none;
    const auto minutes = reader.readDigits(2);
    if (!minutes || *minutes > 59)
        return boost::none;
    double seconds = 0;
    if (reader.skip(':')) {
        const auto whole = reader.readDigits(2);
        if (!whole || *whole > 59)
            return boost::none;
        seconds = static_cast<double>(*whole);
        if (reader.skip('.'))
            seconds += reader.readFraction();
    }
    reader.skip('Z');
    return (static_cast<double>(*hours * 3600 + *minutes * 60) + seconds) / SecondsPerDay;
}

} // namespace

boost::optional<double> convertIsoDateToSerial(const std::string& text, DateSystem system)
{
    DigitsReader reader(text);
    const bool isTimeAlone = text.size() > 2 && text[2] == ':';
    double serial = 0;
    if (!isTimeAlone) {
        const auto date = readDate(reader, system);
        if (!date)
            return boost::none;
        serial = *date;
    }
    if (isTimeAlone || reader.skip('T')) {
        const auto time = readTime(reader);
        if (!time)
            return boost::none;
        serial += *time;
    }
    return boost::make_optional(reader.isAtEnd(), serial);
}

} // namespace QV::Filters
