#include <FilterUtils/FU_TableNamesInFormulas.h>

#include <memory>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <boost/variant/get.hpp>

#include <DOM/Public/Chart.h>
#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/FormulaReferences.h>
#include <DOM/Public/FormulaSyntaxTree.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Series.h>
#include <DOM/Public/Table.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h>
#include <Utils/Public/Visitor.h>

namespace QV::FilterUtils {
namespace {

namespace Tree = DOM::FormulaSyntaxTree;

using Resolver = std::function<const UUID*(const std::string&)>;

class TableNamesReplacer
{
public:
    explicit TableNamesReplacer(Resolver resolver)
        : _resolver(std::move(resolver))
    {
    }

    void operator()(Tree::Label& label) const { label.setTableAddress(resolve(label.getTableAddress())); }
    void operator()(Tree::CellAddress& cell) const { cell.setTableAddress(resolve(cell.getTableAddress())); }
    void operator()(Tree::CellRange& range) const
    {
        range.setFirstTableAddress(resolve(range.getFirstTableAddress()));
        range.setSecondTableAddress(resolve(range.getSecondTableAddress()));
    }
    void operator()(Tree::Expr&) const {}

private:
    Tree::TableAddress resolve(const Tree::TableAddress& address) const
    {
        const auto* const name = boost::get<std::string>(&address);
        if (!name || name->empty())
            return address;
        const UUID* const uuid = _resolver(*name);
        return uuid ? Tree::TableAddress(*uuid) : address;
    }

    Resolver _resolver;
};

class ChartNamesReplacer
{
public:
    explicit ChartNamesReplacer(Resolver resolver)
        : _resolver(std::move(resolver))
    {
    }

    void replaceIn(DOM::Frame& frame) const
    {
        const auto* const chartSpace = exactCast<DOM::ChartSpace>(frame.getGraphicalObject());
        if (!chartSpace)
            return;
        auto copy = std::make_unique<DOM::ChartSpace>(*chartSpace);
        if (DOM::ChartTitle* const title = copy->getTitle())
            if (title->getText())
                if (auto* const formulas = boost::get<std::vector<DOM::Formula>>(&*title->getText()))
                    replaceIn(*formulas);
        for (DOM::Chart& chart : copy->getPlotArea().getCharts())
            replaceIn(chart);
        frame.setGraphicalObject(std::move(copy));
    }

private:
    void replaceIn(DOM::Chart& chart) const
    {
        replaceIn(chart.getCategories());
        for (const std::unique_ptr<DOM::Series>& item : chart.getLiveSeries()) {
            DOM::Series* const series = checkPtr(item.get());
            if (!series)
                continue;
            replaceIn(series->getName());
            replaceIn(series->getValues());
            replaceIn(series->getOwnCategories());
        }
    }

    void replaceIn(DOM::Series::Formulas& formulas) const
    {
        if (formulas)
            replaceIn(*formulas);
    }

    void replaceIn(std::vector<DOM::Formula>& formulas) const
    {
        for (DOM::Formula& formula : formulas)
            replaceTableNamesWithUUIDs(_resolver, formula.getSyntaxTree());
    }

    Resolver _resolver;
};

} // namespace

void replaceTableNamesWithUUIDs(Resolver resolver, DOM::FormulaSyntaxTree::Expr& root)
{
    TableNamesReplacer replacer(std::move(resolver));
    StaticVisitorBinder<Tree::Expr, TableNamesReplacer> binder;
    binder.bind(replacer);
    for (Tree::Expr* const plainNode : toExprStack(root))
        if (Tree::Expr* const node = checkPtr(plainNode))
            node->accept(binder);
}

void replaceTableNamesWithUUIDsForCharts(Resolver resolver, DOM::Document& document)
{
    const ChartNamesReplacer replacer(std::move(resolver));
    for (DOM::Block& block : document.getBlocks())
        if (const auto* const table = exactCast<DOM::Table>(&block))
            for (const std::unique_ptr<DOM::Frame>& item : table->getFrames())
                if (DOM::Frame* const frame = checkPtr(item.get()))
                    replacer.replaceIn(*frame);
}

} // namespace QV::FilterUtils
