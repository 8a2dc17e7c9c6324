#pragma once

/// @file
/// The process-wide log: one sink, silent unless set.

#include <functional>

#include <boost/utility/string_ref.hpp>

#include <Utils/Public/Export.h>

namespace QV {

/// Receives one line of text, without its end.
using LogSink = std::function<void(boost::string_ref line)>;

/// Replaces the sink; an empty one silences the log. Safe to call from any thread; the sink is called from
/// the thread that logs, so a sink of a program with several threads locks by itself.
UTILS_API void setLogSink(LogSink sink);

UTILS_API bool isLogSinkSet();

/// Hands @p line to the sink, if there is one.
UTILS_API void writeLog(boost::string_ref line);

} // namespace QV
