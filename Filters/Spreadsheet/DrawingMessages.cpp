#include <Filters/Spreadsheet/DrawingMessages.h>

namespace QV::Filters {

void DrawingMessages::pass(const OperationReport& messages)
{
    for (const OperationReport::Message& message : messages.getMessages())
        if (_counts.add(message.getText()))
            _report.emplace_back(message);
}

void DrawingMessages::finish()
{
    _counts.finish(_report);
}

} // namespace QV::Filters
