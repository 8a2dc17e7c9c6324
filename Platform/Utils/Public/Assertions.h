#pragma once

/// @file
/// Assertions: where a programming error is told, once, to whoever the application chose.
///
///     QV_ASSERT(stream);
///     if (!stream)
///         return {}; // the handler may return, so the next line is well defined

#include <functional>

#include <boost/utility/string_ref.hpp>

#include <Utils/Public/Export.h>

namespace QV {

/// Receives a failed assertion: the source file (relative to the repository), its line, the text of the
/// expression and a message, which may be empty.
using FailAssertHandler =
    std::function<void(const char* file, int line, const char* expression, boost::string_ref message)>;

/// Replaces the process-wide handler; an empty one restores the default, which writes one line to stderr and
/// aborts. Safe to call from any thread.
UTILS_API void setFailAssertHandler(FailAssertHandler handler);

/// Calls the handler. Returns when the handler does.
UTILS_API void doFailAssert(const char* file, int line, const char* expression);
UTILS_API void doFailAssert(const char* file, int line, const char* expression, boost::string_ref message);

} // namespace QV

/// Fails with the text of @p expression where it is false. The statement after it must be well defined all
/// the same.
#define QV_ASSERT(expression)                                                                                \
    ((expression) ? static_cast<void>(0) : ::QV::doFailAssert(__FILE__, __LINE__, #expression))
