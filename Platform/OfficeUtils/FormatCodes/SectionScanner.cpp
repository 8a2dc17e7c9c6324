#include <OfficeUtils/FormatCodes/SectionScanner.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include <unicode/uloc.h>

#include <OfficeUtils/FormatCodes/ColorNames.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;

constexpr std::size_t ElapsedDigitsMax = 9;
constexpr std::size_t LanguageDigitsMax = 8;

/// What a run of one letter stands for: the lengths that have a spelling of their own.
struct LetterRun
{
    char letter;
    TokenKind kind;
    std::size_t lengths[6]; // by the number of letters, of which the last goes on
};

const LetterRun LetterRuns[] = {
    {'d', TokenKind::Day,          {1, 2, 3, 4, 4, 4}},
    {'m', TokenKind::Month,        {1, 2, 3, 4, 5, 4}},
    {'y', TokenKind::Year,         {2, 2, 4, 4, 4, 4}},
    {'h', TokenKind::Hour,         {1, 2, 2, 2, 2, 2}},
    {'s', TokenKind::Second,       {1, 2, 2, 2, 2, 2}},
    {'g', TokenKind::Era,          {1, 2, 3, 3, 3, 3}},
    {'e', TokenKind::EraYear,      {1, 2, 2, 2, 2, 2}},
    {'b', TokenKind::BuddhistYear, {2, 2, 4, 4, 4, 4}},
};

struct ComparisonName
{
    const char* name;
    Condition::Operator comparison;
};

const ComparisonName ComparisonNames[] = {
  // the longer ones first
    {"<=", Condition::Operator::LessOrEqual   },
    {"<>", Condition::Operator::NotEqual      },
    {">=", Condition::Operator::GreaterOrEqual},
    {"<",  Condition::Operator::Less          },
    {"=",  Condition::Operator::Equal         },
    {">",  Condition::Operator::Greater       },
};

char toLower(char c)
{
    return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char toUpper(char c)
{
    return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isLetter(char c)
{
    return 'a' <= toLower(c) && toLower(c) <= 'z';
}

bool isDigit(char c)
{
    return '0' <= c && c <= '9';
}

bool isHexDigit(char c)
{
    return isDigit(c) || ('a' <= toLower(c) && toLower(c) <= 'f');
}

bool equalsIgnoringCase(boost::string_ref text, boost::string_ref lowerCaseWord)
{
    return text.size() == lowerCaseWord.size() && std::equal(text.begin(), text.end(), lowerCaseWord.begin(),
                                                      [](char a, char b) { return toLower(a) == b; });
}

bool startsIgnoringCase(boost::string_ref text, boost::string_ref lowerCaseWord)
{
    return equalsIgnoringCase(text.substr(0, lowerCaseWord.size()), lowerCaseWord);
}

boost::string_ref trim(boost::string_ref text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// The bytes of the UTF-8 character that @p text begins with; 0 where there is none.
std::size_t getCharacterSize(boost::string_ref text)
{
    if (text.empty() || text.front() == '\0')
        return 0;
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t size = lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (size == 0 || lead > 0xF4 || text.size() < size)
        return 0;
    const bool isWhole = std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(size),
        [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; });
    return isWhole ? size : 0;
}

/// The identifier of a language with a name (BCP 47), as "de-DE".
boost::optional<unsigned long> findLanguage(const std::string& name)
{
    UErrorCode status = U_ZERO_ERROR;
    char locale[ULOC_FULLNAME_CAPACITY];
    std::int32_t length = 0;
    uloc_forLanguageTag(name.c_str(), locale, static_cast<std::int32_t>(std::size(locale)), &length, &status);
    const bool isWhole = static_cast<std::size_t>(std::max(length, 0)) == name.size();
    if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING || name.empty() || !isWhole)
        return boost::none;
    const std::uint32_t language = uloc_getLCID(locale);
    return language == 0 ? boost::none : boost::optional<unsigned long>(language);
}

/// The locale identifier of a mark's end, and whether it is written as a number.
std::pair<boost::optional<unsigned long>, bool> readLanguage(boost::string_ref text)
{
    if (equalsIgnoringCase(text, "x-sysdate"))
        return {0xF800UL, false};
    if (equalsIgnoringCase(text, "x-systime"))
        return {0xF400UL, false};
    const bool isNumber = !text.empty() && text.size() <= LanguageDigitsMax &&
                          std::all_of(text.begin(), text.end(), isHexDigit) &&
                          (text.size() == 1 || text.size() > 3 ||
                              std::any_of(text.begin(), text.end(), isDigit)); // "de" is a name
    if (!isNumber) {
        const boost::string_ref name = text.substr(0, text.find(',')); // the shapes of digits follow
        return {findLanguage(std::string(name.begin(), name.end())), false};
    }
    return {strToUlong(std::string(text.begin(), text.end()), nullptr, 16), true};
}

} // namespace

