#include <Filters/Spreadsheet/ChartReport.h>

#include <utility>

#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

constexpr unsigned long MessagesMax = 1000; // of one pattern

} // namespace

ChartReport::ChartReport(std::string part, OperationReport& report)
    : _part(std::move(part))
    , _report(report)
{
}

ChartReport::~ChartReport()
{
    for (const auto& count : _counts)
        if (count.second > MessagesMax)
            _report.emplace_back(
                "{} more times: {}", std::to_string(count.second - MessagesMax), std::string(count.first));
}

void ChartReport::add(const char* pattern, const std::string& value)
{
    if (++_counts[pattern] <= MessagesMax)
        _report.emplace_back(pattern, _part, value);
}

} // namespace QV::Filters
