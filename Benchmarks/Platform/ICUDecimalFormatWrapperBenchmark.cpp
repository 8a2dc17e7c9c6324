// ICUDecimalFormatWrapper, made and set up for each number, against one ICU formatter that is kept.

#include <OfficeUtils/Public/ICUDecimalFormatWrapper.h>

#include <string>

#include <benchmark/benchmark.h>

#include <Benchmarks/Support/KeptFormatter.h>

namespace QV::OfficeUtils {
namespace {

constexpr int Precision = 6;

std::string formatThroughWrapper(double value)
{
    ICUDecimalFormatWrapper format(LocaleContext("en_US"));
    format.setPrecision(Precision);
    return format.toString(value);
}

std::string formatThroughKept(double value)
{
    static const Benchmarks::KeptFormatter kept = Benchmarks::makeKeptFormatter(Precision);
    return kept.toString(value);
}

void wrap(benchmark::State& state)
{
    Benchmarks::formatAll(state, Benchmarks::makePlainValues(), formatThroughWrapper, formatThroughKept);
}
BENCHMARK(wrap)->Name("ICUDecimalFormatWrapper/ours");

void keep(benchmark::State& state)
{
    Benchmarks::formatAll(state, Benchmarks::makePlainValues(), formatThroughKept, formatThroughWrapper);
}
BENCHMARK(keep)->Name("ICUDecimalFormatWrapper/reference");

} // namespace
} // namespace QV::OfficeUtils
