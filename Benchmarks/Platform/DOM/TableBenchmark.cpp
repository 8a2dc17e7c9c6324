// What a table of a million numbers costs, and what reading it back takes, beside a flat array of doubles.

#include <DOM/Public/Table.h>

#include <malloc.h>

#include <cstddef>
#include <map>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include <DOM/Public/TableBuilder.h>

namespace QV::DOM {
namespace {

constexpr unsigned long ColumnsCount = 20;

void fill(Table& table, unsigned long cellsCount)
{
    TableBuilder builder(table);
    for (unsigned long i = 0; i < cellsCount; ++i)
        builder.appendCell(RowIndex(i / ColumnsCount), ColumnIndex(i % ColumnsCount))
            .setNumber(static_cast<double>(i));
}

double sumOf(unsigned long cellsCount)
{
    return static_cast<double>(cellsCount) * static_cast<double>(cellsCount - 1) / 2;
}

/// Bytes of the heap that are in use, large blocks included.
std::size_t getHeapSize()
{
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

void fillTable(benchmark::State& state)
{
    const auto count = static_cast<unsigned long>(state.range(0));
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::size_t before = getHeapSize();
        Table table;
        fill(table, count);
        bytes = getHeapSize() - before;
        benchmark::DoNotOptimize(table);
    }
    const double bytesPerCell = static_cast<double>(bytes) / static_cast<double>(count);
    state.counters["bytes_per_cell"] = bytesPerCell;
    if (bytesPerCell > 64)
        state.SkipWithError("a plain cell takes more than 64 bytes");
}
BENCHMARK(fillTable)->Name("fillTable/ours")->Arg(1000000)->Unit(benchmark::kMillisecond);

void fillArray(benchmark::State& state)
{
    const auto count = static_cast<unsigned long>(state.range(0));
    for (auto _ : state) {
        std::vector<std::vector<double>> rows;
        for (unsigned long i = 0; i < count; ++i) {
            if (i % ColumnsCount == 0)
                rows.emplace_back();
            rows.back().push_back(static_cast<double>(i));
        }
        benchmark::DoNotOptimize(rows);
    }
}
BENCHMARK(fillArray)->Name("fillTable/reference")->Arg(1000000)->Unit(benchmark::kMillisecond);

void walkTable(benchmark::State& state)
{
    const auto count = static_cast<unsigned long>(state.range(0));
    Table table;
    fill(table, count);
    for (auto _ : state) {
        double sum = 0;
        for (const Cell& cell : static_cast<const Table&>(table).getTableIterators())
            sum += cell.getNumber();
        if (sum != sumOf(count))
            state.SkipWithError("the table gives other numbers than it was given");
    }
}
BENCHMARK(walkTable)->Name("walkTable/ours")->Arg(1000000)->Unit(benchmark::kMillisecond);

void walkArray(benchmark::State& state)
{
    const auto count = static_cast<unsigned long>(state.range(0));
    std::vector<double> numbers(count);
    for (unsigned long i = 0; i < count; ++i)
        numbers[i] = static_cast<double>(i);
    for (auto _ : state) {
        double sum = 0;
        for (const double number : numbers)
            sum += number;
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(walkArray)->Name("walkTable/reference")->Arg(1000000)->Unit(benchmark::kMillisecond);

std::vector<unsigned long> makeRandomPlaces(unsigned long cellsCount)
{
    std::mt19937 random(7); // a fixed seed
    std::vector<unsigned long> places(100000);
    for (unsigned long& place : places)
        place = random() % cellsCount;
    return places;
}

void findCells(benchmark::State& state)
{
    const auto count = static_cast<unsigned long>(state.range(0));
    Table table;
    fill(table, count);
    const auto places = makeRandomPlaces(count);
    for (auto _ : state)
        for (const unsigned long place : places) {
            const Cell* const cell =
                table.findCell(RowIndex(place / ColumnsCount), ColumnIndex(place % ColumnsCount));
            if (!cell || cell->getNumber() != static_cast<double>(place))
                state.SkipWithError("a cell is not where it was put");
        }
}
BENCHMARK(findCells)->Name("findCell/ours")->Arg(1000000)->Unit(benchmark::kMillisecond);

void findNumbers(benchmark::State& state)
{
    const auto count = static_cast<unsigned long>(state.range(0));
    std::map<unsigned long, std::vector<double>> rows;
    for (unsigned long i = 0; i < count; ++i)
        rows[i / ColumnsCount].push_back(static_cast<double>(i));
    const auto places = makeRandomPlaces(count);
    for (auto _ : state)
        for (const unsigned long place : places)
            benchmark::DoNotOptimize(rows.find(place / ColumnsCount)->second[place % ColumnsCount]);
}
BENCHMARK(findNumbers)->Name("findCell/reference")->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace QV::DOM
