#pragma once

#include <string>
#include <vector>

#include <boost/utility/string_ref.hpp>

#include <Utils/Public/Log.h>

namespace QV::Tests {

/// While it lives, lines of the log are recorded; afterwards the log is silent.
class RecordedLog
{
public:
    RecordedLog()
    {
        setLogSink([this](boost::string_ref line) { _lines.emplace_back(line.begin(), line.end()); });
    }
    ~RecordedLog() { setLogSink({}); }

    RecordedLog(const RecordedLog&) = delete;
    RecordedLog& operator=(const RecordedLog&) = delete;

    const std::vector<std::string>& getLines() const { return _lines; }

private:
    std::vector<std::string> _lines;
};

} // namespace QV::Tests
