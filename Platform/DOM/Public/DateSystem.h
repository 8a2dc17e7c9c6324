#pragma once

#include <cstdint>

namespace QV::DOM {

/// Which day a document's dates count from.
enum class DateSystem : std::uint8_t
{
    From1900, // day 1 is 1900-01-01, and 1900 counts as a leap year
    From1904, // day 0 is 1904-01-01
};

} // namespace QV::DOM
