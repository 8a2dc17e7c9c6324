// ICUDecimalFormatWrapper, made and set up for each number, against one ICU formatter that is kept.

#include <OfficeUtils/Public/ICUDecimalFormatWrapper.h>

#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/decimfmt.h>

#include <Benchmarks/Support/KeptFormatter.h>

namespace QV::OfficeUtils {
namespace {

constexpr int Precision = 6;

std::vector<double> makeValues()
{
    std::mt19937 random(1);
    std::vector<double> values;
    for (int i = 0; i < 64; ++i)
        values.push_back(static_cast<double>(random() % 2000000) / (i % 4 == 0 ? 1 : 1000));
    return values;
}

std::string formatThroughWrapper(double value)
{
    ICUDecimalFormatWrapper format(LocaleContext("en_US"));
    format.setPrecision(Precision);
    return format.toString(value);
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

void wrap(benchmark::State& state)
{
    Benchmarks::formatAll(state, makeValues(), formatThroughWrapper, formatThroughKept);
}
BENCHMARK(wrap)->Name("ICUDecimalFormatWrapper/ours");

void keep(benchmark::State& state)
{
    Benchmarks::formatAll(state, makeValues(), formatThroughKept, formatThroughWrapper);
}
BENCHMARK(keep)->Name("ICUDecimalFormatWrapper/reference");

} // namespace
} // namespace QV::OfficeUtils
