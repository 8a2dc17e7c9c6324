#include <Filters/Package/MessageCounts.h>

#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

constexpr unsigned long MessagesMax = 1000; // of one pattern

} // namespace

bool MessageCounts::add(std::string_view pattern)
{
    auto found = _counts.find(pattern);
    if (found == _counts.end())
        found = _counts.emplace(pattern, 0).first;
    return ++found->second <= MessagesMax;
}

void MessageCounts::finish(OperationReport& report)
{
    for (const auto& count : _counts)
        if (count.second > MessagesMax)
            report.emplace_back("{} more times: {}", std::to_string(count.second - MessagesMax), count.first);
    _counts.clear();
}

} // namespace QV::Filters
