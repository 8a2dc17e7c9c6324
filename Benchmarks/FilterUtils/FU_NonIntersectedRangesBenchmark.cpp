// NonIntersectedRanges against a vector that is scanned for each new range: random small blocks of a sheet
// that a third of them does not fit into.

#include <FilterUtils/FU_NonIntersectedRanges.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::FilterUtils {
namespace {

std::vector<TableRange> makeRanges(std::int64_t count)
{
    std::mt19937 random(1);
    const auto size = static_cast<unsigned long>(4 * std::sqrt(static_cast<double>(count)));
    std::vector<TableRange> ranges;
    for (std::int64_t i = 0; i < count; ++i) {
        const unsigned long row = random() % size;
        const unsigned long column = random() % size;
        ranges.emplace_back(row, column, row + 1 + random() % 3, column + 1 + random() % 3);
    }
    return ranges;
}

class PlainRanges
{
public:
    bool appendRange(const TableRange& range)
    {
        const auto intersects = [&range](const TableRange& other) {
            return range.getBeginRow() < other.getEndRow() && other.getBeginRow() < range.getEndRow() &&
                   range.getBeginColumn() < other.getEndColumn() &&
                   other.getBeginColumn() < range.getEndColumn();
        };
        if (std::any_of(_ranges.begin(), _ranges.end(), intersects))
            return false;
        _ranges.push_back(range);
        return true;
    }

    const std::vector<TableRange>& getRanges() const { return _ranges; }

private:
    std::vector<TableRange> _ranges;
};

template <typename Store>
Store appendAll(const std::vector<TableRange>& ranges)
{
    Store store;
    for (const TableRange& range : ranges)
        store.appendRange(range);
    return store;
}

void appendThroughLibrary(benchmark::State& state)
{
    const std::vector<TableRange> ranges = makeRanges(state.range(0));
    const std::size_t checked = std::min<std::size_t>(ranges.size(), 10000);
    const std::vector<TableRange> sample(
        ranges.begin(), ranges.begin() + static_cast<std::ptrdiff_t>(checked));
    NonIntersectedRanges merges;
    for (const TableRange& range : sample)
        merges.appendRange(range);
    if (merges.getRanges() != appendAll<PlainRanges>(sample).getRanges()) {
        state.SkipWithError("the two stores disagree");
        return;
    }
    for (auto _ : state) {
        NonIntersectedRanges store;
        for (const TableRange& range : ranges)
            benchmark::DoNotOptimize(store.appendRange(range));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(appendThroughLibrary)->Name("appendRange/ours")->Arg(1000)->Arg(10000)->Arg(100000);

void appendThroughScan(benchmark::State& state)
{
    const std::vector<TableRange> ranges = makeRanges(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(appendAll<PlainRanges>(ranges));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(appendThroughScan)->Name("appendRange/reference")->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace
} // namespace QV::FilterUtils
