#include <Filters/Spreadsheet/FormulaNames.h>

#include <functional>
#include <set>
#include <string>

#include <DOM/Public/Document.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_DocumentLinks.h>
#include <FilterUtils/FU_TableNamesInFormulas.h>
#include <Filters/Package/FilterRun.h>
#include <Formulas/Public/TableContext.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

using Resolver = std::function<const UUID*(const std::string&)>;

void resolveInCells(DOM::Table& table, const Resolver& resolver)
{
    const auto cells = table.getTableIterators();
    for (auto it = cells.begin(); it != cells.end(); ++it)
        if (it->getFormula()) {
            DOM::Cell& cell = deref(table.findCell(it.getRowIndex(), it.getColIndex()));
            FilterUtils::replaceTableNamesWithUUIDs(resolver, cell.getFormula()->getSyntaxTree());
        }
}

} // namespace

void resolveFormulaNames(FilterRun& run)
{
    DOM::Document& document = run.getDocument();
    const Formulas::TableContext tables = Formulas::TableContext::makeFor(document);
    const Resolver resolver = [&](const std::string& name) { return tables.findTable(name); };
    for (DOM::Block& block : document.getBlocks())
        if (auto* const table = exactCast<DOM::Table>(&block))
            resolveInCells(*table, resolver);
    FilterUtils::replaceTableNamesWithUUIDsForCharts(resolver, document);

    const auto urls = FilterUtils::findDocURLs(document);
    for (const std::string& url : std::set<std::string>(urls.begin(), urls.end()))
        run.addLink(url);
}

} // namespace QV::Filters
