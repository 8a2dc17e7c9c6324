#include <Filters/Package/ChartReport.h>

#include <utility>

#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

ChartReport::ChartReport(std::string part, OperationReport& report)
    : _part(std::move(part))
    , _report(report)
{
}

ChartReport::~ChartReport()
{
    _counts.finish(_report);
}

void ChartReport::add(const char* pattern, const std::string& value)
{
    if (_counts.add(pattern))
        _report.emplace_back(pattern, _part, value);
}

} // namespace QV::Filters
