#pragma once

#include <cstddef>

#include <Utils/Public/Export.h>

namespace QV {

/// A source of bytes that is read once, from its begin to its end.
class UTILS_API InputStream
{
public:
    /// Reads up to @p count bytes into @p buffer and returns how many they are; 0 at the end, and at every
    /// read after it. Fewer than @p count do not mean the end.
    ///
    /// @param flags 0; no flag has a meaning so far
    virtual std::size_t read(char* buffer, std::size_t count, int flags) = 0;

    virtual ~InputStream();
};

} // namespace QV
