#include <Formulas/ReferenceScanner.h>

#include <algorithm>

#include <boost/locale/utf.hpp>

#include <Formulas/Public/Utils.h>
#include <Formulas/UnicodeLetters.h>
#include <Utils/Public/CaseInsensitiveLess.h>

namespace QV::Formulas {
namespace {

using DOM::FormulaSyntaxTree::ColumnAxisIndex;
using DOM::FormulaSyntaxTree::RowAxisIndex;

constexpr std::size_t MaxColumnLetters = 3;
constexpr std::size_t MaxRowDigits = 7;
constexpr const char* OwnDocument = "0"; // the index by which files name the document itself

bool isLetter(char c)
{
    return ('A' <= c && c <= 'Z') || ('a' <= c && c <= 'z');
}

bool isDigit(char c)
{
    return '0' <= c && c <= '9';
}

bool isBeyondAscii(char c)
{
    return static_cast<unsigned char>(c) >= 0x80;
}

bool isTableCharacter(char c)
{
    return isLetter(c) || isDigit(c) || c == '_' || c == '.' || isBeyondAscii(c);
}

bool isNameStart(char c)
{
    return isLetter(c) || c == '_' || c == '\\' || isBeyondAscii(c);
}

bool isNameCharacter(char c)
{
    return isTableCharacter(c) || c == '\\' || c == '?';
}

template <typename Predicate>
std::size_t countFront(boost::string_ref text, Predicate predicate)
{
    return static_cast<std::size_t>(
        std::find_if(text.begin(), text.end(), [&](char c) { return !predicate(c); }) - text.begin());
}

bool equalWithoutCase(boost::string_ref a, boost::string_ref b)
{
    const CaseInsensitiveLess less;
    return !less(a, b) && !less(b, a);
}

/// Whether a name has nothing that would need quotes around it. What is beyond ASCII is read without them,
/// whatever it is; other programs take letters alone.
bool hasOnlyPlainCharacters(boost::string_ref name)
{
    using UTF8 = boost::locale::utf::utf_traits<char>;
    for (auto position = name.begin(); position != name.end();) {
        const char first = *position;
        const auto character = UTF8::decode(position, name.end());
        if (!isBeyondAscii(first)
                ? !isTableCharacter(first)
                : !boost::locale::utf::is_valid_codepoint(character) || !isLetterOrDigit(character))
            return false;
    }
    return true;
}

/// Takes "[book]" or "path/[book]" from the front of a text, and gives the document without the brackets;
/// empty where there is none.
std::string takeQuotedDocument(boost::string_ref& text)
{
    const std::size_t begin = text.find('[');
    const boost::string_ref rest = begin == boost::string_ref::npos ? "" : text.substr(begin + 1);
    const std::size_t size = rest.find_first_of("[]");
    if (size == boost::string_ref::npos || size == 0 || rest[size] != ']')
        return {};
    const boost::string_ref path = text.substr(0, begin);
    if (!path.empty() && path.back() != '/' && path.back() != '\\')
        return {};
    text = rest.substr(size + 1);
    return path.to_string() + rest.substr(0, size).to_string();
}

/// "A1", or "R1C1" and its parts: taken for a cell in one of the two ways of naming cells.
bool looksLikeCell(boost::string_ref word)
{
    const std::size_t letters = countFront(word, isLetter);
    const std::size_t digits = countFront(word.substr(letters), isDigit);
    if (letters <= MaxColumnLetters && digits > 0 && letters + digits == word.size())
        return true;
    std::size_t place = 0;
    for (const char axis : {'r', 'c'})
        if (place < word.size() && (word[place] | 0x20) == axis)
            place += 1 + countFront(word.substr(place + 1), isDigit);
    return place == word.size();
}

} // namespace

boost::optional<bool> readTruth(boost::string_ref word)
{
    if (equalWithoutCase(word, "TRUE"))
        return true;
    return boost::make_optional(equalWithoutCase(word, "FALSE"), false);
}

boost::optional<ColumnIndex> readColumn(boost::string_ref word)
{
    const auto column = Utils::convertAlphaIndexToIndex(word);
    if (!column || ColumnIndex(*column) > MaxColumnIndex)
        return boost::none;
    return ColumnIndex(*column);
}

bool isPlainTableName(boost::string_ref name)
{
    return !name.empty() && !isDigit(name.front()) && name.front() != '.' && hasOnlyPlainCharacters(name) &&
           !looksLikeCell(name) && !readTruth(name);
}

void ReferenceScanner::skipBlanks()
{
    _rest.remove_prefix(countFront(_rest, [](char c) { return c == ' '; }));
}

void ReferenceScanner::skipWhiteSpace()
{
    _rest.remove_prefix(
        countFront(_rest, [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }));
}

bool ReferenceScanner::skip(char character)
{
    if (_rest.empty() || _rest.front() != character)
        return false;
    _rest.remove_prefix(1);
    return true;
}

bool ReferenceScanner::skipWord(boost::string_ref word)
{
    if (!_rest.starts_with(word))
        return false;
    _rest.remove_prefix(word.size());
    return true;
}

bool ReferenceScanner::skipWordOfAnyCase(boost::string_ref word)
{
    if (!equalWithoutCase(_rest.substr(0, word.size()), word))
        return false;
    _rest.remove_prefix(word.size());
    return true;
}

boost::optional<ScannedPlace> ReferenceScanner::scanPlace()
{
    const boost::string_ref start = _rest;
    boost::optional<ScannedPlace> place = scanQuotedPlace();
    if (!place) {
        _rest = start;
        place = scanPlainPlace();
    }
    if (place && skip('!')) {
        if (place->document == OwnDocument)
            place->document.clear();
        return place;
    }
    _rest = start;
    return boost::none;
}

boost::optional<ScannedPlace> ReferenceScanner::scanPlainPlace()
{
    ScannedPlace place;
    const auto document = scanDocument();
    place.document = document.value_or(std::string());
    const bool isCell = !document && isCellNext();
    const auto first = scanTableName();
    if (!first)
        return boost::make_optional(document.has_value(), place);
    place.firstTable = *first;
    if (!skip(':'))
        return place;
    if (isCell)
        return boost::none; // "A1:Sheet2!B2" begins in the formula's own table
    const auto second = scanTableName();
    if (!second)
        return boost::none;
    place.secondTable = *second;
    return place;
}

boost::optional<ScannedPlace> ReferenceScanner::scanQuotedPlace()
{
    const auto quoted = scanQuoted();
    if (!quoted || _rest.empty() || _rest.front() != '!')
        return boost::none;
    ScannedPlace place;
    boost::string_ref tables = *quoted;
    place.document = takeQuotedDocument(tables);
    const bool hasDocument = !place.document.empty();
    const std::size_t colon = tables.find(':');
    place.firstTable = tables.substr(0, colon).to_string();
    if (colon != boost::string_ref::npos)
        place.secondTable = tables.substr(colon + 1).to_string();
    const bool isNamed = colon == boost::string_ref::npos
                             ? hasDocument || !place.firstTable.empty()
                             : !place.firstTable.empty() && !place.secondTable.empty();
    const bool isClean = tables.find_first_of("[]") == boost::string_ref::npos &&
                         place.secondTable.find(':') == std::string::npos;
    return boost::make_optional(isNamed && isClean, place);
}

boost::optional<std::string> ReferenceScanner::scanDocument()
{
    if (!_rest.starts_with('['))
        return boost::none;
    const std::size_t size = countFront(_rest.substr(1), isTableCharacter);
    if (size == 0 || size + 1 == _rest.size() || _rest[size + 1] != ']')
        return boost::none;
    const std::string document = _rest.substr(1, size).to_string();
    _rest.remove_prefix(size + 2);
    return document;
}

boost::optional<std::string> ReferenceScanner::scanTableName()
{
    if (_rest.starts_with('\'')) {
        const boost::string_ref start = _rest;
        auto quoted = scanQuoted();
        if (quoted && !quoted->empty() && quoted->find_first_of("[]:") == std::string::npos)
            return quoted;
        _rest = start;
        return boost::none;
    }
    const std::size_t size = countFront(_rest, isTableCharacter);
    if (size == 0)
        return boost::none;
    const std::string name = _rest.substr(0, size).to_string();
    _rest.remove_prefix(size);
    return name;
}

boost::optional<std::string> ReferenceScanner::scanQuoted()
{
    if (!_rest.starts_with('\''))
        return boost::none;
    std::string content;
    for (std::size_t i = 1; i < _rest.size(); ++i) {
        if (_rest[i] == '\'') {
            const bool isDoubled = i + 1 < _rest.size() && _rest[i + 1] == '\'';
            if (!isDoubled) {
                _rest.remove_prefix(i + 1);
                return content;
            }
            ++i;
        }
        content += _rest[i];
    }
    return boost::none;
}

bool ReferenceScanner::isTableNext() const
{
    ReferenceScanner copy = *this;
    return copy.scanTableName() && copy.skip('!');
}

bool ReferenceScanner::isCellNext() const
{
    ReferenceScanner copy = *this;
    const auto end = copy.scanEnd();
    return end && end->column && end->row;
}

// "LOG10(" is no cell, nor is "B2!".
bool ReferenceScanner::isInsideWord() const
{
    if (_rest.empty())
        return false;
    const char next = _rest.front();
    return isNameCharacter(next) || boost::string_ref("$([!").find(next) != boost::string_ref::npos;
}

boost::optional<ScannedEnd> ReferenceScanner::scanEnd()
{
    const boost::string_ref start = _rest;
    ScannedEnd end;
    end.column = scanColumn();
    end.row = scanRow();
    if ((end.column || end.row) && !isInsideWord())
        return end;
    _rest = start;
    return boost::none;
}

boost::optional<ColumnAxisIndex> ReferenceScanner::scanColumn()
{
    const bool isAbsolute = _rest.starts_with('$');
    const boost::string_ref text = _rest.substr(isAbsolute ? 1 : 0);
    const std::size_t size = countFront(text, isLetter);
    if (size == 0 || size > MaxColumnLetters)
        return boost::none;
    const auto column = readColumn(text.substr(0, size));
    if (!column)
        return boost::none;
    _rest = text.substr(size);
    return ColumnAxisIndex(*column, isAbsolute);
}

boost::optional<RowAxisIndex> ReferenceScanner::scanRow()
{
    const bool isAbsolute = _rest.starts_with('$');
    const boost::string_ref text = _rest.substr(isAbsolute ? 1 : 0);
    const std::size_t size = countFront(text, isDigit);
    if (size == 0 || size > MaxRowDigits || text.front() == '0')
        return boost::none;
    unsigned long number = 0;
    for (const char digit : text.substr(0, size))
        number = number * 10 + static_cast<unsigned long>(digit - '0');
    if (RowIndex(number - 1) > MaxRowIndex)
        return boost::none;
    _rest = text.substr(size);
    return RowAxisIndex(RowIndex(number - 1), isAbsolute);
}

boost::string_ref ReferenceScanner::scanWord()
{
    if (_rest.empty() || !isNameStart(_rest.front()))
        return {};
    const boost::string_ref word = _rest.substr(0, countFront(_rest, isNameCharacter));
    _rest.remove_prefix(word.size());
    return word;
}

boost::optional<std::string> ReferenceScanner::scanName()
{
    const boost::string_ref start = _rest;
    const boost::string_ref word = scanWord();
    if (!word.empty() && !readTruth(word))
        return word.to_string();
    _rest = start;
    return boost::none;
}

} // namespace QV::Formulas
