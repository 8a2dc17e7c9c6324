#pragma once

#include <stdexcept>

namespace QV::Tool {

/// What was asked for makes no sense, as only the document shows.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace QV::Tool
