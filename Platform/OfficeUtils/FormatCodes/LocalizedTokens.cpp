#include <OfficeUtils/FormatCodes/LocalizedTokens.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;

/// What ICU's patterns call an item. A day has two digits beside numbers, and as many as it needs beside a
/// name.
const char* getSkeleton(const DateTimePatternItem& item, bool hasMonthName)
{
    using Part = DateTimePatternToken;
    static const char* const Weekdays[] = {"EEEE", "EEE"};
    static const char* const Months[] = {"MM", "MMMM", "MMM", "MMMMM"};
    static const char* const Years[] = {"y", "yy"};
    static const char* const Hours[] = {"j", "H", "h"};
    const auto choose = [&item](const auto& names) {
        return item.variant < std::size(names) ? names[item.variant] : names[0];
    };
    switch (item.token) {
    case Part::Weekday:
        return choose(Weekdays);
    case Part::Month:
        return choose(Months);
    case Part::Day:
        return hasMonthName ? "d" : "dd";
    case Part::Year:
        return choose(Years);
    case Part::Hour:
        return choose(Hours);
    case Part::Minute:
        return "mm";
    case Part::Second:
        return "ss";
    }
    return "";
}

using GeneratorPtr = std::shared_ptr<icu::DateTimePatternGenerator>;

// Making one takes long, and most callers ask for the same locale again. Null where ICU has no data.
GeneratorPtr getGenerator(const std::string& locale, UErrorCode& status)
{
    thread_local std::pair<std::string, GeneratorPtr> kept;
    if (!kept.second || kept.first != locale)
        kept = {locale,
            GeneratorPtr(icu::DateTimePatternGenerator::createInstance(icu::Locale(locale.c_str()), status))};
    return kept.second;
}

icu::UnicodeString findPattern(const DateTimePatternItemSet& items, const LocaleContext& context)
{
    const auto month = items.find({DateTimePatternToken::Month, 0});
    const bool hasMonthName = month != items.end() && 1 <= month->variant && month->variant <= 3;
    icu::UnicodeString skeleton;
    for (const DateTimePatternItem& item : items)
        skeleton += icu::UnicodeString(getSkeleton(item, hasMonthName), -1, US_INV);
    UErrorCode status = U_ZERO_ERROR;
    const GeneratorPtr generator = getGenerator(context.getName(), status);
    icu::UnicodeString pattern;
    if (generator && U_SUCCESS(status))
        pattern = generator->getBestPattern(skeleton, status);
    if (!generator || U_FAILURE(status))
        throw std::runtime_error(std::string("No date pattern: ") + u_errorName(status));
    return pattern;
}

/// The token of a field that a pattern spells with @p count letters; one without text for a field that codes
/// do not have.
Token makeToken(char16_t letter, std::size_t count)
{
    const auto repeat = [](char c, std::size_t length) { return std::string(length, c); };
    switch (letter) {
    case u'E':
    case u'c':
        return {TokenKind::Weekday, repeat('d', count == 4 ? 4 : 3)};
    case u'M':
    case u'L':
        return {TokenKind::Month, repeat('m', std::min<std::size_t>(count, 5))};
    case u'd':
        return {TokenKind::Day, repeat('d', std::min<std::size_t>(count, 2))};
    case u'y':
        return {TokenKind::Year, repeat('y', count == 2 ? 2 : 4)};
    case u'h':
    case u'H':
    case u'k':
    case u'K':
        return {TokenKind::Hour, repeat('h', std::min<std::size_t>(count, 2))};
    case u'm':
        return {TokenKind::Minute, repeat('m', std::min<std::size_t>(count, 2))};
    case u's':
        return {TokenKind::Second, repeat('s', std::min<std::size_t>(count, 2))};
    case u'a':
    case u'b':
    case u'B':
        return {TokenKind::DayPart, "AM/PM"};
    case u'G':
        return {TokenKind::Era, "g"};
    default:
        return {TokenKind::Literal, std::string()};
    }
}

/// Reads ICU's patterns: letters are fields, all else and what stands in apostrophes is text.
class PatternReader
{
public:
    explicit PatternReader(const icu::UnicodeString& pattern)
        : _pattern(pattern)
    {
    }

    std::vector<Token> read()
    {
        bool isQuoted = false;
        while (_position < _pattern.length()) {
            const char16_t c = _pattern.charAt(_position);
            if (c == u'\'') {
                ++_position;
                if (_pattern.charAt(_position) == u'\'') {
                    addText(u'\'');
                    ++_position;
                } else {
                    isQuoted = !isQuoted;
                }
            } else if (!isQuoted && ((u'a' <= c && c <= u'z') || (u'A' <= c && c <= u'Z'))) {
                readField(c);
            } else {
                addText(_pattern.char32At(_position));
                _position = _pattern.moveIndex32(_position, 1);
            }
        }
        return std::move(_tokens);
    }

private:
    void readField(char16_t letter)
    {
        const std::int32_t begin = _position;
        while (_position < _pattern.length() && _pattern.charAt(_position) == letter)
            ++_position;
        Token token = makeToken(letter, static_cast<std::size_t>(_position - begin));
        if (!token.text.empty())
            _tokens.push_back(std::move(token));
    }

    void addText(UChar32 character)
    {
        constexpr UChar32 NoBreakSpace = 0xA0;
        constexpr UChar32 NarrowNoBreakSpace = 0x202F;
        const bool isBlank = character == NoBreakSpace || character == NarrowNoBreakSpace;
        if (_tokens.empty() || _tokens.back().kind != TokenKind::Literal)
            _tokens.push_back({TokenKind::Literal, std::string()});
        icu::UnicodeString(isBlank ? UChar32(u' ') : character).toUTF8String(_tokens.back().text);
    }

    const icu::UnicodeString& _pattern;
    std::int32_t _position = 0;
    std::vector<Token> _tokens;
};

} // namespace

std::vector<Token> makeLocalizedTokens(const DateTimePatternItemSet& items, const LocaleContext& context)
{
    if (items.empty())
        return {};
    const icu::UnicodeString pattern = findPattern(items, context);
    return PatternReader(pattern).read();
}

} // namespace QV::OfficeUtils