SectionScanner::SectionScanner(const std::string& code, Parser::ParserType type)
    : _code(code)
    , _type(type)
{
}

bool SectionScanner::skipSeparator()
{
    if (peek() != ';')
        return false;
    ++_position;
    return true;
}

boost::optional<ScannedSection> SectionScanner::readSection()
{
    _section = {};
    while (!isAtEnd() && peek() != ';')
        if (!readPiece())
            return boost::none;
    return std::move(_section);
}

bool SectionScanner::readPiece()
{
    switch (peek()) {
    case '"':
        return readQuoted();
    case '\\':
        return readCharacter(Kind::Literal);
    case '_':
        return readCharacter(Kind::Skip);
    case '*':
        return readCharacter(Kind::Fill);
    case '[':
        return readBracket();
    default:
        return isLetter(peek()) ? readWord() : readNumberSign() || readLiteral();
    }
}

bool SectionScanner::readQuoted()
{
    const std::size_t begin = _position + 1;
    const std::size_t length = _code.substr(begin).find('"');
    if (length == boost::string_ref::npos)
        return false;
    const boost::string_ref text = _code.substr(begin, length);
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t size = getCharacterSize(text.substr(i));
        if (size == 0)
            return false;
        i += size;
    }
    if (!text.empty())
        add(Kind::Literal, std::string(text.begin(), text.end()));
    _position = begin + length + 1;
    return true;
}

bool SectionScanner::readCharacter(Kind kind)
{
    ++_position;
    const std::size_t size = getCharacterSize(_code.substr(_position));
    if (size == 0)
        return false;
    const boost::string_ref character = _code.substr(_position, size);
    add(kind, std::string(character.begin(), character.end()));
    _position += size;
    return true;
}

bool SectionScanner::readBracket()
{
    const std::size_t length = _code.substr(_position + 1).find(']');
    if (length == boost::string_ref::npos)
        return false;
    const boost::string_ref content = _code.substr(_position + 1, length);
    _position += length + 2;
    if (content.empty())
        return false;
    if (content.front() == '$')
        return addMark(content);
    if (startsIgnoringCase(content, "dbnum") && content.size() == 6 && isDigit(content.back())) {
        add(Kind::Modifier, std::string("[DBNum") + content.back() + ']');
        return true;
    }
    return addElapsed(content) || addColor(content) || addCondition(content);
}

bool SectionScanner::addElapsed(boost::string_ref content)
{
    const char letter = toLower(content.front());
    const bool isRun =
        std::all_of(content.begin(), content.end(), [letter](char c) { return toLower(c) == letter; });
    if (!isRun || content.size() > ElapsedDigitsMax || (letter != 'h' && letter != 'm' && letter != 's'))
        return false;
    const Kind kind = letter == 'h'   ? Kind::ElapsedHours
                      : letter == 'm' ? Kind::ElapsedMinutes
                                      : Kind::ElapsedSeconds;
    add(kind, '[' + std::string(content.size(), letter) + ']');
    return true;
}

bool SectionScanner::addColor(boost::string_ref content)
{
    boost::optional<unsigned> number = findColorNumber([content](boost::string_ref name) {
        return content.size() == name.size() && std::equal(content.begin(), content.end(), name.begin(),
                                                    [](char a, char b) { return toLower(a) == toLower(b); });
    });
    if (!number && startsIgnoringCase(content, "color")) {
        const boost::string_ref digits = trim(content.substr(5));
        if (digits.empty() || digits.size() > 2 || !std::all_of(digits.begin(), digits.end(), isDigit))
            return false;
        number = static_cast<unsigned>(*strToUlong(std::string(digits.begin(), digits.end())));
    }
    if (!number || *number < 1 || *number > ColorsCount || _section.colorNumber)
        return false;
    _section.colorNumber = number;
    return true;
}

bool SectionScanner::addCondition(boost::string_ref content)
{
    for (const ComparisonName& row : ComparisonNames) {
        if (!content.starts_with(row.name))
            continue;
        const boost::string_ref limit = trim(content.substr(boost::string_ref(row.name).size()));
        const auto number = stringToDouble(std::string(limit.begin(), limit.end()));
        if (!number || *number - *number != 0 || _section.condition) // an infinity is no limit
            return false;
        _section.condition = Condition{row.comparison, *number, false};
        return true;
    }
    return false;
}

