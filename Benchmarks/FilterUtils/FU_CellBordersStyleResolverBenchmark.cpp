// The effective borders of every cell of a table. What they cost for one cell must not grow with the table,
// so the reference is a table of 10,000 cells, resolved as often as it takes to come to as many cells; and a
// chain of eight named styles must not cost more than its length, so its reference is a chain of one, eight
// times.

#include <FilterUtils/FU_CellBordersStyleResolver.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/TableBuilder.h>
#include <Tests/Support/StyledTable.h>

namespace QV::FilterUtils {
namespace {

using Tests::makeBorders;
using Tests::StyledTable;

constexpr unsigned long ColumnsCount = 20;
constexpr std::int64_t FewCells = 10000;
constexpr int StylesCount = 50;

/// Cells of fifty formats, each with a chain of @p depth named styles that set one side each; and lines
/// between the cells.
std::unique_ptr<StyledTable> makeTable(std::int64_t cellsCount, std::int64_t depth)
{
    auto styled = std::make_unique<StyledTable>(1, 1);
    styled->setTableStyle({}, makeBorders({1, 1, 1, 1, 2, 2}));
    DOM::SharedObjectFactory factory;
    std::vector<DOM::SharedCellStyle> styles;
    for (int i = 0; i < StylesCount; ++i) {
        UUID parent;
        for (std::int64_t generation = 0; generation < depth; ++generation)
            parent = styled->addStyle(parent, makeBorders({3, 0, 0, 0, 0, 0}));
        DOM::CellStyle style;
        style.setParentUUID(parent);
        style.setCellProps(Tests::makeCellProps(makeBorders({0, 4, 0, 0, 0, 0})));
        styles.push_back(factory.getShared(style));
    }
    DOM::TableBuilder builder(styled->getTable());
    for (std::int64_t i = 0; i < cellsCount; ++i) {
        const auto place = static_cast<unsigned long>(i);
        DOM::Cell& cell =
            builder.appendCell(RowIndex(place / ColumnsCount), ColumnIndex(place % ColumnsCount));
        cell.setNumber(1);
        cell.setSharedStyle(styles[static_cast<std::size_t>(i % StylesCount)]);
    }
    builder.finish();
    return styled;
}

/// The sum of the widths that the left and right sides have.
float resolveAll(const StyledTable& styled)
{
    const CellBordersStyleResolver resolver(styled.getStyles(), styled.getTable(), true, nullptr);
    float sum = 0;
    const auto cells = Adapter::getCellIterators(styled.getTable());
    for (auto cell = cells.begin(); cell != cells.end(); ++cell) {
        const auto borders = resolver.resolve(cell);
        sum += borders->getLeft()->getWidth() + borders->getRight()->getWidth();
    }
    return sum;
}

void resolve(benchmark::State& state, std::int64_t cellsCount, std::int64_t depth, std::int64_t times)
{
    const auto styled = makeTable(cellsCount, depth);
    const auto rows = static_cast<float>(cellsCount) / ColumnsCount;
    const float expected = rows * (3 * ColumnsCount + 2 * (ColumnsCount - 1) + 1);
    for (auto _ : state)
        for (std::int64_t i = 0; i < times; ++i)
            if (resolveAll(*styled) != expected)
                state.SkipWithError("the borders are others");
    state.SetItemsProcessed(state.iterations() * cellsCount * times);
}

void resolveManyCells(benchmark::State& state)
{
    resolve(state, state.range(0), state.range(1), 1);
}
BENCHMARK(resolveManyCells)
    ->Name("resolveBorders/ours")
    ->Args({100000, 1})
    ->Args({1000000, 1})
    ->Args({100000, 8})
    ->Args({1000000, 8})
    ->Unit(benchmark::kMillisecond);

void resolveFewCellsOften(benchmark::State& state)
{
    resolve(state, FewCells, state.range(1), state.range(0) / FewCells);
}
BENCHMARK(resolveFewCellsOften)
    ->Name("resolveBorders/reference")
    ->Args({100000, 1})
    ->Args({1000000, 1})
    ->Args({100000, 8})
    ->Args({1000000, 8})
    ->Unit(benchmark::kMillisecond);

void resolveDeepChains(benchmark::State& state)
{
    resolve(state, state.range(0), 8, 1);
}
BENCHMARK(resolveDeepChains)->Name("resolveDeepBorders/ours")->Arg(100000)->Unit(benchmark::kMillisecond);

void resolveShortChainsOften(benchmark::State& state)
{
    resolve(state, state.range(0), 1, 8);
}
BENCHMARK(resolveShortChainsOften)
    ->Name("resolveDeepBorders/reference")
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace QV::FilterUtils
