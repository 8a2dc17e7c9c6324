#pragma once

#include <istream>
#include <memory>

#include <Utils/Public/Export.h>
#include <Utils/Public/InputStream.h>

namespace QV {

/// Makes input streams out of standard ones.
class UTILS_API StreamAdapterFactory
{
public:
    /// Reads from @p stream, which must outlive the result, from its current position. Nothing is read ahead:
    /// what the result has not given stays in @p stream.
    static std::shared_ptr<InputStream> convertToInputStream(std::istream& stream);

    /// The same over a stream that the result keeps. Null for a null pointer.
    static std::shared_ptr<InputStream> convertToInputStream(std::shared_ptr<std::istream> stream);
};

} // namespace QV
