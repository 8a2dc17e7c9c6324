#include <Filters/Spreadsheet/TableParts.h>

#include <string>
#include <utility>

#include <DOM/Public/Table.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Spreadsheet/CellReferences.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

std::string readStyleName(const XMLElement& part)
{
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict})
        if (const auto name = part.getElement(Names(dialect)(Vocabulary::Spreadsheet, "tableStyleInfo"))
                                  .getAttributeValue("name"))
            return *name;
    return {};
}

} // namespace

void readTablePart(const XMLElement& part, DOM::Table& table, OperationReport& report)
{
    if (!part.isValid())
        return;
    std::string name = part.getAttributeValue("displayName").value_or(std::string());
    if (name.empty())
        name = part.getAttributeValue("name").value_or(std::string());
    const std::string reference = part.getAttributeValue("ref").value_or(std::string());
    const auto range = parseRangeReference(reference);
    if (!range || !isInGrid({RowIndex(range->getEndRow() - 1), ColumnIndex(range->getEndColumn() - 1)})) {
        report.emplace_back("Table {} takes {}, which is no range of a sheet", name, reference);
        return;
    }
    table.appendStyledRange({std::move(name), *range, readStyleName(part)});
}

} // namespace QV::Filters
