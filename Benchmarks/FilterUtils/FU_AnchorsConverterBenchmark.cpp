// AnchorsConverter against the free functions: anchors all over a table, of which every row has a height of
// its own. The reference takes only a few anchors of the longest table; both are counted by the anchor.

#include <FilterUtils/FU_AnchorsConverter.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include <FilterUtils/FU_Anchors.h>
#include <FilterUtils/FU_TableDimensionsInfo.h>

namespace QV::FilterUtils {
namespace {

constexpr std::size_t RowsCount = 1048576;

TableDimensionsInfo makeDimensions()
{
    std::mt19937 random(1);
    TableDimensionsInfo dimensions;
    dimensions.setDefaultColumnWidth(48);
    dimensions.setDefaultRowHeight(15);
    for (std::size_t i = 0; i < RowsCount; ++i)
        dimensions.getRowsHeight().push_back(static_cast<float>(random() % 4096) / 100);
    return dimensions;
}

std::vector<DOM::Frame> makeFrames(std::int64_t count)
{
    std::mt19937 random(1);
    std::vector<DOM::Frame> frames;
    for (std::int64_t i = 0; i < count; ++i) {
        const unsigned long row = random() % (RowsCount - 100);
        DOM::TwoCellAnchor anchor;
        anchor.setFrom({ColumnIndex(random() % 100), 1.5F, RowIndex(row), 2.25F});
        anchor.setTo({ColumnIndex(random() % 100), 0.5F, RowIndex(row + random() % 100), 0.75F});
        frames.emplace_back().setAnchor(anchor);
    }
    return frames;
}

// Places of frames are summed, and turned ones subtracted again: both ways of the conversion.
void convertThroughConverter(benchmark::State& state)
{
    const TableDimensionsInfo dimensions = makeDimensions();
    const std::vector<DOM::Frame> frames = makeFrames(state.range(0));
    AnchorsConverter checked(dimensions);
    for (std::size_t i = 0; i < 20; ++i) {
        if (checked.turnFrameOXMLSpecificWay(frames[i]) != turnFrameOXMLSpecificWay(frames[i], dimensions)) {
            state.SkipWithError("the two ways disagree");
            return;
        }
    }
    for (auto _ : state) {
        AnchorsConverter converter(dimensions);
        for (const DOM::Frame& frame : frames)
            benchmark::DoNotOptimize(converter.turnFrameOXMLSpecificWay(frame));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void convertOneByOne(benchmark::State& state)
{
    const TableDimensionsInfo dimensions = makeDimensions();
    const std::vector<DOM::Frame> frames = makeFrames(state.range(0));
    for (auto _ : state)
        for (const DOM::Frame& frame : frames)
            benchmark::DoNotOptimize(turnFrameOXMLSpecificWay(frame, dimensions));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(convertThroughConverter)
    ->Name("turnFrames/ours")
    ->Arg(20)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(convertOneByOne)
    ->Name("turnFrames/reference")
    ->Arg(20)
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace QV::FilterUtils
