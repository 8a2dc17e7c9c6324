#pragma once

#include <string>

#include <Filters/Package/Export.h>
#include <Filters/Package/MessageCounts.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// The messages over one chart part. A part can hold any number of bad values, so those of one kind are told
/// a thousand times, and counted beyond.
class FILTERS_API ChartReport
{
public:
    ChartReport(std::string part, OperationReport& report);
    /// Tells what was only counted.
    ~ChartReport();

    ChartReport(const ChartReport&) = delete;
    ChartReport& operator=(const ChartReport&) = delete;

    /// Adds a message whose arguments are the part's name and @p value.
    void add(const char* pattern, const std::string& value);

private:
    std::string _part;
    OperationReport& _report;
    MessageCounts _counts;
};

} // namespace QV::Filters
