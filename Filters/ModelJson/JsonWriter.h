#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

#include <boost/utility/string_ref.hpp>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Writes JSON piece by piece, so that a document of any size needs no second copy in memory.
///
///     JsonWriter json(out);
///     json.beginObject();
///     json.writeMember("rows", 3L);
///     json.endObject();
///
/// The outer levels stand on lines of their own, the inner ones on one line. Text is taken as UTF-8.
class FILTERS_API JsonWriter
{
public:
    explicit JsonWriter(std::ostream& out);
    /// Writes out what is buffered.
    ~JsonWriter();

    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// Before each value of an object.
    void writeKey(boost::string_ref key);

    void write(boost::string_ref text);
    void write(const std::string& text) { write(boost::string_ref(text)); }
    void write(const char* text) { write(boost::string_ref(text)); }
    void write(bool value);
    void write(long value);
    void write(unsigned long value);
    /// The shortest text that reads back to the same number, always with a point or an exponent.
    /// @param value finite
    void write(double value);
    void write(float value);

    template <typename Value>
    void writeMember(boost::string_ref key, const Value& value)
    {
        writeKey(key);
        write(value);
    }

    void flush();

    /// Bytes so far, flushed or not.
    std::size_t getWrittenSize() const { return _flushedSize + _buffer.size(); }

private:
    void begin(char bracket);
    void end(char bracket);
    void startValue();
    void breakLine();
    void appendQuoted(boost::string_ref text);
    void appendNumber(const std::string& text);

    std::ostream& _out;
    std::string _buffer;
    std::size_t _flushedSize = 0;
    std::vector<bool> _hasMembers; // of each open object or array
    bool _followsKey = false;
};

} // namespace QV::Filters
