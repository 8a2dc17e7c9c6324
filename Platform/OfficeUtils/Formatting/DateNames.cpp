#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <utility>

#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <OfficeUtils/Formatting/DateTimeText.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;

constexpr unsigned long EnglishUnitedStates = 0x409;
constexpr unsigned long SystemDate = 0xF800;
constexpr unsigned long SystemTime = 0xF400;
constexpr unsigned long LanguageMask = 0xFFFF; // above it are the calendar and the shapes of digits

template <std::size_t Size>
void takeNames(
    std::string (&names)[Size], const icu::UnicodeString* found, std::int32_t count, std::int32_t skipped)
{
    for (std::size_t i = 0; i < Size; ++i) {
        const auto index = static_cast<std::int32_t>(i) + skipped;
        if (index < count)
            found[index].toUTF8String(names[i]);
    }
}

/// Whether a text begins with a letter of a script other than Latin.
bool isForeign(const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const UScriptCode script = uscript_getScript(text.char32At(0), &status);
    return U_SUCCESS(status) && script != USCRIPT_LATIN && script != USCRIPT_COMMON;
}

// The name of a month has another form beside a day in many languages.
std::shared_ptr<const DateNames> makeNames(const icu::Locale& locale, bool isBesideDay)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(locale, status);
    if (U_FAILURE(status))
        return nullptr;
    using Symbols = icu::DateFormatSymbols;
    auto names = std::make_shared<DateNames>();
    std::int32_t count = 0;
    const icu::UnicodeString* found =
        symbols.getMonths(count, isBesideDay ? Symbols::FORMAT : Symbols::STANDALONE, Symbols::WIDE);
    takeNames(names->months, found, count, 0);
    found = symbols.getMonths(count, Symbols::STANDALONE, Symbols::ABBREVIATED);
    takeNames(names->shortMonths, found, count, 0);
    found = symbols.getWeekdays(count, Symbols::FORMAT, Symbols::WIDE);
    takeNames(names->weekdays, found, count, 1); // the first entry is no day
    found = symbols.getWeekdays(count, Symbols::STANDALONE, Symbols::ABBREVIATED);
    takeNames(names->shortWeekdays, found, count, 1);
    found = symbols.getAmPmStrings(count);
    if (count >= 2 && isForeign(found[0]) && isForeign(found[1]))
        takeNames(names->dayParts, found, count, 0);
    return names;
}

template <std::size_t Size>
void takeWords(std::string (&names)[Size], std::istringstream words)
{
    for (std::string& name : names)
        words >> name;
}

std::shared_ptr<const DateNames> makeEnglishNames()
{
    auto names = std::make_shared<DateNames>();
    takeWords(names->months, std::istringstream("January February March April May June July August September "
                                                "October November December"));
    takeWords(names->shortMonths, std::istringstream("Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec"));
    takeWords(
        names->weekdays, std::istringstream("Sunday Monday Tuesday Wednesday Thursday Friday Saturday"));
    takeWords(names->shortWeekdays, std::istringstream("Sun Mon Tue Wed Thu Fri Sat"));
    return names;
}

std::shared_ptr<const DateNames> getEnglishNames()
{
    static const std::shared_ptr<const DateNames> names = makeEnglishNames();
    return names;
}

bool showsDay(const Rule& rule)
{
    const auto isDay = [](const Token& token) { return token.kind == TokenKind::Day; };
    return std::any_of(rule.getTokens().begin(), rule.getTokens().end(), isDay);
}

// Making them takes long, and a workbook may have very many formats in few languages.
std::shared_ptr<const DateNames> findNames(const std::string& locale, bool isBesideDay)
{
    constexpr std::size_t KeptMax = 64;
    thread_local std::map<std::pair<std::string, bool>, std::shared_ptr<const DateNames>> kept;
    const std::pair<std::string, bool> key(locale, isBesideDay);
    const auto found = kept.find(key);
    if (found != kept.end())
        return found->second;
    if (kept.size() == KeptMax)
        kept.clear();
    return kept[key] = makeNames(icu::Locale(locale.c_str()), isBesideDay);
}

bool showsNames(const Rule& rule)
{
    return std::any_of(rule.getTokens().begin(), rule.getTokens().end(), [](const Token& token) {
        return token.kind == TokenKind::Weekday || token.kind == TokenKind::DayPart ||
               (token.kind == TokenKind::Month && token.text.size() > 2);
    });
}

} // namespace

std::shared_ptr<const DateNames> findDateNames(const Rule& rule)
{
    const unsigned long language = rule.getLanguage().value_or(EnglishUnitedStates) & LanguageMask;
    const bool isSystem = language == SystemDate || language == SystemTime; // which is US English here
    if (language == EnglishUnitedStates || isSystem || !showsNames(rule))
        return getEnglishNames();
    char name[ULOC_FULLNAME_CAPACITY];
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length = uloc_getLocaleForLCID(
        static_cast<std::uint32_t>(language), name, static_cast<std::int32_t>(std::size(name)), &status);
    if (U_FAILURE(status) || length <= 0 || status == U_STRING_NOT_TERMINATED_WARNING)
        return getEnglishNames();
    const auto names = findNames(name, showsDay(rule));
    return names ? names : getEnglishNames();
}

} // namespace QV::OfficeUtils
