#pragma once

#include <map>
#include <set>
#include <string>

#include <Filters/Package/Export.h>
#include <Utils/Public/CaseInsensitiveLess.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

/// Gives each sheet of a workbook a name that is valid, and that no sheet before it has in any case of its
/// letters.
class FILTERS_API SheetNames
{
public:
    /// @p wanted itself where it is both; else the nearest such name, after a message for each of the two
    /// reasons: "Table name '{}' is invalid. Fixed table name is '{}'.", and "Sheet name {} is taken; the
    /// sheet is named {}".
    std::string makeName(const std::string& wanted, OperationReport& report);

private:
    std::set<std::string, CaseInsensitiveLess> _taken;
    std::map<std::string, unsigned long, CaseInsensitiveLess> _lastNumbers; // of names that were wanted again
};

} // namespace QV::Filters
