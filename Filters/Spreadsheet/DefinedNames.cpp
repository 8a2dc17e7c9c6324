#include <Filters/Spreadsheet/DefinedNames.h>

#include <string>
#include <utility>

#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Spreadsheet/CellFormulas.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

constexpr unsigned MessagesMax = 1000;

/// The table of a sheet by its number; null where there is none.
const DOM::Table* findTable(const std::vector<const DOM::Table*>& tables, const std::string& number)
{
    const auto index = strToUlong(number);
    return index && *index < tables.size() ? tables[*index] : nullptr;
}

} // namespace

void readDefinedNames(const std::vector<NameEntry>& names, const std::vector<const DOM::Table*>& tables,
    FormulaContext& formulas, FilterRun& run)
{
    unsigned messagesCount = 0;
    const auto report = [&](const char* pattern, const std::string& name, const std::string& detail) {
        if (++messagesCount <= MessagesMax)
            run.getReport().emplace_back(pattern, name, detail);
    };
    for (const NameEntry& entry : names) {
        const DOM::Table* const table = findTable(tables, entry.sheetNumber);
        if (!entry.sheetNumber.empty() && !table) {
            report("Defined name {} belongs to sheet {}, which there is not", entry.name, entry.sheetNumber);
            continue;
        }
        auto formula = formulas.parse(entry.text);
        if (!formula)
            report("Defined name {} has a formula that cannot be read; its text is kept: {}", entry.name,
                entry.text);
        DOM::DefinedName name(
            entry.name, formula ? std::move(*formula) : DOM::Formula::makeUnread(entry.text));
        if (table)
            name.setTable(table->getUUID());
        name.setVisible(entry.isVisible);
        run.getDocument().addDefinedName(std::move(name));
    }
}

} // namespace QV::Filters
