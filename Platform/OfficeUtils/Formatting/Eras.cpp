#include <OfficeUtils/Formatting/Eras.h>

#include <cstddef>
#include <memory>

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace QV::OfficeUtils {
namespace {

constexpr unsigned long LocaleMask = 0xFFFF;  // above it are the calendar and the shapes of digits
constexpr unsigned long LanguageMask = 0x3FF; // of a locale, without the country
constexpr unsigned long Japanese = 0x11;
constexpr unsigned long ChineseOfTaiwan = 0x404;
constexpr std::int64_t FirstJapaneseDay = -37255; // 1868-01-01: no one counts by older eras any more

/// A calendar of ICU and the names of its eras.
class EraCalendar
{
public:
    explicit EraCalendar(const char* localeName)
        : _format(icu::UnicodeString(u"y"), icu::Locale(localeName), _status)
    {
        if (U_SUCCESS(_status))
            _calendar.reset(_format.getCalendar()->clone());
        if (!_calendar)
            return;
        _calendar->setTimeZone(*icu::TimeZone::getGMT());
        constexpr UDate Never = -1e17;
        if (auto* const gregorian = dynamic_cast<icu::GregorianCalendar*>(_calendar.get()))
            gregorian->setGregorianChange(Never, _status);
    }

    boost::optional<EraYear> find(std::int64_t days)
    {
        constexpr double MillisecondsPerDay = 86400000;
        if (!_calendar || U_FAILURE(_status))
            return boost::none;
        UErrorCode status = U_ZERO_ERROR;
        _calendar->setTime(static_cast<double>(days) * MillisecondsPerDay, status);
        const std::int32_t era = _calendar->get(UCAL_ERA, status);
        EraYear found{_calendar->get(UCAL_YEAR, status), {}, {}, {}};
        if (U_FAILURE(status))
            return boost::none;
        const icu::DateFormatSymbols& symbols = *_format.getDateFormatSymbols();
        std::int32_t count = 0;
        const icu::UnicodeString* names = symbols.getNarrowEras(count);
        if (0 <= era && era < count)
            names[era].toUTF8String(found.initial);
        names = symbols.getEraNames(count);
        if (0 <= era && era < count) {
            names[era].toUTF8String(found.name);
            names[era].tempSubString(0, names[era].moveIndex32(0, 1)).toUTF8String(found.shortName);
        }
        return found;
    }

private:
    UErrorCode _status = U_ZERO_ERROR;
    icu::SimpleDateFormat _format; // the one way to a calendar's own names
    std::unique_ptr<icu::Calendar> _calendar;
};

boost::optional<EraYear> findRepublicYear(std::int64_t days)
{
    thread_local EraCalendar calendar("zh_TW@calendar=roc");
    auto found = calendar.find(days);
    if (found) {
        found->initial = found->shortName = found->name;
        found->name = "\xE4\xB8\xAD\xE8\x8F\xAF" + found->name; // in full it begins with "Chinese"
    }
    return found;
}

} // namespace

boost::optional<EraYear> findEraYear(std::int64_t days, unsigned long language)
{
    if ((language & LocaleMask) == ChineseOfTaiwan)
        return findRepublicYear(days);
    if ((language & LanguageMask) != Japanese || days < FirstJapaneseDay)
        return boost::none;
    thread_local EraCalendar calendar("ja_JP@calendar=japanese");
    return calendar.find(days);
}

} // namespace QV::OfficeUtils
