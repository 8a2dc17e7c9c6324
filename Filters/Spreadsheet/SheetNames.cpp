#include <Filters/Spreadsheet/SheetNames.h>

#include <fmt/format.h>

#include <DOM/Public/TableNames.h>
#include <FilterUtils/FU_Text.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

/// As much of the name as fits before the suffix.
std::string append(std::string name, const std::string& suffix)
{
    while (!name.empty() && !DOM::validateTableName(name + suffix)) {
        while ((static_cast<unsigned char>(name.back()) & 0xC0U) == 0x80U) // the rest of a character
            name.pop_back();
        name.pop_back();
    }
    return name + suffix;
}

} // namespace

std::string SheetNames::makeName(const std::string& wanted, OperationReport& report)
{
    const std::string valid = FilterUtils::fixTableNameIfNeed(report, wanted);
    if (_taken.insert(valid).second)
        return valid;
    unsigned long& number = _lastNumbers.emplace(valid, 1).first->second;
    std::string name;
    do
        name = append(valid, fmt::format(" ({})", ++number));
    while (!_taken.insert(name).second);
    report.emplace_back("Sheet name {} is taken; the sheet is named {}", valid, name);
    return name;
}

} // namespace QV::Filters
