// formatDoubleToString, which makes its formatter anew for each number, against one ICU formatter that is
// kept.

#include <FilterUtils/FU_NumberText.h>

#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/decimfmt.h>

#include <Benchmarks/Support/KeptFormatter.h>

namespace QV::FilterUtils {
namespace {

constexpr int Precision = 15;

std::vector<double> makeValues()
{
    std::mt19937 random(1);
    std::vector<double> values;
    for (int i = 0; i < 64; ++i)
        values.push_back(static_cast<double>(random() % 2000000) / (i % 4 == 0 ? 1 : 1000));
    return values;
}

std::string formatThroughLibrary(double value)
{
    return formatDoubleToString(value, Precision);
}

std::string formatThroughKept(double value)
{
    static const Benchmarks::KeptFormatter kept = [] {
        Benchmarks::KeptFormatter made(u"0.#", icu::DecimalFormat::kRoundHalfEven);
        made.setPrecision(Precision);
        return made;
    }();
    return kept.toString(value);
}

void measureLibrary(benchmark::State& state)
{
    Benchmarks::formatAll(state, makeValues(), formatThroughLibrary, formatThroughKept);
}
BENCHMARK(measureLibrary)->Name("formatDoubleToString/ours");

void measureKept(benchmark::State& state)
{
    Benchmarks::formatAll(state, makeValues(), formatThroughKept, formatThroughLibrary);
}
BENCHMARK(measureKept)->Name("formatDoubleToString/reference");

} // namespace
} // namespace QV::FilterUtils
