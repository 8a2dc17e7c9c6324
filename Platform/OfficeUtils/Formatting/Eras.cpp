#include <OfficeUtils/Formatting/Eras.h>

#include <memory>

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace QV::OfficeUtils {
namespace {

constexpr unsigned long LanguageMask = 0xFFFF; // above it are the calendar and the shapes of digits
constexpr unsigned long Japanese = 0x411;
constexpr unsigned long ChineseOfTaiwan = 0x404;

/// A calendar of ICU and the names of its eras.
class EraCalendar
{
public:
    explicit EraCalendar(const char* localeName)
        : _format(icu::UnicodeString(u"y"), icu::Locale(localeName), _status)
    {
        if (U_SUCCESS(_status))
            _calendar.reset(_format.getCalendar()->clone());
        if (_calendar)
            _calendar->setTimeZone(*icu::TimeZone::getGMT());
    }

    boost::optional<EraYear> find(std::int64_t days)
    {
        constexpr double MillisecondsPerDay = 86400000;
        if (!_calendar)
            return boost::none;
        UErrorCode status = U_ZERO_ERROR;
        _calendar->setTime(static_cast<double>(days) * MillisecondsPerDay, status);
        const std::int32_t era = _calendar->get(UCAL_ERA, status);
        EraYear found{_calendar->get(UCAL_YEAR, status), {}, {}};
        if (U_FAILURE(status))
            return boost::none;
        const icu::DateFormatSymbols& symbols = *_format.getDateFormatSymbols();
        std::int32_t count = 0;
        const icu::UnicodeString* names = symbols.getNarrowEras(count);
        if (0 <= era && era < count)
            names[era].toUTF8String(found.initial);
        names = symbols.getEraNames(count);
        if (0 <= era && era < count)
            names[era].toUTF8String(found.name);
        return found;
    }

private:
    UErrorCode _status = U_ZERO_ERROR;
    icu::SimpleDateFormat _format; // the one way to a calendar's own names
    std::unique_ptr<icu::Calendar> _calendar;
};

} // namespace

boost::optional<EraYear> findEraYear(std::int64_t days, unsigned long language)
{
    switch (language & LanguageMask) {
    case Japanese: {
        thread_local EraCalendar calendar("ja_JP@calendar=japanese");
        return calendar.find(days);
    }
    case ChineseOfTaiwan: {
        thread_local EraCalendar calendar("zh_TW@calendar=roc");
        return calendar.find(days);
    }
    default:
        return boost::none;
    }
}

} // namespace QV::OfficeUtils
