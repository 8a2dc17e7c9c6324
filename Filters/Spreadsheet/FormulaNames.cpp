#include <Filters/Spreadsheet/FormulaNames.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <boost/unordered_set.hpp>
#include <boost/variant/get.hpp>

#include <DOM/Public/Chart.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/DefinedName.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/FormulaSyntaxTree.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Series.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_DocumentLinks.h>
#include <FilterUtils/FU_TableNamesInFormulas.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/MessageCounts.h>
#include <Formulas/Public/TableContext.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h>
#include <Utils/Public/Visitor.h>

namespace QV::Filters {
namespace {

namespace Tree = DOM::FormulaSyntaxTree;

using Resolver = std::function<const UUID*(const std::string&)>;

/// The tables of other documents in references to these: whatever their names, they are none of this
/// document's, and stay as they are while names become identifiers.
class ForeignTables
{
public:
    bool areNone() const { return _kept.empty(); }

    void keep(const Tree::Expr& root)
    {
        for (const Tree::Expr* const node : toExprStack(root))
            applyVisitor(Keeper{_kept}, *node);
    }

    /// Puts them back into the same formulas, in the same order.
    void putBack(Tree::Expr& root)
    {
        for (Tree::Expr* const node : toExprStack(root))
            applyVisitor(Restorer{_kept, _next}, *node);
    }

private:
    using Addresses = std::vector<Tree::TableAddress>;

    struct Keeper
    {
        void operator()(const Tree::Label& label) const { keep(label, label.getTableAddress()); }
        void operator()(const Tree::CellAddress& cell) const { keep(cell, cell.getTableAddress()); }
        void operator()(const Tree::CellRange& range) const
        {
            keep(range, range.getFirstTableAddress());
            keep(range, range.getSecondTableAddress());
        }
        void operator()(const Tree::Expr&) const {}

        void keep(const Tree::BaseReferenceExpr& reference, const Tree::TableAddress& table) const
        {
            if (!reference.getDocURL().empty())
                kept.push_back(table);
        }

        Addresses& kept;
    };

    struct Restorer
    {
        void operator()(Tree::Label& label) const
        {
            label.setTableAddress(find(label, label.getTableAddress()));
        }
        void operator()(Tree::CellAddress& cell) const
        {
            cell.setTableAddress(find(cell, cell.getTableAddress()));
        }
        void operator()(Tree::CellRange& range) const
        {
            range.setFirstTableAddress(find(range, range.getFirstTableAddress()));
            range.setSecondTableAddress(find(range, range.getSecondTableAddress()));
        }
        void operator()(Tree::Expr&) const {}

        Tree::TableAddress find(
            const Tree::BaseReferenceExpr& reference, const Tree::TableAddress& table) const
        {
            return reference.getDocURL().empty() ? table : kept[next++];
        }

        const Addresses& kept;
        std::size_t& next;
    };

    Addresses _kept;
    std::size_t _next = 0;
};

void resolveNames(Tree::Expr& root, const Resolver& resolver)
{
    ForeignTables foreign;
    foreign.keep(root);
    FilterUtils::replaceTableNamesWithUUIDs(resolver, root);
    foreign.putBack(root);
}

/// @param areForeign whether any cell of the document refers to another one
void resolveInCells(DOM::Table& table, const Resolver& resolver, bool areForeign)
{
    const auto cells = table.getTableIterators();
    for (auto it = cells.begin(); it != cells.end(); ++it)
        if (it->getFormula()) {
            DOM::Cell& cell = deref(table.findCell(it.getRowIndex(), it.getColIndex()));
            Tree::Expr& root = cell.getFormula()->getSyntaxTree();
            if (areForeign)
                resolveNames(root, resolver);
            else
                FilterUtils::replaceTableNamesWithUUIDs(resolver, root);
        }
}

const DOM::Series& getSeries(const DOM::Series& series)
{
    return series;
}

DOM::Series& getSeries(const std::unique_ptr<DOM::Series>& series)
{
    return deref(series);
}

/// Calls @p visit with the tree of each formula of a chart, which may be constant.
template <typename Space, typename Visitor>
void visitFormulas(Space& space, const Visitor& visit)
{
    const auto visitAll = [&](auto& formulas) {
        for (auto& formula : formulas)
            visit(formula.getSyntaxTree());
    };
    const auto visitOptional = [&](auto& formulas) {
        if (formulas)
            visitAll(*formulas);
    };
    auto* const title = space.getTitle();
    if (title && title->getText())
        if (auto* const formulas = boost::get<std::vector<DOM::Formula>>(&*title->getText()))
            visitAll(*formulas);
    for (auto& chart : space.getPlotArea().getCharts()) {
        visitOptional(chart.getCategories());
        for (auto& item : chart.getLiveSeries()) {
            auto& series = getSeries(item);
            visitOptional(series.getName());
            visitOptional(series.getValues());
            visitOptional(series.getOwnCategories());
        }
    }
}

/// Calls @p visit with each frame of the document that has a chart, and with the chart.
template <typename Visitor>
void visitCharts(DOM::Document& document, const Visitor& visit)
{
    for (DOM::Block& block : document.getBlocks())
        if (const auto* const table = exactCast<DOM::Table>(&block))
            for (const std::unique_ptr<DOM::Frame>& frame : table->getFrames())
                if (const auto* const space = exactCast<DOM::ChartSpace>(frame->getGraphicalObject()))
                    visit(*frame, *space);
}

void resolveInCharts(DOM::Document& document, const Resolver& resolver)
{
    ForeignTables foreign;
    visitCharts(document, [&](DOM::Frame&, const DOM::ChartSpace& space) {
        visitFormulas(space, [&](const Tree::Expr& root) { foreign.keep(root); });
    });
    FilterUtils::replaceTableNamesWithUUIDsForCharts(resolver, document);
    if (foreign.areNone())
        return;
    visitCharts(document, [&](DOM::Frame& frame, const DOM::ChartSpace& space) {
        auto copy = std::make_unique<DOM::ChartSpace>(space); // frames do not let their objects be changed
        visitFormulas(*copy, [&](Tree::Expr& root) { foreign.putBack(root); });
        frame.setGraphicalObject(std::move(copy));
    });
}

/// @param urls of documents that cells refer to; none of them empty
void noteLinks(const boost::unordered_set<std::string>& urls, FilterRun& run)
{
    const std::set<std::string> known(run.getLinks().begin(), run.getLinks().end());
    constexpr const char* Pattern = "Formulas refer to document {}, whose address is not known";
    MessageCounts counts;
    for (const std::string& url : std::set<std::string>(urls.begin(), urls.end())) {
        if (url.find_first_not_of("0123456789") != std::string::npos)
            run.addLink(url);
        else if (known.count(url) == 0 && counts.add(Pattern))
            run.getReport().emplace_back(Pattern, url);
    }
    counts.finish(run.getReport());
}

} // namespace

void resolveFormulaNames(FilterRun& run)
{
    DOM::Document& document = run.getDocument();
    const Formulas::TableContext tables = Formulas::TableContext::makeFor(document);
    const Resolver resolver = [&](const std::string& name) { return tables.findTable(name); };
    const auto urls = FilterUtils::findDocURLs(document);
    for (DOM::Block& block : document.getBlocks())
        if (auto* const table = exactCast<DOM::Table>(&block))
            resolveInCells(*table, resolver, !urls.empty());
    resolveInCharts(document, resolver);
    for (DOM::DefinedName& name : document.getDefinedNames())
        resolveNames(name.getFormula().getSyntaxTree(), resolver);
    noteLinks(urls, run);
}

} // namespace QV::Filters
