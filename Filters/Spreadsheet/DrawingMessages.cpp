#include <Filters/Spreadsheet/DrawingMessages.h>

namespace QV::Filters {
namespace {

constexpr unsigned long MessagesMax = 1000; // of one pattern

} // namespace

void DrawingMessages::pass(const OperationReport& messages)
{
    for (const OperationReport::Message& message : messages.getMessages())
        if (++_counts[message.getText()] <= MessagesMax)
            _report.emplace_back(message);
}

void DrawingMessages::finish()
{
    for (const auto& count : _counts)
        if (count.second > MessagesMax)
            _report.emplace_back(
                "{} more times: {}", std::to_string(count.second - MessagesMax), count.first);
    _counts.clear();
}

} // namespace QV::Filters
