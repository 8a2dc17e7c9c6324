#include <Filters/ModelJson/JsonWriter.h>

#include <ostream>

#include <fmt/format.h>

namespace QV::Filters {
namespace {

constexpr std::size_t BufferSize = 1U << 16U;
constexpr std::size_t LevelsOnOwnLines = 4; // the document, its tables, a table, its cells

} // namespace

JsonWriter::JsonWriter(std::ostream& out)
    : _out(out)
{
    _buffer.reserve(BufferSize + BufferSize / 4);
}

JsonWriter::~JsonWriter()
{
    flush();
}

void JsonWriter::flush()
{
    _out.write(_buffer.data(), static_cast<std::streamsize>(_buffer.size()));
    _flushedSize += _buffer.size();
    _buffer.clear();
}

void JsonWriter::begin(char bracket)
{
    startValue();
    _buffer += bracket;
    _hasMembers.push_back(false);
}

void JsonWriter::end(char bracket)
{
    const bool hasMembers = _hasMembers.back();
    _hasMembers.pop_back();
    if (hasMembers && _hasMembers.size() < LevelsOnOwnLines)
        breakLine();
    _buffer += bracket;
    if (_hasMembers.empty())
        _buffer += '\n';
    if (_buffer.size() >= BufferSize)
        flush();
}

void JsonWriter::startValue()
{
    if (_followsKey) {
        _followsKey = false;
        return;
    }
    if (_hasMembers.empty())
        return;
    if (_hasMembers.back())
        _buffer += _hasMembers.size() <= LevelsOnOwnLines ? "," : ", ";
    _hasMembers.back() = true;
    if (_hasMembers.size() <= LevelsOnOwnLines)
        breakLine();
}

void JsonWriter::breakLine()
{
    _buffer += '\n';
    _buffer.append(2 * _hasMembers.size(), ' ');
}

void JsonWriter::writeKey(boost::string_ref key)
{
    startValue();
    appendQuoted(key);
    _buffer += ": ";
    _followsKey = true;
}

void JsonWriter::write(boost::string_ref text)
{
    startValue();
    appendQuoted(text);
}

void JsonWriter::write(bool value)
{
    startValue();
    _buffer += value ? "true" : "false";
}

void JsonWriter::write(long value)
{
    startValue();
    fmt::format_to(std::back_inserter(_buffer), "{}", value);
}

void JsonWriter::write(unsigned long value)
{
    startValue();
    fmt::format_to(std::back_inserter(_buffer), "{}", value);
}

void JsonWriter::write(double value)
{
    startValue();
    appendNumber(fmt::format("{}", value));
}

void JsonWriter::write(float value)
{
    startValue();
    appendNumber(fmt::format("{}", value));
}

void JsonWriter::appendNumber(const std::string& text)
{
    _buffer += text;
    if (text.find_first_of(".e") == std::string::npos)
        _buffer += ".0";
}

void JsonWriter::appendQuoted(boost::string_ref text)
{
    _buffer += '"';
    std::size_t plainBegin = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c >= 0x20 && c != '"' && c != '\\')
            continue;
        _buffer.append(text.data() + plainBegin, i - plainBegin);
        plainBegin = i + 1;
        if (c == '"' || c == '\\')
            (_buffer += '\\') += static_cast<char>(c);
        else if (c == '\n')
            _buffer += "\\n";
        else if (c == '\t')
            _buffer += "\\t";
        else
            fmt::format_to(std::back_inserter(_buffer), "\\u{:04x}", c);
    }
    _buffer.append(text.data() + plainBegin, text.size() - plainBegin);
    _buffer += '"';
}

} // namespace QV::Filters
