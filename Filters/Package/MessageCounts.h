#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// How often each message was wanted. A document can hold any number of the same trouble, so a thousand
/// messages of a pattern are told, and the others counted.
class FILTERS_API MessageCounts
{
public:
    /// Counts one more message of @p pattern, and returns whether it is to be told.
    bool add(std::string_view pattern);

    /// Tells how many of each pattern were not, in the order of the patterns, and forgets the counts.
    void finish(OperationReport& report);

private:
    std::map<std::string, unsigned long, std::less<>> _counts; // by pattern
};

} // namespace QV::Filters