/// The number of a locale is spelled in one way; a name of one, as "en-US", stays as it is.
bool SectionScanner::addMark(boost::string_ref content)
{
    for (std::size_t i = 0; i < content.size();) {
        const std::size_t size = getCharacterSize(content.substr(i));
        if (size == 0 || content[i] == '[')
            return false;
        i += size;
    }
    std::string text(content.begin(), content.end());
    const std::size_t dash = text.find('-');
    if (dash != std::string::npos) {
        const auto language = readLanguage(boost::string_ref(text).substr(dash + 1));
        if (language.second) {
            std::size_t first = std::min(text.find_first_not_of('0', dash + 1), text.size() - 1);
            if (!readLanguage(boost::string_ref(text).substr(first)).second)
                --first; // a zero keeps it from being a name
            text.erase(dash + 1, first - dash - 1);
            std::transform(text.begin() + static_cast<std::ptrdiff_t>(dash), text.end(),
                text.begin() + static_cast<std::ptrdiff_t>(dash), toUpper);
        }
        if (!_section.language)
            _section.language = language.first;
    }
    add(Kind::Mark, '[' + text + ']');
    return true;
}

bool SectionScanner::readNumberSign()
{
    const char c = peek();
    if ('1' <= c && c <= '9') {
        std::size_t length = 1;
        while (isDigit(peek(length)))
            ++length;
        const boost::string_ref digits = _code.substr(_position, length);
        add(Kind::Denominator, std::string(digits.begin(), digits.end()));
        _position += length;
        return true;
    }
    const std::pair<const char*, Kind> signs[] = {
        {"0#?", Kind::Digit          },
        {".",   Kind::DecimalPoint   },
        {",",   Kind::GroupComma     },
        {"%",   Kind::Percent        },
        {"/",   Kind::FractionBar    },
        {"@",   Kind::TextPlaceholder},
    };
    const auto* const sign = std::find_if(std::begin(signs), std::end(signs),
        [c](const auto& row) { return boost::string_ref(row.first).find(c) != boost::string_ref::npos; });
    if (sign == std::end(signs))
        return false;
    add(sign->second, std::string(1, c));
    ++_position;
    return true;
}

bool SectionScanner::readWord()
{
    if (startsWith("general")) {
        add(Kind::General, "General");
        _position += 7;
        return true;
    }
    const std::size_t dayPart = startsWith("am/pm") ? 5 : startsWith("a/p") ? 3 : 0;
    if (dayPart > 0) {
        const boost::string_ref text = _code.substr(_position, dayPart);
        add(Kind::DayPart, dayPart == 5 ? "AM/PM" : std::string(text.begin(), text.end()));
        _position += dayPart;
        return true;
    }
    if (toLower(peek()) == 'e' && (peek(1) == '+' || peek(1) == '-') && isAfterNumber()) {
        add(Kind::Exponent, {peek(), peek(1)});
        _position += 2;
        return true;
    }
    return readLetters(toLower(peek())) || (_type == Parser::ParserType::Spreadsheet && readLiteral());
}

bool SectionScanner::readLetters(char letter)
{
    std::size_t count = 0;
    while (toLower(peek(count)) == letter)
        ++count;
    if (letter == 'a' && count >= 3) {
        add(Kind::Weekday, std::string(std::min<std::size_t>(count, 4), 'a'));
        _position += count;
        return true;
    }
    if (letter == 'b' && count == 1 && (peek(1) == '1' || peek(1) == '2')) {
        add(Kind::Calendar, std::string("B") + peek(1));
        _position += 2;
        return true;
    }
    const LetterRun* const run = std::find_if(std::begin(LetterRuns), std::end(LetterRuns),
        [letter](const LetterRun& row) { return row.letter == letter; });
    if (run == std::end(LetterRuns))
        return false;
    const std::size_t length = run->lengths[std::min(count, std::size(run->lengths)) - 1];
    add(letter == 'd' && length > 2 ? Kind::Weekday : run->kind, std::string(length, letter));
    _position += count;
    return true;
}

bool SectionScanner::readLiteral()
{
    const std::size_t size = getCharacterSize(_code.substr(_position));
    if (size == 0 || peek() == ']')
        return false;
    const boost::string_ref character = _code.substr(_position, size);
    add(Kind::Literal, std::string(character.begin(), character.end()));
    _position += size;
    return true;
}

void SectionScanner::add(Kind kind, std::string text)
{
    _section.tokens.push_back({kind, std::move(text)});
}

bool SectionScanner::startsWith(boost::string_ref lowerCaseWord) const
{
    return startsIgnoringCase(_code.substr(_position), lowerCaseWord);
}

bool SectionScanner::isAfterNumber() const
{
    const auto& tokens = _section.tokens;
    const auto last = std::find_if(
        tokens.rbegin(), tokens.rend(), [](const Token& token) { return token.kind != Kind::GroupComma; });
    return last != tokens.rend() && (last->kind == Kind::Digit || last->kind == Kind::DecimalPoint);
}

char SectionScanner::peek(std::size_t offset) const
{
    return _position + offset < _code.size() ? _code[_position + offset] : '\0';
}

} // namespace QV::OfficeUtils
