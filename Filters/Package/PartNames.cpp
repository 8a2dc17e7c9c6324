#include <Filters/Package/PartNames.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace QV::Filters {
namespace {

using Segments = std::vector<std::string>;

char toLower(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool isLetter(char character)
{
    return toLower(character) >= 'a' && toLower(character) <= 'z';
}

bool isControl(char character)
{
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

int convertHexDigit(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const char lower = toLower(digit);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// RFC 3986, 3.1: a letter, then letters, digits, "+", "-" and ".", then ":". Drive letters are schemes, too.
bool startsWithScheme(boost::string_ref target)
{
    if (target.empty() || !isLetter(target.front()))
        return false;
    const auto end = std::find_if(target.begin(), target.end(), [](char character) {
        const bool isDigit = character >= '0' && character <= '9';
        return !isLetter(character) && !isDigit && character != '+' && character != '-' && character != '.';
    });
    return end != target.end() && *end == ':';
}

bool startsWithDrive(boost::string_ref name)
{
    return name.size() >= 2 && isLetter(name[0]) && name[1] == ':' && (name.size() == 2 || name[2] == '/');
}

std::string replaceBackslashes(boost::string_ref text)
{
    std::string replaced(text.begin(), text.end());
    std::replace(replaced.begin(), replaced.end(), '\\', '/');
    return replaced;
}

// A decoded slash would make two segments of one, so the name that was checked would not be the name that
// is read.
bool isAllowedSegment(boost::string_ref segment)
{
    const std::string decoded = decodePercents(segment);
    const auto encodedSlash = [](char character) { return character == '/' || character == '\\'; };
    return std::none_of(decoded.begin(), decoded.end(), isControl) &&
           std::none_of(decoded.begin(), decoded.end(), encodedSlash);
}

// Appends the segments of a text, taking one back for each ".."; false where that leaves the root or a
// segment is not allowed.
bool appendSegments(boost::string_ref text, Segments& segments)
{
    while (!text.empty()) {
        const std::size_t size = std::min(text.find('/'), text.size());
        const boost::string_ref segment = text.substr(0, size);
        text.remove_prefix(std::min(size + 1, text.size()));
        const std::string decoded = decodePercents(segment);
        if (!isAllowedSegment(segment))
            return false;
        if (decoded == "..") {
            if (segments.empty())
                return false;
            segments.pop_back();
        } else if (!decoded.empty() && decoded != ".")
            segments.emplace_back(segment.begin(), segment.end());
    }
    return true;
}

boost::optional<std::string> join(const Segments& segments)
{
    if (segments.empty())
        return boost::none;
    std::string name = segments.front();
    for (std::size_t i = 1; i < segments.size(); ++i)
        name += '/' + segments[i];
    return name;
}

bool hasParentSegment(const std::string& name)
{
    const std::string decoded = '/' + decodePercents(name) + '/';
    return decoded.find("/../") != std::string::npos;
}

} // namespace

// RFC 3986, 2.1.
std::string decodePercents(boost::string_ref text)
{
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? convertHexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? convertHexDigit(text[i + 2]) : -1;
        decoded += low >= 0 ? static_cast<char>(high * 16 + low) : text[i];
        if (low >= 0)
            i += 2;
    }
    return decoded;
}

boost::optional<std::string> normalizePartName(boost::string_ref name)
{
    std::string path = replaceBackslashes(name);
    if (!path.empty() && path.front() == '/')
        path.erase(0, 1);
    if (path.empty() || path.front() == '/' || startsWithDrive(path) || hasParentSegment(path))
        return boost::none;
    Segments segments;
    if (!appendSegments(path, segments))
        return boost::none;
    return join(segments);
}

std::string makePartKey(boost::string_ref name)
{
    std::string key = decodePercents(name);
    std::transform(key.begin(), key.end(), key.begin(), toLower);
    return key;
}

boost::optional<std::string> resolveTarget(const std::string& sourcePart, boost::string_ref target)
{
    // RFC 3986, 3.4 and 3.5: neither a query nor a fragment is part of the path.
    const std::string path = replaceBackslashes(target.substr(0, target.find_first_of("?#")));
    if (path.empty() && !target.empty() && !sourcePart.empty())
        return sourcePart;
    if (path.empty() || startsWithScheme(path) || path.compare(0, 2, "//") == 0)
        return boost::none;
    Segments segments;
    const auto folderEnd = sourcePart.rfind('/');
    if (path.front() != '/' && folderEnd != std::string::npos &&
        !appendSegments(boost::string_ref(sourcePart).substr(0, folderEnd), segments))
        return boost::none;
    if (!appendSegments(path, segments))
        return boost::none;
    return join(segments);
}

std::string makeRelationshipsPartName(const std::string& part)
{
    const auto slash = part.rfind('/');
    const std::size_t folderSize = slash == std::string::npos ? 0 : slash + 1;
    return part.substr(0, folderSize) + "_rels/" + part.substr(folderSize) + ".rels";
}

std::string getPartExtension(const std::string& part)
{
    const auto slash = part.rfind('/');
    const auto dot = part.rfind('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash))
        return {};
    return makePartKey(boost::string_ref(part).substr(dot + 1));
}

bool equalWithoutCase(boost::string_ref left, boost::string_ref right)
{
    return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                              [](char a, char b) { return toLower(a) == toLower(b); });
}

} // namespace QV::Filters
