// formatDoubleToString, which makes its formatter anew for each number, against one ICU formatter that is
// kept.

#include <FilterUtils/FU_NumberText.h>

#include <string>

#include <benchmark/benchmark.h>

#include <Benchmarks/Support/KeptFormatter.h>

namespace QV::FilterUtils {
namespace {

constexpr int Precision = 15;

std::string formatThroughLibrary(double value)
{
    return formatDoubleToString(value, Precision);
}

std::string formatThroughKept(double value)
{
    static const Benchmarks::KeptFormatter kept = Benchmarks::makeKeptFormatter(Precision);
    return kept.toString(value);
}

void measureLibrary(benchmark::State& state)
{
    Benchmarks::formatAll(state, Benchmarks::makePlainValues(), formatThroughLibrary, formatThroughKept);
}
BENCHMARK(measureLibrary)->Name("formatDoubleToString/ours");

void measureKept(benchmark::State& state)
{
    Benchmarks::formatAll(state, Benchmarks::makePlainValues(), formatThroughKept, formatThroughLibrary);
}
BENCHMARK(measureKept)->Name("formatDoubleToString/reference");

} // namespace
} // namespace QV::FilterUtils
