#include <cstddef>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <fmt/format.h>

#include <Filters/Package/ListLabels.h>
#include <Filters/Package/ListNumberWords.h>

namespace QV::Filters {
namespace {

using ListNumberText = boost::optional<std::string>; // nothing where the system cannot write the number

constexpr long RomanMax = 32767;
constexpr long RepeatsMax = 100;
constexpr long CircledMax = 20;
constexpr long ChineseCountingMax = 99999;

struct RomanNumeral
{
    long value;
    const char* upper;
    const char* lower;
};

const RomanNumeral RomanNumerals[] = {
    {1000, "M",  "m" },
    {900,  "CM", "cm"},
    {500,  "D",  "d" },
    {400,  "CD", "cd"},
    {100,  "C",  "c" },
    {90,   "XC", "xc"},
    {50,   "L",  "l" },
    {40,   "XL", "xl"},
    {10,   "X",  "x" },
    {9,    "IX", "ix"},
    {5,    "V",  "v" },
    {4,    "IV", "iv"},
    {1,    "I",  "i" }
};

// Sets of letters that count from 1 and are repeated beyond their end: A, ..., Z, AA, BB.
const std::vector<std::string> UpperLatinLetters = {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K",
    "L", "M", "N", "O", "P", "Q", "R", "S", "T", "U", "V", "W", "X", "Y", "Z"};
const std::vector<std::string> LowerLatinLetters = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k",
    "l", "m", "n", "o", "p", "q", "r", "s", "t", "u", "v", "w", "x", "y", "z"};
const std::vector<std::string> ChicagoSymbols = {"*", "\u2020", "\u2021", "\u00A7"};
const std::vector<std::string> UpperRussianLetters = {"\u0410", "\u0411", "\u0412", "\u0413", "\u0414",
    "\u0415", "\u0416", "\u0417", "\u0418", "\u041A", "\u041B", "\u041C", "\u041D", "\u041E", "\u041F",
    "\u0420", "\u0421", "\u0422", "\u0423", "\u0424", "\u0425", "\u0426", "\u0427", "\u0428", "\u0429",
    "\u042B", "\u042D", "\u042E", "\u042F"};
const std::vector<std::string> LowerRussianLetters = {"\u0430", "\u0431", "\u0432", "\u0433", "\u0434",
    "\u0435", "\u0436", "\u0437", "\u0438", "\u043A", "\u043B", "\u043C", "\u043D", "\u043E", "\u043F",
    "\u0440", "\u0441", "\u0442", "\u0443", "\u0444", "\u0445", "\u0446", "\u0447", "\u0448", "\u0449",
    "\u044B", "\u044D", "\u044E", "\u044F"};
const std::vector<std::string> ArabicLetters = {"\u0623", "\u0628", "\u062A", "\u062B", "\u062C", "\u062D",
    "\u062E", "\u062F", "\u0630", "\u0631", "\u0632", "\u0633", "\u0634", "\u0635", "\u0636", "\u0637",
    "\u0638", "\u0639", "\u063A", "\u0641", "\u0642", "\u0643", "\u0644", "\u0645", "\u0646", "\u0647",
    "\u0648", "\u064A"};
const std::vector<std::string> HebrewLetters = {"\u05D0", "\u05D1", "\u05D2", "\u05D3", "\u05D4", "\u05D5",
    "\u05D6", "\u05D7", "\u05D8", "\u05D9", "\u05DB", "\u05DC", "\u05DE", "\u05E0", "\u05E1", "\u05E2",
    "\u05E4", "\u05E6", "\u05E7", "\u05E8", "\u05E9", "\u05EA"};

const std::vector<std::string> FullWidthDigits = {
    "\uFF10", "\uFF11", "\uFF12", "\uFF13", "\uFF14", "\uFF15", "\uFF16", "\uFF17", "\uFF18", "\uFF19"};
const std::vector<std::string> IdeographDigits = {
    "\u3007", "\u4E00", "\u4E8C", "\u4E09", "\u56DB", "\u4E94", "\u516D", "\u4E03", "\u516B", "\u4E5D"};

struct ChineseUnit
{
    long size;
    const char* character;
};

const ChineseUnit ChineseUnits[] = {
    {10000, "\u4E07"},
    {1000,  "\u5343"},
    {100,   "\u767E"},
    {10,    "\u5341"},
    {1,     ""      }
};

ListNumberText formatRoman(long number, bool isUpper)
{
    if (number < 1 || number > RomanMax)
        return boost::none;
    std::string text;
    for (const RomanNumeral& numeral : RomanNumerals)
        for (; number >= numeral.value; number -= numeral.value)
            text += isUpper ? numeral.upper : numeral.lower;
    return text;
}

ListNumberText formatRepeated(long number, const std::vector<std::string>& symbols)
{
    const auto size = static_cast<long>(symbols.size());
    if (number < 1 || (number - 1) / size >= RepeatsMax)
        return boost::none;
    const std::string& symbol = symbols[static_cast<std::size_t>((number - 1) % size)];
    std::string text;
    for (long i = 0; i <= (number - 1) / size; ++i)
        text += symbol;
    return text;
}

/// Beyond the last letter, it stands for its number, and the next letter for the rest.
ListNumberText formatHebrew(long number)
{
    const auto size = static_cast<long>(HebrewLetters.size());
    if (number < 1 || (number - 1) / size >= RepeatsMax)
        return boost::none;
    std::string text;
    for (; number > size; number -= size)
        text += HebrewLetters.back();
    return text + HebrewLetters[static_cast<std::size_t>(number - 1)];
}

ListNumberText formatDigits(long number, const std::vector<std::string>& digits)
{
    if (number < 0)
        return boost::none;
    std::string text;
    for (const char digit : std::to_string(number))
        text += digits[static_cast<std::size_t>(digit - '0')];
    return text;
}

ListNumberText formatChineseCounting(long number)
{
    if (number < 1 || number > ChineseCountingMax)
        return boost::none;
    constexpr const char* Zero = "\u96F6";
    std::string text;
    bool hasGap = false; // of digits 0, which one character stands for
    for (const ChineseUnit& unit : ChineseUnits) {
        const long digit = number / unit.size % 10;
        if (digit == 0) {
            hasGap = !text.empty();
            continue;
        }
        if (hasGap)
            text += Zero;
        hasGap = false;
        const bool isPlainTen = unit.size == 10 && digit == 1 && text.empty(); // "ten", not "one ten"
        if (!isPlainTen)
            text += IdeographDigits[static_cast<std::size_t>(digit)];
        text += unit.character;
    }
    return text;
}

ListNumberText formatOrdinal(long number)
{
    if (number < 0)
        return boost::none;
    constexpr const char* Endings[] = {"th", "st", "nd", "rd"};
    const bool isTeen = number / 10 % 10 == 1;
    const long last = number % 10;
    return fmt::format("{}{}", number, Endings[isTeen || last > 3 ? 0 : last]);
}

ListNumberText formatWords(long number, std::string (*makeWords)(long))
{
    if (number < 0 || number > ListNumberWordsMax)
        return boost::none;
    return makeWords(number);
}

/// The characters for 1 to 20 follow one another.
ListNumberText formatCircled(long number)
{
    if (number < 1 || number > CircledMax)
        return boost::none;
    std::string text = "\u2460";
    text.back() = static_cast<char>(static_cast<unsigned char>(text.back()) + number - 1);
    return text;
}

/// Numbers below 0 are decimal in all systems.
ListNumberText formatUnlessNegative(long number, std::string (*format)(long))
{
    if (number < 0)
        return boost::none;
    return format(number);
}

ListNumberText formatListSystem(long number, DOM::NumListMarkerType type)
{
    using Type = DOM::NumListMarkerType;
    switch (type) {
    case Type::Bullet:
    case Type::PictureBullet:
    case Type::None:
        return std::string();
    case Type::UpperRoman:
        return formatRoman(number, true);
    case Type::LowerRoman:
        return formatRoman(number, false);
    case Type::UpperLetter:
        return formatRepeated(number, UpperLatinLetters);
    case Type::LowerLetter:
        return formatRepeated(number, LowerLatinLetters);
    case Type::Chicago:
        return formatRepeated(number, ChicagoSymbols);
    case Type::RussianUpperLetter:
        return formatRepeated(number, UpperRussianLetters);
    case Type::RussianLowerLetter:
        return formatRepeated(number, LowerRussianLetters);
    case Type::ArabicLetter:
        return formatRepeated(number, ArabicLetters);
    case Type::HebrewLetter:
        return formatHebrew(number);
    case Type::DecimalZero:
        return formatUnlessNegative(number, [](long n) { return fmt::format("{:02}", n); });
    case Type::Hexadecimal:
        return formatUnlessNegative(number, [](long n) { return fmt::format("{:X}", n); });
    case Type::DecimalDash:
        return formatUnlessNegative(number, [](long n) { return fmt::format("- {} -", n); });
    case Type::Ordinal:
        return formatOrdinal(number);
    case Type::CardinalText:
        return formatWords(number, makeCardinalWords);
    case Type::OrdinalText:
        return formatWords(number, makeOrdinalWords);
    case Type::CircledDecimal:
        return formatCircled(number);
    case Type::FullWidthDecimal:
        return formatDigits(number, FullWidthDigits);
    case Type::IdeographDigits:
        return formatDigits(number, IdeographDigits);
    case Type::ChineseCounting:
        return formatChineseCounting(number);
    case Type::Decimal:
    case Type::Other:
        break;
    }
    return boost::none;
}

} // namespace

std::string formatListNumber(long number, DOM::NumListMarkerType type)
{
    const ListNumberText text = formatListSystem(number, type);
    return text ? *text : std::to_string(number);
}

} // namespace QV::Filters
