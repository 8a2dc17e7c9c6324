#pragma once

#include <utility>

#include <Filters/Package/Export.h>
#include <Filters/Package/MessageCounts.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

/// The messages about one drawing: of one trouble in very many objects, the first thousand are named and the
/// others counted.
class FILTERS_API DrawingMessages
{
public:
    explicit DrawingMessages(OperationReport& report)
        : _report(report)
    {
    }

    /// Hands on what was reported since.
    void pass(const OperationReport& messages);

    template <typename... Arguments>
    void add(Arguments&&... arguments)
    {
        OperationReport one;
        one.emplace_back(std::forward<Arguments>(arguments)...);
        pass(one);
    }

    /// Reports how many were not named.
    void finish();

private:
    OperationReport& _report;
    MessageCounts _counts;
};

} // namespace QV::Filters
